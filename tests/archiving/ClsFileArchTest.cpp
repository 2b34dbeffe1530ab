#include <QItemSelectionModel>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QTreeView>
#include <gtest/gtest.h>

#include <folvane/ClsFileArch.h>
#include <folvane/DataError.h>

#include "archiving/TransferFixture.h"
#include "shell/SharedState.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class ClsFileArchTest : public TransferTest {
 protected:
  void SetUp() override {
    TransferTest::SetUp();
    AddDocuments(3);
    for (int number = 1; number <= 3; ++number) {
      auto* box = new QStandardItem;
      box->setCheckable(true);
      list_.appendRow({box, new QStandardItem(DesignedDatabase::Key(number))});
    }
    view_.setModel(&list_);
    design_->Insert(u"Anjuan"_s, u"ArchiveID,FondsNo,DocYear"_s, {u"1"_s, u"123"_s, u"2002"_s});
  }
  void Tick(int row, int number) {
    list_.item(row)->setText(QString::number(number));
    list_.item(row)->setCheckState(Qt::Checked);
  }
  void Transfer(ClsFileArch& transfer, qint16 mode) {
    transfer.IsTransOriginal(true);
    transfer.SouSQLWhere(u"Select * From Fwdj"_s);
    transfer.TransListview(&view_);
    transfer.TransObjTbl(u"Wenshu"_s);
    transfer.TransSouTbl(u"Fwdj"_s);
    transfer.DoFileArch(mode);
  }
  QStringList Numbered() { return Rows(u"select ItemNo,Amaintitle from Wenshu order by ItemNo"_s); }

  QStandardItemModel list_;
  QTreeView view_;
};
FOLVANE_ON_EACH_DATABASE(ClsFileArchTest);

TEST_P(ClsFileArchTest, TransfersTheTickedRowsInTheOrderOfTheirNumbers) {
  Tick(2, 1);
  Tick(0, 2);
  design_->AddOriginal(DesignedDatabase::Key(3), u"31"_s, u"正文"_s, 1);
  ClsFileArch transfer;
  transfer.NeedArchCount(2);
  Transfer(transfer, 1);
  EXPECT_EQ(transfer.SucceedCount(), 2);
  EXPECT_EQ(transfer.ResultMsg(), u"起始件档号为：123-2002-0001"_s);
  EXPECT_EQ(Numbered(), QStringList({u"1|题名3"_s, u"2|题名1"_s}));
  EXPECT_EQ(Database().Value(u"select count(*) from Original_Text"_s), u"2"_s);
}

TEST_P(ClsFileArchTest, CountsNothingOfATickedRowThatIsNoLongerToBeArchived) {
  Tick(0, 1);
  design_->Run(u"update Fwdj set FileStatus='已归档'"_s);
  ClsFileArch transfer;
  transfer.NeedArchCount(1);
  Transfer(transfer, 1);
  EXPECT_EQ(transfer.SucceedCount(), 0);
  EXPECT_EQ(Numbered(), QStringList());
}

TEST_P(ClsFileArchTest, TransfersTheSelectedRowsInTheOrderOfTheList) {
  for (const int row : {2, 1})
    view_.selectionModel()->select(list_.index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  ClsFileArch transfer;
  Transfer(transfer, 0);
  EXPECT_EQ(transfer.SucceedCount(), 2);
  EXPECT_EQ(Numbered(), QStringList({u"1|题名2"_s, u"2|题名3"_s}));
}

TEST_P(ClsFileArchTest, TransfersTheCurrentRecordAndLeavesItsStatusToTheCaller) {
  Shared().CurrentRecords.Open(u"Select * From Fwdj Order By ArchiveID"_s, Connected());
  Shared().CurrentRecords.MoveNext();
  ClsFileArch transfer;
  Transfer(transfer, -1);
  EXPECT_EQ(transfer.SucceedCount(), 1);
  EXPECT_EQ(Numbered(), QStringList({u"1|题名2"_s}));
  EXPECT_EQ(Database().Value(u"select count(*) from Fwdj where FileStatus='需归档'"_s), u"3"_s);
}

TEST_P(ClsFileArchTest, AsksForTheTitleOfANewVolume) {
  design_->Run(u"delete from Anjuan"_s);
  Tick(0, 1);
  WithWindow(u"FrmInAmain"_s, [](QWidget& window) {
    Type(Find(window, u"TxtTitle"_s), u"卷1"_s);
    Click(Find(window, u"CmdOK"_s));
  });
  ClsFileArch transfer;
  transfer.NeedArchCount(1);
  Transfer(transfer, 1);
  EXPECT_EQ(Volumes(u"Amaintitle,Quantity"_s), QStringList({u"卷１|1"_s}));
}

TEST_P(ClsFileArchTest, MakesAVolumeWithoutTitleWhenItsWindowIsClosed) {
  design_->Run(u"delete from Anjuan"_s);
  Tick(0, 1);
  WithWindow(u"FrmInAmain"_s, [](QWidget& window) { window.close(); });
  ClsFileArch transfer;
  transfer.NeedArchCount(1);
  Transfer(transfer, 1);
  EXPECT_EQ(transfer.SucceedCount(), 1);
  EXPECT_EQ(Volumes(u"Amaintitle,Quantity"_s), QStringList({u"|1"_s}));
}

TEST_P(ClsFileArchTest, TellsItsProgress) {
  Tick(0, 1);
  Tick(1, 2);
  QStringList told;
  ClsFileArch transfer;
  transfer.NeedArchCount(2);
  transfer.OnProgress([&](int done, int total) {
    told << u"%1/%2"_s.arg(done).arg(total);
    return true;
  });
  Transfer(transfer, 1);
  EXPECT_EQ(told, QStringList({u"1/2"_s, u"2/2"_s}));
}

TEST_P(ClsFileArchTest, WithoutListFailsBeforeAnything) {
  ClsFileArch transfer;
  qint16 mode = 1;
  log_->Take();
  EXPECT_THROW(transfer.DoFileArch(mode), DataError);
  EXPECT_EQ(log_->Take(), QStringList());
}

}  // namespace
}  // namespace folvane::test
