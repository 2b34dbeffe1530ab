#include "components/transfer/NumberExample.h"
#include "transfersettings/SettingsFixture.h"

// What is suggested, and the number that a format makes.
namespace folvane::test {
namespace {
using namespace transfer;

class SuggestTest : public SettingsTest {
 protected:
  static QStringList Say(const std::vector<Suggestion>& suggestions) {
    QStringList said;
    for (const Suggestion& each : suggestions)
      said << QStringList{each.link.source, each.link.destination, each.link.caption, each.reason}.join(u'|');
    return said;
  }
};
FOLVANE_ON_EACH_DATABASE(SuggestTest);

TEST_P(SuggestTest, EqualNamesAndEqualCaptionsAreSuggestedForWhatIsStillFree) {
  TransferSettings settings(Connected());
  EXPECT_EQ(Say(settings.Suggested(0)),
            QStringList({u"Unit|Author|责任者|标题相同"_s, u"SignDate|SignDate|成文日期|字段名相同"_s}));
}

TEST_P(SuggestTest, OneKeyTakesThemAll) {
  TransferSettings settings(Connected());
  EXPECT_EQ(settings.TakeSuggestions(0), 2);
  EXPECT_TRUE(settings.Suggested(0).empty());
  settings.Save();
  EXPECT_EQ(Fields(), QStringList({u"1|Amaintitle|Amaintitle|题名"_s, u"1|Pages|Quantity|页数"_s,
                                   u"1|SignDate|SignDate|成文日期"_s, u"1|Unit|Author|责任者"_s}));
}

TEST_P(SuggestTest, WhatTheTransferGivesAndWhatIsNotClearIsNotSuggested) {
  design_->Run(u"alter table Lwdj add column FondsNo varchar(20)"_s);
  design_->Run(u"alter table Lwdj add column ItemNo integer"_s);
  design_->Run(u"alter table Lwdj add column InputDate varchar(10)"_s);
  design_->Run(u"alter table Wenshu add column InputDate varchar(10)"_s);
  Describe(u"Lwdj"_s, u"收文登记"_s, u"F"_s, {{u"Memo"_s, u"责任者"_s, u"文本型"_s}});
  TransferSettings settings(Connected());
  EXPECT_EQ(Say(settings.Suggested(0)), QStringList({u"SignDate|SignDate|成文日期|字段名相同"_s}));
}

TEST_P(SuggestTest, APairWhoseTablesAreMissingHasNoSuggestions) {
  AddPair(u"2"_s, u"Nothing"_s, u"<null>"_s);
  AddField(u"9"_s, u"Unit"_s, u"Author"_s, QString());
  TransferSettings settings(Connected());
  EXPECT_TRUE(settings.Suggested(1).empty());
  EXPECT_TRUE(settings.Suggested(2).empty());
}

TEST_P(SuggestTest, ADestinationTakesOneSource) {
  TransferSettings settings(Connected());
  EXPECT_EQ(settings.Link(0, u"Unit"_s, u"AMAINTITLE"_s), 0u);
  EXPECT_EQ(settings.Now().sets[0].links.size(), 2u);
  EXPECT_EQ(settings.Now().sets[0].links[0].caption, u"责任者"_s);
}

TEST_P(SuggestTest, ALinkGoesToAnotherDestinationOrStaysWhereThatIsRefused) {
  AddField(u"1"_s, QString(), u"Secret"_s, QString());
  TransferSettings settings(Connected());
  const auto& links = settings.Now().sets[0].links;
  const auto all = [&] {
    QStringList pairs;
    for (const FieldLink& link : links) pairs << link.source + u'>' + link.destination;
    return pairs.join(u' ');
  };
  ASSERT_EQ(all(), u"Amaintitle>Amaintitle Pages>Quantity >Secret"_s);
  EXPECT_EQ(settings.MoveLink(0, 1, u"QUANTITY"_s), 1u);
  EXPECT_THROW(settings.MoveLink(0, 2, u"Author"_s), DataError);
  EXPECT_EQ(all(), u"Amaintitle>Amaintitle Pages>Quantity >Secret"_s);
  EXPECT_EQ(settings.MoveLink(0, 1, u"ItemNo"_s), 2u);
  EXPECT_EQ(all(), u"Amaintitle>Amaintitle >Secret Pages>ItemNo"_s);
  EXPECT_EQ(settings.MoveLink(0, 2, u"Amaintitle"_s), 0u);
  EXPECT_EQ(all(), u"Pages>Amaintitle >Secret"_s);
}

TEST_P(SuggestTest, WhatCannotBeIsRefusedWithItsReason) {
  AddField(u"9"_s, u"Unit"_s, u"Author"_s, QString());
  TransferSettings settings(Connected());
  const auto refusal = [&](const std::function<void()>& work) { return ErrorOf(work).Message(); };
  EXPECT_EQ(refusal([&] { settings.AddSet(u"Lwdj"_s, u"WENSHU"_s); }), u"从“Lwdj”到“WENSHU”的归档已在第 1 项中。"_s);
  EXPECT_EQ(refusal([&] { settings.AddSet(u"Lwdj"_s, u"lwdj"_s); }), u"来源表与目标表不能相同。"_s);
  EXPECT_EQ(refusal([&] { settings.AddSet(u"Lwdj"_s, QString()); }), u"请选择来源表和目标表。"_s);
  EXPECT_EQ(refusal([&] { settings.Link(0, u"Unit"_s, QString()); }), u"请在两边各选择一个字段。"_s);
  EXPECT_EQ(refusal([&] { settings.Link(1, u"Unit"_s, u"Author"_s); }), u"请先指定来源表和目标表（F2）。"_s);
  EXPECT_FALSE(settings.IsChanged());
}

class ExampleTest : public SettingsTest {
 protected:
  QStringList Samples(TransferSettings& settings) {
    const NumberFormat format = settings.FormatOf(u"Wenshu"_s);
    QStringList values;
    for (std::size_t part = 0; part < format.parts.size(); ++part)
      values << SampleValue(*Connected(), format, part, settings.Tables());
    return values;
  }
};
FOLVANE_ON_EACH_DATABASE(ExampleTest);

TEST_P(ExampleTest, SamplesAreTakenFromWhatTheOfficeHas) {
  design_->Insert(u"FondsDefine"_s, u"FondsNo,FondsName"_s, {u"J012"_s, u"市档案局"_s});
  TransferSettings settings(Connected());
  EXPECT_EQ(Samples(settings), QStringList({u"J012"_s, u"2002"_s, u"1"_s}));
}

TEST_P(ExampleTest, ADictionaryGivesItsFirstEntry) {
  design_->Run(u"update DynamicWindows set AuxiDictDetails = '年度表' where FieldName = 'DocYear'"_s);
  design_->Insert(u"AssistantDictionary"_s, u"DicID,Name"_s, {u"d"_s, u"年度表"_s});
  design_->Insert(u"AssistantDicKey"_s, u"DicID,Name,KeyCode,Note"_s, {u"d"_s, u"二〇〇三"_s, u"03"_s, u"2"_s});
  design_->Insert(u"AssistantDicKey"_s, u"DicID,Name,KeyCode,Note"_s, {u"d"_s, u"二〇〇二"_s, u"02"_s, u"1"_s});
  TransferSettings settings(Connected());
  EXPECT_EQ(Samples(settings)[1], u"二〇〇二"_s);
  NumberFormat format = settings.FormatOf(u"Wenshu"_s);
  format.parts[1].showsCode = true;
  EXPECT_EQ(ExampleNumber(format, {u"J012"_s, u"二〇〇二"_s, u"7"_s}), u"J012-0002-0007"_s);
}

TEST_P(ExampleTest, TheNumberIsThatOfATransfer) {
  TransferSettings settings(Connected());
  NumberFormat format = settings.FormatOf(u"Wenshu"_s);
  EXPECT_EQ(ExampleNumber(format, {u"J012"_s, u"2002"_s, u"7"_s}), u"J012-2002-0007"_s);
  EXPECT_EQ(ExampleFolder(format, {u"J012"_s, u"2002"_s, u"7"_s}), u"J012-2002"_s);
  format.parts[0].separator.clear();
  EXPECT_EQ(ExampleNumber(format, {u"J012"_s, u"2002"_s, u"7"_s}), u"012-2002-0007"_s);
  format.parts[1].length = u"many"_s;
  EXPECT_EQ(ExampleNumber(format, {u"J012"_s, u"2002"_s, u"7"_s}), u"012--0007"_s);
}

TEST_P(ExampleTest, WithoutSamplesOneStands) {
  TransferSettings settings(Connected());
  EXPECT_EQ(Samples(settings), QStringList({u"1"_s, u"2002"_s, u"1"_s}));
}

}  // namespace
}  // namespace folvane::test
