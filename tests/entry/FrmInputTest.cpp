#include <QLineEdit>
#include <QMenu>

#include "InputFixture.h"
#include "shell/RegistryValues.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

using FrmInputTest = InputTest;

TEST_P(FrmInputTest, IsCalledAfterTheNodeThatItWasOpenedFrom) {
  InWindow([](const Input& input) { EXPECT_EQ(input.Window().windowTitle(), u"收文登记  -  著录界面"_s); });
}

TEST_P(FrmInputTest, YieldsAnEmptyFormWithAWorkingToolbarForATableWithoutControls) {
  AddRecords(2);
  InWindow([&](const Input& input) {
    EXPECT_EQ(input.Control(u"PicControls"_s).findChildren<QWidget*>().size(), 0);
    EXPECT_EQ(input.Position(), u"当前记录：第1条/共2条"_s);
    input.Do(u"Next_R"_s);
    EXPECT_EQ(input.Position(), u"当前记录：第2条/共2条"_s);
    input.Do(u"AddNewRecord"_s);
    EXPECT_EQ(input.Position(), u"当前共3条"_s);
    input.Do(u"SaveRecord"_s);
    EXPECT_EQ(Value(u"select count(*) from Lwdj"_s), u"3"_s);
  });
}

TEST_P(FrmInputTest, SaysWhatATableWithoutAFormLacks) {
  AddRecords(1);
  InWindow([](const Input& input) {
    EXPECT_EQ(input.Text(u"LblHint"_s), u"表“Lwdj”还没有录入界面：请在 SaveControls 中为其字段安排位置。"_s);
    EXPECT_TRUE(input.Control(u"LblHint"_s).isVisible());
  });
  Design({u"Amaintitle"_s, u"题名"_s});
  InWindow([](const Input& input) {
    EXPECT_FALSE(input.Control(u"LblHint"_s).isVisible());
    EXPECT_TRUE(input.Control(u"Txt(1)"_s).isVisible());
  });
}

TEST_P(FrmInputTest, LetsTheRecordsOfATableWithoutAKeyOnlyBeLookedAt) {
  Run(u"create table Loose (Amaintitle varchar(50))"_s);
  Run(u"insert into Loose (Amaintitle) values ('甲')"_s);
  Design({u"Amaintitle"_s, u"题名"_s}, u"Loose"_s);
  Shared().CurrentRecords.Open(u"Select * From Loose"_s, Connected());
  Reopen(
      [](const Input& input) {
        EXPECT_EQ(input.Text(u"LblHint"_s),
                  u"表“Loose”没有关键字段 ArchiveID，其中的记录只能查看：请在数据库中为该表增加此字段。"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"甲"_s);
        for (const QString& key : {u"AddRecord"_s, u"SaveRecord"_s, u"DelRecord"_s})
          EXPECT_FALSE(input.KeyOn(key)) << key.toStdString();
        input.Retype(u"Txt(1)"_s, u"乙"_s);
      },
      u"Loose"_s);
  EXPECT_TRUE(boxes_.Requests().empty());
  EXPECT_EQ(tags_, QStringList{u"<NULL>"_s});
}

TEST_P(FrmInputTest, KeepsASizeForEveryTable) {
  CreateTable(*Connected(), BusinessTable(u"Fwdj"_s, {{u"Unit"_s, ColumnType::Text, 40}}));
  const QSize size(1100, 400);
  InWindow([&](const Input& input) { input.Window().resize(size); });
  DefaultInstance<FrmInput>::Unload();
  Reopen([&](const Input& input) { EXPECT_NE(input.Window().size(), size); }, u"Fwdj"_s);
  DefaultInstance<FrmInput>::Unload();
  Reopen([&](const Input& input) { EXPECT_EQ(input.Window().size(), size); });
}

TEST_P(FrmInputTest, NamesItsControlsForScreenReaders) {
  InWindow([](const Input& input) {
    EXPECT_EQ(UnnamedControls(input.Window()), QStringList());
    EXPECT_NE(input.Control(u"HScroll"_s).accessibleName(), QString());
  });
}

TEST_P(FrmInputTest, LeavesALabelWithoutAFieldForAnUnknownKindThatTheFocusPassesOver) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  Design({u"Pages"_s, u"页数"_s, 11});
  Design({u"DocNo"_s, u"文号"_s});
  InWindow([](const Input& input) {
    EXPECT_EQ(input.Text(u"F_Lbl(2)"_s), u"页数"_s);
    input.PressIn(u"Txt(1)"_s, Qt::Key_Return);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s);
  });
}

TEST_P(FrmInputTest, DropsAControlWithoutADictionaryRowSilently) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  Run(u"insert into SaveControls (DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,F_Width,F_Height)"
      " values ('Lwdj','DocNo',1,9,9,0,0,900,300)"_s);
  InWindow([](const Input& input) {
    EXPECT_TRUE(input.Has(u"Txt(1)"_s));
    EXPECT_FALSE(input.Has(u"Txt(9)"_s));
  });
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(FrmInputTest, HoldsNothingOfTheTableItWasOpenFor) {
  CreateTable(*Connected(), BusinessTable(u"Fwdj"_s, {{u"Unit"_s, ColumnType::Text, 40}}));
  parameters_.Add(u"Fwdj"_s);
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  Design({u"DocNo"_s, u"文号"_s});
  Design({u"Unit"_s, u"单位"_s}, u"Fwdj"_s);
  InWindow([](const Input&) {});
  Shared().CurrentRecords.Close();
  Shared().CurrentRecords.Open(u"Select * From Fwdj"_s, Connected());
  Reopen(
      [](const Input& input) {
        EXPECT_EQ(input.Control(u"Txt(1)"_s).property("DataField").toString(), u"Unit"_s);
        EXPECT_FALSE(input.Has(u"Txt(2)"_s));
        EXPECT_FALSE(input.Has(u"F_Lbl(2)"_s));
      },
      u"Fwdj"_s);
}

TEST_P(FrmInputTest, GoesOnWithTheFieldsBuiltBeforeAnError) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  Design({u"Nowhere"_s, u"无"_s, ControlKind::DTP});
  InWindow([&](const Input& input) {
    EXPECT_TRUE(
        boxes_.Last().text.startsWith(u"自定义界面数据可能有误,请检查自定义的每一步操作,或与程序供应商联系!\r\n"_s));
    EXPECT_EQ(boxes_.Last().flags, 16);
    EXPECT_EQ(boxes_.Last().title, u"收文登记  -  著录界面"_s);
    boxes_.Clear();
    input.Do(u"AddNewRecord"_s);
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    input.Do(u"SaveRecord"_s);
    EXPECT_TRUE(boxes_.Requests().empty());
    EXPECT_EQ(Value(u"select count(*) from Lwdj where Amaintitle = '新题'"_s), u"1"_s);
  });
}

TEST_P(FrmInputTest, ShowsTheRecordThatTheBrowserStandsOn) {
  AddRecords(3);
  Design({u"Amaintitle"_s, u"题名"_s});
  InWindow(
      [](const Input& input) {
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名3"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第3条/共3条"_s);
        EXPECT_EQ(TextIn(input.Window(), u"UserName"_s), u"当前用户：张三"_s);
        EXPECT_EQ(input.Work(), u"准备就绪"_s);
        EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
      },
      false, 3);
}

TEST_P(FrmInputTest, MovesThroughTheRecordsWithoutAskingTheDatabase) {
  AddRecords(3);
  Design({u"Amaintitle"_s, u"题名"_s});
  InWindow([&](const Input& input) {
    TakeStatements();
    for (const auto& [entry, title] : {std::pair{u"Next_R"_s, u"题名2"_s}, std::pair{u"Last_R"_s, u"题名3"_s},
                                       std::pair{u"Previous_R"_s, u"题名2"_s}, std::pair{u"First_R"_s, u"题名1"_s}}) {
      input.Do(entry);
      EXPECT_EQ(input.Text(u"Txt(1)"_s), title);
    }
    input.Key(u"MoveNext"_s).trigger();
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名2"_s);
    EXPECT_EQ(TakeStatements(), QStringList());
  });
}

TEST_P(FrmInputTest, SaysThatThereAreNoRecords) {
  InWindow([](const Input& input) {
    EXPECT_EQ(input.Position(), u"当前无记录"_s);
    EXPECT_TRUE(input.KeyOn(u"AddRecord"_s));
    EXPECT_FALSE(input.KeyOn(u"SaveRecord"_s));
    EXPECT_FALSE(input.KeyOn(u"DelRecord"_s));
  });
}

TEST_P(FrmInputTest, KeepsTheOptionsForTheStation) {
  Flag(u"UseSpecialSign"_s, true);
  InWindow([](const Input& input) {
    EXPECT_TRUE(input.Entry(u"UseSign"_s).isChecked());
    EXPECT_FALSE(input.Entry(u"AutoSave"_s).isChecked());
    for (const QString& entry : {u"UseSign"_s, u"AutoSave"_s, u"AutoStatus"_s}) input.Do(entry);
  });
  EXPECT_EQ(QueryValue(kLocalMachine, kMainFlags, u"UseSpecialSign"_s), u"False"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kMainFlags, u"AutoAddSaveFlags"_s), u"True"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kMainFlags, u"AutoFileStatus"_s), u"True"_s);
}

TEST_P(FrmInputTest, ShowsItsHelpAndTheAboutBox) {
  QString topic;
  program_.Write(u"help.chm"_s, "x");
  Services().showHelp = [&](QWidget*, const QString&, const QString& shown) { topic = shown; };
  InWindow([&](const Input& input) {
    input.Do(u"FindDir"_s);
    EXPECT_EQ(topic, u"数据操作.htm"_s);
    WithWindow(u"frmAbout"_s, [](QWidget& about) { about.close(); });
    input.Do(u"About"_s);
  });
}

TEST_P(FrmInputTest, WalksWithTabFromFieldToField) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt_MLine});
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb});
  Design({u"DocNo"_s, u"文号"_s});
  InWindow([](const Input& input) {
    for (const QString& next : {u"Cmb(1)"_s, u"Txt(1)"_s, u"Txt_MLine(1)"_s}) {
      Press(*input.Window().focusWidget(), Qt::Key_Tab);
      EXPECT_EQ(input.Focused(), next);
    }
  });
}

TEST_P(FrmInputTest, OffersNoReplacingWhereNobodyOpensThatWindow) {
  AddRecords(1);
  InWindow([](const Input& input) { EXPECT_FALSE(input.On(u"mnuReplace"_s)); });
}

TEST_P(FrmInputTest, OpensTheWindowThatFindsAndReplaces) {
  AddRecords(1);
  FrmInput* opened = nullptr;
  openReplace_ = [&](FrmInput& window) { opened = &window; };
  InWindow([&](const Input& input) {
    input.Do(u"mnuReplace"_s);
    EXPECT_EQ(opened, &input.Form());
  });
}

TEST_P(FrmInputTest, LetsAUserWithoutTheRightToEditMoveAndReadOnly) {
  AddRecords(2);
  Design({u"Amaintitle"_s, u"题名"_s});
  Right(Parameter::Edit, u"0"_s);
  InWindow([](const Input& input) {
    for (const QString& key : {u"AddRecord"_s, u"SaveRecord"_s, u"CancelRecord"_s, u"DelRecord"_s})
      EXPECT_FALSE(input.KeyOn(key)) << key.toStdString();
    EXPECT_FALSE(input.On(u"Tools"_s));
    input.Retype(u"Txt(1)"_s, u"改"_s);
    input.Key(u"MoveNext"_s).trigger();
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名2"_s);
    input.Retype(u"Txt(1)"_s, u"改"_s);
    input.Window().close();
    EXPECT_FALSE(input.Window().isVisible());
  });
  EXPECT_TRUE(boxes_.Requests().empty());
  EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  EXPECT_EQ(Value(u"select count(*) from Lwdj where Amaintitle = '改'"_s), u"0"_s);
}

TEST_P(FrmInputTest, BeginsNoRecordForAUserWithoutTheRightToEdit) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  Right(Parameter::Edit, u"0"_s);
  InWindow([](const Input& input) { EXPECT_EQ(input.Position(), u"当前记录：第1条/共1条"_s); }, true);
  EXPECT_TRUE(boxes_.Requests().empty());
  EXPECT_EQ(Value(u"select count(*) from Lwdj"_s), u"1"_s);
}

FOLVANE_ON_EACH_DATABASE(FrmInputTest);

}  // namespace
}  // namespace folvane::test
