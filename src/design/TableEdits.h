#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include <folvane/Design.h>

// Changes of a design that keep together what belongs together.
namespace folvane::design {

/// The words that a field's type may be, the usual one first.
const QStringList& FieldTypeNames();

/// A name for a field or a table that is made from its caption and can be one; `isTaken` says which are in use.
QString NameFor(const QString& caption, const std::function<bool(const QString& name)>& isTaken);

/// Adds a field with its control on the form and its column in the list.
void AddField(Design::Table& table, const Design::Field& field);
void AddToList(Design::Table& table, const Design::Field& field);
void AddToSearch(Design::Table& table, const Design::Field& field);
/// Gives a query field that kind of input, with a number of its own.
void SetSearchType(const Design::Table& table, Design::SearchField& field, int type);
/// The kind of input that the simple query has for a field.
int SearchTypeFor(const Design::Field& field);

/// Changes what a field is like. Its control, its input in the query and the width of its column become those that fit
/// it now, where they were those that fitted it before.
void ChangeField(Design::Table& table, const QString& name, const std::function<void(Design::Field&)>& change);
/// Gives a field another name, wherever the design names it.
/// @throws DataError Usage for a name that a column cannot have or that another field has
void RenameField(Design& design, const QString& table, const QString& from, const QString& to);
/// Gives a field another caption; the list and the search that had the old one follow.
void CaptionField(Design::Table& table, const QString& field, const QString& caption);
/// Takes a field out, wherever the design names it.
void RemoveField(Design& design, const QString& table, const QString& field);

/// Makes a table under a class that is like another one; `like` null for a title and a day of registration.
Design::Table NewTable(const QString& name, const QString& caption, int classId, const Design::Table* like);
/// Gives a table another name, wherever the design names it.
/// @throws DataError Usage for a name that a table cannot have or that another one has
void RenameTable(Design& design, const QString& from, const QString& to);
/// Takes a table out, wherever the design names it.
void RemoveTable(Design& design, const QString& table);
/// Adds a class under that one. @return its number
/// The lowest number that no class has.
int FreeClassId(const std::vector<Design::Class>& classes);
/// One more than the highest number of a report.
QString FreeReportId(const std::vector<Design::Report>& reports);
int AddClass(Design& design, const QString& name, int parent);
/// Takes a class out; what hung under it hangs under the class above.
void RemoveClass(Design& design, int id);

/// Gives a dictionary another name, wherever the design names it.
void RenameDictionary(Design& design, const QString& from, const QString& to);
/// Takes a dictionary out; the fields that offered its entries have none then. @return how many those are
int RemoveDictionary(Design& design, const QString& name);

}  // namespace folvane::design
