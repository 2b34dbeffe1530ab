#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QTreeView>

#include "designer/DesignerFixture.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

using testing::IsEmpty;

class ApplyingTest : public DesignerTest {
 protected:
  /// Types a caption over that of a field, without leaving the cell.
  static void BeginTyping(QWidget& window, int row, const QString& caption) {
    auto& grid = Find<QAbstractItemView>(window, u"GrdFields"_s);
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(row, 0));
    grid.edit(grid.currentIndex());
    const auto editors = grid.findChildren<QLineEdit*>();  // the ones before may still have to go
    ASSERT_FALSE(editors.isEmpty());
    editors.last()->setText(caption);
  }
  static QString Caption(QWidget& window, int row) {
    return Shown(window, u"GrdFields"_s).value(row).section(u'|', 0, 0);
  }
};
FOLVANE_ON_EACH_DATABASE(ApplyingTest);

TEST_P(ApplyingTest, ApplyingTakesWhatIsBeingTypedAndLeavesTheKeyboardThere) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    BeginTyping(window, 2, u"标题"_s);
    Apply(window);
    EXPECT_EQ(window.focusWidget(), &Find(window, u"GrdFields"_s));
  });
  Design stored = Read();
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"Amaintitle"_s).caption, u"标题");
}

TEST_P(ApplyingTest, WhatIsBeingTypedOutlastsEveryCommand) {
  Open([&](QWidget& window) {
    Choose(window, u"收文登记"_s);
    BeginTyping(window, 2, u"标题"_s);
    Run(window, u"mnuDesign"_s, u"mnuReadAgain"_s);
    EXPECT_EQ(Caption(window, 2), u"标题");
    BeginTyping(window, 0, u"编号"_s);
    Undo(window);
    EXPECT_EQ(Caption(window, 0), u"登记号") << "the last step is what was typed";
    EXPECT_EQ(Caption(window, 2), u"标题");
    Redo(window);
    EXPECT_EQ(Caption(window, 0), u"编号");
    Set(window, u"GrdFields"_s, 3, 4, u"没有的字典"_s);
    ASSERT_TRUE(WaitUntil([&] { return Key(window, u"CmdMend"_s).isEnabled(); }));
    BeginTyping(window, 1, u"日期"_s);
    Key(window, u"CmdMend"_s).trigger();
    EXPECT_EQ(Caption(window, 1), u"日期");
    Apply(window);
  });
  Design stored = Read();
  EXPECT_EQ(FieldOf(stored, u"Lwdj"_s, u"CreatedDate"_s).caption, u"日期");
}

TEST_P(ApplyingTest, ANewTableIsMadeFilledAndRegisteredInTheDatabase) {
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

TEST_P(ApplyingTest, AColumnThatHoldsSomethingGoesOnlyWithAnAnswer) {
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

TEST_P(ApplyingTest, ATableThatIsTakenOutAndLostIsGone) {
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

TEST_P(ApplyingTest, AnothersChangeIsMergedOnApplyingAndNotTakenBackByASlip) {
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

TEST_P(ApplyingTest, TheSameChangedTwiceIsToldAndReadingAgainKeepsTheRest) {
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

TEST_P(ApplyingTest, WhatCannotBeWrittenStaysWanted) {
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

TEST_P(ApplyingTest, ABrokenDatabaseIsFoundByTheFullCheckAndMendedByApplying) {
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

TEST_P(ApplyingTest, ANewTableIsNumberedByTheYearAndTheWayCanBeChosen) {
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

}  // namespace
}  // namespace folvane::test
