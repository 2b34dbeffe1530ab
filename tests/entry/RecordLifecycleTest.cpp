#include <folvane/DataError.h>

#include "EntryFixture.h"
#include "entry/RecordLifecycle.h"

namespace folvane::test {
namespace {

using Step = RecordLifecycle::Step;

/// Records 1 to 3 of Lwdj behind an entry form.
class RecordLifecycleTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    Run(u"insert into Lwdj (ArchiveID,Amaintitle) values ('1','一'),('2','二'),('3','三')"_s);
  }
  RecordLifecycle Opened(qint64 position) {
    EntryLayout layout;
    layout.FieldList.push_back({u"<无>"_s, {}, {}, false});
    layout.FieldList.push_back({u"Amaintitle"_s, u"文本型"_s, {}, false});
    return RecordLifecycle(OpenRecords(), {layout, {{}}, {u"Lwdj"_s, RegFormula::None, {}, {}, true}}, position);
  }
  static void Change(RecordLifecycle& lifecycle, const QString& title) {
    lifecycle.NoteChange();
    Shared().CurrentRecords[u"Amaintitle"_s].SetValue(title);
  }
  static QString Title() { return Shared().CurrentRecords[u"Amaintitle"_s].Text(); }
  QString Count() { return Value(u"select count(*) from Lwdj"_s); }
};

TEST_P(RecordLifecycleTest, OpensWhereTheRecordSetStood) {
  EXPECT_EQ(Opened(2).Position().position, 2);
  EXPECT_EQ(Opened(-1).Position().position, 1);
  EXPECT_EQ(Opened(9).Position().position, 3);
}

TEST_P(RecordLifecycleTest, IsModifiedFromTheFirstChangeOn) {
  RecordLifecycle lifecycle = Opened(1);
  EXPECT_TRUE(lifecycle.NoteChange());
  EXPECT_FALSE(lifecycle.NoteChange());
  EXPECT_EQ(lifecycle.State(), RecordState::Modify);
}

TEST_P(RecordLifecycleTest, StaysNewWhileItIsChanged) {
  RecordLifecycle lifecycle = Opened(1);
  lifecycle.StartNewRecord(false);
  EXPECT_FALSE(lifecycle.NoteChange());
  EXPECT_EQ(lifecycle.State(), RecordState::Add);
}

TEST_P(RecordLifecycleTest, IsNotModifiedWithoutARecord) {
  Run(u"delete from Lwdj"_s);
  RecordLifecycle lifecycle = Opened(1);
  EXPECT_FALSE(lifecycle.NoteChange());
  EXPECT_EQ(lifecycle.State(), RecordState::Browse);
}

TEST_P(RecordLifecycleTest, ReturnsFromANewRecordToTheOneBefore) {
  RecordLifecycle lifecycle = Opened(3);
  lifecycle.StartNewRecord(false);
  EXPECT_EQ(lifecycle.Position().count, 4);
  lifecycle.Cancel();
  EXPECT_EQ(Title(), u"三"_s);
  EXPECT_EQ(lifecycle.State(), RecordState::Browse);
  EXPECT_FALSE(lifecycle.IsPending());
}

TEST_P(RecordLifecycleTest, ReturnsToTheRecordThatWasSavedLast) {
  RecordLifecycle lifecycle = Opened(1);
  lifecycle.StartNewRecord(false);
  Change(lifecycle, u"四"_s);
  lifecycle.Write();
  lifecycle.StartNewRecord(false);
  lifecycle.Cancel();
  EXPECT_EQ(Title(), u"四"_s);
  EXPECT_EQ(Count(), u"4"_s);
}

TEST_P(RecordLifecycleTest, StandsOnTheRecordBeforeADeletedOneOrOnTheFirst) {
  RecordLifecycle lifecycle = Opened(2);
  lifecycle.Delete();
  EXPECT_EQ(Title(), u"一"_s);
  lifecycle.Delete();
  EXPECT_EQ(Title(), u"三"_s);
  lifecycle.Delete();
  EXPECT_FALSE(lifecycle.HasRow());
  EXPECT_TRUE(lifecycle.IsEmpty());
  EXPECT_EQ(Count(), u"0"_s);
  lifecycle.Delete();
}

TEST_P(RecordLifecycleTest, KeepsARecordThatTheDatabaseDoesNotDelete) {
  RecordLifecycle lifecycle = Opened(2);
  Run(u"delete from Lwdj where ArchiveID = '2'"_s);
  lifecycle.NoteChange();
  EXPECT_THROW(lifecycle.Delete(), DataError);
  EXPECT_EQ(Title(), u"二"_s);
  EXPECT_FALSE(lifecycle.IsPending());
  EXPECT_EQ(lifecycle.State(), RecordState::Browse);
}

TEST_P(RecordLifecycleTest, DropsAFirstRecordThatTheDatabaseRefused) {
  Run(u"delete from Lwdj"_s);
  Refuse(u"Lwdj"_s, u"insert"_s, u"new.ArchiveID <> ''"_s);
  RecordLifecycle lifecycle = Opened(1);
  lifecycle.StartNewRecord(false);
  EXPECT_THROW(lifecycle.Write(), DataError);
  EXPECT_EQ(lifecycle.State(), RecordState::Add);
  lifecycle.Cancel();
  EXPECT_FALSE(lifecycle.HasRow());
  EXPECT_FALSE(lifecycle.IsPending());
  EXPECT_EQ(lifecycle.State(), RecordState::Browse);
}

TEST_P(RecordLifecycleTest, CancelsWhatWaitsInAnotherRecordToo) {
  RecordLifecycle lifecycle = Opened(1);
  Shared().CurrentRecords[u"Amaintitle"_s].SetValue(u"新"_s);
  lifecycle.Move(Step::Next);
  EXPECT_EQ(Shared().CurrentRecords.EditMode(), EditModeKind::None);
  EXPECT_TRUE(lifecycle.IsPending());
  lifecycle.Cancel();
  EXPECT_FALSE(lifecycle.IsPending());
  lifecycle.Move(Step::First);
  EXPECT_EQ(Title(), u"一"_s);
}

TEST_P(RecordLifecycleTest, TellsOfAMoveThatLedNowhere) {
  RecordLifecycle lifecycle = Opened(2);
  EXPECT_TRUE(lifecycle.Move(Step::Next));
  EXPECT_FALSE(lifecycle.Move(Step::Next));
  EXPECT_EQ(Title(), u"三"_s);
  EXPECT_TRUE(lifecycle.Move(Step::First));
  EXPECT_FALSE(lifecycle.Move(Step::Previous));
  EXPECT_EQ(Title(), u"一"_s);
  EXPECT_TRUE(lifecycle.Move(Step::Last));
  EXPECT_EQ(Title(), u"三"_s);
}

TEST_P(RecordLifecycleTest, HasNowhereToGoWithoutARecord) {
  Run(u"delete from Lwdj"_s);
  RecordLifecycle lifecycle = Opened(1);
  for (const Step step : {Step::First, Step::Last, Step::Next, Step::Previous}) {
    EXPECT_TRUE(lifecycle.Move(step)) << "nothing to beep about";
    EXPECT_FALSE(lifecycle.HasRow());
  }
  lifecycle.ToggleCopyAll();
  EXPECT_FALSE(lifecycle.CopiesAll());
  lifecycle.Delete();
  lifecycle.MarkArchived();
  EXPECT_FALSE(lifecycle.IsPending());
  lifecycle.StartNewRecord(false);
  lifecycle.Cancel();
  EXPECT_FALSE(lifecycle.HasRow());
  EXPECT_EQ(Count(), u"0"_s);
}

TEST_P(RecordLifecycleTest, IsArchivedOnlyWhereTheTableSaysSo) {
  Run(u"update Lwdj set FileStatus = '需归档'"_s);
  RecordLifecycle lifecycle = Opened(1);
  lifecycle.MarkArchived();
  EXPECT_EQ(Value(u"select FileStatus from Lwdj where ArchiveID = '1'"_s), u"已归档"_s);
  EXPECT_THROW(lifecycle.MarkArchived(), DataError) << "somebody was first";
  Run(u"update Lwdj set FileStatus = '需归档' where ArchiveID = '1'"_s);
  lifecycle.MarkArchived();
  EXPECT_EQ(Value(u"select FileStatus from Lwdj where ArchiveID = '1'"_s), u"已归档"_s)
      << "a mark that was taken back is written again";
  Run(u"alter table Lwdj drop column FileStatus"_s);
  RecordLifecycle without = Opened(2);
  without.MarkArchived();
  EXPECT_FALSE(without.IsPending());
}

TEST_P(RecordLifecycleTest, ReturnsToTheRecordItWasMovedTo) {
  RecordLifecycle lifecycle = Opened(1);
  lifecycle.Move(Step::Last);
  lifecycle.StartNewRecord(false);
  lifecycle.Cancel();
  EXPECT_EQ(Title(), u"三"_s);
  Shared().CurrentRecords.SetAbsolutePosition(2);
  lifecycle.NoteMoved();
  lifecycle.StartNewRecord(false);
  lifecycle.Cancel();
  EXPECT_EQ(Title(), u"二"_s);
}

TEST_P(RecordLifecycleTest, CopiesARecordUntilItMoves) {
  RecordLifecycle lifecycle = Opened(2);
  lifecycle.ToggleCopyAll();
  lifecycle.StartNewRecord(false);
  EXPECT_EQ(Title(), u"二"_s);
  lifecycle.Write();
  EXPECT_TRUE(lifecycle.CopiesAll());
  lifecycle.Move(Step::First);
  EXPECT_FALSE(lifecycle.CopiesAll());
}

TEST_P(RecordLifecycleTest, CopiesNothingAnyMoreOnceThatIsTakenBack) {
  RecordLifecycle lifecycle = Opened(2);
  lifecycle.ToggleCopyAll();
  lifecycle.ToggleCopyAll();
  EXPECT_FALSE(lifecycle.CopiesAll());
  lifecycle.StartNewRecord(false);
  EXPECT_EQ(Title(), QString());
}

TEST_P(RecordLifecycleTest, WritesOverWhatAnotherHasMadeOfTheRecord) {
  RecordLifecycle lifecycle = Opened(1);
  Change(lifecycle, u"我的"_s);
  Run(u"update Lwdj set Amaintitle = '对方', DocNo = '对方文号' where ArchiveID = '1'"_s);
  EXPECT_THROW(lifecycle.Write(), DataError);
  EXPECT_EQ(lifecycle.State(), RecordState::Modify);
  EXPECT_EQ(Title(), u"我的"_s);
  EXPECT_EQ(lifecycle.TakeTheirs(), RecordLifecycle::Theirs::Changed);
  EXPECT_TRUE(lifecycle.Contested().contains(u"DocNo"_s, Qt::CaseInsensitive)) << "changed by the other alone";
  EXPECT_EQ(Title(), u"我的"_s);
  lifecycle.Write();
  EXPECT_TRUE(lifecycle.Contested().isEmpty());
  EXPECT_EQ(Value(u"select Amaintitle from Lwdj where ArchiveID = '1'"_s), u"我的"_s);
  EXPECT_EQ(Value(u"select DocNo from Lwdj where ArchiveID = '1'"_s), u"对方文号"_s);
  EXPECT_EQ(lifecycle.State(), RecordState::Browse);
}

TEST_P(RecordLifecycleTest, FollowsNothingThatIsOnlyLookedAt) {
  RecordLifecycle lifecycle = Opened(1);
  EXPECT_FALSE(lifecycle.Follow({ControlKind::Txt, u"DocNo"_s, u"〔2002〕17号"_s}));
  EXPECT_FALSE(lifecycle.IsPending());
}

FOLVANE_ON_EACH_DATABASE(RecordLifecycleTest);

}  // namespace
}  // namespace folvane::test
