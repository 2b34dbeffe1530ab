#include "originalswork/WorkFixture.h"
#include "support/FullDisk.h"

namespace folvane::test {
namespace {
using namespace originals;
using testing::ElementsAre;

class RecordOriginalsTest : public WorkTest {
 protected:
  std::vector<Original> AddThree() { return {Added(u"甲.txt"_s), Added(u"乙.txt"_s), Added(u"丙.txt"_s)}; }
  void Share(const Original& original, const QString& recordId) {
    design_->Insert(u"Original_Text"_s, u"ID,Original_Name,Type,RecordID,FilePath"_s,
                    {original.id, original.name, original.type, recordId, original.filePath});
  }
};
FOLVANE_ON_EACH_DATABASE(RecordOriginalsTest);

TEST_P(RecordOriginalsTest, ARenamedOriginalKeepsItsFile) {
  const Original added = Added(u"正文.txt"_s, "text");
  Originals().Rename(added, u"王's 正文"_s + QString(300, u'文'));
  EXPECT_TRUE(Names().front().startsWith(u"王's 正文文"_s));
  EXPECT_EQ(Content(added), "text");
}

TEST_P(RecordOriginalsTest, AnOriginalThatIsGoneIsNotRenamed) {
  const Original added = Added(u"正文.txt"_s);
  design_->Run(u"delete from Original_Text"_s);
  EXPECT_EQ(ErrorOf([&] { Originals().Rename(added, u"新"_s); }), u"原文“正文”已被其他用户删除。"_s);
}

TEST_P(RecordOriginalsTest, TheOrderIsWrittenForThoseThatHaveAnotherPlaceNow) {
  AddThree();
  const std::vector<Original> shown = Originals().Read();
  log_->Take();
  Originals().Reorder(Moved(shown, {1}, 0));
  EXPECT_EQ(Names(), QStringList({u"乙.txt"_s, u"甲.txt"_s, u"丙.txt"_s}));
  const QString update = u"Update Original_Text Set FileOrder = %1 Where ID = '%2' And RecordID = '%3'"_s;
  EXPECT_THAT(log_->Take().mid(0, 2),
              ElementsAre(update.arg(1).arg(shown[1].id, kRecord), update.arg(2).arg(shown[0].id, kRecord)));
}

TEST_P(RecordOriginalsTest, AnOrderThatCannotBeWrittenWholeIsNotWritten) {
  AddThree();
  {
    const LockedStatement locked(*Connected(), 3);
    EXPECT_THROW(Originals().Reorder(Moved(Originals().Read(), {2}, 0)), DataError);
    EXPECT_TRUE(locked.WasRun());
  }
  EXPECT_EQ(Names(), QStringList({u"甲.txt"_s, u"乙.txt"_s, u"丙.txt"_s}));
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(RecordOriginalsTest, AnOrderJoinsATransactionOfTheHost) {
  AddThree();
  Connected()->BeginTrans();
  Originals().Reorder(Moved(Originals().Read(), {2}, 0));
  Connected()->RollbackTrans();
  EXPECT_EQ(Names(), QStringList({u"甲.txt"_s, u"乙.txt"_s, u"丙.txt"_s}));
}

TEST_P(RecordOriginalsTest, MovedRowsKeepTheirOrder) {
  std::vector<Original> five(5);
  for (int i = 0; i < 5; ++i) five[std::size_t(i)].order = i;
  const auto orders = [&](const std::vector<int>& rows, int before) {
    std::vector<int> numbers;
    for (const Original& original : Moved(five, rows, before)) numbers.push_back(original.order);
    return numbers;
  };
  EXPECT_THAT(orders({1, 3}, 0), ElementsAre(1, 3, 0, 2, 4));
  EXPECT_THAT(orders({0, 2}, 5), ElementsAre(1, 3, 4, 0, 2));
  EXPECT_THAT(orders({2}, 2), ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(orders({0, 4}, 3), ElementsAre(1, 2, 0, 4, 3));
}

TEST_P(RecordOriginalsTest, ADeletedOriginalIsGoneWithItsFile) {
  const std::vector<Original> three = AddThree();
  log_->Take();
  Originals().Delete(three[1]);
  EXPECT_THAT(log_->Take(), testing::Contains(u"Delete From Original_Text Where ID = '%1' And RecordID = '%2'"_s.arg(
                                three[1].id, kRecord)));
  EXPECT_EQ(Names(), QStringList({u"甲.txt"_s, u"丙.txt"_s}));
  EXPECT_EQ(FileCount(), 2);
}

TEST_P(RecordOriginalsTest, ASharedFileGoesWithItsLastRow) {
  const Original added = Added(u"正文.txt"_s, "shared");
  Share(added, kOther);
  Originals().Delete(added);
  EXPECT_EQ(Content(added), "shared");
  Originals(kOther).Delete(added);
  EXPECT_EQ(FileCount() + RowCount(), 0);
}

TEST_P(RecordOriginalsTest, AnExportIsWholeOrNotThere) {
  const Original added = Added(u"正文.txt"_s, QByteArray(1 << 20, 'x'));
  const QString path = program_.Path(u"out.txt"_s);
  EXPECT_THROW(Originals().Export(added, path, [](qint64 done, qint64) { return done == 0; }), DataError);
  EXPECT_FALSE(QFile::exists(path));
  Originals().Export(added, path);
  EXPECT_EQ(program_.Read(u"out.txt"_s).size(), 1 << 20);
  EXPECT_TRUE(ErrorOf([&] { Originals().Export(added, program_.Path(u"none/out.txt"_s)); }).contains(u"无法写入"_s));
}

TEST_P(RecordOriginalsTest, AnExportOntoAFullDiskIsTold) {
  const Original added = Added(u"正文.txt"_s, "a few bytes");
  const QString path = program_.Path(u"out.txt"_s);
  QString problem;
  {
    const FullDisk full(4);
    problem = ErrorOf([&] { Originals().Export(added, path); });
  }
  EXPECT_TRUE(problem.startsWith(u"文件 %1 无法写入："_s.arg(path))) << problem.toStdString();
  EXPECT_FALSE(QFile::exists(path));
}

TEST_P(RecordOriginalsTest, AFileThatTheDeletionDoesNotReachIsTold) {
  const std::vector<Original> three = AddThree();
  EXPECT_FALSE(Originals().Delete(three[0]));
  Shared().OriginalRoot = program_.Path(u"elsewhere"_s);
  EXPECT_TRUE(Originals().Delete(three[1]));
  EXPECT_EQ(Names(), QStringList(u"丙.txt"_s));
  EXPECT_EQ(FileCount(), 2);
}

TEST_P(RecordOriginalsTest, AnotherRecordsOriginalsAreNotTouched) {
  const Original added = Added(u"正文.txt"_s);
  Share(added, kOther);
  Originals().Rename(added, u"新名"_s);
  EXPECT_EQ(Originals(kOther).Read().front().name, u"正文"_s);
}

}  // namespace
}  // namespace folvane::test
