#include <QInputMethodEvent>
#include <QLineEdit>

#include "RecordRoad.h"

namespace folvane::test {
namespace {

/// Texts and records that do not fit as they are.
class AwkwardTextTest : public RecordRoad {};

TEST_P(AwkwardTextTest, KeepsCharactersOutsideTheCodePage) {
  AddRecords(1);
  DesignTitle();
  InWindow([&](const Input& input) {
    QInputMethodEvent event;
    event.setCommitString(u"𠮷田€é😀"_s);
    Find<QLineEdit>(input.Window(), u"Txt(1)"_s).selectAll();
    QCoreApplication::sendEvent(&input.Control(u"Txt(1)"_s), &event);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"𠮷田€é😀"_s);
  });
}

TEST_P(AwkwardTextTest, BringsARefusedFieldIntoSight) {
  AddRecords(1);
  DesignTitle();
  Design({u"DocNo"_s, u"文号"_s, ControlKind::Txt, 0, u"文本型"_s, 50, true});
  Run(u"update SaveControls set F_Top = 30000 where DataField = 'DocNo'"_s);
  Run(u"update Lwdj set DocNo = null"_s);
  InWindow([&](const Input& input) {
    input.Window().resize(600, 400);
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_TRUE(input.Control(u"PicControls"_s).rect().contains(input.Control(u"Txt(2)"_s).geometry()));
    input.Form().CancelEdit();
  });
}

TEST_P(AwkwardTextTest, KeepsQuotesInEveryTextField) {
  AddRecords(1);
  DesignTitle();
  Design({u"DocNo"_s, u"文号"_s, ControlKind::F_Organ});
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb});
  InWindow([&](const Input& input) {
    for (const QString& control : {u"Txt(1)"_s, u"F_Organ(1)"_s, u"Cmb(1)"_s})
      input.Retype(control, u"it's \"甲\"; --"_s);
    EXPECT_TRUE(input.Form().SaveData());
    for (const QString& column : {u"Amaintitle"_s, u"DocNo"_s, u"FileStatus"_s})
      EXPECT_EQ(Stored(column), u"it's \"甲\"; --"_s);
  });
  EXPECT_EQ(Value(u"select count(*) from AssistantDicKey where Name = 'it''s \"甲\"; --'"_s), u"1"_s);
}

TEST_P(AwkwardTextTest, CutsAPastedTextToItsLimitBeforeItIsStored) {
  AddRecords(1);
  Design({u"FondsNo"_s, u"全宗"_s, ControlKind::Txt, 0, u"文本型"_s, 4});
  InWindow([&](const Input& input) {
    Find<QLineEdit>(input.Window(), u"Txt(1)"_s).insert(u"全宗号码"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"FondsNo"_s), u"全宗"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"全宗"_s);
  });
}

TEST_P(AwkwardTextTest, KeepsAPastedTextOnTheLineOfItsField) {
  AddRecords(1);
  DesignTitle();
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb});
  Run(u"update Lwdj set Amaintitle = '一\n二'"_s);
  const QString before = Stored(u"Amaintitle"_s);
  InWindow([&](const Input& input) {
    const auto paste = [&](QLineEdit& line, int at, const QString& text) {
      line.setCursorPosition(at);
      line.insert(text);
    };
    paste(Find<QLineEdit>(input.Window(), u"Txt(1)"_s), 0, u"甲\r\n乙\n"_s);
    paste(*input.Control(u"Cmb(1)"_s).findChild<QLineEdit*>(), 0, u"新词\n"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"甲 乙"_s + before) << "what stood there keeps its break";
    EXPECT_EQ(Stored(u"FileStatus"_s), u"新词"_s);
  });
}

TEST_P(AwkwardTextTest, ShowsTheWholeNumberThatAFractionIsStoredAs) {
  AddRecords(1);
  Design({u"Pages"_s, u"页数"_s, ControlKind::Txt, 0, u"数值型"_s, 8});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"12.7"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Pages"_s), u"13"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"13"_s);
    input.Retype(u"Txt(1)"_s, u"14"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Pages"_s), u"14"_s);
  });
}

TEST_P(AwkwardTextTest, AComboBoxOfANumberTakesAsManyDigitsAsItsDesignSays) {
  AddRecords(1);
  Design({u"Pages"_s, u"页数"_s, ControlKind::Cmb, 0, u"数值型"_s, 8});
  InWindow([&](const Input& input) {
    input.Retype(u"Cmb(1)"_s, u"12345"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Pages"_s), u"12345"_s);
  });
}

TEST_P(AwkwardTextTest, TellsOfATextThatItsColumnCannotHoldAndKeepsTheRecordToBeCancelled) {
  AddRecords(1);
  Design({u"FondsNo"_s, u"全宗"_s, ControlKind::Txt, 0, u"文本型"_s, 40});
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"五字全宗号"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().flags, 16);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"五字全宗号"_s);
    EXPECT_EQ(input.Work(), u"准备就绪"_s);
    input.AwaitEditing();
    input.Do(u"CancelRecord"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), QString());
    EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  });
}

TEST_P(AwkwardTextTest, KeepsTheRecordToBeCancelledWhenItCannotBeFilled) {
  Formula(RegFormula::CreatedDate);
  Run(u"alter table Lwdj drop column CreatedDate"_s);
  AddRecords(1);
  DesignTitle();
  InWindow([&](const Input& input) {
    input.Do(u"AddNewRecord"_s);
    EXPECT_EQ(boxes_.Last().flags, 16);
    ASSERT_TRUE(input.KeyOn(u"CancelRecord"_s));
    input.Do(u"CancelRecord"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s);
    EXPECT_EQ(Shared().CurrentRecords.RecordCount(), 1);
  });
}

FOLVANE_ON_EACH_DATABASE(AwkwardTextTest);

}  // namespace
}  // namespace folvane::test
