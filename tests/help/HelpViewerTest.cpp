#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolBar>
#include <QUrl>
#include <gtest/gtest.h>

#include "components/help/HelpViewer.h"
#include "shell/ModalWindow.h"
#include "shell/OpenHelp.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kHelpFile = QString::fromUtf8(HELP_FILE);
const QString kTopic = u"文件登记.htm"_s;
const QString kEntryTopic = u"数据操作.htm"_s;
const QString kTransferTopic = u"归档设置.htm"_s;

HelpViewer* Viewer() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* viewer = qobject_cast<HelpViewer*>(window); viewer && viewer->isVisible()) return viewer;
  }
  return nullptr;
}

class HelpViewerTest : public testing::Test {
 protected:
  void TearDown() override { delete Viewer(); }
  static QTextBrowser& Page() { return test::Find<QTextBrowser>(*Viewer(), {}); }
};

TEST_F(HelpViewerTest, ShowsTheTopicOfTheFile) {
  ShowHelp(nullptr, kHelpFile, kTopic);
  ASSERT_TRUE(Viewer());
  EXPECT_EQ(Viewer()->windowTitle(), u"帮助 - 文件登记"_s);
  const QString page = Page().toPlainText();
  for (const QString& word : {u"公文分类"_s, u"原文扫描"_s, u"翻页与定位"_s, u"排序"_s, u"简易检索栏"_s, u"组合查询"_s,
                              u"批量修改"_s, u"键盘操作"_s}) {
    EXPECT_TRUE(page.contains(word)) << word.toStdString();
  }
}

TEST_F(HelpViewerTest, ExplainsTheEntryOfRecords) {
  ShowHelp(nullptr, kHelpFile, kEntryTopic);
  EXPECT_EQ(Viewer()->windowTitle(), u"帮助 - 数据操作"_s);
  const QString page = Page().toPlainText();
  for (const QString& word : {u"添加"_s, u"保存与取消"_s, u"全部复制"_s, u"登记号"_s, u"校对条件"_s, u"键盘顺序"_s,
                              u"替换"_s, u"RegIDFormula.Ini"_s, u"SBC.Ini"_s, u"F11"_s}) {
    EXPECT_TRUE(page.contains(word)) << word.toStdString();
  }
}

TEST_F(HelpViewerTest, ExplainsTheSettingsOfTransfers) {
  ShowHelp(nullptr, kHelpFile, kTransferTopic);
  EXPECT_EQ(Viewer()->windowTitle(), u"帮助 - 归档设置"_s);
  const QString page = Page().toPlainText();
  for (const QString& word : {u"来源表"_s, u"自动对应"_s, u"案卷号字段"_s, u"显示代号"_s, u"Ctrl+L"_s}) {
    EXPECT_TRUE(page.contains(word)) << word.toStdString();
  }
}

TEST_F(HelpViewerTest, ExplainsTheFlowsByTheSignsThatTheyHave) {
  const auto page = [](const QString& topic) {
    ShowHelp(nullptr, kHelpFile, topic);
    EXPECT_EQ(Viewer()->windowTitle(), u"帮助 - "_s + topic.chopped(4));
    return Page().toPlainText();
  };
  for (const QString& topic : {u"文件传阅.htm"_s, u"文件处理.htm"_s}) EXPECT_TRUE(page(topic).contains(u"三角是"_s));
  const QString distribution = page(u"文件分发.htm"_s);
  EXPECT_TRUE(distribution.contains(u"圆中带勾是“已分发”"_s));
  for (const QString& ofRoutes : {u"三角"_s, u"小旗"_s, u"流程"_s}) EXPECT_FALSE(distribution.contains(ofRoutes));
  EXPECT_TRUE(page(u"文件催办.htm"_s).contains(u"添加催办单不改变处理单的状态"_s));
}

TEST_F(HelpViewerTest, LinksLeadThroughThePageAndBack) {
  ShowHelp(nullptr, kHelpFile, kTopic);
  const auto actions = test::Find<QToolBar>(*Viewer(), {}).actions();
  EXPECT_FALSE(actions[0]->isEnabled());
  Page().setSource(QUrl(u"#sort"_s));
  EXPECT_EQ(Page().source().fragment(), u"sort"_s);
  EXPECT_TRUE(actions[0]->isEnabled());
  actions[0]->trigger();
  EXPECT_EQ(Page().source().fragment(), QString());
}

TEST_F(HelpViewerTest, EveryLinkOfAPageHasItsPlace) {
  for (const QString& topic : {kTopic, kEntryTopic, kTransferTopic}) {
    ShowHelp(nullptr, kHelpFile, topic);
    const QString html = Page().toHtml();
    int links = 0;
    for (const auto& link : QRegularExpression(u"href=\"#([a-z]+)\""_s).globalMatch(html)) {
      EXPECT_TRUE(html.contains(u"name=\"%1\""_s.arg(link.captured(1)))) << link.captured(1).toStdString();
      ++links;
    }
    EXPECT_GE(links, 5);
  }
}

TEST_F(HelpViewerTest, OneTopicLeadsToAnotherAndBack) {
  ShowHelp(nullptr, kHelpFile, kTopic);
  const auto link = QRegularExpression(u"href=\"([^#\"]+)\""_s).match(Page().toHtml());
  ASSERT_TRUE(link.hasMatch());
  Page().setSource(Page().source().resolved(QUrl(link.captured(1))));
  EXPECT_EQ(Viewer()->windowTitle(), u"帮助 - 数据操作"_s);
  Page().backward();
  EXPECT_EQ(Viewer()->windowTitle(), u"帮助 - 文件登记"_s);
}

TEST_F(HelpViewerTest, ATopicThatIsMissingIsNamed) {
  ShowHelp(nullptr, kHelpFile, u"没有.htm"_s);
  EXPECT_EQ(Page().toPlainText(), u"帮助文件中没有“没有.htm”这一主题。"_s);
}

TEST_F(HelpViewerTest, AForeignFileIsNamed) {
  const test::TempProgramDirectory directory;
  directory.Write(u"help.chm"_s, "ITSF");
  ShowHelp(nullptr, directory.Path(u"help.chm"_s), kTopic);
  EXPECT_TRUE(Page().toPlainText().contains(u"不是本系统的帮助文件"_s));
}

TEST_F(HelpViewerTest, AFurtherTopicTakesTheSameWindow) {
  ShowHelp(nullptr, kHelpFile, kTopic);
  const QPointer<HelpViewer> first = Viewer();
  ShowHelp(nullptr, kHelpFile, u"没有.htm"_s);
  EXPECT_EQ(Viewer(), first);
  EXPECT_TRUE(Page().toPlainText().contains(u"没有.htm"_s));
}

TEST_F(HelpViewerTest, AnotherWindowTakesTheHelpOver) {
  QWidget other;
  ShowHelp(nullptr, kHelpFile, kTopic);
  const QPointer<HelpViewer> first = Viewer();
  ShowHelp(&other, kHelpFile, kTopic);
  EXPECT_FALSE(first);
  EXPECT_EQ(Viewer()->parentWidget(), &other);
}

TEST_F(HelpViewerTest, StaysUsableBesideAModalWindowAndGoesWithIt) {
  QWidget window;
  window.setObjectName(u"FrmTest"_s);
  test::WithWindow(u"FrmTest"_s, [](QWidget& shown) {
    ShowHelp(&shown, kHelpFile, kTopic);
    ASSERT_TRUE(Viewer());
    test::Press(Page(), Qt::Key_End);
    const auto actions = test::Find<QToolBar>(*Viewer(), {}).actions();
    Page().setSource(QUrl(u"#keys"_s));
    test::Click(*test::Find<QToolBar>(*Viewer(), {}).widgetForAction(actions[0]));
    EXPECT_FALSE(actions[0]->isEnabled()) << "the click did not reach the window";
    shown.hide();
    EXPECT_FALSE(Viewer());
  });
  ShowModal(window);
}

TEST_F(HelpViewerTest, IsWhatOpenHelpShowsByDefault) {
  const test::TempProgramDirectory directory;
  ASSERT_TRUE(QFile::copy(kHelpFile, directory.Path(u"help.chm"_s)));
  OpenHelp(nullptr, kTopic);
  ASSERT_TRUE(Viewer());
  EXPECT_EQ(Viewer()->windowTitle(), u"帮助 - 文件登记"_s);
}

TEST_F(HelpViewerTest, APageReadsNothingBesideItsFile) {
  ShowHelp(nullptr, kHelpFile, kTopic);
  QTemporaryFile secret;
  ASSERT_TRUE(secret.open());
  secret.write("<p>SECRET</p>");
  secret.close();
  EXPECT_FALSE(Page().loadResource(QTextDocument::HtmlResource, QUrl::fromLocalFile(secret.fileName())).isValid());
  EXPECT_FALSE(Page().loadResource(QTextDocument::ImageResource, QUrl(u"qrc:/folvane/help/../../x.png"_s)).isValid());
  EXPECT_TRUE(Page().loadResource(QTextDocument::HtmlResource, QUrl(kEntryTopic)).isValid());
  Page().setSource(QUrl::fromLocalFile(secret.fileName()));  // as a link to it does
  EXPECT_FALSE(Page().toPlainText().contains(u"SECRET"_s));
  EXPECT_FALSE(Page().openExternalLinks());
}

}  // namespace
}  // namespace folvane
