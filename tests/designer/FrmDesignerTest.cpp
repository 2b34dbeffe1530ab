#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTreeView>

#include <folvane/DataError.h>

#include "designer/DesignerFixture.h"
#include "designer/FrmDesigner.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class FrmDesignerTest : public DesignerTest {
 protected:
  FileDialogs files_;
};
FOLVANE_ON_EACH_DATABASE(FrmDesignerTest);

TEST_P(FrmDesignerTest, ShowsTheClassesTablesAndFieldsOfTheDesign) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).value(2), u"题名|Amaintitle|文本型|160||||||||"_s);
    ShowPage(window, u"SearchPage"_s);
    EXPECT_EQ(Shown(window, u"GrdSearch"_s).value(0), u"Amaintitle|题名|内容"_s);
    EXPECT_FALSE(FindAction(window, u"mnuEdit"_s, u"mnuUndo"_s).isEnabled());
    EXPECT_EQ(TextIn(window, u"RecordCount"_s), u"与数据库一致");
    EXPECT_EQ(UnnamedControls(window), QStringList());
  });
}

TEST_P(FrmDesignerTest, EveryPageOfTheTreeOpensAndSaysWhatItsControlsAre) {
  Open([&](QWidget& window) {
    window.resize(1180, 740);
    const QAbstractItemModel& tree = *Find<QAbstractItemView>(window, u"TreDesign"_s).model();
    auto& pages = Find<QStackedWidget>(window, u"Pages"_s);
    QStringList shown;
    for (int row = 1; row < tree.rowCount(); ++row) {
      Choose(window, tree.index(row, 0).data().toString());
      shown << pages.currentWidget()->objectName();
      EXPECT_EQ(UnnamedControls(window), QStringList()) << shown.last().toStdString();
    }
    EXPECT_EQ(shown, (QStringList{u"DictionariesPage"_s, u"CodesPage"_s, u"TransfersPage"_s, u"ReportsPage"_s,
                                  u"UsersPage"_s}));
    Choose(window, u"收文登记"_s);
    auto& tabs = Find<QTabWidget>(window, u"TabTable"_s);
    for (int at = 0; at < tabs.count(); ++at) {
      tabs.setCurrentIndex(at);
      EXPECT_EQ(UnnamedControls(window), QStringList()) << tabs.tabText(at).toStdString();
    }
    EXPECT_FALSE(window.isWindowModified());
  });
}

// Of two keys alike that could be meant the toolkit runs neither.
TEST_P(FrmDesignerTest, NoPageTakesAKeyOfTheWindow) {
  Open([&](QWidget& window) {
    QStringList own, pages;
    for (const QAction* action : window.findChildren<QAction*>()) {
      if (action->shortcut().isEmpty()) continue;
      const bool isWindows = action->shortcutContext() == Qt::WindowShortcut;
      (isWindows ? own : pages) << action->shortcut().toString();
    }
    EXPECT_TRUE(own.contains(u"Ctrl+S"_s) && pages.contains(u"Ins"_s));
    EXPECT_EQ(own.removeDuplicates(), 0);
    for (const QString& keys : pages) EXPECT_FALSE(own.contains(keys)) << keys.toStdString();
  });
}

TEST_P(FrmDesignerTest, EveryStepIsTakenBackAndDoneAgain) {
  const Design before = Read();
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    Set(window, u"GrdFields"_s, 2, 0, u"标题"_s);
    Set(window, u"GrdFields"_s, 3, 5, Qt::Checked, Qt::CheckStateRole);
    Key(window, u"GrdFieldsAdd"_s).trigger();
    EXPECT_EQ(Shown(window, u"GrdFields"_s).size(), 6);
    EXPECT_THAT(FindAction(window, u"mnuEdit"_s, u"mnuUndo"_s).text(), Says(u"新字段"_s));
    for (int step = 0; step < 3; ++step) Undo(window);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).value(2).section(u'|', 0, 0), u"题名");
    EXPECT_EQ(Shown(window, u"GrdFields"_s).size(), 5);
    EXPECT_FALSE(window.isWindowModified());
    for (int step = 0; step < 3; ++step) Redo(window);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).size(), 6);
    Undo(window), Undo(window), Undo(window);
  });
  EXPECT_EQ(Read(), before);
}

TEST_P(FrmDesignerTest, WhatIsWrongIsToldAtOnceAndMendedByAKey) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    Set(window, u"GrdFields"_s, 3, 4, u"没有的字典"_s);
    auto& findings = Find<QTreeView>(window, u"LstFindings"_s);
    ASSERT_TRUE(WaitUntil([&] { return findings.model()->rowCount() > 0; }));
    EXPECT_THAT(Shown(window, u"LstFindings"_s).value(0), Says(u"没有的字典"_s));
    Key(window, u"CmdMend"_s).trigger();
    EXPECT_EQ(findings.model()->rowCount(), 0);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).value(3).section(u'|', 4, 4), u"");
    Undo(window), Undo(window);
  });
}

TEST_P(FrmDesignerTest, NamesThatNoTableCanHaveAreRefusedWithAReason) {
  Open([&](QWidget& window) {
    WithWindow(u"NewTableDialog"_s, [&](QWidget& dialog) {
      const auto refusal = [&](const QString& caption, const QString& name) {
        Retype(Find(dialog, u"TxtCaption"_s), caption);
        Find<QLineEdit>(dialog, u"TxtName"_s).setText(name);
        Click(Find(dialog, u"CmdOK"_s));
        return TextIn(dialog, u"LblMessage"_s);
      };
      EXPECT_THAT(refusal(u" "_s, u"T1"_s), Says(u"标题"_s));
      EXPECT_THAT(refusal(u"合同"_s, u"select"_s), Says(u"保留字"_s));
      EXPECT_THAT(refusal(u"合同"_s, u"a'b"_s), Says(u"不能用"_s));
      EXPECT_THAT(refusal(u"合同"_s, u"a b"_s), Says(u"不能用"_s));
      EXPECT_THAT(refusal(u"合同"_s, u""_s), Says(u"没有填写"_s));
      EXPECT_THAT(refusal(u"合同"_s, QString(200, u'x')), Says(u"太长"_s));
      EXPECT_THAT(refusal(u"合同"_s, u"LWDJ"_s), Says(u"已有表"_s));
      Click(Find(dialog, u"CmdCancel"_s));
    });
    Run(window, u"mnuDesign"_s, u"mnuNewTable"_s);
    EXPECT_FALSE(window.isWindowModified());
    Choose(window, u"收文登记"_s);
    Key(window, u"GrdFieldsAdd"_s).trigger();
    EXPECT_FALSE(Set(window, u"GrdFields"_s, 5, 1, u"order"_s));
    EXPECT_THAT(Notice(window), Says(u"保留字"_s));
    EXPECT_FALSE(Set(window, u"GrdFields"_s, 5, 1, u"regid"_s));
    EXPECT_THAT(Notice(window), Says(u"已有字段"_s));
    EXPECT_FALSE(Set(window, u"GrdFields"_s, 0, 1, u"Nummer"_s)) << "a column that the database has keeps its name";
    Undo(window);
  });
}

TEST_P(FrmDesignerTest, ClosingAsksWhatBecomesOfTheChanges) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    Set(window, u"GrdFields"_s, 2, 0, u"标题"_s);
    boxes_.Answer(2);
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(boxes_.Last().text, u"有未应用的改动，是否应用？");
    boxes_.Answer(6);
    WithWindow(u"PlanDialog"_s, [](QWidget& dialog) { Click(Find(dialog, u"CmdOK"_s)); });
    window.close();
    EXPECT_FALSE(window.isVisible());
  });
  Design stored = Read();
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"Amaintitle"_s).caption, u"标题");
}

TEST_P(FrmDesignerTest, ATableGoesIntoAFileAndComesBackFromIt) {
  const TempProgramDirectory folder;
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    files_.Answer(folder.Path(u"lwdj.yaml"_s));
    Run(window, u"mnuDesign"_s, u"mnuExport"_s);
    EXPECT_EQ(ParseDesign(folder.Read(u"lwdj.yaml"_s)), ExcerptOf(Read(), {u"Lwdj"_s}));
    Run(window, u"mnuDesign"_s, u"mnuRemove"_s);
    files_.Answer(folder.Path(u"lwdj.yaml"_s));
    Run(window, u"mnuDesign"_s, u"mnuImport"_s);
    Choose(window, u"收文登记"_s);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).size(), 5);

    folder.Write(u"half.yaml"_s, folder.Read(u"lwdj.yaml"_s).left(300));
    files_.Answer(folder.Path(u"half.yaml"_s));
    Run(window, u"mnuDesign"_s, u"mnuImport"_s);
    EXPECT_EQ(boxes_.Requests().size(), 1u);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).size(), 5);
    Run(window, u"mnuDesign"_s, u"mnuGiveUp"_s);
    EXPECT_FALSE(window.isWindowModified());
  });
}

TEST_P(FrmDesignerTest, ClassesAreMadeNamedAndTakenOut) {
  Open([&](QWidget& window) {
    Choose(window, u"收文管理"_s);
    Run(window, u"mnuDesign"_s, u"mnuNewClass"_s);
    Retype(Find(window, u"TxtClassName"_s), u"急件"_s);
    Press(Find(window, u"TxtClassName"_s), Qt::Key_Return);
    Choose(window, u"收文登记"_s);
    ShowPage(window, u"TablePage"_s);
    auto& place = Find<QComboBox>(window, u"CboTableClass"_s);
    place.setCurrentIndex(place.findText(u"收文管理 / 急件"_s));
    Q_EMIT place.activated(place.currentIndex());
    Choose(window, u"收文管理"_s);
    Apply(window);
  });
  Design stored = Read();
  ASSERT_EQ(stored.classes.size(), 3u);
  EXPECT_EQ(stored.classes.back().name, u"急件");
  EXPECT_EQ(stored.classes.back().parent, 2);
  EXPECT_EQ(TableOf(stored, u"Lwdj"_s).classId, stored.classes.back().id);
}

TEST_P(FrmDesignerTest, AWindowThatGoesWhileItIsShownTakesWhatWasTyped) {
  designer::DesignSession session(Connected());
  auto window = std::make_unique<designer::FrmDesigner>(session);
  window->show();
  window->activateWindow();
  Choose(*window, u"收文管理"_s);
  auto& name = Find<QLineEdit>(*window, u"TxtClassName"_s);
  name.setFocus();
  ASSERT_TRUE(WaitUntil([&] { return name.hasFocus(); }));
  name.setText(u"来文"_s);
  window.reset();
  EXPECT_EQ(session.Wanted().classes.front().name, u"来文");
}

TEST_P(FrmDesignerTest, CellsFromASpreadsheetArePastedAsOneStep) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    auto& grid = Find<QAbstractItemView>(window, u"GrdFields"_s);
    grid.setCurrentIndex(grid.model()->index(4, 0));
    QApplication::clipboard()->setText(u"成文日\r\n联系人\t\t文本型\t40\r\n联系电话\t\t文本型\t20\r\n"_s);
    Press(grid, Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(Shown(window, u"GrdFields"_s).size(), 7);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).value(5), u"联系人|联系人|文本型|40||||||||"_s);
    Undo(window);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).size(), 5);
    EXPECT_FALSE(window.isWindowModified());
  });
}

TEST_P(FrmDesignerTest, WithoutAConnectionItSaysSo) {
  Shared().Connection.reset();
  EXPECT_THROW(ShowDesigner(), DataError);
}

}  // namespace
}  // namespace folvane::test
