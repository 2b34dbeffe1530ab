#include <QAbstractItemView>
#include <QComboBox>

#include "forms/EntryLayout.h"
#include "forms/FormsFixture.h"

namespace folvane::test {
namespace {

struct Kind {
  int controlType;
  const char* name;
  QString text;   ///< that the field is set to
  QString typed;  ///< that is typed over it
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

const Kind kKinds[] = {
    {ControlKind::Txt, "Txt", u"文件"_s, u"新文A"_s},
    {ControlKind::Cmb, "Cmb", u"秘密"_s, u"新密级"_s},
    {ControlKind::DTP, "DTP", u"2002-03-04"_s, u"2003-05-06"_s},
    {ControlKind::F_FondsNo, "F_FondsNo", u"001"_s, u"J07"_s},
    {ControlKind::F_Aec, "F_Aec", u"A1"_s, u"B2"_s},
    {ControlKind::F_Organ, "F_Organ", u"国发〔2002〕17号"_s, u"京政〔2003〕1号"_s},
    {ControlKind::DTP_Arch, "DTP_Arch", u"20021200"_s, u"20030506"_s},
    {ControlKind::Txt_MLine, "Txt_MLine", u"题名"_s, u"新题名"_s},
};

class EachField : public FormsTest, public testing::WithParamInterface<Kind> {};
INSTANTIATE_TEST_SUITE_P(Kinds, EachField, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_P(EachField, IsNamedAsAnElementOfItsArray) {
  const auto field = ShownField(GetParam().controlType, u"限长30个字符"_s);
  EXPECT_EQ(field->Widget().objectName(), QString::fromLatin1(GetParam().name) + u"(1)"_s);
  EXPECT_EQ(field->Widget().property("Tag").toString(), u"字段"_s);
  EXPECT_EQ(field->Widget().property("DataField").toString(), u"F"_s);
  EXPECT_EQ(field->Widget().toolTip(), u"限长30个字符"_s);
}

TEST_P(EachField, IsSetByProgramInSilence) {
  const auto field = ShownField(GetParam().controlType);
  QSignalSpy changes(field.get(), &EntryField::Changed);
  field->SetText(GetParam().text);
  EXPECT_EQ(field->Text(), GetParam().text);
  EXPECT_TRUE(field->Widget().setProperty("text", QString()));
  EXPECT_EQ(field->Text(), QString());
  EXPECT_TRUE(field->Widget().setProperty("text", GetParam().text));
  EXPECT_EQ(field->Widget().property("text").toString(), GetParam().text);
  EXPECT_EQ(changes.count(), 0);
}

TEST_P(EachField, IsTypedOverByHand) {
  const auto field = ShownField(GetParam().controlType);
  field->SetText(GetParam().text);
  field->SelectAll();
  Type(field->Widget(), GetParam().typed);
  EXPECT_EQ(field->Text(), GetParam().typed);
}

TEST_P(EachField, TellsOfATextCommittedByAnInputMethodOnce) {
  const auto field = ShownField(GetParam().controlType);
  QSignalSpy changes(field.get(), &EntryField::Changed);
  Commit(field->Widget(), GetParam().typed);
  EXPECT_EQ(field->Text(), GetParam().typed);
  EXPECT_EQ(changes.count(), 1);
}

TEST_P(EachField, LeavesACompositionInProgressOutOfItsText) {
  const auto field = ShownField(GetParam().controlType);
  field->SetText(GetParam().text);
  QSignalSpy changes(field.get(), &EntryField::Changed);
  Compose(field->Widget(), u"wen jian"_s);
  EXPECT_TRUE(field->IsComposing());
  EXPECT_EQ(field->Text(), GetParam().text);
  Compose(field->Widget(), {});
  EXPECT_FALSE(field->IsComposing());
  EXPECT_EQ(changes.count(), 0);
}

TEST_P(EachField, TellsThatTheFocusHasComeAndGone) {
  const auto field = ShownField(GetParam().controlType);
  const auto other = NewField({ControlKind::Txt, 2, {}, {}, {}, {}, {}}, &Window());
  other->Widget().show();
  other->Focus();
  QSignalSpy entered(field.get(), &EntryField::Entered), left(field.get(), &EntryField::Left);
  field->Focus();
  EXPECT_EQ(entered.count(), 1);
  other->Focus();
  EXPECT_EQ(left.count(), 1);
}

TEST_P(EachField, GoesWithItsControl) {
  auto field = ShownField(GetParam().controlType);
  field.reset();
  EXPECT_TRUE(Window().findChildren<QWidget*>(QString::fromLatin1(GetParam().name) + u"(1)"_s).isEmpty());
}

class Fields : public FormsTest {};

TEST_F(Fields, AreNotBuiltOfOtherKinds) {
  for (const int kind : {0, 3, 5, 11}) EXPECT_EQ(NewField({kind, 1, {}, {}, {}, {}, {}}, &Window()), nullptr) << kind;
}

TEST_F(Fields, TellOfEachTypedCharacterOnce) {
  for (const int kind : {ControlKind::Txt, ControlKind::Cmb, ControlKind::F_FondsNo, ControlKind::Txt_MLine}) {
    const auto field = ShownField(kind);
    QSignalSpy changes(field.get(), &EntryField::Changed);
    Type(field->Widget(), u"文件A"_s);
    EXPECT_EQ(changes.count(), 3) << kind;
  }
}

TEST_F(Fields, LetInOnlyWhatTheirAdmissionGives) {
  for (const int kind : {ControlKind::Txt, ControlKind::Cmb, ControlKind::Txt_MLine}) {
    const auto field = ShownField(kind);
    field->SetAdmission([](const QString& typed) { return QString(typed).remove(u' ').replace(u'a', u'Ａ'); });
    QSignalSpy changes(field.get(), &EntryField::Changed);
    Type(field->Widget(), u"文 a"_s);
    EXPECT_EQ(field->Text(), u"文Ａ"_s) << kind;
    EXPECT_EQ(changes.count(), 2) << kind;
    Commit(field->Widget(), u"件 a"_s);
    EXPECT_EQ(field->Text(), u"文Ａ件Ａ"_s) << kind;
    EXPECT_EQ(changes.count(), 3) << kind;
    field->SetText(u"a a"_s);
    EXPECT_EQ(field->Text(), u"a a"_s) << kind;
  }
}

TEST_F(Fields, OfANumberTypeShowWholeNumbers) {
  const auto field = ShownField(ControlKind::Txt, {}, u"数值型"_s);
  field->Show(u"10.5"_s);
  EXPECT_EQ(field->Text(), u"11"_s);
  field->Show(u"12345678901234567890"_s);
  EXPECT_EQ(field->Text(), u"12345678901234567890"_s);
  field->Show({});
  EXPECT_EQ(field->Text(), QString());
}

TEST_F(Fields, OfOtherTypesShowWhatIsStored) {
  const auto field = ShownField(ControlKind::Txt, {}, u"文本型"_s);
  field->Show(u"10.5"_s);
  EXPECT_EQ(field->Text(), u"10.5"_s);
}

TEST_F(Fields, WithoutADateGiveARecordNull) {
  const auto field = ShownField(ControlKind::DTP);
  EXPECT_FALSE(field->Value().isValid());
  field->SetText(u"2002-03-04"_s);
  EXPECT_EQ(field->Value(), QVariant(u"2002-03-04"_s));
}

TEST_F(Fields, OfSeveralLinesTakeNoBreakFromTheEnterKey) {
  const auto field = ShownField(ControlKind::Txt_MLine);
  Type(field->Widget(), u"甲"_s);
  Press(field->Widget(), Qt::Key_Return);
  Type(field->Widget(), u"乙"_s);
  EXPECT_EQ(field->Text(), u"甲乙"_s);
}

TEST_F(Fields, OfSeveralLinesKnowAStoredTextAgainWhateverItsLineBreaks) {
  const auto field = ShownField(ControlKind::Txt_MLine);
  field->Show(u"甲\r\n乙"_s);
  EXPECT_EQ(field->Text(), u"甲\r\n乙"_s);
  field->CaretToEnd();
  field->Show(u"甲\r\n乙"_s);
  Type(field->Widget(), u"丙"_s);
  EXPECT_EQ(field->Text(), u"甲\n乙丙"_s) << "the caret was moved";
}

class ComboFields : public FormsTest {
 protected:
  ComboFields() {
    Native(u"Insert Into AssistantDictionary(DicID,Name) Values('1','密级')"_s);
    Native(u"Insert Into AssistantDicKey(DicID,Name,Note) Values('1','机密','2'),('1','秘密','1'),('1','ABC','3')"_s);
  }
};

TEST_F(ComboFields, ListTheDictionaryInItsOrderAndBeginEmpty) {
  const auto field = ShownField(ControlKind::Cmb);
  const auto& combo = static_cast<QComboBox&>(field->Widget());
  ASSERT_EQ(combo.count(), 3);
  EXPECT_EQ(combo.itemText(0), u"秘密"_s);
  EXPECT_EQ(combo.itemText(1), u"机密"_s);
  EXPECT_EQ(field->Text(), QString());
}

TEST_F(ComboFields, WithoutADictionaryAskForNone) {
  const auto field = NewField({ControlKind::Cmb, 1, u"F"_s, {}, u"字段"_s, {}, {}}, &Window());
  EXPECT_EQ(static_cast<QComboBox&>(field->Widget()).count(), 0);
}

TEST_F(ComboFields, TellOfAnEntryChosenFromTheListOnce) {
  const auto field = ShownField(ControlKind::Cmb);
  auto& combo = static_cast<QComboBox&>(field->Widget());
  QSignalSpy changes(field.get(), &EntryField::Changed);
  combo.showPopup();
  ClickItem(*combo.view(), combo.model()->index(1, 0));
  EXPECT_EQ(field->Text(), u"机密"_s);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(ComboFields, DoNotTellOfTheEntryThatStandsThereAlready) {
  const auto field = ShownField(ControlKind::Cmb);
  field->SetText(u"机密"_s);
  auto& combo = static_cast<QComboBox&>(field->Widget());
  QSignalSpy changes(field.get(), &EntryField::Changed);
  combo.showPopup();
  ClickItem(*combo.view(), combo.model()->index(1, 0));
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(ComboFields, CompleteAndCorrectNothing) {
  const auto field = ShownField(ControlKind::Cmb);
  Type(field->Widget(), u"ab"_s);
  EXPECT_EQ(field->Text(), u"ab"_s);
  Type(field->Widget(), u"c"_s);
  Press(field->Widget(), Qt::Key_Return);
  EXPECT_EQ(field->Text(), u"abc"_s);
  EXPECT_EQ(static_cast<QComboBox&>(field->Widget()).count(), 3);
}

TEST_F(ComboFields, ShowAnErrorOfTheDictionaryToTheirMaker) {
  EXPECT_ANY_THROW(NewField({ControlKind::Cmb, 1, {}, {}, {}, {}, u"'broken"_s}, &Window()));
}

}  // namespace
}  // namespace folvane::test
