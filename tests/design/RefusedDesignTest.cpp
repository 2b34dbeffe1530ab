#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>
#include <folvane/SqliteConnection.h>

#include "data/DatabaseSession.h"
#include "design/Names.h"
#include "design/SmallDesign.h"
#include "design/SqliteColumns.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

class RefusedDesignTest : public WithSmallDesign {
 protected:
  std::string RefusalOfField(const QString& name) {
    return Refusal([&](Design& design) {
             TableOf(design, u"Lwdj"_s).fields.push_back({name, u"新"_s, u"文本型"_s, 10, {}});
           })
        .toStdString();
  }
  std::string RefusalOfTable(const QString& name) {
    return Refusal([&](Design& design) {
             Design::Table& table = design.tables.emplace_back();
             table.name = name;
             table.fields = {{u"Note"_s, u"备注"_s, u"文本型"_s, 10, {}}};
           })
        .toStdString();
  }
};
FOLVANE_ON_EACH_DATABASE(RefusedDesignTest);

TEST_P(RefusedDesignTest, NamesThatStatementsCannotSayAreRefusedInWords) {
  EXPECT_THAT(RefusalOfField(u"No'te"_s), HasSubstr("只能用字母"));
  EXPECT_THAT(RefusalOfField(u"No te"_s), HasSubstr("只能用字母"));
  EXPECT_THAT(RefusalOfField(u"2nd"_s), HasSubstr("开头"));
  EXPECT_THAT(RefusalOfField(u"Order"_s), HasSubstr("保留字"));
  EXPECT_THAT(RefusalOfField(QString(200, u'n')), testing::AnyOf(HasSubstr("太长"), HasSubstr("最多")));
  EXPECT_THAT(RefusalOfTable(u"User"_s), HasSubstr("保留字"));
  EXPECT_THAT(RefusalOfTable(u"收 文"_s), HasSubstr("只能用字母"));
  EXPECT_THAT(RefusalOfTable(QString(22, u'文')), testing::AnyOf(HasSubstr("太长"), HasSubstr("最多")));
  EXPECT_EQ(RefusalOfTable(u"收文登记簿"_s), "");
}

TEST_P(RefusedDesignTest, TwoFieldsOrTablesOfOneNameAreRefused) {
  EXPECT_THAT(RefusalOfField(u"AMAINTITLE"_s), HasSubstr("出现了两次"));
  EXPECT_THAT(RefusalOfTable(u"LWDJ"_s), testing::Not(""));
}

TEST_P(RefusedDesignTest, ATableOfTheLibrarysOwnGetsNoColumns) {
  const auto withField = [](const QString& field) {
    return [field](Design& design) {
      Design::Table sheets{u"Distribute_File"_s, u"文件分发"_s, u"L"_s, 0, {}, {}, {}, {}, {}, {}, {}, {}, {}};
      sheets.fields = {{u"MainTitle"_s, u"题名"_s, u"文本型"_s, 0, {}}, {field, u"另一个"_s, u"文本型"_s, 0, {}}};
      design.tables.push_back(sheets);
    };
  };
  EXPECT_TRUE(Refusal(withField(u"新字段"_s)).contains(u"不能增加"_s)) << Refusal(withField(u"新字段"_s)).toStdString();
  EXPECT_EQ(Refusal(withField(u"Doc_No"_s)), QString());
}

TEST_P(RefusedDesignTest, WhatRowsCannotHoldIsRefused) {
  EXPECT_THAT(Refusal([](Design& design) { design.tables.emplace_back().name = u"Leer"_s; }).toStdString(),
              HasSubstr("不能存入数据库"));
  EXPECT_THAT(Refusal([](Design& design) {
                FieldOf(design, u"Lwdj"_s, u"RegID"_s).caption = QString(51, u'长');
              }).toStdString(),
              HasSubstr("最多 100 字节"));
  EXPECT_THAT(
      Refusal([](Design& design) { FieldOf(design, u"Lwdj"_s, u"RegID"_s).caption = QChar(0xD800); }).toStdString(),
      HasSubstr("不能存储的字符"));
}

TEST_P(RefusedDesignTest, AColumnOfNumbersDoesNotBecomeOneOfTexts) {
  EXPECT_THAT(Refusal([](Design& design) { FieldOf(design, u"Lwdj"_s, u"RegID"_s).type = u"文本型"_s; }).toStdString(),
              HasSubstr("数字列"));
}

TEST_P(RefusedDesignTest, NamesThatAreAllowedWorkInStatements) {
  QStringList names;
  for (const char* word :
       {"Size",  "Name",  "Type",   "Year",  "Month",    "Day",    "Date",   "Time",   "Status",   "Level",   "Text",
        "Value", "Count", "Sum",    "Max",   "Min",      "Len",    "Note",   "State",  "Number",   "Code",    "Path",
        "Class", "Title", "Author", "Owner", "Version",  "Length", "Action", "Object", "Role",     "Region",  "Zone",
        "年度",  "题名",  "案卷号", "Data",  "Position", "Second", "Minute", "Hour",   "Interval", "Password"})
    if (const QString name = QString::fromUtf8(word); design::NameComplaint(name).isEmpty()) names << name;
  ASSERT_GT(names.size(), 30);
  const QString refusal = Refusal([&](Design& design) {
    Design::Table& wide = design.tables.emplace_back();
    wide.name = u"Wide"_s;
    for (const QString& name : names) wide.fields.push_back({name, u"字段"_s + name, u"文本型"_s, 10, {}});
    for (const QString& name : names) {
      Design::Table& table = design.tables.emplace_back();
      table.name = name;
      table.fields = {{u"Note"_s, u"备注"_s, u"文本型"_s, 10, {}}};
    }
  });
  ASSERT_EQ(refusal, QString());
  for (const QString& name : names) {
    EXPECT_NO_THROW(Connected()->Execute(
        u"Update Wide Set %1 = 'a' Where Wide.%1 = 'b' And %1 In (Select %1 From Wide Where %1 Is Null)"_s.arg(name)))
        << qPrintable(name);
    EXPECT_NO_THROW(Connected()->Execute(u"Delete From %1 Where %1.ArchiveID = 'b'"_s.arg(name))) << qPrintable(name);
  }
}

/// Whatever may be read and written, but not be made.
class ClerksDatabaseTest : public WithSmallDesign {
 protected:
  void TearDown() override {
    connection_.reset();
    if (file_) sqlite3_close(file_);
    if (OnSqlite()) return;
    Database().Native(u"drop owned by design_clerk"_s);
    Database().Native(u"drop role design_clerk"_s);
  }
  std::shared_ptr<Connection> ConnectAsClerk() {
    if (OnSqlite()) {
      const QByteArray path = Database().Value(u"select file from pragma_database_list"_s).toUtf8();
      EXPECT_EQ(sqlite3_open_v2(path.constData(), &file_, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
      return connection_ = AdoptSqlite(file_);
    }
    const QString schema = Database().Value(u"select current_schema()"_s);
    Database().Native(u"create role design_clerk"_s);
    Database().Native(u"grant usage on schema %1 to design_clerk"_s.arg(schema));
    Database().Native(u"grant select, insert, update, delete on all tables in schema %1 to design_clerk"_s.arg(schema));
    connection_ = Database().Connect();
    DatabaseSession::Of(*connection_).ExecuteNative({"set role design_clerk", {}});
    return connection_;
  }

 private:
  sqlite3* file_ = nullptr;
  std::shared_ptr<Connection> connection_;
};
FOLVANE_ON_EACH_DATABASE(ClerksDatabaseTest);

TEST_P(ClerksDatabaseTest, WhoMayNotMakeTablesIsToldSoAndNothingIsHalfMade) {
  const std::shared_ptr<Connection> clerk = ConnectAsClerk();
  const Design before = ReadDesign(*clerk);
  EXPECT_EQ(before, Read());
  Design wanted = before;
  wanted.classes[0].name = u"来文"_s;
  Design::Table& table = wanted.tables.emplace_back();
  table.name = u"Wsda"_s;
  table.fields = {{u"Note"_s, u"备注"_s, u"文本型"_s, 10, {}}};
  try {
    ApplyDesign(*clerk, PlanDesign(*clerk, before, wanted));
    ADD_FAILURE() << "it was applied";
  } catch (const DataError& error) {
    EXPECT_THAT(error.what(), OnSqlite() ? HasSubstr("readonly") : HasSubstr("不能建立表“Wsda”"));
  }
  EXPECT_FALSE(clerk->InTransaction());
  EXPECT_EQ(Read(), before);
}

TEST(SqliteColumns, OnlyTheTypeOfTheColumnIsWrittenAnew) {
  const QString before =
      u"CREATE TABLE \"t\" (/* Note */ a varchar(5) DEFAULT 'Note varchar(3), (', "
      u"[Note] character varying ( 10 ) COLLATE NOCASE NOT NULL, CHECK (Note <> 'x'))"_s;
  EXPECT_EQ(design::Redeclared(before, u"note"_s, u"varchar(20)"_s),
            u"CREATE TABLE \"t\" (/* Note */ a varchar(5) DEFAULT 'Note varchar(3), (', "
            u"[Note] varchar(20) COLLATE NOCASE NOT NULL, CHECK (Note <> 'x'))"_s);
}

TEST(SqliteColumns, HoweverTheirNamesAndTypesAreWritten) {
  const auto widened = [](const QString& columns) {
    return design::Redeclared(u"CREATE TABLE t "_s + columns, u"a"_s, u"text"_s).mid(15);
  };
  EXPECT_EQ(widened(u"(\"A\" varchar(5))"_s), u"(\"A\" text)"_s);
  EXPECT_EQ(widened(u"('a' varchar, b int)"_s), u"('a' text, b int)"_s);
  EXPECT_EQ(widened(u"(b numeric(9, 2) CHECK (b > 0, b < 9), a nvarchar ( 5 )) WITHOUT ROWID"_s),
            u"(b numeric(9, 2) CHECK (b > 0, b < 9), a text) WITHOUT ROWID"_s);
  EXPECT_EQ(widened(u"(PRIMARY KEY (a, b), b int, a varchar(5) REFERENCES c (a))"_s),
            u"(PRIMARY KEY (a, b), b int, a text REFERENCES c (a))"_s);
  EXPECT_EQ(widened(u"(a varchar(5) DEFAULT (1), b)"_s), u"(a text DEFAULT (1), b)"_s);
  EXPECT_EQ(widened(u"(a double precision UNIQUE)"_s), u"(a text UNIQUE)"_s);
}

TEST(SqliteColumns, ADeclarationThatIsNotUnderstoodIsRefused) {
  for (const QString& columns : {u"(a, b)"_s, u"(a NOT NULL)"_s, u"(b text)"_s, u"(a varchar(5"_s, u"(b text, a"_s,
                                 u"AS SELECT 1"_s, u"(b, (a text))"_s, u"(b) a text"_s, u"(, b)"_s, u"(b varchar(5"_s})
    EXPECT_THROW(design::Redeclared(u"CREATE TABLE t "_s + columns, u"a"_s, u"text"_s), DataError)
        << qPrintable(columns);
}

TEST(SqliteColumns, AViewHasNoColumnsToBeWidened) {
  const auto database = TestDatabase::Create("SQLite");
  database->Native(u"create view Seen as select 1 as a"_s);
  const auto connection = database->Connect();
  EXPECT_THROW(design::RedeclareStatements(*connection, u"Seen"_s, u"a"_s, u"text"_s), DataError);
}

}  // namespace
}  // namespace folvane::test
