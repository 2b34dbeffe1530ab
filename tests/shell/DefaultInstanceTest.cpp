#include <QLineEdit>
#include <gtest/gtest.h>

#include "shell/DefaultInstance.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

struct FrmSample : QWidget {
  FrmSample() { ++made; }
  QString CurrTable;
  static inline int made = 0;
};
using Sample = DefaultInstance<FrmSample>;

class DefaultInstanceTest : public testing::Test {
 protected:
  void SetUp() override { FrmSample::made = 0; }
  void TearDown() override { Sample::Unload(); }
};

TEST_F(DefaultInstanceTest, TheFirstReferenceMakesTheWindowAndLaterOnesSeeIt) {
  EXPECT_FALSE(Sample::IsLoaded());
  Sample::Get().CurrTable = u"Fwdj"_s;
  EXPECT_TRUE(Sample::IsLoaded());
  EXPECT_EQ(Sample::Get().CurrTable, u"Fwdj"_s);
  EXPECT_EQ(FrmSample::made, 1);
}

TEST_F(DefaultInstanceTest, AClosedWindowStaysLoaded) {
  Sample::Get().CurrTable = u"Fwdj"_s;
  Sample::Get().show();
  Sample::Get().close();
  EXPECT_EQ(Sample::Get().CurrTable, u"Fwdj"_s);
  EXPECT_EQ(FrmSample::made, 1);
}

TEST_F(DefaultInstanceTest, AfterUnloadTheNextReferenceMakesItAnew) {
  Sample::Get().CurrTable = u"Fwdj"_s;
  Sample::Unload();
  EXPECT_FALSE(Sample::IsLoaded());
  EXPECT_EQ(Sample::Get().CurrTable, QString());
  EXPECT_EQ(FrmSample::made, 2);
}

TEST_F(DefaultInstanceTest, AWindowDeletedByOthersIsMadeAnew) {
  delete &Sample::Get();
  EXPECT_FALSE(Sample::IsLoaded());
  Sample::Get();
  EXPECT_EQ(FrmSample::made, 2);
}

TEST_F(DefaultInstanceTest, UnloadWithoutAWindowDoesNothing) {
  Sample::Unload();
  EXPECT_FALSE(Sample::IsLoaded());
}

}  // namespace
}  // namespace folvane
