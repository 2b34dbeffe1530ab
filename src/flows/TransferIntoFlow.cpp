#include "flows/TransferIntoFlow.h"

#include <folvane/createdname.h>

#include "data/dialect/TextValues.h"
#include "flows/Flow.h"
#include "flows/FlowWindow.h"
#include "flows/PassedErrors.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

bool AskOk(const QString& question, const QString& note = {}) {
  return ShowMessage({question, MessageFlag::OkCancel + MessageFlag::Question, kSystemTitle, note, {}}) == Answer::Ok;
}

QString TextOf(const FieldList& fields, const QString& name) { return fields.Item(name).Text(); }

// A date with a year of four digits and month and day of two; what is no date as it stands.
QString DateOf(const FieldList& fields, const QString& name) {
  const QString text = TextOf(fields, name);
  return text.isEmpty() ? text : sql::DateFromText(text).value_or(text).left(u"YYYY-mm-DD"_s.size());
}

// Columns that a record's table lacks stay empty in the flow; only a row that could not be written is worth telling.
QString AddHead(Recordset& heads, const FieldList& fields, const QString& tableName, const Flow& flow) {
  const createdname keys;
  PassedErrors fills, writes;
  writes.Try([&] { heads.AddNew(); });
  const auto fill = [&](const QString& column, auto value) { fills.Try([&] { heads[column].SetValue(value()); }); };
  fill(u"File_ID"_s, [&] { return fields.Item(u"ArchiveID"_s).Value(); });
  fill(u"Register_id"_s, [&] { return keys.CreateName(); });
  fill(u"File_Table"_s, [&] { return tableName; });
  fill(u"doc_no"_s, [&] { return TextOf(fields, u"DocNo"_s); });
  fill(u"MainTitle"_s, [&] { return TextOf(fields, u"Amaintitle"_s); });
  fill(u"Quantity"_s, [&] { return TextOf(fields, u"Quantity"_s); });
  fill(u"ResponsibleBy"_s, [&] { return TextOf(fields, u"ResponsibleBy"_s); });
  fill(u"Create_Date"_s, [&] { return DateOf(fields, u"FileDate"_s); });
  fill(u"RegID"_s, [&] { return TextOf(fields, u"RegID"_s); });
  fill(u"Security_class"_s, [&] { return TextOf(fields, u"SecurityClass"_s); });
  fill(flow.statusColumn, [&] { return flow.idle; });
  fill(flow.idColumn, [&] { return keys.CreateName(); });
  writes.Try([&] { heads.UpdateBatch(AffectKind::Current); });
  writes.Try([&] { heads.UpdateBatch(AffectKind::AllChapters); });
  return heads.RecordCount() > 0 && heads.PendingCount() == 0 ? QString() : writes.Text();
}

void OpenFlowWindow(const Flow& flow, const QString& archiveId) {
  if (&flow == &Distribution()) return ShowDistribution(archiveId);
  if (&flow == &Circulation()) return ShowCirculation(archiveId);
  ShowHandling(u"0"_s, archiveId);
}

}  // namespace

void TransferIntoFlow(const FieldList& fields, const QString& tableName, const QString& flowTable) {
  const Flow& flow = FlowOf(flowTable);
  const QString archiveId = TextOf(fields, u"ArchiveID"_s);
  Recordset heads;
  heads.Open(u"Select * from "_s + flowTable + u" where File_ID='"_s + EscapeSql(archiveId) +
                 u"' And File_Table = '"_s + tableName + u'\'',
             SharedConnection(), CursorType::Static, LockType::Pessimistic);
  const QString view = u"\n\r是否要查看"_s + flow.word + u"信息？"_s;
  QString question = u"文件已经转移到"_s + flow.word + u"模块中！"_s + view;
  QString failed;
  if (heads.EOF_()) {
    if (!AskOk(u"是否确定要将文件转入"_s + flow.word + u"模块中？"_s)) return;
    failed = AddHead(heads, fields, tableName, flow);
    if (!failed.isEmpty()) failed = u"但是没有写入："_s + failed;
    question = u"文件已经成功转入"_s + flow.word + u"模块中，"_s + view;
  }
  heads.Close();
  if (AskOk(question, failed)) RunGuarded([&] { OpenFlowWindow(flow, archiveId); });
}

bool TransferRecord(const QString& tableName, const QString& archiveId, const QString& flowTable) {
  Recordset record;
  record.Open(u"Select * from "_s + tableName + u" Where ArchiveID='"_s + EscapeSql(archiveId) + u'\'',
              SharedConnection());
  if (record.EOF_()) {
    ShowMessage(u"该文件已不存在，可能其他人也更改或删除该文件！"_s, MessageFlag::Information, kSystemTitle);
    return false;
  }
  TransferIntoFlow(record.Fields(), tableName, flowTable);
  return true;
}

}  // namespace folvane
