#include <gmock/gmock.h>

#include <folvane/HostServices.h>

#include "flows/FlowWindowFixture.h"

namespace folvane::test {
namespace {

/// Which command of a flow's window leads where.
class FlowWiringTest : public FlowWindowTest {
 protected:
  /// Triggers a command and answers the caption of the dialog that it opens.
  static QString Opened(QWidget& window, const QString& command, const QString& dialog) {
    QString caption;
    WithWindow(dialog, [&](QWidget& opened) { caption = opened.windowTitle(); });
    Command(window, command).trigger();
    return caption;
  }
  QString HelpTopic(const QString& name) {
    QString shown;
    Services().showHelp = [&](QWidget*, const QString&, const QString& topic) { shown = topic; };
    Open(name, [](QWidget& window) { Entry(window, u"mnuHelp"_s, u"mnuHelpTitle"_s).trigger(); });
    return shown;
  }
};

FOLVANE_ON_EACH_DATABASE(FlowWiringTest);

TEST_P(FlowWiringTest, ARouteIsChosenAndEditedWhileTheSheetWaits) {
  AddHeads(Circulation(), 1);
  Open(u"frmPassFile"_s, [](QWidget& window) {
    for (const QString& command : {u"Choise"_s, u"mnuChoice"_s})
      EXPECT_EQ(Opened(window, command, u"frmRouteChoice"_s), u"选择流程"_s);
    for (const QString& command : {u"EditFlow"_s, u"mnuEidtFlow"_s})
      EXPECT_EQ(Opened(window, command, u"frmRouteEdit"_s), u"编辑流程"_s);
  });
}

TEST_P(FlowWiringTest, TheProgressOfARouteIsShownOfAllAndOfTheUser) {
  AddHead(Handling(), {K(1), u"11"_s, u"处理中"_s});
  Open(u"frmTranSact"_s, [](QWidget& window) {
    for (const QString& command : {u"Notion"_s, u"mnuAllNotion"_s})
      EXPECT_EQ(Opened(window, command, u"frmNotion"_s), u"意见信息"_s);
    for (const QString& command : {u"PNotion"_s, u"mnuNotion"_s})
      EXPECT_EQ(Opened(window, command, u"frmNotion"_s), u"个人意见"_s);
  });
}

TEST_P(FlowWiringTest, EachWindowHasItsHelp) {
  program_.Write(u"help.chm"_s, "x");
  EXPECT_EQ(HelpTopic(u"frmDistributeFile"_s), u"文件分发.htm"_s);
  EXPECT_EQ(HelpTopic(u"frmPassFile"_s), u"文件传阅.htm"_s);
  EXPECT_EQ(HelpTopic(u"frmTranSact"_s), u"文件处理.htm"_s);
  hasten_ = u"1"_s;
  EXPECT_EQ(HelpTopic(u"frmTranSact"_s), u"文件催办.htm"_s);
}

TEST_P(FlowWiringTest, ANewReminderIsCalledOne) {
  AddHeads(Handling(), 1);
  const auto captionOfNew = [this] {
    QString caption;
    Open(u"frmTranSact"_s, [&](QWidget& window) {
      Click(*Details(window).viewport());
      caption = Opened(window, u"NEW"_s, u"frmTranEdit"_s);
    });
    return caption;
  };
  EXPECT_EQ(captionOfNew(), u"添加办理明细"_s);
  hasten_ = u"1"_s;
  EXPECT_EQ(captionOfNew(), u"添加催办单"_s);
}

}  // namespace
}  // namespace folvane::test
