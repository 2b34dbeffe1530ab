#include <QMenu>
#include <gmock/gmock.h>

#include <folvane/HostServices.h>
#include <folvane/OriginalsRequest.h>

#include "InputFixture.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

/// The entry window on two records, with a component that remembers what it was asked.
class EntryOriginalsTest : public InputTest {
 protected:
  void SetUp() override {
    InputTest::SetUp();
    AddRecords(2);
    Design({u"Amaintitle"_s, u"题名"_s});
    Services().handleOriginals = [this](const OriginalsRequest& request) {
      told_ << request.recordId + u' ' + request.action + u' ' + request.fileId;
      return added_;
    };
  }

  QStringList told_;
  bool added_ = true;
};

FOLVANE_ON_EACH_DATABASE(EntryOriginalsTest);

TEST_P(EntryOriginalsTest, AddsToTheCurrentRecordAndSaysSo) {
  MessageBoxes boxes;
  InWindow([&](const Input& input) {
    input.Do(u"AddFile"_s);
    EXPECT_THAT(told_, ElementsAre(Key(1) + u" AddState "_s));
    EXPECT_EQ(boxes.Last().text, u"加载完毕！"_s);
    EXPECT_EQ(boxes.Last().title, u"提示"_s);
    EXPECT_EQ(boxes.Last().flags, 64);
    boxes.Clear();
    added_ = false;
    input.Do(u"AddFile"_s);
    EXPECT_THAT(boxes.Texts(), IsEmpty()) << "nothing was added";
  });
}

TEST_P(EntryOriginalsTest, SaysSoAfterAFailureToo) {
  MessageBoxes boxes;
  Services().handleOriginals = nullptr;
  InWindow([&](const Input& input) {
    input.Do(u"AddFile"_s);
    ASSERT_EQ(boxes.Texts().size(), 2);
    EXPECT_EQ(boxes.Texts().last(), u"加载完毕！"_s);
  });
}

TEST_P(EntryOriginalsTest, ManagesTheOriginalsOfTheCurrentRecord) {
  InWindow([&](const Input& input) { input.Do(u"BorrowFile"_s); }, false, 2);
  EXPECT_THAT(told_, ElementsAre(Key(2) + u"  "_s));
}

TEST_P(EntryOriginalsTest, ManagesNothingWhileTheRecordIsUnsaved) {
  MessageBoxes boxes;
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"改"_s);
    input.Do(u"BorrowFile"_s);
    EXPECT_EQ(boxes.Last().text, u"请先保存当前数据！"_s);
    EXPECT_EQ(boxes.Last().title, input.Window().windowTitle());
    EXPECT_EQ(boxes.Last().flags, 64);
    input.Do(u"CancelRecord"_s);
  });
  EXPECT_THAT(told_, IsEmpty());
}

TEST_P(EntryOriginalsTest, WithoutARecordThereIsNothingToAddTo) {
  Run(u"delete from Lwdj"_s);
  InWindow([&](const Input& input) {
    EXPECT_FALSE(input.On(u"AddFile"_s));
    EXPECT_FALSE(input.On(u"BorrowFile"_s));
  });
  EXPECT_THAT(told_, IsEmpty());
}

TEST_P(EntryOriginalsTest, TheKeyDropsTheEntriesDown) {
  InWindow([&](const Input& input) {
    EXPECT_TRUE(input.KeyOn(u"FileArea"_s));
    QStringList names;
    for (const QAction* entry : input.Key(u"FileArea"_s).menu()->actions()) names << entry->objectName();
    EXPECT_THAT(names, ElementsAre(u"AddFile"_s, u"BorrowFile"_s));
  });
}

TEST_P(EntryOriginalsTest, WhoMayNotLookAtOriginalsAddsNone) {
  Right(Parameter::LookFile, u"0"_s);
  InWindow([](const Input& input) {
    EXPECT_FALSE(input.KeyOn(u"FileArea"_s));
    EXPECT_FALSE(input.On(u"AddFile"_s));
    EXPECT_FALSE(input.On(u"BorrowFile"_s));
  });
}

}  // namespace
}  // namespace folvane::test
