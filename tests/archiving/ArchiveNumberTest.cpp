#include <gtest/gtest.h>

#include "archiving/ArchiveNumber.h"
#include "archiving/TransferFixture.h"
#include "base/CodePage.h"
#include "shell/RegistryValues.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class NumberPieceTest : public TransferTest {
 protected:
  QString Piece(const QString& field, const QString& value, bool showCode, qint16 length) {
    return ComposeNoPiece({field, {}, {}, showCode, length}, value, u"Wenshu"_s);
  }
};
FOLVANE_ON_EACH_DATABASE(NumberPieceTest);

TEST_P(NumberPieceTest, IsFilledUpWithZerosAndNeverLongerThanItsLength) {
  struct Case {
    QString value;
    qint16 length;
    QString piece;
  };
  // clang-format off
  const Case cases[] = {
      {u"7"_s, 4, u"0007"_s},
      {u"1234"_s, 4, u"1234"_s},        // exactly
      {u"12345"_s, 4, u"1234"_s},       // over
      {QString(), 3, u"000"_s},
      {u"永久"_s, 4, u"永久"_s},          // two bytes a character
      {u"永久"_s, 6, u"00永久"_s},
      {u"长期"_s, 3, u"0长"_s},           // half a character does not stay
      {u"甲"_s, 1, u"0"_s},
      {u"A1"_s, 4, u"00A1"_s},          // text like numbers
      {u"7"_s, 0, QString()},
  };
  // clang-format on
  for (const Case& each : cases) EXPECT_EQ(Piece(u"ItemNo"_s, each.value, false, each.length), each.piece);
}

TEST_P(NumberPieceTest, TakesTheCodeOfADictionaryEntryWhereCodesAreShown) {
  AddDictionary(u"DocYear"_s, u"永久"_s, u"Y"_s);
  log_->Take();
  EXPECT_EQ(Piece(u"DocYear"_s, u"永久"_s, true, 2), u"0Y"_s);
  EXPECT_EQ(log_->Take(),
            QStringList({u"Select KeyCode From AssistantDicKey Where DicID = (Select DicID From AssistantDictionary "
                         "Where Name=(Select AuxiDictDetails From Dynamicwindows Where TableName = 'Wenshu' And "
                         "FieldName = 'DocYear')) ANd Name = '永久'"_s}));
  EXPECT_EQ(Piece(u"DocYear"_s, u"短期"_s, true, 6), u"00短期"_s);  // no such entry
  EXPECT_EQ(Piece(u"DocYear"_s, u"永久"_s, false, 4), u"永久"_s);
}

TEST_P(NumberPieceTest, OfAFondsIsItsCodeOrItsNameAndNotFilledUp) {
  design_->Insert(u"FondsDefine"_s, u"FondsNo,FondsName"_s, {u"12"_s, u"市档案局"_s});
  log_->Take();
  EXPECT_EQ(Piece(u"FONDSNO"_s, u"12"_s, true, 4), u"12"_s);
  EXPECT_EQ(log_->Take(), QStringList());
  EXPECT_EQ(Piece(u"FondsNo"_s, u"12"_s, false, 20), u"市档案局"_s);
  EXPECT_EQ(log_->Take(), QStringList({u"Select FondsName from FondsDefine Where FondsNo='12'"_s}));
  EXPECT_EQ(Piece(u"FondsNo"_s, u"12"_s, false, 4), u"市档"_s);
  EXPECT_EQ(Piece(u"FondsNo"_s, u"99"_s, false, 4), QString());
  EXPECT_EQ(Piece(u"FondsNo"_s, u"12345"_s, true, 4), u"1234"_s);
}

TEST_P(NumberPieceTest, OfAClassIsLookedUpAmongTheFonds) {
  design_->Insert(u"FondsDefine"_s, u"FondsNo,FondsName"_s, {u"12"_s, u"市档案局"_s});
  design_->Insert(u"EntityClass"_s, u"ClassNo,FondsNo,ClassName"_s, {u"12"_s, u"1"_s, u"文书"_s});
  EXPECT_EQ(Piece(u"AecNo"_s, u"12"_s, false, 20), u"市档案局"_s);
  EXPECT_EQ(Piece(u"aecno"_s, u"12"_s, true, 20), u"12"_s);
}

TEST_P(NumberPieceTest, NamesOfCodesAreThoseOfFondsAndOfClassesInTheCurrentFonds) {
  design_->Insert(u"FondsDefine"_s, u"FondsNo,FondsName"_s, {u"12"_s, u"市档案局"_s});
  design_->Insert(u"EntityClass"_s, u"ClassNo,FondsNo,ClassName"_s, {u"A"_s, u"12"_s, u"文书"_s});
  design_->Insert(u"RetentionYear"_s, u"Name,Code"_s, {u"A"_s, u"Y"_s});
  SaveValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s, u"12"_s);
  log_->Take();
  EXPECT_EQ(LookupCodeName(1, u"12"_s), u"市档案局"_s);
  EXPECT_EQ(LookupCodeName(1, u"13"_s), QString());
  EXPECT_EQ(LookupCodeName(2, u"A"_s), u"文书"_s);
  EXPECT_EQ(LookupCodeName(2, u"B"_s), QString());
  EXPECT_EQ(log_->Take().at(2), u"Select ClassName from EntityClass  Where ClassNo='A' and FondsNo = '12'"_s);
  EXPECT_EQ(LookupCodeName(3, u"A"_s), QString());  // which elsewhere is the code of a retention period
  EXPECT_EQ(LookupCodeName(0, u"12"_s), QString());
  EXPECT_EQ(log_->Take(), QStringList());
}

TEST_P(NumberPieceTest, AComposedNumberIsNeverLongerThanItsFieldsSay) {
  const auto compose = [](const QString& first, const QString& second) {
    const std::vector<NumberField> fields{{u"DocYear"_s, u"永久卷"_s, first, false, 4},
                                          {u"ItemNo"_s, u"7"_s, second, false, 3}};
    const QString number = ComposeArchiveNumber(fields, u"Wenshu"_s);
    EXPECT_EQ(ByteLength(number), ArchiveNumberLength(fields));
    return number;
  };
  EXPECT_EQ(compose(u"-"_s, u"·"_s), u"永久·007"_s);
  EXPECT_EQ(compose(u"第"_s, u"--"_s), u"永久--007"_s);
  EXPECT_EQ(compose(u"[]"_s, QString()), u"]永久007"_s);
  EXPECT_EQ(ArchiveNumberLength({}), 0);
  EXPECT_EQ(ComposeArchiveNumber({}, u"Wenshu"_s), QString());
  EXPECT_EQ(ComposeArchiveNumber({{u"ItemNo"_s, u"7"_s, QString(), false, 3}}, u"Wenshu"_s), u"07"_s);
}

TEST_P(NumberPieceTest, ScopeClauseIsOfTheFixedFields) {
  EXPECT_EQ(ScopeClauseOf(SharedNumberFormat()), u" Where FondsNo = '123' And DocYear = '2002'"_s);
  SetFormat({{u"DocYear"_s, QString(), u"-"_s, false, 4}, {u"ItemNo"_s, u"5"_s, u"-"_s, false, 4}}, u"ArchNo"_s);
  EXPECT_EQ(ScopeClauseOf(SharedNumberFormat()), u" Where DocYear = ''"_s);
  SetFormat({{u"ItemNo"_s, u"5"_s, u"-"_s, false, 4}}, u"ArchNo"_s);
  EXPECT_EQ(ScopeClauseOf(SharedNumberFormat()), QString());
  SetFormat({}, QString());
  EXPECT_EQ(ScopeClauseOf(SharedNumberFormat()), QString());
}

}  // namespace
}  // namespace folvane::test
