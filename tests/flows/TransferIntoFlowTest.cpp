#include <QTableView>
#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "flows/FlowFixture.h"
#include "flows/TransferIntoFlow.h"
#include "shell/SharedState.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

const QString kRecord = u"20020304090000123456"_s;

class TransferIntoFlowTest : public FlowTest {
 protected:
  void SetUp() override {
    FlowTest::SetUp();
    design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle,DocNo,Quantity,ResponsibleBy,FileDate,SecurityClass"_s,
                    {kRecord, u"7"_s, u"关于召开会议的通知"_s, u"国办发〔2002〕3号"_s, u"2"_s, u"国务院办公厅"_s,
                     u"2002-03-04"_s, u"秘密"_s});
    log_->Take();
  }
  void Transfer(const QString& flowTable, const QString& table = u"Lwdj"_s, const QString& key = kRecord) {
    Recordset record;
    record.Open(u"Select * from "_s + table + u" Where ArchiveID='"_s + key + u'\'', Connected());
    log_->Take();
    TransferIntoFlow(record.Fields(), table, flowTable);
  }
  QStringList Head(const QString& table, const QString& columns) {
    const auto rows = Database().Rows(u"select "_s + columns + u" from "_s + table);
    return rows.size() == 1 ? rows.front() : QStringList{u"%1 rows"_s.arg(rows.size())};
  }
  MessageBoxes boxes_;
};

FOLVANE_ON_EACH_DATABASE(TransferIntoFlowTest);

struct WordCase {
  QString table, word, statusColumn, status, idColumn;
};

TEST_P(TransferIntoFlowTest, AKeyWithAQuoteStandsForItsOwnRecord) {
  const QString other = u"x' or '1'='1"_s;
  EXPECT_FALSE(TransferRecord(u"Lwdj"_s, other, u"PassRead_File"_s));
  EXPECT_EQ(boxes_.Last().text, u"该文件已不存在，可能其他人也更改或删除该文件！"_s);
  design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID"_s, {other, u"8"_s});
  for (int time = 1; time <= 2; ++time) {  // the second time it is there already
    boxes_.Clear();
    if (time == 1) boxes_.Answer(1);
    boxes_.Answer(2);
    EXPECT_TRUE(TransferRecord(u"Lwdj"_s, other, u"PassRead_File"_s));
    EXPECT_EQ(Head(u"PassRead_File"_s, u"File_ID,RegID"_s), (QStringList{other, u"8"_s}));
  }
}

TEST_P(TransferIntoFlowTest, ARowThatWasWrittenAtTheSecondTryIsNotSaidToBeMissing) {
  if (!OnSqlite()) GTEST_SKIP() << "only there a statement that fails can leave a mark";
  Database().Native(
      u"create trigger Once before insert on PassRead_File when not exists (select 1 from PassRead_Details) begin "
      u"insert "
      "into PassRead_Details (Register_ID,File_ID) values ('x','1'); select raise(fail,'once'); end"_s);
  boxes_.Answer(1).Answer(2);
  Transfer(u"PassRead_File"_s);
  EXPECT_EQ(Database().Value(u"select count(*) from PassRead_Details"_s), u"1"_s);
  EXPECT_EQ(Head(u"PassRead_File"_s, u"File_ID"_s), QStringList{kRecord});
  EXPECT_EQ(boxes_.Last().note, QString());
}

TEST_P(TransferIntoFlowTest, ARecordEntersEachFlowInItsWords) {
  const std::vector<WordCase> cases{
      {u"Distribute_File"_s, u"分发"_s, u"Distribute_Status"_s, u"未分发"_s, u"Distribute_ID"_s},
      {u"PassRead_File"_s, u"传阅"_s, u"PassRead_Status"_s, u"未传阅"_s, u"PassRead_ID"_s},
      {u"Transact_File"_s, u"办理"_s, u"Transact_Status"_s, u"未处理"_s, u"Transact_ID"_s}};
  for (const WordCase& each : cases) {
    boxes_.Clear();
    boxes_.Answer(1).Answer(2);
    Transfer(each.table);
    EXPECT_THAT(log_->Take(), ElementsAre(u"Select * from "_s + each.table + u" where File_ID='"_s + kRecord +
                                          u"' And File_Table = 'Lwdj'"_s));
    EXPECT_THAT(boxes_.Texts(),
                ElementsAre(u"是否确定要将文件转入"_s + each.word + u"模块中？"_s,
                            u"文件已经成功转入"_s + each.word + u"模块中，\n\r是否要查看"_s + each.word + u"信息？"_s));
    EXPECT_EQ(boxes_.Requests().front().flags, 33);
    EXPECT_EQ(boxes_.Last().flags, 33);
    EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
    EXPECT_EQ(boxes_.Last().note, QString());
    EXPECT_THAT(Head(each.table,
                     u"File_ID,File_Table,doc_no,MainTitle,Quantity,ResponsibleBy,Create_Date,RegID,"
                     "Security_class,"_s +
                         each.statusColumn),
                ElementsAre(kRecord, u"Lwdj"_s, u"国办发〔2002〕3号"_s, u"关于召开会议的通知"_s, u"2"_s,
                            u"国务院办公厅"_s, u"2002-03-04"_s, u"7"_s, u"秘密"_s, each.status));
    const QStringList keys = Head(each.table, u"Register_id,"_s + each.idColumn);
    EXPECT_EQ(keys[0].size(), 20);
    EXPECT_EQ(keys[1].size(), 20);
    EXPECT_NE(keys[0], keys[1]);
  }
}

TEST_P(TransferIntoFlowTest, AnyOtherTableCountsAsHandlingWhateverItsCase) {
  EXPECT_EQ(&FlowOf(u"Distribute_File"_s), &Distribution());
  EXPECT_EQ(&FlowOf(u"PassRead_File"_s), &Circulation());
  for (const QString& table : {u"Transact_File"_s, u"distribute_file"_s, u"PASSREAD_FILE"_s, u"Other"_s})
    EXPECT_EQ(&FlowOf(table), &Handling()) << table.toStdString();
}

TEST_P(TransferIntoFlowTest, NullsBecomeEmptyTexts) {
  AddRecord(u"2"_s, u"<null>"_s);
  boxes_.Answer(1).Answer(2);
  Transfer(u"PassRead_File"_s, u"Lwdj"_s, u"2"_s);
  EXPECT_THAT(Head(u"PassRead_File"_s, u"doc_no,MainTitle,Quantity,Create_Date"_s),
              ElementsAre(u""_s, u""_s, u""_s, u""_s));
}

TEST_P(TransferIntoFlowTest, ATableWithoutSomeOfTheFieldsLeavesThemEmpty) {
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  design_->AddRecords(u"Fwdj"_s, 1);
  boxes_.Answer(1).Answer(2);
  Transfer(u"Transact_File"_s, u"Fwdj"_s, DesignedDatabase::Key(1));
  EXPECT_THAT(Head(u"Transact_File"_s, u"MainTitle,File_Table,doc_no"_s),
              ElementsAre(u"题名1"_s, u"Fwdj"_s, u"<null>"_s));
  EXPECT_EQ(boxes_.Last().note, QString());
}

TEST_P(TransferIntoFlowTest, CancelLeavesTheFlowAsItIs) {
  boxes_.Answer(2);
  Transfer(u"PassRead_File"_s);
  EXPECT_EQ(boxes_.Requests().size(), 1U);
  EXPECT_EQ(Database().Value(u"select count(*) from PassRead_File"_s), u"0"_s);
}

TEST_P(TransferIntoFlowTest, ARecordThatIsThereIsOnlyOfferedToBeLookedAt) {
  AddHead(Circulation(), {u"1"_s, kRecord, u"传阅中"_s});
  boxes_.Answer(2);
  Transfer(u"PassRead_File"_s);
  EXPECT_THAT(boxes_.Texts(), ElementsAre(u"文件已经转移到传阅模块中！\n\r是否要查看传阅信息？"_s));
  EXPECT_EQ(Database().Value(u"select count(*) from PassRead_File"_s), u"1"_s);
}

TEST_P(TransferIntoFlowTest, TheSameKeyOfAnotherTableIsAnotherRecord) {
  design_->AddPlainTable(u"Fwdj"_s, u"发文登记"_s, 2);
  design_->Insert(u"Fwdj"_s, u"ArchiveID,Amaintitle"_s, {kRecord, u"复函"_s});
  AddHead(Circulation(), {u"1"_s, kRecord, u"未传阅"_s});
  boxes_.Answer(1).Answer(2);
  Transfer(u"PassRead_File"_s, u"Fwdj"_s);
  EXPECT_EQ(Database().Value(u"select count(*) from PassRead_File"_s), u"2"_s);
}

TEST_P(TransferIntoFlowTest, AFailedWriteIsToldBesideTheQuestion) {
  Database().Native(u"update Lwdj set DocNo='"_s + QString(120, u'长') + u'\'');  // the flow's column takes 100 bytes
  boxes_.Answer(1).Answer(2);
  Transfer(u"PassRead_File"_s);
  EXPECT_TRUE(boxes_.Last().text.startsWith(u"文件已经成功转入传阅模块中"_s));
  EXPECT_TRUE(boxes_.Last().note.startsWith(u"但是没有写入："_s)) << boxes_.Last().note.toStdString();
  EXPECT_EQ(Database().Value(u"select count(*) from PassRead_File"_s), u"0"_s);
}

TEST_P(TransferIntoFlowTest, AMissingFlowTableIsTheCallersError) {
  Database().Native(u"drop table PassRead_File"_s);
  EXPECT_THROW(Transfer(u"PassRead_File"_s), DataError);
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(TransferIntoFlowTest, OkOpensTheFlowsWindowOnTheRecord) {
  AddHead(Handling(), {u"9"_s, u"other"_s, u"未处理"_s});
  boxes_.Answer(1).Answer(1);
  bool stood = false;
  WithWindow(u"frmTranSact"_s, [&](QWidget& window) {
    auto& grid = Find<QTableView>(window, u"DgFile"_s);
    stood = grid.currentIndex().siblingAtColumn(0).data().toString() == kRecord;
    EXPECT_EQ(window.windowTitle(), u"文件处理"_s);
  });
  Transfer(u"Transact_File"_s);
  EXPECT_TRUE(stood);
}

}  // namespace
}  // namespace folvane::test
