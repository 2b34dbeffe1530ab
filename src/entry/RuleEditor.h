#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <vector>

#include "forms/EntryLayout.h"

namespace folvane {

/// A line of the editor of proofing rules, as its three boxes show it.
struct RuleLine {
  QString field;  ///< the name of the field that messages use
  QString relation, value;

  bool operator==(const RuleLine&) const = default;
};

/// Edits the proofing rules of a table. What a line says waits as a statement until Commit; a pattern and the removal
/// of all rules are written at once. All routines @throw DataError.
class RuleEditor {
 public:
  static constexpr int kLineCount = 6;
  using Lines = std::array<RuleLine, kLineCount>;

  explicit RuleEditor(const QString& table) : table_(table) {}

  const QString& Table() const { return table_; }
  /// Goes over to another table; what is pending stays.
  void SetTable(const QString& table) {
    table_ = table;
    formats_ = {};
  }

  Lines ReadRules() const;
  /// The names of the table's fields.
  QStringList FillFieldValue() const;

  /// The pattern of a line's rule, "" when it has none.
  QString ReadFormat(int line) const;
  /// Writes a pattern, which an insert of the line's rule takes over too. An empty one, of a cancelled window, is none.
  void WriteFormat(int line, const QString& pattern);

  /// Notes what a line says. Answers false for a line without a field or a relation, and notes nothing then.
  bool SaveTemp(int line, const RuleLine& said);
  /// The statement that waits for a line, "" for none.
  const QString& Pending(int line) const { return SqlList_.at(size_t(line)); }
  /// Runs the statements that wait, all or none. After an error they still wait.
  void Commit();

  /// Removes all rules of the table, with what waits to be written of them.
  void DeleteAll();

 private:
  void GetIndexAndType(const RuleLine& said);
  void SaveToUpdate(int line, const RuleLine& said);
  void Note(int line, const QString& statement);
  QString OfTable() const;
  QString UpdateStatement(int line, const RuleLine& said) const;
  QString InsertStatement(int line, const RuleLine& said) const;

  QString table_;
  std::array<QString, kLineCount> SqlList_, formats_;
  std::array<QString, kLineCount> notedFor_;  // the table that the waiting statement of a line is of
  // Of the field that was last looked up.
  QString fieldName_;
  ControlId control_;
};

/// The tables whose rules can be edited.
struct RuleTable {
  QString caption, table, className;
};
std::vector<RuleTable> ReadRuleTables();

}  // namespace folvane
