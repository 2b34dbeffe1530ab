#pragma once

#include <QString>
#include <functional>
#include <memory>

#include <folvane/Connection.h>

#include "bulk/RecordSearch.h"
#include "forms/EntryLayout.h"

namespace folvane {

/// Finds records of a record set by what their fields hold, and overwrites the fields of hits in the table; the record
/// set keeps its values. Whatever fails over a record, its values and its statements, ends the look at that record and
/// is passed over.
class FindReplace {
 public:
  /// Is told how many records of how many have been looked at; answers whether to go on.
  using Progress = std::function<bool(qint64 done, qint64 maximum)>;

  FindReplace(std::shared_ptr<Connection> connection, QString tableName);

  /// What the following look for. A caption without a field has no hits.
  void SetTerms(const SearchTerms& terms);
  const RecordSearch& Search() const { return search_; }

  /// The records that could not be overwritten since SetTerms, and why the first of them.
  struct Refusals {
    qint64 count = 0;
    QString reason;
  };
  const Refusals& Refused() const { return refused_; }

  /// Looks at the record that the record set stands on. Without `replace` the control of the hit field is looked up;
  /// with it the whole of every hit field is overwritten. `found` becomes true on a hit and is left otherwise.
  void FindInRecord(const Recordset& records, bool replace, bool& found);

  /// Moves to the next hit, the current record being looked at first; stays when there is none.
  bool FindNext(Recordset& records, SearchWay way, const Progress& progress);
  /// Overwrites the hits of all records that way, and stays where it is.
  /// @return the records that were hit and overwritten
  qint64 ReplaceAll(Recordset& records, SearchWay way, const Progress& progress);

  /// The control of the last hit's field. A field without a control leaves it as it was.
  const ControlId& HitControl() const { return hitControl_; }

  /// @throws DataError, Usage for a caption that the table does not have
  QString GetFieldName(const QString& caption) const;
  /// Reads the control of a field into HitControl. @throws DataError
  void GetFieldControl(const QString& field);

 private:
  void NoteRefusal(const std::exception& error);
  void Look(const Recordset& records, bool replace, bool& found);
  void Overwrite(const Recordset& records, const QString& field) const;
  qint64 ReplacePortion(Recordset& records, SearchWay way);

  std::shared_ptr<Connection> connection_;
  QString tableName_;
  QString replacement_;
  RecordSearch search_;
  Refusals refused_;
  ControlId hitControl_;
};

}  // namespace folvane
