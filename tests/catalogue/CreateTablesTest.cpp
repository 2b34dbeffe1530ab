#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>

#include "catalogue/Catalogue.h"
#include "data/DatabaseSession.h"
#include "support/TestDatabase.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class CreateTablesTest : public OnEachDatabase {
 protected:
  bool Has(const QString& table) { return DatabaseSession::Of(*Connected()).Table(table) != nullptr; }
};
FOLVANE_ON_EACH_DATABASE(CreateTablesTest);

TEST_P(CreateTablesTest, AnEmptyDatabaseLacksAllTablesUntilTheyAreMade) {
  const QStringList missing = CheckTables(*Connected());
  ASSERT_EQ(missing.size(), 1);
  for (const Table& table : CatalogueTables()) EXPECT_TRUE(missing[0].contains(table.name)) << qPrintable(table.name);
  CreateTables(*Connected());
  EXPECT_EQ(CheckTables(*Connected()), QStringList());
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(CreateTablesTest, WhatIsThereStaysAsItIs) {
  Database().Native(u"create table UserPopedom(UserID varchar(20), UserName varchar(9), Room varchar(9))"_s);
  Database().Native(u"insert into UserPopedom values('12', '王小明', '302')"_s);
  CreateTables(*Connected());
  CreateTables(*Connected());
  EXPECT_EQ(Database().Rows(u"select * from UserPopedom"_s),
            (std::vector<QStringList>{{u"12"_s, u"王小明"_s, u"302"_s}}));
  EXPECT_TRUE(Has(u"DynamicWindows"_s));
}

TEST_P(CreateTablesTest, MissingColumnsAreNamedAndAddedBehindTheRowsThatAreThere) {
  Database().Native(u"create table UserPopedom(UserID varchar(20))"_s);
  Database().Native(u"insert into UserPopedom values('12')"_s);
  EXPECT_EQ(CheckTables(*Connected()).last(), u"表 UserPopedom 缺少列 UserName。"_s);
  CreateTables(*Connected());
  EXPECT_EQ(CheckTables(*Connected()), QStringList());
  EXPECT_EQ(Database().Rows(u"select UserID, UserName from UserPopedom"_s),
            (std::vector<QStringList>{{u"12"_s, u"<null>"_s}}));
}

TEST_P(CreateTablesTest, AFailureOnTheWayLeavesNoTableBehind) {
  Database().Native(u"create view Curr_Flow as select 1 as File_ID"_s);  // cannot be given the columns that it lacks
  EXPECT_THROW(CreateTables(*Connected()), DataError);
  EXPECT_FALSE(Has(u"DynamicWindows"_s));
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(CreateTablesTest, InsideTheHostsTransactionTheHostDecides) {
  {
    Transaction transaction(*Connected());
    CreateTables(*Connected());
    EXPECT_TRUE(Has(u"DynamicWindows"_s));
  }
  DatabaseSession::Of(*Connected()).RefreshSchema();
  EXPECT_FALSE(Has(u"DynamicWindows"_s));
}

TEST_P(CreateTablesTest, CheckingRunsNoStatement) {
  QStringList statements;
  Connected()->OnStatement([&](const QString& statement) { statements << statement; });
  CheckTables(*Connected());
  EXPECT_EQ(statements, QStringList());
}

// The page has a heading for each table, and under it a row for each column.
QString SectionOf(const QString& page, const QString& table) {
  const QRegularExpression heading(u"^### .*`%1`.*$"_s.arg(table), QRegularExpression::MultilineOption);
  const QRegularExpressionMatch found = heading.match(page);
  if (!found.hasMatch()) return {};
  const qsizetype begin = found.capturedEnd(), end = page.indexOf(u"\n#"_s, begin);
  return page.mid(begin, end < 0 ? -1 : end - begin);
}

TEST(DesignTablesPage, DescribesEveryColumnOfEveryTable) {
  QFile file(QLatin1String(DOCS) + u"/design-tables.md"_s);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString page = QString::fromUtf8(file.readAll());
  for (const Table& table : CatalogueTables()) {
    const QString section = SectionOf(page, table.name);
    EXPECT_FALSE(section.isEmpty()) << qPrintable(table.name);
    for (const Column& column : table.columns)
      EXPECT_TRUE(section.contains(u'`' + column.name + u'`')) << qPrintable(table.name + u'.' + column.name);
  }
}

}  // namespace
}  // namespace folvane::test
