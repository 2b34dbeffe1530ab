#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "host/HostDatabase.h"
#include "host/OfficeCopy.h"
#include "support/TestDatabase.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using host::CopyOffice;
using host::HostError;

/// An office of some thousand pages, open while it is copied.
class OfficeCopyTest : public testing::Test {
 protected:
  void SetUp() override {
    office_->Native(u"create table papers(id integer primary key, text varchar(4000))"_s);
    office_->Native(
        u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 3000) "
        "insert into papers select i, hex(randomblob(1500)) from n"_s);
  }
  static QString Count(const QString& file) {
    const auto copy = host::OpenSqlite(file).connection;
    return QString::number(copy->Execute(u"Update papers Set id = id"_s));
  }
  QString Source() { return office_->Value(u"select file from pragma_database_list"_s); }
  QString Target() const { return folder_.filePath(u"备份.db"_s); }
  QStringList Files() const { return QDir(folder_.path()).entryList(QDir::Files); }

  std::unique_ptr<TestDatabase> office_ = TestDatabase::Create("SQLite");
  QTemporaryDir folder_;
};

TEST_F(OfficeCopyTest, ACopyMadeWhileOthersWriteHoldsAllOfTheOffice) {
  office_->Native(u"create table UserPopedom(UserID varchar(20), UserName varchar(40))"_s);
  int steps = 0;
  double last = 0;
  ASSERT_TRUE(CopyOffice(Source(), Target(), [&](double done) {
    if (++steps == 2) office_->Native(u"delete from papers where id = 1"_s);
    EXPECT_GE(done, 0);
    EXPECT_LE(done, 1);
    last = done;
    return true;
  }));
  EXPECT_GT(steps, 3);
  EXPECT_GT(last, 0.5);
  EXPECT_EQ(Count(Target()), u"2999"_s);
  EXPECT_EQ(Files(), QStringList{u"备份.db"_s});
}

TEST_F(OfficeCopyTest, WhatIsEndedLeavesTheEarlierCopyAsItWas) {
  QFile earlier(Target());
  ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
  earlier.write("earlier");
  earlier.close();
  EXPECT_FALSE(CopyOffice(Source(), Target(), [](double) { return false; }));
  ASSERT_TRUE(earlier.open(QIODevice::ReadOnly));
  EXPECT_EQ(earlier.readAll(), "earlier");
  EXPECT_EQ(Files(), QStringList{u"备份.db"_s});
}

TEST_F(OfficeCopyTest, NothingIsLeftOfACopyThatCannotBeMade) {
  const auto goOn = [](double) { return true; };
  EXPECT_THROW(CopyOffice(folder_.filePath(u"none.db"_s), Target(), goOn), HostError);
  EXPECT_THROW(CopyOffice(Source(), u"/nowhere/copy.db"_s, goOn), HostError);
  EXPECT_THROW(CopyOffice(Source(), Source(), goOn), HostError);
  EXPECT_EQ(Files(), QStringList());
}

TEST_F(OfficeCopyTest, ABrokenOfficeGivesNoCopy) {
  QFile broken(folder_.filePath(u"broken.db"_s));
  ASSERT_TRUE(QFile::copy(Source(), broken.fileName()));
  ASSERT_TRUE(broken.open(QIODevice::ReadWrite));
  broken.seek(4096 * 100);
  broken.write(QByteArray(4096 * 4, 'x'));
  broken.close();
  EXPECT_THROW(CopyOffice(broken.fileName(), Target(), [](double) { return true; }), HostError);
  EXPECT_EQ(Files(), QStringList{u"broken.db"_s});
}

}  // namespace
}  // namespace folvane::test
