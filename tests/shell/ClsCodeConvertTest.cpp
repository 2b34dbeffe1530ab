#include <folvane/ClsCodeConvert.h>
#include <folvane/DataError.h>

#include "SharedDatabase.h"
#include "shell/RegistryValues.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

class ConvertChn : public test::SharedDatabase {
 protected:
  void SetUp() override {
    SharedDatabase::SetUp();
    Run({u"Insert Into FondsDefine Values ('001', '办公厅')"_s,
         u"Insert Into EntityClass Values ('WS', '001', '文书档案')"_s,
         u"Insert Into EntityClass Values ('WS', '002', '文书')"_s,
         u"Insert Into RetentionYear Values ('Y', '永久')"_s});
  }
  ClsCodeConvert convert_;
};
FOLVANE_ON_EACH_DATABASE(ConvertChn);

TEST_P(ConvertChn, Kind1TurnsAFondsNumberIntoItsName) {
  EXPECT_EQ(convert_.ConvertChn(1, u"001"_s), u"办公厅"_s);
  EXPECT_EQ(Statements(), QStringList{u"Select FondsName from FondsDefine Where FondsNo='001'"_s});
}

TEST_P(ConvertChn, Kind2LooksAmongTheClassesOfTheCurrentFonds) {
  SaveValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s, u"001"_s);
  EXPECT_EQ(convert_.ConvertChn(2, u"WS"_s), u"文书档案"_s);
  EXPECT_EQ(Statements(), QStringList{u"Select ClassName from EntityClass  Where ClassNo='WS' and FondsNo = '001'"_s});
}

TEST_P(ConvertChn, Kind3TurnsThePeriodsNameIntoItsCode) {
  EXPECT_EQ(convert_.ConvertChn(3, u"永久"_s), u"Y"_s);
  EXPECT_EQ(Statements(), QStringList{u"Select Code from RetentionYear Where Name='永久'"_s});
}

TEST_P(ConvertChn, ACodeIsLookedUpAsItIs) {
  Run({u"Insert Into RetentionYear Values ('C''', '长期''')"_s});
  EXPECT_EQ(convert_.ConvertChn(3, u"长期'"_s), u"C'"_s);
  for (const qint16 kind : {1, 2, 3}) EXPECT_EQ(convert_.ConvertChn(kind, u"' or '1'='1"_s), QString()) << kind;
}

TEST_P(ConvertChn, Kind4IsEmptyAndAsksNothing) {
  EXPECT_EQ(convert_.ConvertChn(4, u"001"_s), QString());
  EXPECT_EQ(convert_.ConvertChn(0, u"001"_s), QString());
  EXPECT_TRUE(Statements().isEmpty());
}

TEST_P(ConvertChn, AnUnknownCodeIsEmpty) { EXPECT_EQ(convert_.ConvertChn(1, u"999"_s), QString()); }

TEST_P(ConvertChn, WithoutAConnectionItIsAnError) {
  Shared().Connection = nullptr;
  EXPECT_THROW(convert_.ConvertChn(1, u"001"_s), DataError);
}

}  // namespace
}  // namespace folvane
