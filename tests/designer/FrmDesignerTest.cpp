#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
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

using testing::IsEmpty;

class FrmDesignerTest : public DesignerTest {
 protected:
  static QString Notice(QWidget& window) { return TextIn(window, u"Notice"_s); }
  static void Undo(QWidget& window) { Run(window, u"mnuEdit"_s, u"mnuUndo"_s); }
  static void Redo(QWidget& window) { Run(window, u"mnuEdit"_s, u"mnuRedo"_s); }
  static QAction& Key(QWidget& window, const QString& name) { return Find<QAction>(window, name); }
  /// Applies what the window wants, with the same answer to every question about data.
  static void Apply(QWidget& window, int answer = 0) {
    WithWindow(u"PlanDialog"_s, [&](QWidget& dialog) {
      for (auto* box : dialog.findChildren<QComboBox*>()) box->setCurrentIndex(answer);
      Click(Find(dialog, u"CmdOK"_s));
    });
    Run(window, u"mnuDesign"_s, u"mnuApply"_s);
  }
  static void NewTable(QWidget& window, const QString& caption) {
    WithWindow(u"NewTableDialog"_s, [&](QWidget& dialog) {
      Type(Find(dialog, u"TxtCaption"_s), caption);
      Click(Find(dialog, u"CmdOK"_s));
    });
    Run(window, u"mnuDesign"_s, u"mnuNewTable"_s);
  }

  MessageBoxes boxes_;
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

TEST_P(FrmDesignerTest, ApplyingTakesWhatIsBeingTypedAndLeavesTheKeyboardThere) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    auto& grid = Find<QAbstractItemView>(window, u"GrdFields"_s);
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(2, 0));
    grid.edit(grid.currentIndex());
    auto* editor = grid.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText(u"标题"_s);
    Apply(window);
    EXPECT_EQ(window.focusWidget(), &grid);
  });
  Design stored = Read();
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"Amaintitle"_s).caption, u"标题");
}

TEST_P(FrmDesignerTest, ANewTableIsMadeFilledAndRegisteredInTheDatabase) {
  Open([&](QWidget& window) {
    Choose(window, u"收文管理"_s);
    NewTable(window, u"合同登记"_s);
    Key(window, u"GrdFieldsAdd"_s).trigger();
    EXPECT_TRUE(Set(window, u"GrdFields"_s, 3, 0, u"合同金额"_s));
    EXPECT_TRUE(Set(window, u"GrdFields"_s, 3, 2, u"数值型"_s));
    EXPECT_TRUE(window.isWindowModified());
    Apply(window);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_THAT(Notice(window), Says(u"已写入"_s));
    EXPECT_THAT(TextIn(window, u"LblFindings"_s), Says(u"0 个问题"_s));
  });
  Design stored = Read();
  const Design::Table& table = TableOf(stored, u"合同登记"_s);
  EXPECT_EQ(table.classId, 2);
  ASSERT_EQ(table.fields.size(), 4u);
  EXPECT_EQ(table.fields[3].name, u"合同金额");
  EXPECT_EQ(table.fields[3].type, u"数值型");
  EXPECT_EQ(table.columns.size(), 4u);
  EXPECT_TRUE(std::any_of(table.controls.begin(), table.controls.end(),
                          [](const Design::Control& control) { return control.field == u"合同金额"; }));
  Database().Native(u"insert into 合同登记 (ArchiveID, 合同金额) values ('1', 5000)"_s);
  EXPECT_EQ(Database().Value(u"select 合同金额 from 合同登记"_s), u"5000");
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

TEST_P(FrmDesignerTest, AColumnThatHoldsSomethingGoesOnlyWithAnAnswer) {
  Database().Native(u"insert into Lwdj(ArchiveID, SecurityClass) values('1', '秘密')"_s);
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    auto& grid = Find<QAbstractItemView>(window, u"GrdFields"_s);
    grid.setCurrentIndex(grid.model()->index(3, 0));
    Key(window, u"GrdFieldsDelete"_s).trigger();
    WithWindow(u"PlanDialog"_s, [&](QWidget& dialog) {
      EXPECT_THAT(Find(dialog, u"CboLoss(0)"_s).accessibleName(), Says(u"1"_s));
      EXPECT_FALSE(Find(dialog, u"CmdOK"_s).isEnabled());
      EXPECT_THAT(Find<QPlainTextEdit>(dialog, u"TxtStatements"_s).toPlainText().toLower(), Says(u"drop column"_s));
      Click(Find(dialog, u"CmdCancel"_s));
    });
    Run(window, u"mnuDesign"_s, u"mnuApply"_s);
    EXPECT_EQ(Database().Value(u"select SecurityClass from Lwdj"_s), u"秘密");
    Apply(window, 1);  // keeps it
    EXPECT_EQ(Database().Value(u"select SecurityClass from Lwdj"_s), u"秘密");
    EXPECT_FALSE(window.isWindowModified());
  });
  Design stored = Read();
  EXPECT_EQ(TableOf(stored, u"Lwdj"_s).fields.size(), 4u);
}

TEST_P(FrmDesignerTest, ATableThatIsTakenOutAndLostIsGone) {
  Database().Native(u"insert into Gdwj(ArchiveID) values('1')"_s);
  Open([&](QWidget& window) {
    Choose(window, u"归档文件"_s);
    auto& tree = Find<QTreeView>(window, u"TreDesign"_s);
    tree.setCurrentIndex(tree.model()->index(0, 0, tree.currentIndex()));  // the table below the class of its name
    Run(window, u"mnuDesign"_s, u"mnuRemove"_s);
    EXPECT_THAT(Notice(window), Says(u"可以撤消"_s));
    Apply(window, 2);
  });
  EXPECT_THROW(Database().Value(u"select count(*) from Gdwj"_s), std::runtime_error);
  EXPECT_THAT(Read().transfers, IsEmpty());
}

TEST_P(FrmDesignerTest, AnothersChangeIsMergedOnApplyingAndNotTakenBackByASlip) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    Set(window, u"GrdFields"_s, 2, 0, u"标题"_s);
    WithSmallDesign::Apply([](Design& other) { FieldOf(other, u"Lwdj"_s, u"FileDate"_s).caption = u"成文日"_s; });
    Apply(window);
    EXPECT_EQ(Shown(window, u"GrdFields"_s).value(4).section(u'|', 0, 0), u"成文日");
    EXPECT_FALSE(FindAction(window, u"mnuEdit"_s, u"mnuUndo"_s).isEnabled());
  });
  Design stored = Read();
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"Amaintitle"_s).caption, u"标题");
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"FileDate"_s).caption, u"成文日");
}

TEST_P(FrmDesignerTest, TheSameChangedTwiceIsToldAndReadingAgainKeepsTheRest) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    Set(window, u"GrdFields"_s, 2, 0, u"标题"_s);
    Set(window, u"GrdFields"_s, 0, 0, u"编号"_s);
    WithSmallDesign::Apply([](Design& other) { FieldOf(other, u"Lwdj"_s, u"Amaintitle"_s).caption = u"文件题名"_s; });
    Run(window, u"mnuDesign"_s, u"mnuApply"_s);
    ASSERT_EQ(boxes_.Requests().size(), 1u);
    EXPECT_THAT(boxes_.Last().text, Says(u"Amaintitle"_s));
    Run(window, u"mnuDesign"_s, u"mnuReadAgain"_s);
    EXPECT_THAT(Notice(window), Says(u"以他人的为准"_s));
    EXPECT_EQ(Shown(window, u"GrdFields"_s).value(2).section(u'|', 0, 0), u"文件题名");
    EXPECT_EQ(Shown(window, u"GrdFields"_s).value(0).section(u'|', 0, 0), u"编号");
    Apply(window);
  });
  Design stored = Read();
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"RegID"_s).caption, u"编号");
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"Amaintitle"_s).caption, u"文件题名");
}

TEST_P(FrmDesignerTest, WhatCannotBeWrittenStaysWanted) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    Set(window, u"GrdFields"_s, 2, 0, u"标题"_s);
    NewTable(window, u"合同登记"_s);
    WithWindow(u"PlanDialog"_s, [&](QWidget& dialog) {
      WithSmallDesign::Apply([](Design& other) { FieldOf(other, u"Lwdj"_s, u"Amaintitle"_s).caption = u"文件题名"_s; });
      Click(Find(dialog, u"CmdOK"_s));
    });
    Run(window, u"mnuDesign"_s, u"mnuApply"_s);
    EXPECT_EQ(boxes_.Requests().size(), 1u);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_FALSE(Connected()->InTransaction());
    EXPECT_EQ(Shown(window, u"GrdFields"_s).size(), 3) << "the new table is still there, in the window alone";
    EXPECT_THROW(Database().Value(u"select count(*) from 合同登记"_s), std::runtime_error);
    Run(window, u"mnuDesign"_s, u"mnuReadAgain"_s);
    Choose(window, u"收文登记"_s);
    Apply(window);
  });
  EXPECT_EQ(Database().Value(u"select count(*) from 合同登记"_s), u"0");
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

TEST_P(FrmDesignerTest, ABrokenDatabaseIsFoundByTheFullCheckAndMendedByApplying) {
  Database().Native(u"alter table Lwdj drop column FileDate"_s);
  Open([&](QWidget& window) {
    Run(window, u"mnuCheck"_s, u"mnuCheckAll"_s);
    EXPECT_THAT(Shown(window, u"LstFindings"_s).join(u'\n'), Says(u"FileDate"_s));
    EXPECT_THAT(Notice(window), Says(u"1 个问题"_s));
    auto& findings = Find<QTreeView>(window, u"LstFindings"_s);
    Q_EMIT findings.activated(findings.model()->index(0, 0));
    EXPECT_EQ(Find<QStackedWidget>(window, u"Pages"_s).currentWidget()->objectName(), u"TabTable");
    Apply(window);
  });
  EXPECT_EQ(Database().Value(u"select count(FileDate) from Lwdj"_s), u"0");
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

TEST_P(FrmDesignerTest, ANewTableIsNumberedByTheYearAndTheWayCanBeChosen) {
  Open([&](QWidget& window) {
    Choose(window, u"收文管理"_s);
    NewTable(window, u"合同登记"_s);
    Apply(window);
    EXPECT_THAT(QString::fromLatin1(directory_.Read(u"RegIDFormula.Ini"_s).right(5)), Says(u"=2"_s));
    Database().Native(u"insert into 合同登记 (ArchiveID, RegID, CreatedDate) values ('1', 6, '%1-01-02')"_s.arg(
        QDate::currentDate().year()));
    ShowPage(window, u"TablePage"_s);
    EXPECT_EQ(TextIn(window, u"LblNext"_s), u"今天登记的下一份编为 7。");
    auto& numbering = Find<QComboBox>(window, u"CboNumbering"_s);
    numbering.setCurrentIndex(numbering.findData(5));
    Q_EMIT numbering.activated(numbering.currentIndex());
    EXPECT_THAT(QString::fromLatin1(directory_.Read(u"RegIDFormula.Ini"_s).right(5)), Says(u"=5"_s));
    EXPECT_THAT(TextIn(window, u"LblNext"_s), Says(u"FileDate"_s));
  });
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
