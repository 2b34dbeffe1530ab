#include <QScopeGuard>
#include <QScopedValueRollback>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "archiving/TakenNumbers.h"
#include "archiving/TransferFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class TakenNumbersTest : public TransferTest {
 protected:
  void SetUp() override {
    TransferTest::SetUp();
    AddDocuments(2);
  }
  /// Has another workstation write a row into the archive when a statement is about to run.
  void InsertAt(const QString& start, const QString& columns, const QStringList& values) {
    Connected()->OnStatement([=, this, done = false](const QString& statement) mutable {
      if (done || !statement.startsWith(start)) return;
      done = true;
      design_->Insert(u"Wenshu"_s, u"ArchiveID,Amaintitle,"_s + columns, QStringList{u"9"_s, u"他人"_s} + values);
    });
  }
  /// Has another workstation transfer the second document on a connection of its own.
  /// @return how many it could transfer @throws DataError
  int TransferElsewhere(const QString& title) {
    const std::shared_ptr<folvane::Connection> others = Database().Connect();
    const QScopedValueRollback elsewhere(Shared().Connection, others);
    const auto atRest = qScopeGuard([&] { EXPECT_FALSE(others->InTransaction()); });
    ArchiveTransfer other;
    other.askTitle = [&] { return title; };
    other.DoFileArch(Order(), {DesignedDatabase::Key(2)}, true);
    return other.SucceedCount();
  }
  void ExpectToldToRepeat() {
    EXPECT_EQ(transfer_->SucceedCount(), 0);
    EXPECT_EQ(boxes_.Last().text, u"归档期间，其他用户已经使用了相同的档号或顺序号，所有操作已取消。请重新归档！"_s);
    EXPECT_EQ(boxes_.Last().title, u"数据归档"_s);
    EXPECT_EQ(boxes_.Last().flags, 48);
    EXPECT_EQ(Archived(u"Amaintitle"_s), QStringList({u"他人"_s}));
    EXPECT_EQ(Database().Value(u"select count(*) from Fwdj where FileStatus='需归档'"_s), u"2"_s);
    EXPECT_EQ(Volumes(u"ArchNo"_s), QStringList());
    EXPECT_FALSE(Connected()->InTransaction());
  }
};
FOLVANE_ON_EACH_DATABASE(TakenNumbersTest);

TEST_P(TakenNumbersTest, ACounterGivenMeanwhileTakesEverythingBack) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"PageNo"_s, QString(), u"-"_s, false, 3}}, u"ArchNo"_s);
  InsertAt(u"Select PageNo,Quantity"_s, u"FondsNo,DocOrder"_s, {u"123"_s, u"2"_s});  // the greatest one is read by then
  Transfer(2);
  ExpectToldToRepeat();
}

TEST_P(TakenNumbersTest, ACounterGivenInAnotherVolumeIsLetPass) {
  AddColumn(u"Wenshu"_s, u"DocOrder integer"_s);
  SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, true, 4}, {u"PageNo"_s, QString(), u"-"_s, false, 3}}, u"ArchNo"_s);
  InsertAt(u"Select PageNo,Quantity"_s, u"FondsNo,DocOrder"_s, {u"124"_s, u"2"_s});
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
}

TEST_P(TakenNumbersTest, AComposedNumberGivenMeanwhileTakesEverythingBack) {
  InsertAt(u"Select * From DataTransfer_Details"_s, u"ArchNo"_s, {u"123-2002-0002"_s});
  Transfer(2);
  ExpectToldToRepeat();
}

TEST_P(TakenNumbersTest, ANumberThatWasThereBeforeIsLetPass) {
  design_->Insert(u"Wenshu"_s, u"ArchiveID,ArchNo"_s, {u"9"_s, u"123-2002-0002"_s});
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
}

TEST_P(TakenNumbersTest, OtherRowsThatCameMeanwhileAreLetPass) {
  InsertAt(u"Select * From DataTransfer_Details"_s, u"FondsNo,DocYear,ItemNo,ArchNo"_s,
           {u"123"_s, u"2001"_s, u"1"_s, u"123-2001-0001"_s});
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
}

TEST_P(TakenNumbersTest, AreLookedForAlsoWhenTheUserEndsTheTransferEarly) {
  design_->Run(u"update Fwdj set Pages='页' where Amaintitle='题名2'"_s);
  InsertAt(u"Select * From DataTransfer_Details"_s, u"ArchNo"_s, {u"123-2002-0001"_s});
  boxes_.Answer(7);
  Transfer(2);
  ExpectToldToRepeat();
}

TEST_P(TakenNumbersTest, AUniqueIndexOfTheHostsIsAnErrorOfTheRecord) {
  design_->Run(u"create unique index OneNumber on Wenshu (ArchNo)"_s);
  InsertAt(u"Select * From DataTransfer_Details"_s, u"ArchNo"_s, {u"123-2002-0002"_s});
  Transfer(2);
  EXPECT_EQ(transfer_->SucceedCount(), 0);
  EXPECT_TRUE(boxes_.Last().text.startsWith(u"数据归档时出现错误，所有操作将被取消！   "_s));
  EXPECT_EQ(Archived(u"Amaintitle"_s), QStringList({u"他人"_s}));
}

// Another workstation transfers the same kind of record on a connection of its own, while this one is in the middle.
TEST_P(TakenNumbersTest, OfTwoTransfersAtOnceOneIsTold) {
  if (OnSqlite()) return;
  int theirs = -1;
  ArchiveTransfer transfer;
  transfer.askTitle = [] { return u"案卷"_s; };
  transfer.onProgress = [&](int, int) {
    theirs = TransferElsewhere(u"案卷"_s);
    return true;
  };
  transfer.DoFileArch(Order(), {DesignedDatabase::Key(1)}, true);
  EXPECT_EQ(theirs, 1);
  EXPECT_EQ(transfer.SucceedCount(), 0);
  EXPECT_EQ(boxes_.Requests().size(), 1u);
  EXPECT_EQ(Archived(u"Amaintitle,ArchNo"_s), QStringList({u"题名2|123-2002-0001"_s}));
}

// The numbers differ where each document brings its own, and yet there is one volume.
TEST_P(TakenNumbersTest, OfTwoThatMakeTheSameVolumeOneIsTold) {
  if (OnSqlite()) return;
  Map(u"Unit"_s, u"ItemNo"_s);
  design_->Run(u"update Fwdj set Unit = case when Amaintitle = '题名1' then '11' else '12' end"_s);
  int theirs = -1;
  ArchiveTransfer transfer;
  transfer.askTitle = [&] {
    theirs = TransferElsewhere(u"他人的案卷"_s);
    return u"案卷"_s;
  };
  transfer.DoFileArch(Order(), {DesignedDatabase::Key(1)}, true);
  EXPECT_EQ(theirs, 1);
  EXPECT_EQ(transfer.SucceedCount(), 0);
  EXPECT_EQ(Volumes(u"Amaintitle"_s), QStringList{u"他人的案卷"_s});
  EXPECT_EQ(Archived(u"Amaintitle,ArchNo"_s), QStringList({u"题名2|123-2002-0012"_s}));
  transfer.DoFileArch(Order(), {DesignedDatabase::Key(1)}, true);
  EXPECT_EQ(transfer.SucceedCount(), 1) << "now into the volume that is there";
  EXPECT_EQ(Volumes(u"Amaintitle,Quantity"_s), QStringList{u"他人的案卷|2"_s});
}

TEST_P(TakenNumbersTest, OnSqliteASecondTransferIsToldWhileTheFirstGoesOn) {
  if (!OnSqlite()) return;
  std::optional<DataErrorKind> refused;
  ArchiveTransfer transfer;
  transfer.askTitle = [] { return u"案卷"_s; };
  transfer.onProgress = [&](int, int) {
    try {
      TransferElsewhere(u"案卷"_s);
    } catch (const DataError& error) {
      refused = error.Kind();
    }
    return true;
  };
  transfer.DoFileArch(Order(), {DesignedDatabase::Key(1)}, true);
  EXPECT_EQ(refused, DataErrorKind::Locked);
  EXPECT_EQ(transfer.SucceedCount(), 1);
  EXPECT_EQ(Archived(u"Amaintitle,ArchNo"_s), QStringList({u"题名1|123-2002-0001"_s}));
}

}  // namespace
}  // namespace folvane::test
