#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "forms/EntryLayout.h"
#include "forms/FormsFixture.h"
#include "forms/LengthGuard.h"

namespace folvane::test {
namespace {

TEST(LimitText, IsReadBackOutOfTheHint) {
  EXPECT_EQ(LimitText(u"14"_s), u"限长14个字符"_s);
  EXPECT_EQ(LimitIn(u"限长14个字符"_s), 14);
  EXPECT_EQ(LimitIn(u"限长2147483647个字符"_s), 2147483647);
  EXPECT_EQ(LimitIn(u"限长个字符"_s), std::nullopt);
  EXPECT_EQ(LimitIn(QString()), std::nullopt);
}

class LengthGuardTest : public FormsTest {
 protected:
  /// A guarded field that holds five bytes.
  EntryField& Guarded(int controlType) {
    field_ = ShownField(controlType, LimitText(u"5"_s));
    new LengthGuard(*field_);
    return *field_;
  }

 private:
  std::unique_ptr<EntryField> field_;
};

TEST_F(LengthGuardTest, CutsWholeCharactersAsTheyAreTyped) {
  for (const int kind : {ControlKind::Txt, ControlKind::Cmb, ControlKind::Txt_MLine, ControlKind::F_FondsNo,
                         ControlKind::F_Aec, ControlKind::F_Organ}) {
    EntryField& field = Guarded(kind);
    Type(field.Widget(), u"文件A号"_s);
    EXPECT_EQ(field.Text(), u"文件A"_s) << kind;
    Type(field.Widget(), u"B"_s);
    EXPECT_EQ(field.Text(), u"文件A"_s) << kind;
  }
}

TEST_F(LengthGuardTest, PutsTheCaretToTheEnd) {
  EntryField& field = Guarded(ControlKind::Txt);
  field.SetText(u"文件A"_s);
  auto& box = static_cast<QLineEdit&>(field.Widget());
  box.home(false);
  Type(box, u"B"_s);
  EXPECT_EQ(field.Text(), u"B文件"_s);
  EXPECT_EQ(box.cursorPosition(), 3);
}

TEST_F(LengthGuardTest, BeepsForWhatItCuts) {
  int beeps = 0;
  Services().beep = [&] { ++beeps; };
  for (const int kind : {ControlKind::Txt, ControlKind::Cmb, ControlKind::F_Organ, ControlKind::Txt_MLine}) {
    EntryField& field = Guarded(kind);
    Type(field.Widget(), u"文件A"_s);
    EXPECT_EQ(std::exchange(beeps, 0), 0) << kind;
    Type(field.Widget(), u"B"_s);
    EXPECT_EQ(std::exchange(beeps, 0), 1) << kind;
  }
}

TEST_F(LengthGuardTest, LeavesALongTextOfARecordAloneUntilItIsChanged) {
  EntryField& field = Guarded(ControlKind::Txt);
  field.Show(u"比五个字节长"_s);
  Press(field.Widget(), Qt::Key_F11);
  EXPECT_EQ(field.Text(), u"比五个字节长"_s);
  field.CaretToEnd();
  Press(field.Widget(), Qt::Key_Backspace);
  EXPECT_EQ(field.Text(), u"比五"_s);
}

TEST_F(LengthGuardTest, RefusesAChoiceThatIsTooLong) {
  Native(u"Insert Into AssistantDictionary(DicID,Name) Values('1','密级')"_s);
  Native(u"Insert Into AssistantDicKey(DicID,Name,Note) Values('1','秘密','1'),('1','绝密级','2')"_s);
  int beeps = 0;
  Services().beep = [&] { ++beeps; };
  EntryField& field = Guarded(ControlKind::Cmb);
  field.SetText(u"秘密"_s);
  QSignalSpy changes(&field, &EntryField::Changed);
  Press(field.Widget(), Qt::Key_Down);
  EXPECT_EQ(field.Text(), u"秘密"_s);
  EXPECT_EQ(changes.count(), 0);
  EXPECT_EQ(beeps, 1);
}

TEST_F(LengthGuardTest, IsSilent) {
  EntryField& field = Guarded(ControlKind::Txt);
  field.SetText(u"文件A"_s);
  QSignalSpy changes(&field, &EntryField::Changed);
  field.CaretToEnd();
  Type(field.Widget(), u"B"_s);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(LengthGuardTest, CutsWhatAnInputMethodCommits) {
  for (const int kind : {ControlKind::Txt, ControlKind::Cmb, ControlKind::Txt_MLine, ControlKind::F_Organ}) {
    EntryField& field = Guarded(kind);
    Commit(field.Widget(), u"文件登记"_s);
    EXPECT_EQ(field.Text(), u"文件"_s) << kind;
  }
}

TEST_F(LengthGuardTest, LeavesACompositionAlone) {
  EntryField& field = Guarded(ControlKind::Txt);
  field.SetText(u"已经太长的文字"_s);
  Compose(field.Widget(), u"wen"_s);
  QTest::sendKeyEvent(QTest::Release, &field.Widget(), Qt::Key_N, u"n"_s, Qt::NoModifier);
  EXPECT_EQ(field.Text(), u"已经太长的文字"_s);
  EXPECT_TRUE(field.IsComposing());
}

TEST_F(LengthGuardTest, CutsAPastedTextAtTheNextKey) {
  EntryField& field = Guarded(ControlKind::Txt);
  QGuiApplication::clipboard()->setText(u"文件登记"_s);
  static_cast<QLineEdit&>(field.Widget()).paste();
  EXPECT_EQ(field.Text(), u"文件登记"_s);
  Press(field.Widget(), Qt::Key_Backspace);
  EXPECT_EQ(field.Text(), u"文件"_s);
}

TEST_F(LengthGuardTest, PassesOverKeysThatOnlyMoveOrSwitch) {
  EntryField& field = Guarded(ControlKind::Txt);
  field.SetText(u"文件登记"_s);
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Shift, Qt::Key_CapsLock, Qt::Key_Insert,
                            Qt::Key_F1, Qt::Key_F10, Qt::Key_Return, Qt::Key_Escape})
    Press(field.Widget(), key);
  EXPECT_EQ(field.Text(), u"文件登记"_s);
  Press(field.Widget(), Qt::Key_F11);
  EXPECT_EQ(field.Text(), u"文件"_s);
}

TEST_F(LengthGuardTest, PassesOverControlKeysInACombo) {
  EntryField& combo = Guarded(ControlKind::Cmb);
  combo.SetText(u"文件登记"_s);
  Press(combo.Widget(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(combo.Text(), u"文件登记"_s);
  EntryField& box = Guarded(ControlKind::Txt);
  box.SetText(u"文件登记"_s);
  Press(box.Widget(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"文件"_s);
}

}  // namespace
}  // namespace folvane::test
