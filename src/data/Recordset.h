#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

#include <folvane/Connection.h>

#include "base/CodePage.h"
#include "data/Schema.h"

namespace folvane {

enum class CursorLocation { Server = 2, Client = 3 };
enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };
enum class EditModeKind { None = 0, InProgress = 1, Add = 2, Delete = 4 };
enum class AffectKind { Current = 1, Group = 2, All = 3, AllChapters = 4 };
enum class SearchDirection { Backward = -1, Forward = 1 };
enum class MoveFrom { Current = 0, First = 1, Last = 2 };

/// What Order By puts the texts of a record set in order by.
enum class TextOrder {
  Plain,   ///< by their codes, without regard to ASCII case and trailing blanks, as texts compare
  Pinyin,  ///< Chinese by pinyin, where the database can
};

class FieldList;
class RecordsetState;

/// A column of a record set, seen at its current row. Cheap to make and to copy; valid while the record set is open.
class Field {
 public:
  const QString& Name() const;
  int Type() const;         ///< ADO type number
  int DefinedSize() const;  ///< as ColumnInfo::definedSize

  /// The value in the current row: invalid for null, else QString, qlonglong, double, QByteArray, QDate or QDateTime.
  /// @throws DataError Usage when there is no current row
  QVariant Value() const;
  /// The value as text, "" for null; a date as YYYY-MM-DD.
  QString Text() const;
  bool IsNull() const { return !Value().isValid(); }
  /// The value as it was read from the database, before any change that is still pending.
  QVariant OriginalValue() const;
  /// Puts a value into the current row and begins an edit of it. Text given to a number column is turned into a number.
  /// @throws DataError Conversion, Usage
  void SetValue(const QVariant& value);

 private:
  friend class FieldList;
  Field(RecordsetState* state, int column) : state_(state), column_(column) {}
  RecordsetState* state_;
  int column_;
};

/// The columns of a record set.
class FieldList {
 public:
  int Count() const;
  Field Item(int index) const;
  /// By name without regard to case. @throws DataError Usage for a name that is not there
  Field Item(const QString& name) const;
  /// -1 when there is no such name.
  int IndexOf(const QString& name) const;

 private:
  friend class Recordset;
  explicit FieldList(RecordsetState* state) : state_(state) {}
  RecordsetState* state_;
};

/// The result of a statement, held on the client and edited there, as ADO's client-side record set is: a position,
/// bookmarks, filter, sort and find; changes that wait in the row until they are written with the original values as
/// their condition.
///
/// Of a large table a row is read when it is looked at for the first time, and stays as it was then: looking may end in
/// an error of the database. A row that is gone by then keeps its place and its key; its EditMode is Delete, steps pass
/// over it, and whatever would work on it ends in a Conflict.
///
/// Rows count from 1. Without a row under the position BOF or EOF is true, and reading a field is an error. After a
/// failed operation the record set stands where it stood and pending changes are kept.
class Recordset {
 public:
  Recordset();
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;
  /// Goes on with what another record set has open, which is closed then; what was open here is let go.
  Recordset& operator=(Recordset&& other) noexcept;

  /// How the statement's Order By puts texts in order, from the next Open or Requery on.
  void SetTextOrder(TextOrder order) { textOrder_ = order; }
  /// Runs the statement and stands on the first row. A failed Open leaves the record set closed.
  /// With BatchOptimistic changes wait for UpdateBatch; with Optimistic and Pessimistic Update writes at once.
  void Open(const QString& source, std::shared_ptr<Connection> connection, CursorType type = CursorType::Static,
            LockType lock = LockType::BatchOptimistic, CursorLocation location = CursorLocation::Client);
  /// Opens a file that Save or ADO wrote in the ADTG format and stands on the first row: a static record set on the
  /// client, without a connection and for reading only. Rows that were deleted when the file was saved are not shown;
  /// changed ones have their OriginalValue. A failed OpenFile leaves the record set closed.
  /// @param codePage of texts of 8 bits, as Windows numbers them: that of the machine that wrote the file
  /// @throws DataError File for a file that cannot be read, is none of the kind, is broken (its message tells where),
  /// or has child record sets
  void OpenFile(const QString& path, int codePage = kNationalCodePage);
  /// Writes the rows in view, in their order, to a file that ADO opens, in its ADTG format. Changes that wait for
  /// UpdateBatch are kept as such, deleted rows where no filter is set. The file appears as a whole, or stays as it
  /// was.
  /// @throws DataError Usage when closed, File when it cannot be written
  void Save(const QString& path) const;
  void Close();
  bool IsOpen() const;
  /// The text that Open was given, or the path that OpenFile was.
  QString Source() const;

  bool BOF() const;
  bool EOF_() const;
  /// Rows under the filter.
  qint64 RecordCount() const;
  /// 1 to RecordCount; -1 on a row just deleted, -2 at BOF, -3 at EOF.
  qint64 AbsolutePosition() const;
  void SetAbsolutePosition(qint64 position);
  /// Names the current row for as long as the record set is open, whatever filter and sort say; 1 for the first row
  /// read. @throws DataError Conflict for a row that is gone
  qint64 Bookmark() const;
  void SetBookmark(qint64 bookmark);

  void MoveFirst();
  void MoveLast();
  void MoveNext();      ///< @throws DataError Usage at EOF
  void MovePrevious();  ///< @throws DataError Usage at BOF
  /// Moves by count rows, counted from the given row; stops at BOF and EOF.
  void Move(qint64 count, MoveFrom from = MoveFrom::Current);

  /// Stands on the first row from the current one on that meets one condition such as "ArchiveID = 'x'"; at EOF
  /// (backward: BOF) when there is none. The first `skip` rows are passed over. Searching a column for equal values
  /// builds an index of it on first use.
  void Find(const QString& criterion, qint64 skip = 0, SearchDirection direction = SearchDirection::Forward);
  /// Limits the rows to those that meet the conditions joined by And and Or; "" for all rows. Stands on the first.
  void SetFilter(const QString& criteria);
  QString Filter() const;
  /// Orders the rows by "field [Asc|Desc], ..."; "" for the order read. Stands on the first row.
  void SetSort(const QString& order);
  QString Sort() const;

  FieldList Fields() const;
  Field operator[](const QString& name) const { return Fields().Item(name); }

  /// The text of a field in the row at a position, from 1, without moving there, for showing it: "" where the row
  /// cannot be read just now. @throws DataError Usage
  QString TextAt(qint64 position, int field) const;

  EditModeKind EditMode() const;
  /// Appends an empty row and stands on it.
  void AddNew();
  /// Ends the edit of the current row. Moving off an edited row does the same.
  void Update();
  /// Writes pending rows to the database, each by key with the original values of the changed columns: with Current the
  /// row under the position, otherwise all. All rows are written or none. @throws DataError Conflict when a row was
  /// changed or deleted by someone else: it stays pending.
  void UpdateBatch(AffectKind affect = AffectKind::All);
  /// Undoes the edit in progress; a row that was being added goes.
  void CancelUpdate();
  /// Undoes all pending changes of the current row or of all rows.
  void CancelBatch(AffectKind affect = AffectKind::All);
  /// Deletes the current row: at once, or with BatchOptimistic at the next UpdateBatch. The position stays where the
  /// row was, so that MoveNext stands on the row that followed it.
  void Delete(AffectKind affect = AffectKind::Current);

  /// Runs the statement again, drops changes that wait for UpdateBatch and stands on the first row.
  /// An error leaves the rows as they were. @throws DataError Usage while a row is being edited
  void Requery();
  /// Reads rows again by key, the current one or all, dropping their pending changes.
  void Resync(AffectKind affect = AffectKind::Current);

  /// What the database has in the current row's columns, as far as is known here.
  std::vector<QVariant> OriginalValues() const;
  /// Takes the current row for one that has these values in the database: where what was written is rolled back and
  /// the row cannot be read again.
  void TakeForStored(const std::vector<QVariant>& values);

  /// Rows with changes that are not yet written.
  qint64 PendingCount() const;

 private:
  std::unique_ptr<RecordsetState> state_;
  TextOrder textOrder_ = TextOrder::Plain;
};

}  // namespace folvane
