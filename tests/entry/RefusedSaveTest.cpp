#include "RecordRoad.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// Records that the database does not take: what the user reads, and that nothing typed is lost.
class RefusedSaveTest : public RecordRoad {
 protected:
  void SetUp() override {
    RecordRoad::SetUp();
    AddRecords(2);
    DesignTitle();
    Design({u"DocNo"_s, u"文号"_s});
    Design({u"FondsNo"_s, u"全宗号"_s, ControlKind::Txt, 0, u"文本型"_s, 40});
  }
  static QString NewKey() { return Shared().CurrentRecords[u"ArchiveID"_s].Text(); }
  /// Another station takes the key that the new record has got, in the same second and with the same luck.
  void TakeKeyOfNewRecord() { Run(u"insert into Lwdj (ArchiveID,Amaintitle) values ('%1','对方')"_s.arg(NewKey())); }
};

TEST_P(RefusedSaveTest, NamesTheFieldThatIsTooLongWithBothLengthsAndGoesThere) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(3)"_s, u"五字全宗号"_s);
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().text, u"当前数据保存失败，原因在于：字段“全宗号”的值太长：有 10 个字节，最多 4 个字节。"_s);
    EXPECT_EQ(boxes_.Last().title, input.Window().windowTitle());
    EXPECT_EQ(boxes_.Last().note, u"您输入的内容仍保留在界面上。"_s);
    EXPECT_EQ(input.Focused(), u"Txt(3)"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"新题"_s);
    input.Retype(u"Txt(3)"_s, u"全宗"_s);
    EXPECT_TRUE(input.Form().SaveData());
  });
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"新题"_s);
}

TEST_P(RefusedSaveTest, SavesTheRestOfARecordThatHoldsAValueTooLongAlready) {
  Run(u"update Lwdj set FondsNo = '全宗号码'"_s);
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Requests().empty());
    input.Retype(u"Txt(3)"_s, u"全宗号码甲"_s);
    EXPECT_FALSE(input.Form().SaveData()) << "made longer";
    input.Form().CancelEdit();
  });
  EXPECT_EQ(Stored(u"Amaintitle"_s), u"新题"_s);
  EXPECT_EQ(Stored(u"FondsNo"_s), u"全宗号码"_s);
}

TEST_P(RefusedSaveTest, NamesTheFieldWhoseValueAnotherRecordHolds) {
  Run(u"create unique index OneNumber on Lwdj (DocNo)"_s);
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    input.Retype(u"Txt(2)"_s, u"文号2"_s);
    input.Control(u"Txt(1)"_s).setFocus();
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Last().text, u"当前数据保存失败，原因在于：字段“文号”的值“文号2”已经存在。"_s);
    EXPECT_TRUE(boxes_.Last().details.contains(u"数据库错误代码"_s));
    EXPECT_EQ(input.Focused(), u"Txt(2)"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"文号2"_s);
    input.Retype(u"Txt(2)"_s, u"文号3"_s);
    EXPECT_TRUE(input.Form().SaveData());
  });
  EXPECT_EQ(Stored(u"DocNo"_s), u"文号3"_s);
}

TEST_P(RefusedSaveTest, OffersANewKeyWhereAnotherStationHasTakenIt) {
  FixRandom({0.25, 0.75});
  InWindow(
      [&](const Input& input) {
        const QString taken = NewKey();
        TakeKeyOfNewRecord();
        input.Retype(u"Txt(1)"_s, u"我的"_s);
        boxes_.Answer(Answer::Yes);
        EXPECT_TRUE(input.Form().SaveData());
        EXPECT_TRUE(boxes_.Last().text.endsWith(u"\r\n是否换用新的关键字再次保存？"_s));
        EXPECT_NE(NewKey(), taken);
        EXPECT_EQ(input.Work(), u"准备就绪"_s);
      },
      true);
  EXPECT_EQ(Value(u"select count(*) from Lwdj where Amaintitle in ('我的','对方')"_s), u"2"_s);
}

TEST_P(RefusedSaveTest, KeepsTheNewRecordWhenNoNewKeyIsWanted) {
  FixRandom({0.25, 0.75});
  InWindow(
      [&](const Input& input) {
        TakeKeyOfNewRecord();
        input.Retype(u"Txt(1)"_s, u"我的"_s);
        boxes_.Answer(Answer::No);
        EXPECT_FALSE(input.Form().SaveData());
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"我的"_s);
        EXPECT_TRUE(input.KeyOn(u"SaveRecord"_s));
        input.Do(u"CancelRecord"_s);
      },
      true);
  EXPECT_EQ(Value(u"select count(*) from Lwdj where Amaintitle = '对方'"_s), u"1"_s);
}

FOLVANE_ON_EACH_DATABASE(RefusedSaveTest);

}  // namespace
}  // namespace folvane::test
