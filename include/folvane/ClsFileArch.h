#pragma once

#include <QString>
#include <functional>
#include <memory>

#include <folvane/Export.h>

class QAbstractItemView;

namespace folvane {

/// Moves records of a registration table into an archive table: maps their fields, numbers them, composes their archive
/// numbers, takes their originals over and marks them as archived, in one transaction. One object is made for one
/// transfer. The values of the archive number's fixed fields are those that the window of the archive parameters took
/// last.
class FOLVANE_EXPORT ClsFileArch {
 public:
  ClsFileArch();
  ~ClsFileArch();
  ClsFileArch(const ClsFileArch&) = delete;
  ClsFileArch& operator=(const ClsFileArch&) = delete;

  void TransSouTbl(const QString& table);  ///< the source table
  void TransObjTbl(const QString& table);  ///< the destination table
  /// The list whose rows name the records by their last column.
  void TransListview(QAbstractItemView* list);
  /// The whole statement of the source rows, in spite of the name.
  void SouSQLWhere(const QString& statement);
  void NeedArchCount(qint16 count);  ///< how many rows are ticked
  void IsTransOriginal(bool take);   ///< whether the rows of the originals are copied too
  /// Is told after each record how many of how many were looked at; answers false to take everything back.
  void OnProgress(std::function<bool(int done, int total)> progress);
  /// Is called when records were transferred, as the last thing before the commit: what is done on the same connection
  /// lasts exactly if the transfer does. What it throws takes everything back.
  void BeforeCommit(std::function<void()> work);

  /// The records that were transferred.
  qint16 SucceedCount() const;
  /// The text about the first archive number, "" before one was made.
  QString ResultMsg() const;

  /// Runs the transfer.
  /// @param mode 0 for the selected rows of the list, 1 for the ticked ones in the order of their numbers, any other
  /// value for the current record of the record browser
  /// @throws DataError what fails outside of a record; what fails within one is shown and takes everything back
  void DoFileArch(qint16& mode);

  /// Makes the record of a volume in the parent table, or refreshes its sums where it is there. @throws DataError
  /// @param storeField  the parent's column of the composed number, "" for none
  /// @param scopeClause the rows of the volume, beginning with " Where "; "" for all
  void InputAmaintitle(const QString& objectTable, const QString& parentTable, const QString& storeField,
                       const QString& scopeClause, QString& result);

 private:
  class Transfer;
  std::unique_ptr<Transfer> transfer_;
};

}  // namespace folvane
