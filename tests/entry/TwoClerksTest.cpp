#include "InputFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// A record that another clerk, on a connection of his own, changes while it is being edited.
class TwoClerksTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    AddRecords(2);
    Design({u"Amaintitle"_s, u"题名"_s});
    Design({u"DocNo"_s, u"文号"_s});
    other_ = Database().Connect();
  }
  void OtherSaves(const QString& column, const QString& value) {
    Recordset records;
    records.Open(u"Select * From Lwdj Where ArchiveID = '"_s + Key(1) + u"'"_s, other_);
    records[column].SetValue(value);
    records.UpdateBatch();
  }
  QString Stored(const QString& column) {
    return Value(u"select "_s + column + u" from Lwdj where ArchiveID = '"_s + Key(1) + u"'"_s);
  }

  std::shared_ptr<folvane::Connection> other_;
};

TEST_P(TwoClerksTest, KeepsWhatWasTypedWhenTheOtherHasChangedTheRecord) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    boxes_.Answer(Answer::No);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Last().text.startsWith(
        u"当前数据保存失败，原因在于：该记录已被其他用户修改！\r\n您输入的内容仍保留在界面上"_s));
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"我的题名"_s);
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"对方题名"_s);
    input.AwaitEditing();
    input.Do(u"CancelRecord"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"对方题名"_s);
  });
}

TEST_P(TwoClerksTest, ShowsWhatTheOtherHasSaved) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    OtherSaves(u"DocNo"_s, QString());
    boxes_.Answer(Answer::Yes).Answer(Answer::No);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Last().text.contains(u"题名：对方题名（您的内容：我的题名）"_s));
    EXPECT_TRUE(boxes_.Last().text.contains(u"文号：（空）\r\n"_s)) << "was not changed here";
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"对方题名"_s);
    input.Form().CancelEdit();
  });
}

TEST_P(TwoClerksTest, SavesOverTheOtherOnlyWhatWasChangedHere) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    OtherSaves(u"DocNo"_s, u"对方文号"_s);
    boxes_.Answer(Answer::Yes).Answer(Answer::Yes);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"我的题名"_s);
    EXPECT_EQ(Stored(u"DocNo"_s), u"对方文号"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"对方文号"_s);
    EXPECT_EQ(input.Work(), u"准备就绪"_s);
  });
}

TEST_P(TwoClerksTest, KeepsWhatWasTypedWhenTheOtherHasDeletedTheRecord) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    other_->Execute(u"Delete From Lwdj Where ArchiveID = '"_s + Key(1) + u"'"_s);
    boxes_.Answer(Answer::Ok);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Last().text.startsWith(u"当前数据保存失败，原因在于：该记录已被其他用户删除！"_s));
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"我的题名"_s);
    input.Form().CancelEdit();
    input.Do(u"Next_R"_s);
    input.Retype(u"Txt(1)"_s, u"别的"_s);
    EXPECT_TRUE(input.Form().SaveData()) << "nothing of the lost record is in the way";
  });
  EXPECT_EQ(Value(u"select count(*) from Lwdj where Amaintitle = '别的'"_s), u"1"_s);
}

TEST_P(TwoClerksTest, TellsBeforeADeletionWhatTheOtherHasChanged) {
  InWindow([&](const Input& input) {
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    boxes_.Answer(Answer::No);
    input.Do(u"DelRecord"_s);
    EXPECT_EQ(boxes_.Last().text, u"确实要删除当前的记录及相关原文吗？"_s);
    EXPECT_EQ(boxes_.Last().note, u"其他用户刚刚修改了该记录：题名。界面上显示的是修改后的内容。"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"对方题名"_s);
    boxes_.Answer(Answer::Yes);
    input.Do(u"DelRecord"_s);
    EXPECT_EQ(boxes_.Last().note, QString());
  });
  EXPECT_EQ(Value(u"select count(*) from Lwdj"_s), u"1"_s);
}

TEST_P(TwoClerksTest, AsksAgainWhenTheRecordIsChangedWhileTheQuestionStands) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    WhileBoxStands(2, [&] { OtherSaves(u"Amaintitle"_s, u"第三人题名"_s); });
    boxes_.Answer(Answer::Yes).Answer(Answer::Yes).Answer(Answer::Yes).Answer(Answer::No);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_EQ(boxes_.Requests().size(), 4u);
    EXPECT_TRUE(boxes_.Last().text.contains(u"题名：第三人题名（您的内容：我的题名）"_s));
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"第三人题名"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"我的题名"_s);
    boxes_.Answer(Answer::Yes).Answer(Answer::Yes);
    EXPECT_TRUE(input.Form().SaveData()) << "what is overwritten has been shown";
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"我的题名"_s);
  });
}

TEST_P(TwoClerksTest, ShowsAllThatOthersHaveChangedWhenItAsksAgain) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    input.Retype(u"Txt(2)"_s, u"我的文号"_s);
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    WhileBoxStands(2, [&] { OtherSaves(u"DocNo"_s, u"第三人文号"_s); });
    boxes_.Answer(Answer::Yes).Answer(Answer::Yes).Answer(Answer::Yes).Answer(Answer::No);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Last().text.contains(
        u"题名：对方题名（您的内容：我的题名）\r\n文号：第三人文号（您的内容：我的文号）"_s));
    input.Form().CancelEdit();
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"第三人文号"_s);
  });
}

TEST_P(TwoClerksTest, TellsThatTheRecordIsGoneWhenItIsDeletedWhileTheQuestionStands) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    WhileBoxStands(2, [&] { other_->Execute(u"Delete From Lwdj Where ArchiveID = '"_s + Key(1) + u"'"_s); });
    boxes_.Answer(Answer::Yes).Answer(Answer::Yes).Answer(Answer::Ok);
    EXPECT_FALSE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Last().text.startsWith(u"当前数据保存失败，原因在于：该记录已被其他用户删除！"_s));
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"我的题名"_s);
    input.Form().CancelEdit();
  });
  EXPECT_EQ(Value(u"select count(*) from Lwdj"_s), u"1"_s);
}

TEST_P(TwoClerksTest, AsksBeforeEverySaveUntilTheUserAgrees) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    OtherSaves(u"Amaintitle"_s, u"对方题名"_s);
    for (int attempt = 0; attempt < 2; ++attempt) {
      boxes_.Answer(Answer::Yes).Answer(Answer::No);
      EXPECT_FALSE(input.Form().SaveData());
      EXPECT_EQ(Stored(u"Amaintitle"_s), u"对方题名"_s);
    }
    input.Retype(u"Txt(1)"_s, u"再改"_s);
    boxes_.Answer(Answer::Yes).Answer(Answer::Yes);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Last().text.contains(u"题名：对方题名（您的内容：再改）"_s));
    boxes_.Clear();
    input.Retype(u"Txt(1)"_s, u"又改"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_TRUE(boxes_.Requests().empty()) << "it is settled";
  });
}

TEST_P(TwoClerksTest, TellsOfARecordThatIsGoneBeforeItIsDeleted) {
  InWindow([&](const Input& input) {
    other_->Execute(u"Delete From Lwdj Where ArchiveID = '"_s + Key(1) + u"'"_s);
    boxes_.Answer(Answer::Yes).Answer(Answer::Ok);
    input.Do(u"DelRecord"_s);
    EXPECT_EQ(boxes_.Last().text, u"该记录已被其他用户修改或删除，未能保存。"_s);
    input.Do(u"Next_R"_s);
    boxes_.Answer(Answer::Yes);
    input.Do(u"DelRecord"_s);
    EXPECT_EQ(Value(u"select count(*) from Lwdj"_s), u"0"_s);
  });
}

TEST_P(TwoClerksTest, NeedsNoQuestionWhereBothChangedDifferentFields) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"我的题名"_s);
    OtherSaves(u"DocNo"_s, u"对方文号"_s);
    EXPECT_TRUE(input.Form().SaveData());
    EXPECT_EQ(Stored(u"Amaintitle"_s), u"我的题名"_s);
    EXPECT_EQ(Stored(u"DocNo"_s), u"对方文号"_s);
  });
  EXPECT_TRUE(boxes_.Requests().empty());
}

FOLVANE_ON_EACH_DATABASE(TwoClerksTest);

}  // namespace
}  // namespace folvane::test
