#include "archiving/ArchiveTransfer.h"

#include <folvane/DataError.h>

#include "archiving/TransferWords.h"
#include "archiving/VolumeRecord.h"
#include "design/transfer/FieldTypes.h"
#include "shell/Lookups.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kTakenText = u"归档期间，其他用户已经使用了相同的档号或顺序号，所有操作已取消。请重新归档！"_s;

}  // namespace

void ArchiveTransfer::DoFileArch(const TransferOrder& order, const QStringList& records, bool marksSource) {
  const std::shared_ptr<Connection> connection = SharedConnection();
  if (connection->InTransaction())
    throw DataError(DataErrorKind::Usage, u"数据库连接上已有一个事务正在进行，不能开始归档。"_s);
  taken_ = std::make_unique<TakenNumbers>(connection, order.destinationTable);
  tables_ = std::make_unique<TransferTables>(order);
  firstCounter_ = tables_->ArchiveCounter;
  succeedCount_ = 0;
  volumeMade_.clear();
  RecordTransfer transfer(*tables_);
  std::optional<MessageRequest> notice;
  std::optional<Transaction> transaction(std::in_place, *connection);
  try {
    const Ending ending = TransferAll(records, marksSource, transfer);
    if (ending == Ending::Complete) WriteVolume();
    if (ending == Ending::TakenBack)
      notice = transfer.Failure();
    else if (AreNumbersTaken(transfer))
      notice = MessageRequest{kTakenText, MessageFlag::Warning, kTransferTitle, {}, {}};
    if (ending == Ending::TakenBack || notice) {
      succeedCount_ = 0;
    } else {
      if (succeedCount_ > 0 && beforeCommit) beforeCommit();
      transaction->Commit();
    }
  } catch (...) {
    succeedCount_ = 0;
    throw;
  }
  // Rolled back here, before the box: while it waits for its answer nobody else should wait for the database.
  transaction.reset();
  if (notice) ShowMessage(*notice);
}

ArchiveTransfer::Ending ArchiveTransfer::TransferAll(const QStringList& records, bool marksSource,
                                                     RecordTransfer& transfer) {
  const int total = int(records.size());
  for (int done = 1; done <= total; ++done) {
    const RecordResult result = transfer.TransferOneRecord(records[done - 1]);
    resultMsg_ = transfer.ResultMsg();
    if (result == RecordResult::EndKeeping) return Ending::Keeping;
    if (result == RecordResult::Cancel) return Ending::TakenBack;
    if (result == RecordResult::Transferred) {
      if (marksSource && tables_->hasFileStatus) MarkSource();
      succeedCount_ = CounterOf(succeedCount_ + 1);
    }
    if (onProgress && !onProgress(done, total)) return Ending::TakenBack;
  }
  return Ending::Complete;
}

void ArchiveTransfer::MarkSource() {
  tables_->source[u"FileStatus"_s].SetValue(kArchived);
  tables_->source.UpdateBatch(AffectKind::Current);
}

void ArchiveTransfer::WriteVolume() {
  const QString table = tables_->order.destinationTable;
  Recordset parent;
  parent.Open(
      u"select TableName,ChnTableName from Design_TableRelation  where tablename=(select Table_Parent from "
      "Design_TableRelation where tablename='"_s +
          table + u"') "_s,
      SharedConnection());
  if (parent.EOF_() || succeedCount_ == 0) return;
  const QString parentTable = parent[u"TableName"_s].Text();
  const QString storeField =
      FirstText(u"Select StoreField From ArchiveNo_Format where TableName='"_s + parentTable + u'\'', u"StoreField"_s);
  volumeMade_ = InputAmaintitle(table, parentTable, storeField, tables_->formatScopeClause);
  volumeTable_ = parentTable;
}

QString ArchiveTransfer::InputAmaintitle(const QString& objectTable, const QString& parentTable,
                                         const QString& storeField, const QString& scopeClause) const {
  VolumeOrder order{objectTable, parentTable, storeField, scopeClause, SharedNumberFormat(), objectTable, {}, askTitle};
  order.fieldText = [](const NumberField& field) { return field.value; };
  if (tables_) {
    order.format = tables_->format;
    order.dictionaryTable = tables_->order.destinationTable;
    order.fieldText = [this](const NumberField& field) { return tables_->destination[field.name].Text(); };
  }
  return WriteVolumeRecord(order);
}

bool ArchiveTransfer::AreNumbersTaken(const RecordTransfer& transfer) const {
  GivenNumbers given{transfer.WrittenKeys(),
                     transfer.Numbers(),
                     tables_->format.storeField,
                     {},
                     firstCounter_,
                     tables_->ArchiveCounter - 1,
                     tables_->formatScopeClause,
                     volumeTable_,
                     volumeMade_};
  // The greatest of texts may be less than numbers that have long been given.
  const bool isNumber = GroupOfType(tables_->destination[tables_->sequenceField].Type()) == TypeGroup::Number;
  if (tables_->IsCounted() && isNumber) given.counterField = tables_->sequenceField;
  return taken_->AnyOf(given);
}

}  // namespace folvane
