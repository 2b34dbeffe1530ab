#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "archiving/TransferFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class ArchiveTransferTest : public TransferTest {};
FOLVANE_ON_EACH_DATABASE(ArchiveTransferTest);

TEST_P(ArchiveTransferTest, TakesTheFieldsOverNumbersTheRecordsAndMarksTheSource) {
  AddDocuments(2);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(Archived(u"Amaintitle,FondsNo,DocYear,ItemNo,Quantity,SignDate,InputDate,ArchiveFlag,ArchNo"_s),
            QStringList({u"题名1|123|2002|1|1|2002-01-01|2002-03-04|已组卷|123-2002-0001"_s,
                         u"题名2|123|2002|2|1|2002-01-02|2002-03-04|已组卷|123-2002-0002"_s}));
  EXPECT_EQ(Rows(u"select FileStatus from Fwdj"_s), QStringList({u"已归档"_s, u"已归档"_s}));
  EXPECT_EQ(transfer_->ResultMsg(), u"起始件档号为：123-2002-0001"_s);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, StatesItsStatementsInTheirOrder) {
  AddDocuments(1);
  log_->Take();
  TransferOrder order = Order();
  order.withOriginals = true;
  Transfer(1, order);
  const QString scope = u" Where FondsNo = '123' And DocYear = '2002'"_s;
  const QString key = Database().Value(u"select ArchiveID from Wenshu"_s);
  EXPECT_EQ(
      log_->Take(),
      QStringList(
          {u"Select * From DataTransfer_Details Where IniRecId = (Select RecId From DataTransfer_ini Where SourceTbl = "
           "'Fwdj' And DesTbl = 'Wenshu')"_s,
           u"Select * From Fwdj"_s, u"Select * From Wenshu Where 1 = 2"_s, u"Select Max(ItemNo) From Wenshu"_s + scope,
           u"Insert Into Original_Text(ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) (Select "
           "ID,Original_Name,Type,'"_s +
               key + u"',Size,FileOrder,FilePath From Original_Text Where RecordID = '"_s + DesignedDatabase::Key(1) +
               u"')"_s,
           u"select TableName,ChnTableName from Design_TableRelation  where tablename=(select Table_Parent from "
           "Design_TableRelation where tablename='Wenshu') "_s,
           u"Select StoreField From ArchiveNo_Format where TableName='Anjuan'"_s, u"Select * From Anjuan"_s + scope,
           u"Select FieldName From Dynamicwindows Where TableName = 'Anjuan' And FieldName in (SELECT FieldName From "
           "DynamicWindows WHERE (TableName = 'Wenshu') AND (ControlsType = 1))"_s,
           u"Select * From Wenshu"_s + scope,
           u"Select Sum(Quantity) as Sum1,Min(Createddate) as StartTime,Max(Createddate) as EndTime From Wenshu"_s +
               scope,
           u"Select ArchiveID From Wenshu"_s + scope + u" And ItemNo >= 1 And ItemNo <= 1"_s}));
}

TEST_P(ArchiveTransferTest, CopiesTheRowsOfTheOriginalsAndNoFile) {
  AddDocuments(1);
  design_->AddOriginal(DesignedDatabase::Key(1), u"11"_s, u"正文"_s, 1);
  design_->AddOriginal(DesignedDatabase::Key(1), u"12"_s, u"附件"_s, 2);
  TransferOrder order = Order();
  order.withOriginals = true;
  Transfer(1, order);
  EXPECT_EQ(Rows(u"select ID,Original_Name,FileOrder from Original_Text where RecordID=(select ArchiveID from Wenshu) "
                 "order by ID"_s),
            QStringList({u"11|正文|1"_s, u"12|附件|2"_s}));
  EXPECT_EQ(Database().Value(u"select count(*) from Original_Text"_s), u"4"_s);
}

TEST_P(ArchiveTransferTest, LeavesTheOriginalsWhereTheyAreNotAskedFor) {
  AddDocuments(1);
  design_->AddOriginal(DesignedDatabase::Key(1), u"11"_s, u"正文"_s, 1);
  Transfer(1);
  EXPECT_EQ(Database().Value(u"select count(*) from Original_Text"_s), u"1"_s);
}

TEST_P(ArchiveTransferTest, CountsNothingOfRecordsThatAreNoLongerToBeArchived) {
  AddDocument(1, u"题名1"_s, u"2002-01-01"_s, u"1"_s, u"已归档"_s);
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"1"_s, u"不归档"_s);
  const QStringList before = Everything();
  EXPECT_EQ(Transfer(2).SucceedCount(), 0);
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(titlesAsked_, 0);
  EXPECT_EQ(transfer_->ResultMsg(), QString());
}

TEST_P(ArchiveTransferTest, SkipsARecordThatIsGone) {
  AddDocuments(1);
  EXPECT_EQ(Transfer(3).SucceedCount(), 1);
}

TEST_P(ArchiveTransferTest, SkipsAMissingRecordOfATableWithoutStatus) {
  AddDocuments(1);
  TransferOrder order = Order();
  order.sourceStatement = u"Select ArchiveID,Amaintitle,SignDate,Pages From Fwdj"_s;
  EXPECT_EQ(Transfer(2, order).SucceedCount(), 1);
  EXPECT_EQ(Database().Value(u"select FileStatus from Fwdj"_s), u"需归档"_s);
}

TEST_P(ArchiveTransferTest, WithoutMapCarriesOnlyWhatItSetsItself) {
  AddDocuments(1);
  Unmap();
  design_->Run(u"delete from Design_TableRelation"_s);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Archived(u"Amaintitle,Quantity,FondsNo,ItemNo,ArchiveFlag"_s),
            QStringList({u"<null>|<null>|123|1|已组卷"_s}));
}

TEST_P(ArchiveTransferTest, LeavesTheSourceUnmarkedWhereTheCallerMarksIt) {
  AddDocuments(1);
  ArchiveTransfer transfer;
  transfer.askTitle = [] { return QString(); };
  transfer.DoFileArch(Order(), Keys(1), false);
  EXPECT_EQ(transfer.SucceedCount(), 1);
  EXPECT_EQ(Database().Value(u"select FileStatus from Fwdj"_s), u"需归档"_s);
}

TEST_P(ArchiveTransferTest, LeavesAFieldWhoseValueIsNull) {
  AddDocument(1, u"题名"_s, u"<null>"_s, u"<null>"_s);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Archived(u"SignDate,Quantity"_s), QStringList({u"<null>|<null>"_s}));
}

TEST_P(ArchiveTransferTest, AsksAboutAnEmptyTextInANumberField) {
  AddDocument(1, u"题名"_s, u"2002-01-01"_s, QString());
  boxes_.Answer(6);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(
      boxes_.Last().text,
      u"记录归档时发现：‘页数’不能转化为对应字段的数字类型，以下是不合格目录的题名\r\n题名\r\n"
      "是否保存数据继续归档？选择‘是’则跳过该字段继续；选择‘否’则将已归档的记录保存后结束归档操作；选择‘取消’则将所"
      "有状态回到归档前！"_s);
  EXPECT_EQ(boxes_.Last().flags, 35);
  EXPECT_EQ(Archived(u"Quantity"_s), QStringList({u"1"_s}));
}

TEST_P(ArchiveTransferTest, AsksAboutAValueThatIsNoDateAndTakesToday) {
  AddDocument(1, u"题名"_s, u"20020101"_s, u"1"_s);
  boxes_.Answer(6);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(
      boxes_.Last().text,
      u"记录归档时发现：‘日期’不能转化为对应字段的日期类型，以下是不合格目录的题名\r\n题名\r\n"
      "是否保存数据继续归档？选择‘是’则跳过该字段继续；选择‘否’则将已归档的记录保存；选择‘取消’则将所有状态回到归档"
      "前！"_s);
  EXPECT_EQ(boxes_.Last().flags, 35);
  EXPECT_EQ(Archived(u"SignDate"_s), QStringList({u"2002-03-04"_s}));
}

TEST_P(ArchiveTransferTest, AnswerNoKeepsTheRecordsBeforeAndMakesNoVolume) {
  AddDocuments(1);
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"页"_s);
  AddDocument(3, u"题名3"_s, u"2002-01-01"_s, u"1"_s);
  boxes_.Answer(7);
  EXPECT_EQ(Transfer(3).SucceedCount(), 1);
  EXPECT_EQ(Archived(u"Amaintitle"_s), QStringList({u"题名1"_s}));
  EXPECT_EQ(Rows(u"select FileStatus from Fwdj order by ArchiveID"_s),
            QStringList({u"已归档"_s, u"需归档"_s, u"需归档"_s}));
  EXPECT_EQ(Volumes(u"ArchNo"_s), QStringList());
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, AnswerCancelTakesEverythingBack) {
  AddDocuments(1);
  AddDocument(2, u"题名2"_s, u"不详"_s, u"1"_s);
  const QStringList before = Everything();
  boxes_.Answer(2);
  EXPECT_EQ(Transfer(2).SucceedCount(), 0);
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(boxes_.Requests().size(), 1u);
  EXPECT_EQ(transfer_->ResultMsg(), u"起始件档号为：123-2002-0001"_s);  // as it stood
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, ARefusedRecordTakesEverythingBackAndIsTold) {
  AddDocuments(2);
  design_->Run(u"create unique index OneTitle on Wenshu (Amaintitle)"_s);
  design_->Run(u"insert into Wenshu (ArchiveID,Amaintitle) values ('1','题名2')"_s);
  const QStringList before = Everything();
  EXPECT_EQ(Transfer(2).SucceedCount(), 0);
  EXPECT_EQ(Everything(), before);
  EXPECT_TRUE(boxes_.Last().text.startsWith(u"数据归档时出现错误，所有操作将被取消！   "_s))
      << boxes_.Last().text.toStdString();
  EXPECT_GT(boxes_.Last().text.size(), 24);
  EXPECT_EQ(boxes_.Last().flags, 48);
  EXPECT_EQ(boxes_.Last().title, u"数据归档"_s);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, FailsBeforeTheTransactionWithoutAField) {
  AddDocuments(1);
  SetFormat({{u"Missing"_s, QString(), QString(), false, 4}}, u"ArchNo"_s);
  EXPECT_THROW(Transfer(1), DataError);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, FailsBeforeTheTransactionWithoutAMappingTable) {
  AddDocuments(1);
  design_->Run(u"drop table DataTransfer_Details"_s);
  EXPECT_THROW(Transfer(1), DataError);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, RefusesATransactionThatIsOpenAlready) {
  AddDocuments(1);
  log_->Take();
  Connected()->BeginTrans();
  EXPECT_THROW(Transfer(1), DataError);
  EXPECT_EQ(log_->Take(), QStringList());
  EXPECT_TRUE(Connected()->InTransaction());
  Connected()->RollbackTrans();
}

TEST_P(ArchiveTransferTest, TellsItsProgressAndIsStoppedByIt) {
  AddDocuments(3);
  const QStringList before = Everything();
  QStringList told;
  ArchiveTransfer transfer;
  transfer.onProgress = [&](int done, int total) {
    told << u"%1/%2"_s.arg(done).arg(total);
    return done < 2;
  };
  transfer.DoFileArch(Order(), Keys(3), true);
  EXPECT_EQ(told, QStringList({u"1/3"_s, u"2/3"_s}));
  EXPECT_EQ(transfer.SucceedCount(), 0);
  EXPECT_EQ(Everything(), before);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, AnErrorOfTheProgressTakesEverythingBack) {
  AddDocuments(1);
  const QStringList before = Everything();
  ArchiveTransfer transfer;
  transfer.onProgress = [](int, int) -> bool { throw std::runtime_error("the window is gone"); };
  EXPECT_THROW(transfer.DoFileArch(Order(), Keys(1), true), std::runtime_error);
  EXPECT_EQ(transfer.SucceedCount(), 0);
  EXPECT_EQ(Everything(), before);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(ArchiveTransferTest, ARecordThatAnotherUserArchivedMeanwhileIsAnError) {
  AddDocuments(1);
  const QStringList before = Archived(u"Amaintitle"_s);
  ArchiveTransfer transfer;
  Connected()->OnStatement([&](const QString& statement) {
    if (statement.startsWith(u"Select * From Wenshu"_s)) Database().Native(u"update Fwdj set FileStatus='已归档'"_s);
  });
  EXPECT_THROW(transfer.DoFileArch(Order(), Keys(1), true), DataError);
  EXPECT_EQ(Archived(u"Amaintitle"_s), before);
  EXPECT_EQ(transfer.SucceedCount(), 0);
  EXPECT_FALSE(Connected()->InTransaction());
}

}  // namespace
}  // namespace folvane::test
