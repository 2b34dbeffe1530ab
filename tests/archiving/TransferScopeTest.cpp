#include <gtest/gtest.h>

#include "archiving/TransferFixture.h"
#include "archiving/TransferScope.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class TransferScopeTest : public TransferTest {
 protected:
  void SetUp() override {
    TransferTest::SetUp();
    Shared().UserId = u"7"_s;
    AddDocuments(1);
    log_->Take();
  }
  void Limit(const QString& condition, const QStringList& fields) {
    design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopCondition"_s, {u"7"_s, u"Fwdj"_s, condition});
    for (const QString& field : fields)
      design_->Insert(u"UserPopedomScopeDetails"_s, u"UserId,PopTableName,FieldName"_s, {u"7"_s, u"Fwdj"_s, field});
  }
  QStringList RightsStatements() { return log_->Take().filter(QRegularExpression(u"Popedom|^If Not"_s)); }
};
FOLVANE_ON_EACH_DATABASE(TransferScopeTest);

TEST_P(TransferScopeTest, TheAdministratorMayTransferAll) {
  Limit(u"1 = 2"_s, {u"Unit"_s});
  Shared().UserId = u"1"_s;
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(RightsStatements(), QStringList());
}

TEST_P(TransferScopeTest, WithoutFieldsTheUserIsAllowedWhateverTheConditionSays) {
  Limit(u"1 = 2"_s, {});
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(RightsStatements(),
            QStringList({u"Select PopCondition From UserPopedomScope  where userid='7' and PopTableName='Fwdj'"_s,
                         u"Select Distinct(FieldName) from UserPopedomScopeDetails Where PopTableName='Fwdj' And "
                         "UserId = '7'"_s}));
}

TEST_P(TransferScopeTest, FieldsAreReplacedByTheNumbersValuesAndByThoseOfTheRecord) {
  Limit(u"(Fwdj.DocYear='2002' And Amaintitle = '题名1')"_s, {u"Amaintitle"_s, u"DocYear"_s});
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_EQ(RightsStatements().last(),
            u"If Not (('2002'='2002' And '题名1' = '题名1')) Select 'False' As Result,Count(1)as T from DynamicWindows "
            "Else Select 'True' As Result,Count(1)as T From DynamicWindows"_s);
}

TEST_P(TransferScopeTest, ARecordOutOfTheRightsIsSkippedAndTheOthersGoOn) {
  AddDocument(2, u"题名2"_s, u"2002-01-01"_s, u"1"_s);
  Limit(u"Fwdj.Amaintitle = '题名2'"_s, {u"Amaintitle"_s});
  EXPECT_EQ(Transfer(2).SucceedCount(), 1);
  EXPECT_EQ(Archived(u"Amaintitle"_s), QStringList({u"题名2"_s}));
  EXPECT_EQ(boxes_.Requests().size(), 0u);
}

TEST_P(TransferScopeTest, AnEmptyValueOfTheNumberGivesWayToTheRecords) {
  design_->Run(u"update Fwdj set Unit='办公室'"_s);
  Map(u"Unit"_s, u"DocYear"_s);
  SetFormat({{u"Unit"_s, QString(), u"-"_s, true, 4}, {u"ItemNo"_s, QString(), u"-"_s, false, 4}}, QString());
  AddColumn(u"Wenshu"_s, u"Unit varchar(20)"_s);
  design_->Run(u"delete from Design_TableRelation"_s);
  Limit(u"Unit = '办公室'"_s, {u"Unit"_s});
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
}

TEST_P(TransferScopeTest, AFieldOfNeitherIsEmpty) {
  design_->Run(u"update Fwdj set Unit='办公室'"_s);
  Limit(u"Fwdj.Unit = '办公室'"_s, {u"Unit"_s});
  EXPECT_EQ(Transfer(1).SucceedCount(), 0);
  EXPECT_TRUE(RightsStatements().last().startsWith(u"If Not ('' = '办公室')"_s));
}

TEST_P(TransferScopeTest, FieldsAreKnownByTheirExactNames) {
  Limit(u"DOCYEAR = ''"_s, {u"DOCYEAR"_s});
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
  EXPECT_TRUE(RightsStatements().last().startsWith(u"If Not ('' = '')"_s));
}

TEST_P(TransferScopeTest, AnItemFieldIsNotOfTheNumbersValues) {
  Limit(u"ItemNo = ''"_s, {u"ItemNo"_s});
  Shared().ArchNoFieldValue.last() = u"5"_s;
  EXPECT_EQ(Transfer(1).SucceedCount(), 1);
}

TEST_P(TransferScopeTest, AConditionThatCannotBeJudgedTakesEverythingBack) {
  Limit(u"Amaintitle = "_s, {u"Amaintitle"_s});
  EXPECT_EQ(Transfer(1).SucceedCount(), 0);
  EXPECT_EQ(boxes_.Last().title, u"数据归档"_s);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(TransferScopeTest, AMissingRecordOfATableWithoutStatusIsSkipped) {
  Limit(u"Amaintitle = ''"_s, {u"Amaintitle"_s});
  TransferOrder order = Order();
  order.sourceStatement = u"Select ArchiveID,Amaintitle From Fwdj Where 1 = 2"_s;
  Unmap();
  Map(u"Amaintitle"_s, u"Amaintitle"_s);
  EXPECT_EQ(Transfer(1, order).SucceedCount(), 0);
  EXPECT_EQ(boxes_.Requests().size(), 0u);
}

}  // namespace
}  // namespace folvane::test
