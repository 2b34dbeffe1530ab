#include <gtest/gtest.h>
#include <stdexcept>

#include "shell/OpenHelp.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

class OpenHelpTest : public testing::Test {
 protected:
  test::TempProgramDirectory directory_;
  test::MessageBoxes boxes_;
};

TEST_F(OpenHelpTest, SaysThatTheFileIsMissing) {
  Services().showHelp = [](QWidget*, const QString&, const QString&) { ADD_FAILURE() << "nothing to show"; };
  OpenHelp(nullptr, u"文件登记.htm"_s);
  const QString directory = directory_.Path();
  EXPECT_EQ(boxes_.Last().text, u"帮助文件 "_s + directory + u"\\help.chm 不存在\r\n请将 help.chm 文件拷贝到 "_s +
                                    directory + u" 路径下。"_s);
  EXPECT_EQ(boxes_.Last().flags, 64);
  EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
}

TEST_F(OpenHelpTest, HandsFileAndTopicToTheViewer) {
  directory_.Write(u"help.chm"_s, "x");
  QWidget window;
  QWidget* owner = nullptr;
  QStringList shown;
  Services().showHelp = [&](QWidget* widget, const QString& file, const QString& topic) {
    owner = widget;
    shown << file << topic;
  };
  OpenHelp(&window, u"文件归档.htm"_s);
  EXPECT_EQ(owner, &window);
  EXPECT_EQ(shown, (QStringList{directory_.Path(u"help.chm"_s), u"文件归档.htm"_s}));
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_F(OpenHelpTest, ShowsTheDescriptionOfAnErrorAndGoesOn) {
  directory_.Write(u"help.chm"_s, "x");
  Services().showHelp = [](QWidget*, const QString&, const QString&) { throw std::runtime_error("viewer broken"); };
  EXPECT_NO_THROW(OpenHelp(nullptr, u"文件登记.htm"_s));
  EXPECT_EQ(boxes_.Texts(), QStringList{u"viewer broken"_s});
}

}  // namespace
}  // namespace folvane
