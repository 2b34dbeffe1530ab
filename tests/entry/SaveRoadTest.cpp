#include <QPlainTextEdit>

#include "RecordRoad.h"

namespace folvane::test {
namespace {

/// From the first key over the checks to the database.
class SaveRoadTest : public RecordRoad {};

TEST_P(SaveRoadTest, GoesOverToEditingWithinHalfASecondOfTheFirstKey) {
  AddRecords(2);
  DesignTitle();
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    EXPECT_FALSE(input.KeyOn(u"SaveRecord"_s)) << "never in the key's handler";
    input.AwaitEditing();
    EXPECT_EQ(input.Work(), u"当前状态：修改记录"_s);
    for (const QString& key : {u"AddRecord"_s, u"DelRecord"_s, u"MoveNext"_s, u"CopyAll"_s})
      EXPECT_FALSE(input.KeyOn(key)) << key.toStdString();
    input.Key(u"SaveRecord"_s).trigger();
    EXPECT_EQ(input.Work(), u"准备就绪"_s);
    EXPECT_FALSE(input.KeyOn(u"SaveRecord"_s));
    EXPECT_TRUE(input.KeyOn(u"MoveNext"_s));
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"新题"_s);
  });
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(SaveRoadTest, SavesByItsShortcutOnceTheToolbarHasGoneOverToEditing) {
  AddRecords(1);
  DesignTitle();
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"慢"_s);
    input.AwaitEditing();
    input.PressIn(u"Txt(1)"_s, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"慢"_s);
    EXPECT_FALSE(input.KeyOn(u"SaveRecord"_s));
  });
}

TEST_P(SaveRoadTest, LosesNoSaveThatIsPressedRightAfterTheFirstKey) {
  AddRecords(1);
  DesignTitle();
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"快"_s);
    input.PressIn(u"Txt(1)"_s, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"快"_s);
    input.Retype(u"Txt(1)"_s, u"错"_s);
    input.PressIn(u"Txt(1)"_s, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"快"_s);
  });
}

TEST_P(SaveRoadTest, StaysOnARecordThatHasJustBeenChanged) {
  AddRecords(2);
  DesignTitle();
  InWindow([](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    input.Do(u"Next_R"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"新题"_s);
    EXPECT_TRUE(input.KeyOn(u"SaveRecord"_s));
    input.Do(u"CancelRecord"_s);
  });
}

TEST_P(SaveRoadTest, TellsTheUserToAddFirstOnAnEmptyRecordSet) {
  DesignTitle();
  InWindow([&](const Input& input) {
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().text, u"请先按添加按钮！"_s);
    EXPECT_EQ(boxes_.Last().title, u"提示"_s);
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_EQ(Count(), u"0"_s);
  });
}

TEST_P(SaveRoadTest, ReturnsAtOnceInBrowse) {
  AddRecords(1);
  DesignTitle(true);
  Run(u"update Lwdj set Amaintitle = null"_s);
  InWindow([&](const Input& input) {
    TakeStatements();
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(TakeStatements(), QStringList());
  });
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(SaveRoadTest, AddsARecordAsTheWindowOpens) {
  AddRecords(1);
  DesignTitle();
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP});
  InWindow(
      [&](const Input& input) {
        EXPECT_EQ(input.Form().AddOnOpen, u"0"_s);
        EXPECT_EQ(input.Work(), u"当前状态：新增一条记录"_s);
        EXPECT_EQ(input.Position(), u"当前共2条"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), QString());
        EXPECT_EQ(input.Text(u"DTP(1)"_s), u"2002-03-04"_s);
        EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
        input.Retype(u"Txt(1)"_s, u"第二"_s);
        input.Key(u"SaveRecord"_s).trigger();
        EXPECT_EQ(Value(u"select Amaintitle from Lwdj where ArchiveID like '20020304%'"_s), u"第二"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第2条/共2条"_s);
      },
      true);
}

TEST_P(SaveRoadTest, StaysOnTheRecordWithAMissingFieldWhenAddingSaves) {
  AddRecords(1);
  DesignTitle();
  Design({u"DocNo"_s, u"文号"_s, ControlKind::Txt, 0, u"文本型"_s, 50, true});
  Flag(u"AutoAddSaveFlags"_s, true);
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(2)"_s, QString());
    input.AwaitEditing();
    EXPECT_TRUE(input.KeyOn(u"AddRecord"_s));
    input.Key(u"AddRecord"_s).trigger();
    EXPECT_EQ(boxes_.Last().text, u"当前数据保存失败，原因在于：“文号”字段值不能为空！请输入数据！"_s);
    EXPECT_EQ(boxes_.Last().flags, 64);
    EXPECT_EQ(boxes_.Last().title, input.Window().windowTitle());
    EXPECT_EQ(input.Focused(), u"Txt(2)"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s);
    EXPECT_EQ(Count(), u"1"_s);
    input.Retype(u"Txt(2)"_s, u"补"_s);
    input.Key(u"AddRecord"_s).trigger();
    EXPECT_EQ(Stored(u"DocNo"_s), u"补"_s);
    EXPECT_EQ(input.Position(), u"当前共2条"_s);
    input.Do(u"CancelRecord"_s);
  });
}

TEST_P(SaveRoadTest, WritesTheFieldInHandAndADateThatIsHalfTyped) {
  AddRecords(1);
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP});
  InWindow([&](const Input& input) {
    Type(input.Control(u"DTP(1)"_s), u"2003/5/6"_s);
    input.AwaitEditing();
    input.Do(u"SaveRecord"_s);
    EXPECT_EQ(Stored(u"FileDate"_s), u"2003-05-06"_s);
  });
}

TEST_P(SaveRoadTest, ReturnsToTheRecordBeforeANewOneThatIsCancelled) {
  AddRecords(3);
  DesignTitle();
  InWindow(
      [&](const Input& input) {
        input.Do(u"AddNewRecord"_s);
        input.Retype(u"Txt(1)"_s, u"不要"_s);
        input.Key(u"CancelRecord"_s).trigger();
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名2"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第2条/共3条"_s);
        EXPECT_EQ(input.Work(), u"准备就绪"_s);
        EXPECT_EQ(Count(), u"3"_s);
      },
      false, 2);
}

TEST_P(SaveRoadTest, HasNoRecordAgainAfterTheOnlyOneIsCancelled) {
  DesignTitle();
  InWindow(
      [](const Input& input) {
        input.Retype(u"Txt(1)"_s, u"不要"_s);
        input.Do(u"CancelRecord"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), QString());
        EXPECT_EQ(input.Position(), u"当前无记录"_s);
      },
      true);
}

TEST_P(SaveRoadTest, PutsBackEveryKindOfControl) {
  Run(u"insert into Lwdj (ArchiveID,Amaintitle,DocNo,FondsNo,CreatedDate,FileDate,Pages,FileStatus) values "
      "('1','题','〔2002〕1号','F1','20020102','2002-01-02',3,'已归档')"_s);
  DesignTitle();
  Design({u"DocNo"_s, u"文号"_s, ControlKind::F_Organ});
  Design({u"FondsNo"_s, u"全宗"_s, ControlKind::F_FondsNo});
  Design({u"CreatedDate"_s, u"日期"_s, ControlKind::DTP_Arch});
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP});
  Design({u"Pages"_s, u"页数"_s, ControlKind::Txt_MLine});
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb});
  const QStringList controls{u"Txt(1)"_s, u"F_Organ(1)"_s,   u"F_FondsNo(1)"_s, u"DTP_Arch(1)"_s,
                             u"DTP(1)"_s, u"Txt_MLine(1)"_s, u"Cmb(1)"_s};
  InWindow([&](const Input& input) {
    QStringList before, after;
    for (const QString& control : controls) before << input.Text(control);
    input.Retype(u"Txt(1)"_s, u"甲"_s);
    input.Retype(u"F_Organ(1)"_s, u"乙"_s);
    input.Retype(u"F_FondsNo(1)"_s, u"F2"_s);
    input.Retype(u"DTP_Arch(1)"_s, u"20030304"_s);
    input.PressIn(u"DTP(1)"_s, Qt::Key_Delete);
    input.Retype(u"Txt_MLine(1)"_s, u"99"_s);
    input.Retype(u"Cmb(1)"_s, u"需归档"_s);
    input.AwaitEditing();
    input.Do(u"CancelRecord"_s);
    for (const QString& control : controls) after << input.Text(control);
    EXPECT_EQ(after, before);
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  });
}

TEST_P(SaveRoadTest, MakesOneLineOfAMultiLineText) {
  AddRecords(1);
  Run(u"update Lwdj set Amaintitle = '上' "_s);
  Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt_MLine});
  InWindow([&](const Input& input) {
    Find<QPlainTextEdit>(input.Window(), u"Txt_MLine(1)"_s).insertPlainText(u" 一\n二 "_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(input.Text(u"Txt_MLine(1)"_s), u"一二 上"_s);
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"一二 上"_s);
  });
}

TEST_P(SaveRoadTest, ReportsARequiredFieldAheadOfAFixedLengthBeforeIt) {
  AddRecords(1);
  Design({u"FondsNo"_s, u"全宗"_s, ControlKind::Txt, 0, u"文本型"_s, 4, false, true});
  Design({u"FileDate"_s, u"日期"_s, ControlKind::DTP, 0, u"日期型"_s, 10, true});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"文"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().text, u"当前数据保存失败，原因在于：“日期”字段值不能为空！请输入数据！"_s);
    EXPECT_EQ(input.Focused(), u"DTP(1)"_s);
    input.Retype(u"DTP(1)"_s, u"20020304"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().text, u"当前数据保存失败，原因在于：“全宗”字段值必须为4个字符，请重新输入!"_s);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
    input.Retype(u"Txt(1)"_s, u"文件"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"FondsNo"_s), u"文件"_s);
  });
}

TEST_P(SaveRoadTest, MarksTheWholeOfADateThatIsNone) {
  AddRecords(1);
  Design({u"CreatedDate"_s, u"日期"_s, ControlKind::DTP_Arch});
  InWindow([&](const Input& input) {
    input.Retype(u"DTP_Arch(1)"_s, u"20021301"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().text, u"当前数据保存失败，原因在于：您输入的日期不合法！请重新输入！"_s);
    EXPECT_EQ(input.Focused(), u"DTP_Arch(1)"_s);
    Type(input.Control(u"DTP_Arch(1)"_s), u"20020000"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"CreatedDate"_s), u"20020000"_s);
  });
}

TEST_P(SaveRoadTest, RefusesWhatLiesOutsideTheUsersRights) {
  AddRecords(1);
  DesignTitle();
  Right(Parameter::RowLimit, u"(Lwdj.Amaintitle='甲')"_s);
  Right(Parameter::RightsText, u"题名为甲"_s);
  Run(u"insert into UserPopedomScopeDetails (PopTableName,UserId,FieldName) values ('Lwdj','7','Amaintitle')"_s);
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"乙"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().text, u"当前数据保存失败，原因在于：您输入的数据与您的权限不符！\r\n题名为甲"_s);
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"题名1"_s);
    input.Retype(u"Txt(1)"_s, u"甲"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"甲"_s);
  });
}

TEST_P(SaveRoadTest, AppliesTheProofingRules) {
  AddRecords(2);
  Design({u"DocNo"_s, u"文号"_s});
  Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,Relation,"
      "CollectValue) values ('Lwdj',0,'DocNo',1,1,'文号','不能是','重复值')"_s);
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"文号2"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().title, u"数据重复提示"_s);
    EXPECT_EQ(Stored(u"DocNo"_s), u"文号1"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"文号2"_s);
    input.Form().CancelEdit();
  });
}

TEST_P(SaveRoadTest, ShowsAComboTextInItsListAtOnceAndKeepsItAfterTheClose) {
  AddRecords(1);
  Run(u"insert into AssistantDictionary (DicID,Name) values ('9','状态')"_s);
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb, 0, u"文本型"_s, 20, false, false, false, false, u"状态"_s});
  InWindow([&](const Input& input) {
    input.Retype(u"Cmb(1)"_s, u"新状态"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Find<QComboBox>(input.Window(), u"Cmb(1)"_s).findText(u"新状态"_s), 0);
    EXPECT_EQ(input.Text(u"Cmb(1)"_s), u"新状态"_s);
    EXPECT_EQ(Value(u"select count(*) from AssistantDicKey"_s), u"0"_s);
  });
  EXPECT_EQ(Value(u"select Name from AssistantDicKey where DicID = '9'"_s), u"新状态"_s);
}

TEST_P(SaveRoadTest, WritesWhatAProgramHasPutIntoAField) {
  AddRecords(1);
  DesignTitle();
  Design({u"DocNo"_s, u"文号"_s});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    input.Control(u"Txt(2)"_s).setProperty("text", u"新号"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"DocNo"_s), u"新号"_s);
  });
}

FOLVANE_ON_EACH_DATABASE(SaveRoadTest);

}  // namespace
}  // namespace folvane::test
