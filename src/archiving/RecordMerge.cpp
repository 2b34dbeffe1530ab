#include "archiving/RecordMerge.h"

#include <utility>

#include "base/TypedValues.h"
#include "data/Recordset.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

qint16 OrderBehind(const QString& greatest) {
  const qint64 next = greatest.isEmpty() ? 1 : qint64(ToInteger(greatest)) + 1;
  if (next != qint16(next)) throw NumberError(u"原文顺序号 %1 太大，不能再加原文。"_s.arg(greatest));
  return qint16(next);
}

bool HasNote(const QString& table) {
  Recordset fields;
  fields.Open(
      u"Select FieldName From DynamicWindows Where TableName = '"_s + EscapeSql(table) + u"' And FieldName = 'Note'"_s,
      SharedConnection(), CursorType::Static, LockType::ReadOnly);
  return !fields.EOF_();
}

}  // namespace

RecordMerge::RecordMerge(QString table, const QString& target) : table_(std::move(table)), target_(EscapeSql(target)) {
  Recordset originals;
  originals.Open(u"Select Max(FileOrder) From Original_Text Where RecordID = '"_s + target_ + u"'"_s,
                 SharedConnection(), CursorType::Static, LockType::ReadOnly);
  nextFileOrder_ = OrderBehind(originals.Fields().Item(0).Text());
}

QString RecordMerge::SearchStatement(const QString& where) const {
  return u"Select * From "_s + table_ + u" Where ArchiveID <> '"_s + target_ + u"' And "_s + where;
}

void RecordMerge::LeaveOutSurvivor(Recordset& found) const {
  found.Find(u"ArchiveID = '"_s + target_ + u"'"_s);
  if (!found.EOF_()) found.SetFilter(u"ArchiveID <> '"_s + target_ + u"'"_s);
}

void RecordMerge::Merge(const QStringList& keys, const Progress& progress) {
  for (qsizetype at = 0; at < keys.size(); ++at) {
    progress(int(at), int(keys.size()));
    if (merged_.contains(keys[at])) continue;
    MergeOne(keys[at]);
    merged_ << keys[at];
  }
}

void RecordMerge::MergeOne(const QString& key) {
  const std::shared_ptr<Connection> connection = SharedConnection();
  const QString quoted = u'\'' + EscapeSql(key) + u'\'', ofRecord = u" Where ArchiveID = "_s + quoted;
  connection->Execute(u"Update "_s + table_ + u" Set FileStatus = '不归档'"_s + ofRecord);
  if (!hasNote_) hasNote_ = HasNote(table_);
  if (*hasNote_ && !noted_.contains(key)) {
    connection->Execute(u"Update "_s + table_ + u" Set Note = Note + '已合并件'"_s + ofRecord);
    noted_ << key;
  }
  Recordset originals;
  originals.Open(u"Select * From Original_Text Where RecordID = "_s + quoted + u" Order By FileOrder"_s, connection,
                 CursorType::Static, LockType::ReadOnly);
  // One statement copies all that share an order.
  std::optional<QString> copied;
  bool isLeftOut = false;
  for (; !originals.EOF_(); originals.MoveNext()) {
    const QString order = originals[u"FileOrder"_s].Text();
    if (copied != order) {
      copied = order;
      isLeftOut = !CopyOriginals(originals[u"RecordID"_s].Text(), order);
    }
    if (isLeftOut) ++leftOut_;
  }
}

bool RecordMerge::CopyOriginals(const QString& record, const QString& fileOrder) {
  const int order = fileOrder.isEmpty() ? 0 : ToInteger(fileOrder);
  try {
    const qint64 count = SharedConnection()->Execute(
        u"Insert Into Original_Text Select ID,Original_Name+'<合并件>',Type,'"_s + target_ + u"',Size,"_s +
        QString::number(order + nextFileOrder_) + u",FilePath From Original_Text Where RecordID = '"_s +
        EscapeSql(record) + u"' And FileOrder = '"_s + fileOrder + u"'"_s);
    if (count != 0) return true;
    reason_ = fileOrder.isEmpty() ? u"原文没有顺序号"_s : u"原文已被其他用户改动"_s;
  } catch (const std::exception& error) {
    reason_ = ErrorText(error);
  }
  return false;
}

QString RecordMerge::Outcome() const {
  if (merged_.isEmpty()) return {};
  const QString done = u"已将 %1 份记录合并一件"_s.arg(merged_.size());
  return leftOut_ == 0 ? done : done + u"；%1 件原文没有复制：%2"_s.arg(leftOut_).arg(reason_);
}

}  // namespace folvane
