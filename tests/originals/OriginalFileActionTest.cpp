#include <gmock/gmock.h>
#include <stdexcept>

#include <folvane/HostServices.h>
#include <folvane/OriginalsRequest.h>

#include "originals/OriginalFileAction.h"
#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

class OriginalFileActionTest : public DesignTest {
 protected:
  void Answer(bool added) {
    Services().handleOriginals = [added](const OriginalsRequest&) { return added; };
  }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(OriginalFileActionTest);

TEST_P(OriginalFileActionTest, TheComponentIsToldWhatIsMeant) {
  Shared().DatabaseKind = u"ACCESS"_s;
  Shared().OriginalRoot = u"C:\\Data"_s;
  OriginalsRequest told;
  Services().handleOriginals = [&](const OriginalsRequest& request) {
    told = request;
    return true;
  };
  OriginalFileAction(u"17"_s, kBrowseOriginals, u"91"_s);
  EXPECT_EQ(told.recordId, u"17"_s);
  EXPECT_EQ(told.action, u"BrowseState"_s);
  EXPECT_EQ(told.fileId, u"91"_s);
  EXPECT_EQ(told.databaseKind, u"ACCESS"_s);
  EXPECT_EQ(told.storeRoot, u"C:\\Data"_s);
  EXPECT_EQ(told.connection, Shared().Connection);
  EXPECT_EQ(told.ftp, nullptr);
  EXPECT_FALSE(told.internetAccess);
}

TEST_P(OriginalFileActionTest, OnlyAnAdditionThatAddedNothingIsFalse) {
  Answer(false);
  EXPECT_FALSE(OriginalFileAction(u"17"_s, u"AddState"_s));
  EXPECT_TRUE(OriginalFileAction(u"17"_s, u"BrowseState"_s, u"91"_s));
  EXPECT_TRUE(OriginalFileAction(u"17"_s, u"ScanState"_s));
  EXPECT_TRUE(OriginalFileAction(u"17"_s, {}));
  Answer(true);
  EXPECT_TRUE(OriginalFileAction(u"17"_s, u"AddState"_s));
}

TEST_P(OriginalFileActionTest, AComponentThatIsNotThereIsToldInThreeLinesForAllActions) {
  Services().handleOriginals = nullptr;
  MessageBoxes boxes;
  for (const QString& action : {u"AddState"_s, u"BrowseState"_s, u"ScanState"_s, QString()}) {
    boxes.Clear();
    EXPECT_TRUE(OriginalFileAction(u"17"_s, action)) << "the result stays true";
    EXPECT_EQ(boxes.Texts(), QStringList{u"请确定您的机器中安装了‘映象’工具！\n"
                                         "若您是XP或2003系统，请安装本系统目录下的 kodak for winxp.EXE 文件\n"
                                         "若您是98或2000系统，请在Windows系统中的控制面板里安装Windows‘映象’组件"_s});
    EXPECT_EQ(boxes.Last().flags, 0);
  }
}

TEST_P(OriginalFileActionTest, AFailureOfTheComponentIsToldAndStaysTrue) {
  Services().handleOriginals = [](const OriginalsRequest&) -> bool { throw std::runtime_error("磁盘已满"); };
  MessageBoxes boxes;
  EXPECT_TRUE(OriginalFileAction(u"17"_s, u"AddState"_s));
  EXPECT_EQ(boxes.Last().text, u"磁盘已满"_s);
  EXPECT_EQ(boxes.Last().title, u"原文管理"_s);
  EXPECT_EQ(boxes.Last().flags, 64);
}

TEST_P(OriginalFileActionTest, TheFirstOriginalIsThatOfTheLowestOrder) {
  design_->AddOriginal(u"17"_s, u"91"_s, u"附件"_s, 2);
  design_->AddOriginal(u"17"_s, u"92"_s, u"正文"_s, 1);
  EXPECT_EQ(FirstOriginalOf(u"17"_s), u"92"_s);
  EXPECT_EQ(FirstOriginalOf(u"18"_s), QString());
}

}  // namespace folvane::test
