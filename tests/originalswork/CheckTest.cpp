#include "components/originals/StoreCheck.h"
#include "originalswork/WorkFixture.h"

namespace folvane::test {
namespace {
using namespace originals;
using testing::ElementsAre;

bool GoOn(const QString&, qint64, qint64) { return true; }

class StoreCheckTest : public WorkTest {
 protected:
  void AddRow(const QString& id, const QString& recordId, const QString& filePath, const QString& type = u".txt"_s) {
    design_->Insert(u"Original_Text"_s, u"ID,Original_Name,Type,RecordID,FilePath"_s,
                    {id, u"正文"_s, type, recordId, filePath});
  }
  CheckFindings Check(const std::function<void()>& meanwhile = {}) {
    const auto store = OpenOriginalFiles(Request());
    const auto findings = CheckStore(*Connected(), *store, [&](const QString& step, qint64, qint64) {
      if (meanwhile && step == u"正在核对原文记录"_s) meanwhile();
      return true;
    });
    EXPECT_TRUE(findings);
    return findings.value_or(CheckFindings());
  }
};
FOLVANE_ON_EACH_DATABASE(StoreCheckTest);

TEST_P(StoreCheckTest, AStoreThatAgreesWithItsRowsIsClean) {
  Added(u"a.txt"_s);
  program_.Write(u"Data/x/Y/5.TXT"_s, "written in another case and with other separators");
  AddRow(u"5"_s, kOther, u"X\\y\\"_s);
  const CheckFindings findings = Check();
  EXPECT_TRUE(findings.IsClean()) << findings.Text().toStdString();
  EXPECT_EQ(findings.Summary(), u"共 2 条原文记录、2 个文件，没有发现问题。"_s);
}

TEST_P(StoreCheckTest, ChangesNothing) {
  AddRow(u"5"_s, kRecord, u"2001"_s);
  program_.Write(u"Data/2002/lost.txt"_s, "x");
  log_->Take();
  Check();
  for (const QString& statement : log_->Take()) EXPECT_TRUE(statement.startsWith(u"Select "_s));
  EXPECT_EQ(FileCount() + RowCount(), 2);
}

TEST_P(StoreCheckTest, RowsWithoutTheirFileAreFoundAndThoseThatShareItCountOnce) {
  AddRow(u"5"_s, kRecord, u"2001"_s);
  AddRow(u"5"_s, kOther, u"2001"_s);
  AddRow(u"6"_s, kOther, u"../2001"_s);
  const CheckFindings findings = Check();
  ASSERT_EQ(findings.missingFiles.size(), 2u);
  EXPECT_EQ(LineOf(findings.missingFiles[0]),
            QStringList({u"文件缺少"_s, u"2001/5.txt"_s, u"正文"_s, QString(), kRecord + u'、' + kOther}));
  EXPECT_EQ(findings.missingFiles[1].recordIds, QStringList(kOther)) << "a place out of the store holds nothing";
  EXPECT_EQ(findings.Summary(), u"共 3 条原文记录、0 个文件；2 个文件缺少，0 个文件没有原文记录。"_s);
}

TEST_P(StoreCheckTest, FilesWithoutARowAreFound) {
  Added(u"a.txt"_s);
  program_.Write(u"Data/2002/lost.txt"_s, "12345");
  const CheckFindings findings = Check();
  ASSERT_EQ(findings.unknownFiles.size(), 1u);
  EXPECT_EQ(LineOf(findings.unknownFiles[0]),
            QStringList({u"没有原文记录"_s, u"2002/lost.txt"_s, QString(), u"5 字节"_s, QString()}));
  EXPECT_EQ(findings.Text(), findings.Summary() + u"\n没有原文记录\t2002/lost.txt\t\t5 字节\t\n"_s);
}

TEST_P(StoreCheckTest, WhatIsAddedMeanwhileIsNoFinding) {
  Added(u"a.txt"_s);
  program_.Write(u"Data/2002/7.txt"_s, "its row comes after the rows were read");
  bool isFirst = true;
  const CheckFindings findings = Check([&] {
    if (!std::exchange(isFirst, false)) return;
    AddRow(u"7"_s, kRecord, u"2002"_s);
  });
  EXPECT_TRUE(findings.IsClean()) << findings.Text().toStdString();
}

TEST_P(StoreCheckTest, AFileThatIsNotListedYetIsAskedFor) {
  AddRow(u"8"_s, kRecord, u"2002"_s);
  const CheckFindings findings = Check([&] { program_.Write(u"Data/2002/8.txt"_s, "after the listing"); });
  EXPECT_TRUE(findings.IsClean()) << findings.Text().toStdString();
}

TEST_P(StoreCheckTest, CanBeEndedAtAnyStep) {
  AddRow(u"5"_s, kRecord, u"2001"_s);
  program_.Write(u"Data/2002/lost.txt"_s, "x");
  const auto store = OpenOriginalFiles(Request());
  for (const QString& last : {u"正在读取存放的文件"_s, u"正在核对原文记录"_s, u"正在查找缺少的文件"_s}) {
    EXPECT_FALSE(CheckStore(*Connected(), *store, [&](const QString& step, qint64, qint64) { return step != last; }));
  }
  EXPECT_TRUE(CheckStore(*Connected(), *store, GoOn));
}

TEST_P(StoreCheckTest, TenThousandFilesAreCheckedInOnePass) {
  QStringList rows;
  auto originals = Watched([&](WatchedStore& store) {
    for (int i = 0; i < 10'000; ++i) {
      store.listed.push_back({QString::number(i % 10), u"%1.txt"_s.arg(i), 1});
      if (i > 0) rows << u"('%1','正文','.txt','%2','%3')"_s.arg(i).arg(kRecord).arg(i % 10);
    }
  });
  auto& store = static_cast<WatchedStore&>(originals.Store());
  rows << u"('gone','正文','.txt','%1','0')"_s.arg(kRecord);
  for (qsizetype from = 0; from < rows.size(); from += 500)
    design_->Run(u"insert into Original_Text (ID,Original_Name,Type,RecordID,FilePath) values "_s +
                 rows.mid(from, 500).join(u','));
  log_->Take();
  const auto findings = CheckStore(*Connected(), store, GoOn);
  ASSERT_TRUE(findings);
  EXPECT_EQ(findings->missingFiles.size(), 1u);
  EXPECT_EQ(findings->unknownFiles.size(), 1u);
  EXPECT_EQ(log_->Take().size(), 2) << "all rows, and once more for what looks unknown";
  EXPECT_EQ(store.questions, 1) << "only the file that was not listed is asked for";
}

}  // namespace
}  // namespace folvane::test
