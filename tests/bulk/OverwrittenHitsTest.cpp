#include <gmock/gmock.h>

#include "bulk/ReplaceWindowFixture.h"

namespace folvane::test {
namespace {

/// What the window that finds and replaces overwrites, and what it tells of it.
class OverwrittenHitsTest : public ReplaceWindowTest {};

FOLVANE_ON_EACH_DATABASE(OverwrittenHitsTest);

TEST_P(OverwrittenHitsTest, ReplaceOverwritesTheHitOfTheCurrentRecordInTheTableOnly) {
  AddRecords(2);
  Title(1, u"xaby"_s);
  Title(2, u"xaby"_s);
  WithReplace([&](const Input& input, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"ab"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"Z"_s);
    replacing.Do(u"CmdReplace"_s);
    EXPECT_EQ(TitleOf(1), u"Z"_s);
    EXPECT_EQ(TitleOf(2), u"xaby"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"xaby"_s);
    EXPECT_EQ(SelectedIn(input, u"Txt(1)"_s), u"ab"_s);
    EXPECT_EQ(replacing.Status(), u"已替换的记录：1条，重新读取后显示新值"_s);
  });
}

TEST_P(OverwrittenHitsTest, ReplaceAllOverwritesTheHitsOfItsWayAndTellsTheirNumberBeforeAndAfter) {
  AddRecords(4);
  WithReplace(
      [&](const Input& input, const Replacing& replacing) {
        replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
        replacing.Enter(u"CboRelaceTxt"_s, u"a[b"_s);
        replacing.Choose(u"CboFx"_s, 2);
        EXPECT_TRUE(WaitUntil([&] { return replacing.Status() == u"符合条件的记录：3条"_s; }));
        replacing.Do(u"CmdReplaceAll"_s);
        EXPECT_EQ(replacing.Status(), u"已替换的记录：3条，重新读取后显示新值"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第2条/共4条"_s);
      },
      2);
  EXPECT_EQ((QStringList{TitleOf(1), TitleOf(2), TitleOf(4)}), (QStringList{u"题名1"_s, u"a[b"_s, u"a[b"_s}));
}

TEST_P(OverwrittenHitsTest, TellsHowManyHitsCouldNotBeWrittenAndWhy) {
  AddRecords(3);
  Run(u"create unique index OneTitle on Lwdj (Amaintitle)"_s);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"同名"_s);
    replacing.Do(u"CmdReplaceAll"_s);
    EXPECT_EQ(replacing.Status(),
              u"已替换的记录：1条，重新读取后显示新值\n未能写入的记录：2条，字段“题名”的值已经存在。"_s);
  });
  EXPECT_EQ((QStringList{TitleOf(1), TitleOf(2)}), (QStringList{u"同名"_s, u"题名2"_s}));
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(OverwrittenHitsTest, TellsThatTheReplacementIsTooLong) {
  AddRecords(2);
  Design({u"FondsNo"_s, u"全宗号"_s});
  Run(u"update Lwdj set FondsNo = '01'"_s);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Do(u"OptField"_s);
    replacing.Choose(u"CboField"_s, 3);
    replacing.Enter(u"CboFindTxt"_s, u"01"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"五字全宗号"_s);
    replacing.Do(u"CmdReplaceAll"_s);
    EXPECT_EQ(replacing.Status(),
              u"已替换的记录：0条\n未能写入的记录：2条，字段“全宗号”的值太长：有 10 个字节，最多 4 个字节。"_s);
  });
}

TEST_P(OverwrittenHitsTest, TellsThatTheCurrentRecordCouldNotBeWritten) {
  AddRecords(2);
  Run(u"create unique index OneTitle on Lwdj (Amaintitle)"_s);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"题名2"_s);
    replacing.Do(u"CmdReplace"_s);
    EXPECT_EQ(replacing.Status(), u"已替换的记录：0条\n未能写入的记录：1条，字段“题名”的值已经存在。"_s);
  });
}

TEST_P(OverwrittenHitsTest, AQuoteInTheReplacementReplacesNothingAndShowsNoBox) {
  AddRecords(2);
  WithReplace([&](const Input&, const Replacing& replacing) {
    replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
    replacing.Enter(u"CboRelaceTxt"_s, u"it's"_s);
    replacing.Do(u"CmdReplace"_s);
    replacing.Do(u"CmdReplaceAll"_s);
    EXPECT_TRUE(replacing.Status().startsWith(u"已替换的记录：0条\n未能写入的记录：2条，"_s));
  });
  EXPECT_EQ(TitleOf(1), u"题名1"_s);
  EXPECT_TRUE(boxes_.Requests().empty());
}

}  // namespace
}  // namespace folvane::test
