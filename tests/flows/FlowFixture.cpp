#include "flows/FlowFixture.h"

#include "shell/SharedState.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

void FlowTest::SetUp() {
  DesignTest::SetUp();
  design_->AddTable(u"Lwdj"_s, u"来文登记"_s, 2,
                    {{u"RegID"_s, u"登记号"_s, u"数值型"_s},
                     {u"Amaintitle"_s, u"题名"_s, u"文本型"_s},
                     {u"DocNo"_s, u"文号"_s, u"文本型"_s},
                     {u"Quantity"_s, u"份数"_s, u"数值型"_s},
                     {u"ResponsibleBy"_s, u"责任者"_s, u"文本型"_s},
                     {u"FileDate"_s, u"成文日期"_s, u"日期型"_s},
                     {u"SecurityClass"_s, u"密级"_s, u"文本型"_s},
                     {u"DisPenseState"_s, u"分发状态"_s, u"文本型"_s},
                     {u"ReadState"_s, u"传阅状态"_s, u"文本型"_s},
                     {u"HandleState"_s, u"办理状态"_s, u"文本型"_s}});
  log_->Take();
}

void FlowTest::AddRecord(const QString& key, const QString& title) {
  design_->Insert(u"Lwdj"_s, u"ArchiveID,Amaintitle"_s, {key, title});
}

void FlowTest::AddHead(const Flow& flow, const HeadOf& head) {
  design_->Insert(flow.headTable,
                  u"Register_ID,File_ID,File_Table,MainTitle,"_s + flow.idColumn + u',' + flow.statusColumn,
                  {head.key, head.record, u"Lwdj"_s, head.title, u"ID-"_s + head.key, head.status});
}

void FlowTest::AddDetail(const Flow& flow, const QString& key, int serial, const QString& unit, const QString& hasten) {
  if (flow.isHandling) {
    design_->Insert(flow.detailTable, u"Register_ID,File_ID,Lead_Unit,Is_Hasten"_s,
                    {key, QString::number(serial), unit, hasten});
  } else {
    design_->Insert(flow.detailTable, u"Register_ID,File_ID,Lead_Unit"_s, {key, QString::number(serial), unit});
  }
}

void FlowTest::AddRoute(const QString& key, const QStringList& nodes) {
  design_->Insert(u"Curr_Flow"_s, u"File_ID"_s, {key});
  for (const QString& node : nodes) {
    QStringList values = node.split(u'|');
    values.prepend(key);
    design_->Insert(u"Curr_FlowNode"_s, u"Flow_ID,Node_Number,Node_Member,Node_Mode,Next_Node"_s, values);
  }
}

QString FlowTest::HeadText(const Flow& flow, const QString& key, const QString& column) {
  return Database().Value(u"select "_s + column + u" from "_s + flow.headTable + u" where Register_ID='"_s + key +
                          u'\'');
}

QStringList FlowTest::DetailsOf(const Flow& flow, const QString& key) {
  QStringList details;
  for (const QStringList& row : Database().Rows(u"select File_ID, Lead_Unit, Is_Back from "_s + flow.detailTable +
                                                u" where Register_ID='"_s + key + u"' order by File_ID"_s)) {
    details << row.join(u'|');
  }
  return details;
}

QString FlowTest::RecordState(const QString& key, const QString& column) {
  return Database().Value(u"select "_s + column + u" from Lwdj where ArchiveID='"_s + key + u'\'');
}

}  // namespace folvane::test
