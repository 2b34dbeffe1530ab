#include <sys/stat.h>

#include "components/originals/AddQueue.h"
#include "originalswork/WorkFixture.h"
#include "support/NoMoreFiles.h"

namespace folvane::test {
namespace {
using namespace originals;
using testing::ElementsAre;

class AddOriginalsTest : public WorkTest {};
FOLVANE_ON_EACH_DATABASE(AddOriginalsTest);

TEST_P(AddOriginalsTest, TheFileStandsInTheStoreUnderTheColumnsOfItsRow) {
  FixRandom({0.123456});
  const Original added = Added(u"正文.pdf"_s, "a document");
  EXPECT_EQ(added.id, u"20020304100000123456"_s);
  EXPECT_EQ(program_.Read(u"Data/2002/20020304100000123456.pdf"_s), "a document");
  const auto rows =
      Database().Rows(u"select ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath from Original_Text"_s);
  EXPECT_THAT(rows, ElementsAre(QStringList{added.id, u"正文"_s, u".pdf"_s, kRecord, u"10"_s, u"1"_s, u"2002"_s}));
}

TEST_P(AddOriginalsTest, EachIsPutBehindTheGreatestPlace) {
  design_->AddOriginal(kRecord, u"7"_s, u"旧"_s, 8);
  design_->AddOriginal(kOther, u"8"_s, u"别的"_s, 70);
  Added(u"甲.txt"_s);
  Added(u"乙.txt"_s);
  EXPECT_EQ(Names().mid(1), QStringList({u"甲.txt"_s, u"乙.txt"_s}));
  EXPECT_EQ(Originals().Read().back().order, 10);
}

TEST_P(AddOriginalsTest, QuotesAreKept) {
  Added(u"it's 'so'.txt"_s);
  EXPECT_EQ(Names(), QStringList(u"it's 'so'.txt"_s));
}

TEST_P(AddOriginalsTest, ATakenIdGivesAnotherTry) {
  program_.Write(u"Data/2002/20020304100000300000.txt"_s, "a file without a row");
  FixRandom({0.1, 0.1, 0.2, 0.3, 0.4});
  EXPECT_EQ(Added(u"a.txt"_s).id, u"20020304100000100000"_s);
  EXPECT_EQ(Added(u"b.pdf"_s).id, u"20020304100000200000"_s) << "whatever its ending";
  EXPECT_EQ(Added(u"c.txt"_s).id, u"20020304100000400000"_s) << "also that of a file without a row";
}

TEST_P(AddOriginalsTest, WhenEveryIdIsTakenThatIsTold) {
  FixRandom({0.5});
  Added(u"a.txt"_s);
  EXPECT_EQ(ErrorOf([&] { Added(u"b.txt"_s); }), u"无法为原文生成唯一的编号，请稍后再试。"_s);
}

TEST_P(AddOriginalsTest, WhatIsNoFileToKeepIsTold) {
  const auto problemOf = [&](const QString& path) {
    return ErrorOf([&] { Originals().Add(FileToAdd::At(path)); }).remove(program_.Path() + u"/in/"_s);
  };
  const QString pipe = Source(u"pipe"_s, "");
  QFile::remove(pipe);
  ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
  QFile huge(Source(u"huge"_s, ""));
  ASSERT_TRUE(huge.open(QFile::WriteOnly) && huge.resize((qint64(1) << 31)));
  EXPECT_EQ(problemOf(program_.Path(u"in/gone"_s)), u"文件 gone 不存在。"_s);
  EXPECT_EQ(problemOf(Source(u"empty"_s, "")), u"文件 empty 是空的，不能作为原文添加。"_s);
  EXPECT_TRUE(problemOf(program_.Path(u"in"_s)).endsWith(u"是文件夹，不能作为原文添加。"_s));
  EXPECT_EQ(problemOf(pipe), u"pipe 不是普通文件，不能作为原文添加。"_s);
  EXPECT_EQ(problemOf(huge.fileName()), u"文件 huge 超过 2 GB，不能作为原文添加。"_s);
  EXPECT_EQ(FileCount() + RowCount(), 0);
}

TEST_P(AddOriginalsTest, AStoreThatRefusesLeavesNeither) {
  auto originals = Watched(
      [](WatchedStore& store) { store.beforePut = [] { throw DataError(DataErrorKind::File, u"磁盘已满"_s); }; });
  EXPECT_EQ(ErrorOf([&] { originals.Add(FileToAdd::At(Source(u"a.txt"_s, "a"))); }), u"磁盘已满"_s);
  EXPECT_EQ(FileCount() + RowCount(), 0);
}

TEST_P(AddOriginalsTest, ADatabaseThatRefusesAnyStatementLeavesNeither) {
  for (int number = 1; number <= 3; ++number) {
    const LockedStatement locked(*Connected(), number);
    EXPECT_NE(ErrorOf([&] { Added(u"a.txt"_s); }), QString());
    EXPECT_TRUE(locked.WasRun());
    EXPECT_EQ(FileCount() + RowCount(), 0) << number;
  }
}

TEST_P(AddOriginalsTest, ABrokenOffTransferLeavesNeither) {
  auto originals = Originals();
  EXPECT_THROW(originals.Add(FileToAdd::At(Source(u"a.txt"_s, QByteArray(1 << 20, 'a'))),
                             [](qint64 done, qint64) { return done == 0; }),
               DataError);
  EXPECT_EQ(FileCount() + RowCount(), 0);
}

TEST_P(AddOriginalsTest, AFileThatChangesMeanwhileLeavesNeither) {
  const QString path = Source(u"a.txt"_s, "first");
  auto originals =
      Watched([&](WatchedStore& store) { store.afterPut = [&] { Source(u"a.txt"_s, "first and more"); }; });
  EXPECT_TRUE(ErrorOf([&] { originals.Add(FileToAdd::At(path)); }).endsWith(u"在读取时被修改，没有添加。"_s));
  EXPECT_EQ(FileCount() + RowCount(), 0);
}

TEST_P(AddOriginalsTest, AFileThatIsRemovedOnceItWasReadIsKept) {
  const QString path = Source(u"a.txt"_s, "first");
  auto originals = Watched([&](WatchedStore& store) { store.afterPut = [&] { QFile::remove(path); }; });
  EXPECT_EQ(Content(originals.Add(FileToAdd::At(path))), "first");
  EXPECT_EQ(Names(), QStringList(u"a.txt"_s));
}

TEST_P(AddOriginalsTest, AFileThatCannotBeOpenedIsTold) {
  const QString path = Source(u"a.txt"_s, "a");
  auto originals = Originals();
  QString problem;
  {
    const NoMoreFiles none;
    problem = ErrorOf([&] { originals.Add(FileToAdd::At(path)); });
  }
  EXPECT_TRUE(problem.startsWith(u"文件 %1 无法读取："_s.arg(path))) << problem.toStdString();
  EXPECT_EQ(FileCount() + RowCount(), 0);
}

TEST_P(AddOriginalsTest, AFileThatCannotBeTakenBackIsTold) {
  auto originals = Watched(
      [&](WatchedStore& store) { store.beforeRemove = [] { throw DataError(DataErrorKind::File, u"目录只读"_s); }; });
  const LockedStatement locked(*Connected(), 3);
  EXPECT_TRUE(ErrorOf([&] {
                originals.Add(FileToAdd::At(Source(u"a.txt"_s, "a")));
              }).endsWith(u"已存入的文件未能删除：目录只读"_s));
  EXPECT_EQ(RowCount(), 0);
}

TEST_P(AddOriginalsTest, ARowThatWasWrittenThoughTheAnswerWasLostKeepsItsFile) {
  const auto second = Database().Connect();
  Connected()->OnStatement([&](const QString& statement) {
    if (!statement.startsWith(u"Insert"_s)) return;
    second->Execute(statement);
    throw DataError(DataErrorKind::Lost, u"连接中断"_s);
  });
  const Original added = Added(u"a.txt"_s, "kept");
  Connected()->OnStatement({});
  EXPECT_EQ(Content(added), "kept");
  EXPECT_EQ(RowCount(), 1);
}

TEST_P(AddOriginalsTest, AFileStaysWhereNobodyCanTellWhetherItHasARow) {
  bool isLost = false;
  Connected()->OnStatement([&](const QString& statement) {
    isLost = isLost || statement.startsWith(u"Insert"_s);
    if (isLost) throw DataError(DataErrorKind::Lost, u"连接中断"_s);
  });
  EXPECT_EQ(ErrorOf([&] { Added(u"a.txt"_s); }), u"连接中断"_s);
  Connected()->OnStatement({});
  EXPECT_EQ(FileCount(), 1);
}

TEST_P(AddOriginalsTest, AQueueGoesOnAfterAFailure) {
  auto originals = Originals();
  AddQueue queue(originals);
  for (const QString& name : {u"a.txt"_s, u"gone.txt"_s, u"c.txt"_s}) queue.Append(FileToAdd::At(Source(name, "x")));
  queue.Append(FileToAdd::At(program_.Path(u"in/c.txt"_s)));  // again: listed once
  QFile::remove(program_.Path(u"in/gone.txt"_s));
  queue.Rename(0, u"改名"_s);
  queue.Run([](std::size_t) { return true; });
  EXPECT_EQ(Names(), QStringList({u"改名.txt"_s, u"c.txt"_s}));
  EXPECT_EQ(queue.Files().size(), 3u);
  EXPECT_TRUE(queue.Files()[1].StepText().startsWith(u"失败：文件 "_s));
  EXPECT_EQ(queue.Added(), 2);
  Source(u"gone.txt"_s, "back");
  queue.Run([](std::size_t) { return true; });
  EXPECT_EQ(Names().last(), u"gone.txt"_s) << "what failed is tried again, what was added is not";
  EXPECT_EQ(queue.Pending(), 0);
}

TEST_P(AddOriginalsTest, AQueueThatIsEndedKeepsTheOthersWaiting) {
  auto originals = Originals();
  AddQueue queue(originals);
  for (const QString& name : {u"a.txt"_s, u"b.txt"_s, u"c.txt"_s}) queue.Append(FileToAdd::At(Source(name, "x")));
  queue.Run([&](std::size_t index) { return index < 1; });
  EXPECT_EQ(queue.Files()[0].step, AddStep::Added);
  EXPECT_EQ(queue.Files()[1].step, AddStep::Cancelled);
  EXPECT_EQ(queue.Files()[2].step, AddStep::Waiting);
  EXPECT_EQ(FileCount(), 1);
}

}  // namespace
}  // namespace folvane::test
