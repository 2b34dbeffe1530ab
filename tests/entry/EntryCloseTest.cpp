#include <QLineEdit>

#include <folvane/ClsSaveCollect.h>

#include "InputFixture.h"

namespace folvane::test {
namespace {

constexpr int kOk = 1, kYes = 6, kNo = 7, kCancel = 2;

class EntryCloseTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    AddRecords(2);
    Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt, 0, u"文本型"_s, 50, true});
  }
  QString Title() { return Value(u"select Amaintitle from Lwdj where ArchiveID = '"_s + Key(1) + u"'"_s); }
};

TEST_P(EntryCloseTest, LeavesTheKeyOfTheRecordItStoodOn) {
  InWindow([](const Input& input) { input.Do(u"Next_R"_s); });
  EXPECT_EQ(tags_, (QStringList{u"<NULL>"_s, Key(2)}));
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(EntryCloseTest, LeavesNoKeyWithoutARecord) {
  Run(u"delete from Lwdj"_s);
  InWindow([](const Input&) {});
  EXPECT_EQ(tags_, QStringList{u"<NULL>"_s});
}

TEST_P(EntryCloseTest, AsksAboutAnEditAndSavesIt) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"改"_s);
    boxes_.Answer(kYes);
    input.Do(u"Close"_s);
    EXPECT_FALSE(input.Window().isVisible());
  });
  EXPECT_EQ(boxes_.Last().text, u"是否保存当前操作?"_s);
  EXPECT_EQ(boxes_.Last().flags, 67);
  EXPECT_EQ(boxes_.Last().title, u"收文登记  -  著录界面"_s);
  EXPECT_EQ(Title(), u"改"_s);
}

TEST_P(EntryCloseTest, DropsAnEditThatIsNotToBeSaved) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"改"_s);
    boxes_.Answer(kNo);
    input.Key(u"End"_s).trigger();
  });
  EXPECT_EQ(Title(), u"题名1"_s);
  EXPECT_EQ(Tag(), Key(1));
  EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
  EXPECT_NO_THROW(Shared().CurrentRecords.Requery());
}

TEST_P(EntryCloseTest, StaysOpenWhenTheQuestionIsCancelled) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"改"_s);
    boxes_.Answer(kCancel);
    input.Window().close();
    EXPECT_TRUE(input.Window().isVisible());
    EXPECT_EQ(Tag(), u"<NULL>"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"改"_s);
    boxes_.Answer(kNo);
  });
}

TEST_P(EntryCloseTest, StaysOpenWhenTheSaveIsRefused) {
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, QString());
    boxes_.Answer(kYes).Answer(kOk);
    input.Window().close();
    EXPECT_TRUE(input.Window().isVisible());
    EXPECT_EQ(Tag(), u"<NULL>"_s);
    EXPECT_EQ(input.Focused(), u"Txt(1)"_s);
    input.Retype(u"Txt(1)"_s, u"补"_s);
    boxes_.Answer(kYes);
  });
  EXPECT_EQ(Title(), u"补"_s);
  EXPECT_EQ(Tag(), Key(1));
}

TEST_P(EntryCloseTest, StaysOpenOverAValueThatItsColumnDoesNotTake) {
  Design({u"Pages"_s, u"页数"_s});
  InWindow([&](const Input& input) {
    Find<QLineEdit>(input.Window(), u"Txt(2)"_s).insert(u"多"_s);
    boxes_.Answer(kYes).Answer(kOk);
    input.Window().close();
    EXPECT_TRUE(input.Window().isVisible());
    EXPECT_EQ(boxes_.Last().flags, 16);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"多"_s);
    EXPECT_EQ(input.Focused(), u"Txt(2)"_s);
    boxes_.Answer(kNo);
    input.Window().close();
    EXPECT_FALSE(input.Window().isVisible());
  });
  EXPECT_EQ(Shared().CurrentRecords.PendingCount(), 0);
}

TEST_P(EntryCloseTest, DropsANewRecord) {
  InWindow(
      [&](const Input& input) {
        input.Retype(u"Txt(1)"_s, u"新"_s);
        boxes_.Answer(kNo);
      },
      true);
  EXPECT_EQ(Value(u"select count(*) from Lwdj"_s), u"2"_s);
  EXPECT_EQ(Shared().CurrentRecords.RecordCount(), 2);
  EXPECT_EQ(Tag(), Key(1));
}

TEST_P(EntryCloseTest, TellsThatTheDictionariesCannotBeWrittenAndCloses) {
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb});
  InWindow([&](const Input& input) {
    Run(u"drop table AssistantDicKey"_s);
    input.Window().close();
    EXPECT_FALSE(input.Window().isVisible());
  });
  EXPECT_EQ(boxes_.Requests().size(), 1u);
  EXPECT_EQ(Tag(), Key(1));
}

TEST_P(EntryCloseTest, LetsTheProofingRulesFindItsControlsOnlyWhileItIsOpen) {
  const ClsSaveCollect rules;
  EXPECT_EQ(rules.FindControl(1, ControlKind::Txt), nullptr);
  InWindow([&](const Input& input) {
    EXPECT_EQ(rules.FindControl(1, ControlKind::Txt), &input.Control(u"Txt(1)"_s));
    EXPECT_EQ(rules.FindControl(2, ControlKind::Txt), nullptr);
  });
  EXPECT_EQ(rules.FindControl(1, ControlKind::Txt), nullptr);
}

TEST_P(EntryCloseTest, IsClosedAgainWithoutAWord) {
  InWindow([&](const Input& input) {
    EXPECT_FALSE(input.Form().Shown().empty());
    input.Window().close();
    tags_.clear();
    EXPECT_TRUE(input.Window().close());
    EXPECT_TRUE(input.Form().Shown().empty());
  });
  EXPECT_TRUE(tags_.isEmpty());
  EXPECT_TRUE(boxes_.Requests().empty());
}

TEST_P(EntryCloseTest, ThrowsToTheCallerWhatFailsWhileItOpens) {
  OpenRecords();
  Run(u"drop table DynamicWindows"_s);
  DefaultInstance<FrmInput>::Get().CurrTable = u"Lwdj"_s;
  EXPECT_ANY_THROW(DefaultInstance<FrmInput>::Get().Open());
  EXPECT_FALSE(DefaultInstance<FrmInput>::Get().isVisible());
}

FOLVANE_ON_EACH_DATABASE(EntryCloseTest);

}  // namespace
}  // namespace folvane::test
