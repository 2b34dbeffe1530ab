#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "records/DesignedDatabase.h"
#include "records/TableRights.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

class TableRightsTest : public DesignTest {
 protected:
  TableParameters parameters_;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(TableRightsTest);

TEST_P(TableRightsTest, TheAdministratorHasAllRightsWithoutARow) {
  parameters_.Add(u"Lwdj"_s);
  for (const QString& id : {u"1"_s, u"1.0"_s}) {
    Shared().UserId = id;
    ReadTableRights(parameters_, 1, u"Lwdj"_s);
    EXPECT_EQ(parameters_.Get(1, Parameter::RowLimit), QString());
    EXPECT_EQ(parameters_.Get(1, Parameter::LookFile), u"1"_s);
    EXPECT_EQ(parameters_.Get(1, Parameter::Print), u"1"_s);
    EXPECT_EQ(parameters_.Get(1, Parameter::Edit), u"1"_s);
    EXPECT_EQ(parameters_.Get(1, Parameter::RightsText), u"所有权限"_s);
  }
  EXPECT_THAT(log_->Take(), ElementsAre()) << "no query runs";
}

TEST_P(TableRightsTest, AnEmptyUserIdIsNoNumberAndFails) {
  parameters_.Add(u"Lwdj"_s);
  Shared().UserId.clear();
  EXPECT_THROW(ReadTableRights(parameters_, 1, u"Lwdj"_s), DataError);
}

TEST_P(TableRightsTest, AUserHasTheRightsOfTheRow) {
  Shared().UserId = u"5"_s;
  parameters_.Add(u"Lwdj"_s);
  design_->Insert(u"UserPopedomScope"_s,
                  u"UserID,PopTableName,PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition"_s,
                  {u"5"_s, u"Lwdj"_s, u"浏览"_s, u"0"_s, u"1"_s, u"<null>"_s, u"RegID > 3"_s});
  ReadTableRights(parameters_, 1, u"Lwdj"_s);
  EXPECT_EQ(parameters_.Get(1, Parameter::RowLimit), u"(RegID > 3)"_s);
  EXPECT_EQ(parameters_.Get(1, Parameter::LookFile), QString());
  EXPECT_EQ(parameters_.Get(1, Parameter::Print), u"1"_s);
  EXPECT_EQ(parameters_.Get(1, Parameter::Edit), u"0"_s);
  EXPECT_EQ(parameters_.Get(1, Parameter::RightsText), u"浏览"_s);
  EXPECT_THAT(log_->Take(),
              ElementsAre(u"Select PopStrChn,PopEditData,PopPrintData,PopLookFile,PopCondition From UserPopedomScope "
                          "Where UserID = '5' And PopTableName = 'Lwdj'"_s));
}

TEST_P(TableRightsTest, AUserWithoutARowSeesNothing) {
  Shared().UserId = u"5"_s;
  parameters_.Add(u"Lwdj"_s);
  ReadTableRights(parameters_, 1, u"Lwdj"_s);
  EXPECT_EQ(parameters_.Get(1, Parameter::RowLimit), u"1 = 2"_s);
  EXPECT_EQ(parameters_.Get(1, Parameter::Edit), u"0"_s);
  EXPECT_EQ(parameters_.Get(1, Parameter::RightsText), u"无权限"_s);
}

}  // namespace folvane::test
