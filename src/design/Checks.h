#pragma once

#include <vector>

#include <folvane/Design.h>

#include "design/Shape.h"

// The checks of a design, subject by subject. Each adds what it finds.
namespace folvane::design {

/// A design that is checked, and what was found so far.
struct Checked {
  const Design& design;
  Connection* connection;  ///< null where only the design is looked at
  std::vector<DesignFinding> findings = {};
};

/// Classes, and the place of tables among them and under each other.
void CheckTree(Checked& checked);
/// Fields by themselves: names, captions, types, dictionaries.
void CheckFields(Checked& checked);
/// Controls of the entry form.
void CheckForms(Checked& checked);
/// Columns of the list and fields of the searches.
void CheckLists(Checked& checked);
/// Archive numbers and transfers, as the settings of transfers check them.
void CheckTransfers(Checked& checked);
/// What the database says to the condition of rights, "" when it takes it or has no such table. The rows themselves are
/// not asked for. @throws DataError where it cannot be asked
QString RefusalOf(Connection& connection, const Design::Rights& rights);
/// Users and their rights; conditions are tried on the database.
void CheckRights(Checked& checked);
/// Reports and their templates; those are looked for where a folder is given.
void CheckReports(Checked& checked, const QString& folder);
/// Tables and columns of the database. Does nothing without one.
void CheckColumns(Checked& checked);
/// Rows of the database that a design cannot hold. Does nothing without one.
void CheckRows(Checked& checked);

/// Where something is: the table, and what of it.
template <class Part>
QString Where(const Design::Table& table, const Part& part) {
  return Shape<Design::Table>::TitleOf(table) + u' ' + Shape<Part>::TitleOf(part);
}

/// A change of one table, for a mend. It does nothing where the table is gone.
std::function<void(Design&)> InTable(const Design::Table& table, std::function<void(Design::Table&)> change);

/// A mend that takes a part out of one of the table's lists.
template <class Part>
std::function<void(Design&)> Without(const Design::Table& table, std::vector<Part> Design::Table::*list,
                                     const Part& part) {
  return InTable(table, [list, part](Design::Table& found) { std::erase(found.*list, part); });
}

/// The design has nothing to be mended: what the database lacks is made as it is applied.
inline void ByApplying(Design&) {}

}  // namespace folvane::design
