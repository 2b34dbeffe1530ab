#include <gtest/gtest.h>

#include <folvane/ClsFileArch.h>
#include <folvane/DataError.h>

#include "archiving/TransferFixture.h"
#include "archiving/VolumeRecord.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class VolumeRecordTest : public TransferTest {
 protected:
  void Share(const QString& field, int controlsType = 1) {
    design_->Insert(u"DynamicWindows"_s, u"TableName,FieldName,ControlsType"_s, {u"Anjuan"_s, field, u"0"_s});
    design_->Insert(u"DynamicWindows"_s, u"TableName,FieldName,ControlsType"_s,
                    {u"Wenshu"_s, field, QString::number(controlsType)});
  }
};
FOLVANE_ON_EACH_DATABASE(VolumeRecordTest);

TEST_P(VolumeRecordTest, IsMadeWithTitleNumberAndSums) {
  AddDocument(1, u"题名1"_s, u"2002-01-05"_s, u"3"_s);
  AddDocument(2, u"题名2"_s, u"2002-01-02"_s, u"4"_s);
  EXPECT_EQ(Transfer(2).SucceedCount(), 2);
  EXPECT_EQ(titlesAsked_, 1);
  EXPECT_EQ(Volumes(u"Amaintitle,FondsNo,DocYear,ArchNo,Quantity,DocStartDate,DocEndDate"_s),
            QStringList({u"案卷|123|2002|123-2002|7|2002-01-02|2002-01-05"_s}));
}

TEST_P(VolumeRecordTest, OfASecondTransferIsOnlySummedUpAnew) {
  AddDocuments(2);
  Transfer(1);
  EXPECT_EQ(Transfer(2).SucceedCount(), 1);
  EXPECT_EQ(titlesAsked_, 1);
  EXPECT_EQ(Volumes(u"Amaintitle,Quantity,DocStartDate,DocEndDate"_s),
            QStringList({u"案卷|2|2002-01-01|2002-01-02"_s}));
}

TEST_P(VolumeRecordTest, IsNotAskedForWhereNothingWasTransferred) {
  EXPECT_EQ(Transfer(1).SucceedCount(), 0);
  EXPECT_EQ(titlesAsked_, 0);
  EXPECT_EQ(Volumes(u"ArchNo"_s), QStringList());
}

TEST_P(VolumeRecordTest, IsMadeWithoutTitleWhenTheWindowWasClosed) {
  volumeTitle_.clear();
  AddDocuments(1);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Volumes(u"Amaintitle,Quantity"_s), QStringList({u"|1"_s}));
}

TEST_P(VolumeRecordTest, TakesTheSharedFieldsOfTheFirstRecord) {
  AddColumn(u"Wenshu"_s, u"Term varchar(10)"_s);
  AddColumn(u"Anjuan"_s, u"Term varchar(10)"_s);
  AddColumn(u"Wenshu"_s, u"Secret varchar(10)"_s);
  AddColumn(u"Anjuan"_s, u"Secret varchar(10)"_s);
  Share(u"Term"_s);
  Share(u"Secret"_s, 2);
  Map(u"Unit"_s, u"Term"_s);
  Map(u"Unit"_s, u"Secret"_s);
  AddDocuments(1);
  design_->Run(u"update Fwdj set Unit='永久'"_s);
  Transfer(1);
  EXPECT_EQ(Volumes(u"Term,Secret"_s), QStringList({u"永久|<null>"_s}));
}

TEST_P(VolumeRecordTest, MayHaveTheKeyOfItsFirstRecord) {
  Share(u"ArchiveID"_s);
  AddDocuments(2);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Volumes(u"ArchiveID"_s), Archived(u"ArchiveID"_s));
  EXPECT_EQ(Transfer(2).SucceedCount(), 1);
}

TEST_P(VolumeRecordTest, PassesOverFieldsThatTheParentDoesNotHave) {
  design_->Run(u"drop table Anjuan"_s);
  design_->Run(u"create table Anjuan (ArchiveID varchar(20) primary key, FondsNo varchar(20), DocYear varchar(20))"_s);
  AddDocuments(1);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Volumes(u"FondsNo,DocYear"_s), QStringList({u"123|2002"_s}));
}

TEST_P(VolumeRecordTest, IsNotMadeForATableWithoutParent) {
  design_->Run(u"delete from Design_TableRelation where TableName='Anjuan'"_s);
  AddDocuments(1);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(titlesAsked_, 0);
}

TEST_P(VolumeRecordTest, OfAParentWithoutNumberFormatHasNoNumber) {
  design_->Run(u"delete from ArchiveNo_Format"_s);
  AddDocuments(1);
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(Volumes(u"Amaintitle,ArchNo"_s), QStringList({u"案卷|<null>"_s}));
}

TEST_P(VolumeRecordTest, WithoutCreatedDateInTheRecordsFailsAndNothingIsKept) {
  design_->Run(u"alter table Wenshu drop column CreatedDate"_s);
  Unmap();
  Map(u"Amaintitle"_s, u"Amaintitle"_s);
  AddDocuments(1);
  const QStringList before = Everything();
  EXPECT_THROW(Transfer(1), DataError);
  EXPECT_EQ(transfer_->SucceedCount(), 0);
  EXPECT_EQ(Everything(), before);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(VolumeRecordTest, CanBeRefreshedByItself) {
  AddDocuments(1);
  Transfer(1);
  design_->Run(u"update Wenshu set Quantity=9"_s);
  ClsFileArch transfer;
  QString result;
  transfer.InputAmaintitle(u"Wenshu"_s, u"Anjuan"_s, u"ArchNo"_s, u" Where FondsNo = '123'"_s, result);
  EXPECT_EQ(Volumes(u"Quantity"_s), QStringList({u"9"_s}));
}

TEST_P(VolumeRecordTest, CanBeMadeByItself) {
  AddDocuments(1);
  Transfer(1);
  design_->Run(u"delete from Anjuan"_s);
  ArchiveTransfer transfer;
  transfer.askTitle = [] { return u"补"_s; };
  transfer.InputAmaintitle(u"Wenshu"_s, u"Anjuan"_s, u"ArchNo"_s, u" Where FondsNo = '123'"_s);
  EXPECT_EQ(Volumes(u"Amaintitle,ArchNo,Quantity"_s), QStringList({u"补|123-2002|1"_s}));
}

}  // namespace
}  // namespace folvane::test
