#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "data/Recordset.h"
#include "flows/Flow.h"

namespace folvane {

/// What came of writing what a dialog holds.
struct SaveOutcome {
  enum Kind { Written, Changed, Gone } kind = Written;
  QString what;  ///< of Changed: what another user has changed since it was read, in words
};

/// The sheets of a flow: the heads, the details of the head that the position is on, and every statement that reads and
/// changes them. Texts go into the statements as they were typed: a quote in one breaks its statement, as an error.
///
/// All members throw DataError unless said.
class FlowSheets {
 public:
  explicit FlowSheets(const Flow& flow) : flow_(flow) {}
  /// Of handling: "1" for the reminders, "0" for the details. To be said before the sheets are loaded.
  void SetHasten(const QString& hasten) { hasten_ = hasten; }

  const Flow& Kind() const { return flow_; }
  bool Reminds() const { return hasten_ == QStringLiteral("1"); }
  const Recordset& Heads() const { return heads_; }
  const Recordset& Details() const { return details_; }

  /// Opens the heads and stands on the sheet of a record, or on the first where that has none or none is asked for;
  /// then opens the details of it.
  void LoadFiles(const QString& archiveId);
  /// Opens the heads that meet a condition instead.
  void Narrow(const QString& condition);
  void OpenDetails();
  /// @param serial of the line to stand on afterwards, where it is there
  void RequeryDetails(const QString& serial = {});
  /// Reads the heads again and stands on the same sheet; where it is gone, on the one at the same position.
  void RequeryHeads();

  /// Reads the current head again by its key. @throws DataError Conflict where it is gone
  void ResyncHead() { heads_.Resync(); }
  /// Has what the work writes stand or fall together. Where it falls, the head is again what it was before, also when
  /// the database cannot be reached any more. @throws what the work throws
  void WriteTogether(const std::function<void()>& work);

  bool HasHeads() const { return heads_.IsOpen() && heads_.RecordCount() > 0; }
  bool IsOnHead() const { return heads_.IsOpen() && !heads_.BOF() && !heads_.EOF_(); }
  bool IsOnDetail() const { return details_.IsOpen() && !details_.BOF() && !details_.EOF_(); }
  void GoToHead(qint64 position) { heads_.SetAbsolutePosition(position); }
  void GoToDetail(qint64 position) { details_.SetAbsolutePosition(position); }
  /// A field of the current head or detail as text.
  QString Head(const QString& field) const { return heads_[field].Text(); }
  QString Detail(const QString& field) const { return details_[field].Text(); }
  QString Key() const { return Head(QStringLiteral("Register_ID")); }
  /// Whether the current head waits: its route can be started, not gone on with.
  bool IsIdle() const;

  /// The serial of the next detail: one more than the greatest of the head's; "1" for the first. Reminders count too.
  /// @throws DataError Conversion where the greatest is no number of 16 bits, or has no successor among them
  QString NextDetailSerial() const;
  /// Whether another detail of the head has that serial.
  bool IsSerialTaken(const QString& serial) const;
  void InsertDetail(const DetailValues& values);
  /// Adds the detail of a node of the route: for its members, sent today.
  void InsertRouteDetail(const QString& members);
  /// Writes the current detail. What another user has changed in it since `shown` was read is told first, and becomes
  /// what `shown` holds: writing it once more overwrites it.
  SaveOutcome UpdateDetail(const DetailValues& values, DetailValues& shown);
  DetailValues ReadDetail() const;
  /// After the dialog of a new detail: reads the details again and gives the head its status.
  void TakeAddedDetail();

  HeadValues ReadHead() const;
  SaveOutcome UpdateHead(const HeadValues& values, HeadValues& shown);
  /// Reads the current detail or head again. Answers what another user has done to it, in a sentence, "" for nothing.
  QString TakeDetailChanges();
  QString TakeHeadChanges();
  /// Writes fields of the current head at once. What fails is not pending any more, and the head is read again.
  void WriteHead(const std::vector<std::pair<QString, QString>>& values);

  // Each step of these is tried, whatever became of the ones before. They answer what failed, "" for nothing, and
  // throw nothing.
  QString DeleteDetail();
  QString DeleteHead();
  /// Deletes heads by key with the statements of one deletion each, in one transaction. @throws DataError, everything
  /// being as before then
  void DeleteHeads(const QStringList& keys);
  /// Gives the records of the current head and of those after it the state that their sheets have come to.
  QString WriteBack();

 private:
  QStringList DeleteStatements() const;
  void WriteStatesBack(const std::function<void(const QString&)>& write);
  void OpenHeads(const QString& statement);
  QString HastenCondition() const;

  const Flow& flow_;
  QString hasten_;
  Recordset heads_, details_;
};

}  // namespace folvane
