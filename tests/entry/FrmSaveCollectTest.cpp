#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <gmock/gmock.h>

#include "RuleWindowFixture.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

class FrmSaveCollectTest : public RuleWindowTest {};

TEST_P(FrmSaveCollectTest, ShowsTheRulesOfTheTableInTheirLines) {
  AddRule(u"Lwdj"_s, u"4"_s, 2);
  AddRule(u"Fwdj"_s);
  InWindow([&] {
    EXPECT_EQ(Window().windowTitle(), u"校对条件设置"_s);
    EXPECT_EQ(Shown(0), (QStringList{QString(), QString(), QString()}));
    EXPECT_EQ(Shown(2), (QStringList{u"文号"_s, u"只能是"_s, u"4"_s}));
    EXPECT_TRUE(ValueBox(2).isEnabled()) << "a rule that is there can be changed";
    EXPECT_EQ(TextIn(Window(), u"LblTableName"_s), u"当前表"_s);
    EXPECT_EQ(Find<QCheckBox>(Window(), u"ChkCustom"_s).text(), u"当前表"_s);
    EXPECT_TRUE(Find<QCheckBox>(Window(), u"ChkCustom"_s).isChecked());
    EXPECT_FALSE(Tables().isEnabled());
    QStringList captions;
    for (const QLabel* label : Window().findChildren<QLabel*>()) captions << label->text();
    EXPECT_THAT(captions, testing::IsSupersetOf({u"字段名"_s, u"比较关系"_s, u"比较值"_s}));
  });
}

TEST_P(FrmSaveCollectTest, FillsTheListsWhenTheyOpen) {
  InWindow([&] {
    EXPECT_EQ(Offered(Box(u"CmbField"_s, 0)), (QStringList{u"文号"_s, u"登记号"_s}));
    EXPECT_EQ(Offered(Box(u"CmbCondition"_s, 0)).size(), 10);
    EXPECT_EQ(Offered(ValueBox(0)), QStringList());
    Retype(Box(u"CmbCondition"_s, 0), u"只能是"_s);
    EXPECT_EQ(Offered(ValueBox(0)), (QStringList{u"数字"_s, u"日期"_s, u"自定义格式"_s}));
    Retype(Box(u"CmbCondition"_s, 0), u"不能是"_s);
    EXPECT_EQ(Offered(ValueBox(0)), (QStringList{u"数字"_s, u"日期"_s, u"重复值"_s}));
    Retype(Box(u"CmbCondition"_s, 0), u"大于"_s);
    EXPECT_EQ(Offered(ValueBox(0)), QStringList());
    EXPECT_EQ(Shown(0), (QStringList{QString(), u"大于"_s, QString()})) << "opening a list changes nothing";
  });
}

TEST_P(FrmSaveCollectTest, EnablesALineWhenTheValueBeforeItIsEntered) {
  InWindow([&] {
    for (int line = 0; line < 6; ++line) {
      EXPECT_EQ(EnabledBoxes(), 3 * (line + 1));
      Fill(line, u"文号"_s, u"等于"_s, QString::number(line));
    }
    EXPECT_EQ(EnabledBoxes(), 18);
    Click(Control(u"CmdOK"_s));
  });
  EXPECT_EQ(RuleCount(), u"6"_s);
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(FrmSaveCollectTest, WritesARuleWithOkNotBefore) {
  InWindow([&] {
    Fill(0, u"文号"_s, u"不能是"_s, u"重复值"_s);
    Leave(0);
    EXPECT_EQ(RuleCount(), u"0"_s);
    Click(Control(u"CmdOK"_s));
    EXPECT_FALSE(Window().isVisible());
  });
  EXPECT_EQ(Rule(0), u"DocNo 2 8 文号 不能是 重复值 <null>"_s);
}

TEST_P(FrmSaveCollectTest, TakesTheLineThatEnterIsPressedIn) {
  AddRule();
  InWindow([&] {
    Fill(0, u"登记号"_s, u"大于"_s, u"10"_s);
    Press(ValueBox(0), Qt::Key_Return);
    EXPECT_FALSE(Window().isVisible());
  });
  EXPECT_EQ(Rule(0), u"RegID 2 8 登记号 大于 10 A#"_s);
}

TEST_P(FrmSaveCollectTest, WantsAFieldAndARelation) {
  InWindow([&] {
    ValueBox(0).setFocus();
    Leave(0);
    EXPECT_EQ(boxes_.Last().text, u"对不起!必须输入字段名或是比较关系!"_s);
    EXPECT_EQ(boxes_.Last().flags, MessageFlag::Critical);
    Click(Control(u"CmdOK"_s));
  });
  EXPECT_EQ(RuleCount(), u"0"_s);
}

TEST_P(FrmSaveCollectTest, CancelWritesNothingThatWaitsAndAsksForNothing) {
  InWindow([&] {
    Fill(0, u"文号"_s, u"等于"_s, u"1"_s);
    Leave(0);
    ValueBox(1).setFocus();
    Click(Control(u"CmdCancel"_s));
    EXPECT_FALSE(Window().isVisible());
  });
  InWindow([&] {
    ValueBox(0).setFocus();
    Press(ValueBox(0), Qt::Key_Escape);
    EXPECT_FALSE(Window().isVisible());
  });
  EXPECT_EQ(RuleCount(), u"0"_s);
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(FrmSaveCollectTest, GoesOverToAnotherTableAndBack) {
  AddRule(u"Lwdj"_s, u"4"_s);
  AddRule(u"Fwdj"_s, u"日期"_s);
  InWindow([&] {
    Click(Control(u"ChkCustom"_s));
    EXPECT_TRUE(Tables().isEnabled());
    const QModelIndex row = TableRow(u"发文登记"_s);
    EXPECT_EQ(row.siblingAtColumn(1).data(), u"Fwdj"_s);
    EXPECT_EQ(row.siblingAtColumn(2).data(), u"文书"_s);
    ClickItem(Tables(), row);
    EXPECT_EQ(TextIn(Window(), u"LblTableName"_s), u"发文登记"_s);
    EXPECT_EQ(Shown(0).back(), u"日期"_s);
    EXPECT_EQ(Offered(Box(u"CmbField"_s, 0)), QStringList{u"发文字号"_s});
    Click(Control(u"ChkCustom"_s));
    EXPECT_EQ(TextIn(Window(), u"LblTableName"_s), u"当前表"_s);
    EXPECT_EQ(Shown(0).back(), u"4"_s);
    EXPECT_FALSE(Tables().isEnabled());
  });
}

TEST_P(FrmSaveCollectTest, EmptiesTheLinesForATableWithoutRules) {
  AddRule(u"Lwdj"_s, u"4"_s);
  InWindow([&] {
    Click(Control(u"ChkCustom"_s));
    EXPECT_EQ(Shown(0).back(), u"4"_s) << "until another table is chosen";
    ClickItem(Tables(), TableRow(u"发文登记"_s));
    EXPECT_EQ(Shown(0), (QStringList{QString(), QString(), QString()}));
    Fill(0, u"发文字号"_s, u"包含"_s, u"发"_s);
    Click(Control(u"CmdOK"_s));
  });
  EXPECT_EQ(Rule(0, u"Fwdj"_s), u"DocNo 0 0 发文字号 包含 发 <null>"_s);
}

TEST_P(FrmSaveCollectTest, NamesTheColumnsOfTheTables) {
  InWindow([&] {
    QStringList captions;
    for (int column = 0; column < Tables().model()->columnCount(); ++column)
      captions << Tables().model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(captions, (QStringList{u"中文表名"_s, u"英文表名"_s, u"所属类别"_s}));
    EXPECT_EQ(Tables().model()->rowCount(), 2);
  });
}

TEST_P(FrmSaveCollectTest, WritesAllLinesOrNoneAndKeepsThemForAnotherTry) {
  Refuse(u"SaveCollect"_s, u"insert"_s, u"new.CenterControlIndex = 1"_s);
  InWindow([&] {
    Fill(0, u"文号"_s, u"等于"_s, u"1"_s);
    Fill(1, u"文号"_s, u"等于"_s, u"2"_s);
    Click(Control(u"CmdOK"_s));
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(RuleCount(), u"0"_s);
    EXPECT_EQ(boxes_.Last().note, u"没有写入任何校对条件，所做的设置仍保留在窗口中。"_s);
    Run(OnSqlite() ? u"drop trigger Refuse"_s : u"drop trigger Refuse on SaveCollect"_s);
    Click(Control(u"CmdOK"_s));
    EXPECT_FALSE(Window().isVisible());
  });
  EXPECT_EQ(RuleCount(), u"2"_s);
}

TEST_P(FrmSaveCollectTest, NamesItsControlsForScreenReaders) {
  InWindow([&] { EXPECT_EQ(UnnamedControls(Window()), QStringList()); });
}

TEST_P(FrmSaveCollectTest, StaysOpenWhenARuleCannotBeWritten) {
  InWindow([&] {
    Fill(0, u"文号"_s, u"等于"_s, u"1"_s);
    Leave(0);
    Run(u"drop table SaveCollect"_s);
    Click(Control(u"CmdOK"_s));
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(boxes_.Requests().size(), 1u);
  });
}

FOLVANE_ON_EACH_DATABASE(FrmSaveCollectTest);

}  // namespace
}  // namespace folvane::test
