#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTreeView>

#include "EntryFixture.h"
#include "entry/FrmSaveCollect.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

const QStringList kArrays{u"CmbField"_s, u"CmbCondition"_s, u"CmbValue"_s};

class FrmSaveCollectTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Describe(u"Lwdj"_s, u"收文登记"_s, u"DocNo"_s, u"文号"_s);
    Describe(u"Lwdj"_s, u"收文登记"_s, u"RegID"_s, u"登记号"_s);
    Describe(u"Fwdj"_s, u"发文登记"_s, u"DocNo"_s, u"发文字号"_s);
    Run(u"insert into SaveControls (DataSource,DataField,ControlType,ControlIndex) values ('Lwdj','DocNo',8,2)"_s);
  }
  void Describe(const QString& table, const QString& caption, const QString& field, const QString& name) {
    Run(u"insert into DynamicWindows (TableName,ChnTableName,ClassName,FieldName,ChnFieldName) values "
        "('%1','%2','文书','%3','%4')"_s.arg(table, caption, field, name));
  }
  void AddRule(const QString& table = u"Lwdj"_s, const QString& value = u"自定义格式"_s, int line = 0) {
    Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,"
        "Relation,CollectValue,CustomFormat) values ('%1',%2,'DocNo',2,8,'文号','只能是','%3','A#')"_s.arg(table)
            .arg(line)
            .arg(value));
  }
  /// The rule of a line in the table, its columns joined.
  QString Rule(int line, const QString& table = u"Lwdj"_s) {
    const auto rows = Database().Rows(
        u"select FieldName,ControlIndex,ControlType,ChnFieldName,Relation,CollectValue,CustomFormat from SaveCollect "
        "where TableName = '%1' and CenterControlIndex = %2"_s.arg(table)
            .arg(line));
    return rows.empty() ? QString() : rows.front().join(u' ');
  }
  QString RuleCount() { return Value(u"select count(*) from SaveCollect"_s); }

  /// Opens the window, runs the steps in it and closes it.
  void InWindow(const std::function<void()>& steps) {
    FrmSaveCollect window;
    window.CurrTable = u"Lwdj"_s;
    WithWindow(u"FrmSaveCollect"_s, [&](QWidget& shown) {
      window_ = &shown;
      steps();
    });
    window.Open();
  }

  QWidget& Window() const { return *window_; }
  QWidget& Control(const QString& name) const { return Find(*window_, name); }
  QComboBox& Box(const QString& array, int line) const {
    return Find<QComboBox>(*window_, u"%1(%2)"_s.arg(array).arg(line));
  }
  QComboBox& ValueBox(int line) const { return Box(u"CmbValue"_s, line); }
  QStringList Shown(int line) const {
    return {Box(u"CmbField"_s, line).currentText(), Box(u"CmbCondition"_s, line).currentText(),
            ValueBox(line).currentText()};
  }
  /// How many boxes of rules can be used; the lines are enabled from the top.
  int EnabledBoxes() const {
    int count = 0;
    while (count < 18 && Box(kArrays[count % 3], count / 3).isEnabled()) ++count;
    return count;
  }
  /// What a box offers when its list is opened.
  static QStringList Offered(QComboBox& box) {
    box.showPopup();
    QStringList texts;
    for (int at = 0; at < box.count(); ++at) texts << box.itemText(at);
    box.hidePopup();
    return texts;
  }
  void Fill(int line, const QString& field, const QString& relation, const QString& value) const {
    Retype(Box(u"CmbField"_s, line), field);
    Retype(Box(u"CmbCondition"_s, line), relation);
    Retype(ValueBox(line), value);
  }
  void Leave(int line) const { Press(ValueBox(line), Qt::Key_Tab); }
  /// Chooses the pattern keyword in a line by the keyboard; the window for the pattern opens.
  void ChooseCustomFormat(int line, const WindowSteps& steps) const {
    WithWindow(u"FrmCustomFormat"_s, steps);
    Retype(ValueBox(line), u"日期"_s);
    Press(ValueBox(line), Qt::Key_Down);
  }
  static WindowSteps Answer(const QString& pattern) {
    return [pattern](QWidget& window) {
      Retype(Find(window, u"TxtFormat"_s), pattern);
      Click(Find(window, u"CmdOK"_s));
    };
  }
  QTreeView& Tables() const { return Find<QTreeView>(*window_, u"LVData"_s); }
  QModelIndex TableRow(const QString& caption) const {
    const auto found = Tables().model()->match(Tables().model()->index(0, 0), Qt::DisplayRole, caption, 1);
    return found.isEmpty() ? QModelIndex() : found.front();
  }

  MessageBoxes boxes_;

 private:
  QWidget* window_ = nullptr;
};

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

TEST_P(FrmSaveCollectTest, AsksForAPatternAndWritesItAtOnce) {
  AddRule();
  InWindow([&] {
    ChooseCustomFormat(0, [](QWidget& window) {
      EXPECT_EQ(TextIn(window, u"TxtFormat"_s), u"A#"_s);
      Retype(Find(window, u"TxtFormat"_s), u"AB###"_s);
      Click(Find(window, u"CmdOK"_s));
    });
    EXPECT_EQ(Rule(0), u"DocNo 2 8 文号 只能是 自定义格式 AB###"_s);
  });
}

TEST_P(FrmSaveCollectTest, GivesANewRuleThePatternThatWasAskedFor) {
  InWindow([&] {
    Fill(0, u"文号"_s, u"只能是"_s, QString());
    ChooseCustomFormat(0, Answer(u"AB###"_s));
    EXPECT_EQ(RuleCount(), u"0"_s);
    Leave(0);
    Click(Control(u"CmdOK"_s));
  });
  EXPECT_EQ(Rule(0), u"DocNo 2 8 文号 只能是 自定义格式 AB###"_s);
}

TEST_P(FrmSaveCollectTest, KeepsThePatternWhenItsWindowIsCancelled) {
  AddRule();
  InWindow([&] {
    ChooseCustomFormat(0, [](QWidget& window) {
      Retype(Find(window, u"TxtFormat"_s), u"X"_s);
      Click(Find(window, u"CmdCancel"_s));
    });
  });
  EXPECT_EQ(Rule(0), u"DocNo 2 8 文号 只能是 自定义格式 A#"_s);
}

TEST_P(FrmSaveCollectTest, CancelLeavesAPatternAndTheRemovalInPlace) {
  AddRule();
  AddRule(u"Fwdj"_s);
  InWindow([&] {
    ChooseCustomFormat(0, Answer(u"B#"_s));
    Click(Control(u"CmdCancel"_s));
  });
  EXPECT_TRUE(Rule(0).endsWith(u"B#"_s));
  boxes_.Answer(Answer::Yes);
  InWindow([&] {
    Click(Control(u"Check1"_s));
    Click(Control(u"CmdCancel"_s));
  });
  EXPECT_EQ(Rule(0), QString());
  EXPECT_NE(Rule(0, u"Fwdj"_s), QString()) << "the rules of another table stay";
}

TEST_P(FrmSaveCollectTest, RemovesAllRulesAfterAsking) {
  AddRule();
  boxes_.Answer(Answer::No).Answer(Answer::Yes);
  InWindow([&] {
    auto& box = Find<QCheckBox>(Window(), u"Check1"_s);
    Click(box);
    EXPECT_EQ(boxes_.Last().text, u"确定将当前的所有校对条件都删除?"_s);
    EXPECT_EQ(boxes_.Last().flags, 68);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(Shown(0).front(), u"文号"_s);
    Click(box);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(RuleCount(), u"0"_s);
    EXPECT_EQ(Shown(0), (QStringList{QString(), QString(), QString()}));
  });
}

TEST_P(FrmSaveCollectTest, RemovesWhatWaitsAsWell) {
  boxes_.Answer(Answer::Yes);
  InWindow([&] {
    Fill(0, u"文号"_s, u"等于"_s, u"1"_s);
    Click(Control(u"Check1"_s));
    Click(Control(u"CmdOK"_s));
  });
  EXPECT_EQ(RuleCount(), u"0"_s);
}

TEST_P(FrmSaveCollectTest, RemovesNothingWhenTheFirstLineIsEmpty) {
  AddRule(u"Lwdj"_s, u"4"_s, 2);
  InWindow([&] {
    Click(Control(u"Check1"_s));
    EXPECT_FALSE(Find<QCheckBox>(Window(), u"Check1"_s).isChecked());
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
  EXPECT_EQ(RuleCount(), u"1"_s);
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
