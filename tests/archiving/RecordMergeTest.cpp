#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "archiving/MergeFixture.h"
#include "archiving/RecordMerge.h"
#include "base/TypedValues.h"
#include "data/Recordset.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class RecordMergeTest : public MergeTest {
 protected:
  void SetUp() override {
    MergeTest::SetUp();
    design_->AddRecords(u"Lwdj"_s, 4);
    design_->AddRecords(u"Fwdj"_s, 2);
    design_->Run(u"update Lwdj set FileStatus='需归档', Note='旧'"_s);
    log_->Take();
  }
  void Merge(const std::vector<int>& records, int target = 1, const QString& table = u"Lwdj"_s) {
    RecordMerge merge(table, Key(target));
    QStringList keys;
    for (const int record : records) keys << Key(record);
    merge.Merge(keys, [this](int done, int total) { progress_ << u"%1/%2"_s.arg(done).arg(total); });
    outcome_ = merge.Outcome();
  }

  QStringList progress_;
  QString outcome_;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(RecordMergeTest);

TEST_P(RecordMergeTest, RunsTheseStatementsForEachRecord) {
  AddOriginal(1, 2);
  AddOriginal(3, 1);
  AddOriginal(3, 4);
  log_->Take();
  Merge({3});
  EXPECT_THAT(
      log_->Take(),
      ElementsAre(
          u"Select Max(FileOrder) From Original_Text Where RecordID = '"_s + Key(1) + u"'"_s,
          u"Update Lwdj Set FileStatus = '不归档' Where ArchiveID = '"_s + Key(3) + u"'"_s,
          u"Select FieldName From DynamicWindows Where TableName = 'Lwdj' And FieldName = 'Note'"_s,
          u"Update Lwdj Set Note = Note + '已合并件' Where ArchiveID = '"_s + Key(3) + u"'"_s,
          u"Select * From Original_Text Where RecordID = '"_s + Key(3) + u"' Order By FileOrder"_s,
          u"Insert Into Original_Text Select ID,Original_Name+'<合并件>',Type,'"_s + Key(1) +
              u"',Size,4,FilePath From Original_Text Where RecordID = '"_s + Key(3) + u"' And FileOrder = '1'"_s,
          u"Insert Into Original_Text Select ID,Original_Name+'<合并件>',Type,'"_s + Key(1) +
              u"',Size,7,FilePath From Original_Text Where RecordID = '"_s + Key(3) + u"' And FileOrder = '4'"_s));
}

TEST_P(RecordMergeTest, TheRecordThatStaysGetsTheOriginalsAndTheOthersKeepTheirs) {
  AddOriginal(1, 2);
  AddOriginal(3, 1);
  AddOriginal(3, 4);
  design_->Run(u"update Original_Text set FilePath='2002/甲', Size=77 where ID='3-4'"_s);
  Merge({3});
  EXPECT_THAT(OriginalsOf(1), ElementsAre(u"2 1-2 正文1-2"_s, u"4 3-1 正文3-1<合并件>"_s, u"7 3-4 正文3-4<合并件>"_s));
  EXPECT_THAT(OriginalsOf(3), ElementsAre(u"1 3-1 正文3-1"_s, u"4 3-4 正文3-4"_s));
  EXPECT_EQ(design_->Value(u"select FilePath from Original_Text where RecordID='"_s + Key(1) + u"' and ID='3-4'"_s),
            u"2002/甲"_s)
      << "the stored file is shared";
  EXPECT_EQ(design_->Value(u"select Size from Original_Text where RecordID='"_s + Key(1) + u"' and ID='3-4'"_s),
            u"77"_s);
}

TEST_P(RecordMergeTest, AMergedRecordIsNoLongerArchivedAndNothingIsDeleted) {
  Merge({2, 4});
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj"_s), u"4"_s);
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where FileStatus = '需归档'"_s), u"2"_s);
  EXPECT_EQ(StatusOf(2), u"不归档"_s);
  EXPECT_EQ(StatusOf(4), u"不归档"_s);
  EXPECT_EQ(NoteOf(2), u"旧已合并件"_s);
  EXPECT_EQ(NoteOf(1), u"旧"_s);
  EXPECT_EQ(outcome_, u"已将 2 份记录合并一件"_s);
  EXPECT_THAT(progress_, ElementsAre(u"0/2"_s, u"1/2"_s));
}

TEST_P(RecordMergeTest, AKeyWithAQuoteIsThatOfItsRecordAndOfItsOriginals) {
  AddOriginal(2, 1);
  design_->Run(u"update Lwdj set ArchiveID='o''x' where ArchiveID='"_s + Key(2) + u"'"_s);
  design_->Run(u"update Original_Text set RecordID='o''x'"_s);
  RecordMerge(u"Lwdj"_s, Key(1)).Merge({u"o'x"_s}, [](int, int) {});
  EXPECT_EQ(design_->Value(u"select FileStatus from Lwdj where ArchiveID='o''x'"_s), u"不归档"_s);
  EXPECT_EQ(design_->Value(u"select Note from Lwdj where ArchiveID='o''x'"_s), u"旧已合并件"_s);
  EXPECT_THAT(OriginalsOf(1), ElementsAre(u"2 2-1 正文2-1<合并件>"_s));
}

TEST_P(RecordMergeTest, ANoteOfNullStaysNull) {
  design_->Run(u"update Lwdj set Note=null"_s);
  Merge({2});
  EXPECT_EQ(NoteOf(2), u"<null>"_s);
}

TEST_P(RecordMergeTest, ATableWithoutANoteGetsNone) {
  Merge({2}, 1, u"Fwdj"_s);
  EXPECT_EQ(StatusOf(2, u"Fwdj"_s), u"不归档"_s);
  EXPECT_EQ(log_->Take().filter(u"Note +"_s), QStringList());
}

TEST_P(RecordMergeTest, ASurvivorWithoutOriginalsStartsAtOnePlusTheOldOrder) {
  AddOriginal(2, 3);
  EXPECT_EQ(RecordMerge(u"Lwdj"_s, Key(1)).NextFileOrder(), 1);
  Merge({2});
  EXPECT_THAT(OriginalsOf(1), ElementsAre(u"4 2-3 正文2-3<合并件>"_s));
}

TEST_P(RecordMergeTest, ASurvivorWhoseOrdersAreUsedUpTakesNoMoreOriginals) {
  for (const int last : {32767, 2147483647}) {
    AddOriginal(1, last);
    EXPECT_THROW(RecordMerge(u"Lwdj"_s, Key(1)).NextFileOrder(), NumberError) << last;
  }
  AddOriginal(2, 32766);
  EXPECT_EQ(RecordMerge(u"Lwdj"_s, Key(2)).NextFileOrder(), 32767);
}

TEST_P(RecordMergeTest, TheShiftIsTheSameForAllSoThatOrdersMayMeet) {
  AddOriginal(2, 1);
  AddOriginal(3, 1);
  Merge({2, 3});
  EXPECT_THAT(OriginalsOf(1), ElementsAre(u"2 2-1 正文2-1<合并件>"_s, u"2 3-1 正文3-1<合并件>"_s));
}

TEST_P(RecordMergeTest, AnOriginalThatIsRefusedIsPassedOverAndTheRecordMergedAllTheSame) {
  AddOriginal(2, 1);
  AddOriginal(2, 2);
  design_->Run(u"create unique index OneName on Original_Text (Original_Name)"_s);
  design_->Insert(u"Original_Text"_s, u"ID,Original_Name,RecordID,FileOrder"_s,
                  {u"x"_s, u"正文2-1<合并件>"_s, Key(9), u"1"_s});
  Merge({2});
  EXPECT_EQ(StatusOf(2), u"不归档"_s);
  EXPECT_THAT(OriginalsOf(1), ElementsAre(u"3 2-2 正文2-2<合并件>"_s));
  EXPECT_TRUE(outcome_.startsWith(u"已将 1 份记录合并一件；1 件原文没有复制："_s)) << qPrintable(outcome_);
}

TEST_P(RecordMergeTest, AnotherErrorEndsItAndWhatWasDoneStays) {
  RecordMerge merge(u"Lwdj"_s, Key(1));
  log_.reset();
  {
    const LockedStatement locked(*Connected(), 5);  // the second record's status
    EXPECT_THROW(merge.Merge({Key(2), Key(3), Key(4)}, [](int, int) {}), DataError);
    EXPECT_TRUE(locked.WasRun());
  }
  EXPECT_EQ(merge.Merged(), 1);
  EXPECT_EQ(merge.Outcome(), u"已将 1 份记录合并一件"_s);
  EXPECT_EQ(StatusOf(2), u"不归档"_s);
  EXPECT_EQ(StatusOf(3), u"需归档"_s);
  EXPECT_EQ(StatusOf(4), u"需归档"_s);
}

TEST_P(RecordMergeTest, TheSameAgainAfterAnErrorDoesTheRestAlone) {
  AddOriginal(2, 1);
  AddOriginal(3, 1);
  const QStringList keys{Key(2), Key(3), Key(4)};
  const auto silent = [](int, int) {};
  for (const int statement : {2, 4, 6, 7, 8}) {
    design_->Run(u"delete from Original_Text where RecordID='"_s + Key(1) + u"'"_s);
    design_->Run(u"update Lwdj set FileStatus='需归档', Note='旧'"_s);
    RecordMerge merge(u"Lwdj"_s, Key(1));
    log_.reset();
    {
      const LockedStatement locked(*Connected(), statement);
      EXPECT_THROW(merge.Merge(keys, silent), DataError) << statement;
      ASSERT_TRUE(locked.WasRun()) << statement;
    }
    merge.Merge(keys, silent);
    EXPECT_EQ(merge.Outcome(), u"已将 3 份记录合并一件"_s) << statement;
    EXPECT_THAT(OriginalsOf(1), ElementsAre(u"2 2-1 正文2-1<合并件>"_s, u"2 3-1 正文3-1<合并件>"_s)) << statement;
    for (const int record : {2, 3, 4}) EXPECT_EQ(NoteOf(record), u"旧已合并件"_s) << statement;
  }
}

TEST_P(RecordMergeTest, OriginalsThatShareAnOrderComeOnceEach) {
  for (const int record : {2, 3}) AddOriginal(record, 1);
  Merge({2, 3});
  Merge({1}, 4);
  EXPECT_THAT(OriginalsOf(4), ElementsAre(u"3 2-1 正文2-1<合并件><合并件>"_s, u"3 3-1 正文3-1<合并件><合并件>"_s));
}

TEST_P(RecordMergeTest, NothingTickedChangesNothing) {
  Merge({});
  EXPECT_EQ(log_->Take().size(), 1) << "only the order was asked for";
  EXPECT_EQ(outcome_, QString());
}

TEST_P(RecordMergeTest, AnOrderBeyondSixteenBitsIsAnError) {
  AddOriginal(1, 32767);
  EXPECT_THROW(RecordMerge(u"Lwdj"_s, Key(1)), NumberError);
}

TEST_P(RecordMergeTest, AnOriginalWithoutAnOrderIsNotCopied) {
  AddOriginal(2, 1);
  AddOriginal(2, 2);
  design_->Run(u"update Original_Text set FileOrder=null where ID='2-1'"_s);
  Merge({2});
  EXPECT_THAT(OriginalsOf(1), ElementsAre(u"3 2-2 正文2-2<合并件>"_s));
  EXPECT_EQ(outcome_, u"已将 1 份记录合并一件；1 件原文没有复制：原文没有顺序号"_s);
}

TEST_P(RecordMergeTest, AnAlternativeInTheConditionDoesNotLetTheSurvivorIn) {
  const RecordMerge merge(u"Lwdj"_s, Key(1));
  Recordset found;
  found.Open(merge.SearchStatement(u"RegID = 2 Or RegID < 4"_s), Connected(), CursorType::Static, LockType::ReadOnly);
  EXPECT_EQ(found.RecordCount(), 3);
  merge.LeaveOutSurvivor(found);
  EXPECT_EQ(found.RecordCount(), 2);
  found.Find(u"ArchiveID = '"_s + Key(1) + u"'"_s);
  EXPECT_TRUE(found.EOF_());
}

TEST_P(RecordMergeTest, TheSearchLeavesTheSurvivorOut) {
  EXPECT_EQ(RecordMerge(u"Lwdj"_s, Key(1)).SearchStatement(u"RegID > 0"_s),
            u"Select * From Lwdj Where ArchiveID <> '"_s + Key(1) + u"' And RegID > 0"_s);
}

}  // namespace folvane::test
