#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "Fixture.h"
#include "data/DatabaseSession.h"
#include "data/RowStore.h"
#include "data/dialect/Translator.h"
#include "data/drivers/Driver.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

TableInfo Files() {
  TableInfo table;
  table.name = u"files"_s;
  for (const auto& [name, type] : {std::pair("ArchiveID", AdoType::VarChar), std::pair("Title", AdoType::VarChar),
                                   std::pair("RegID", AdoType::Integer)}) {
    ColumnInfo column;
    column.name = QLatin1String(name);
    column.type = type;
    table.columns.push_back(column);
  }
  table.key = {0};
  return table;
}

class TranslatorTest : public testing::Test {
 protected:
  Plan Translate(DialectKind dialect, const QString& statement) {
    return Translator(dialect, lookup_).Translate(statement);
  }
  QString Text(DialectKind dialect, const QString& statement) {
    return QString::fromUtf8(Translate(dialect, statement).statement.text);
  }

  TableInfo files_ = Files();
  Translator::TableLookup lookup_ = [this](const QString& name) {
    return name.compare(files_.name, Qt::CaseInsensitive) == 0 ? &files_ : nullptr;
  };
};

}  // namespace

TEST_F(TranslatorTest, SqlServerGetsTheStatementAsItStands) {
  const QString statement = u"If Not (1=1) Select 'False' As Result Else Select 'True' As Result"_s;
  const Plan plan = Translate(DialectKind::TransactSql, statement);
  EXPECT_EQ(plan.statement.text, statement.toUtf8());
  EXPECT_TRUE(plan.givesRows);
  EXPECT_FALSE(plan.conditional);
}

TEST_F(TranslatorTest, SqlServerGetsNoTwoStatementsAtOnce) {
  EXPECT_THROW(Translate(DialectKind::TransactSql, u"Select 1; Delete From files"_s), DataError);
}

TEST_F(TranslatorTest, StatementsOfOneTemplateShareATranslationAndDifferInTheirValues) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const Plan one = translator.Translate(u"Insert Into files(ArchiveID,Title,RegID) Values('1','甲',5)"_s);
  const Plan two = translator.Translate(u"Insert Into files(ArchiveID,Title,RegID) Values('2','乙',6)"_s);
  EXPECT_EQ(one.statement.text, two.statement.text);
  EXPECT_EQ(two.statement.parameters, (std::vector<QVariant>{u"2"_s, u"乙"_s, qlonglong(6)}));
}

TEST_F(TranslatorTest, QuotesWithinLiteralsAndNamesAndCommentsDoNotMixUpTheLiterals) {
  Translator translator(DialectKind::Sqlite, lookup_);
  for (const int number : {5, 6}) {
    const QString statement =
        u"Insert Into files(ArchiveID,[Title],RegID) /* it's 1 */ Values(N'a''b',-- '2\n"
        "'''',%1)"_s.arg(number);
    EXPECT_EQ(translator.Translate(statement).statement.parameters,
              (std::vector<QVariant>{u"a'b"_s, u"'"_s, qlonglong(number)}));
  }
}

TEST_F(TranslatorTest, AnInsertIsTranslatedOnceWhateverItsTextsAreLike) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const QString insert = u"Insert Into files(ArchiveID,Title) Values('%1','%2')"_s;
  const QByteArray text = translator.Translate(insert.arg("1"_L1, "2"_L1)).statement.text;
  for (const char* title : {"", "abc", "50%", "a_b [c]", "ends with a blank ", "of more than sixteen characters"})
    EXPECT_EQ(translator.Translate(insert.arg("x"_L1, QLatin1String(title))).statement.text, text) << title;
}

TEST_F(TranslatorTest, ASizeInTheTextIsNotTakenFromAnotherStatement) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const QString select = u"Select Cast(Title As varchar(%1)) From files"_s;
  const QByteArray three = translator.Translate(select.arg(3)).statement.text;
  EXPECT_NE(translator.Translate(select.arg(4)).statement.text, three);
  EXPECT_EQ(translator.Translate(select.arg(3)).statement.text, three);
}

TEST_F(TranslatorTest, PatternsOfOneKindShareATranslation) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const auto translated = [&](const char* pattern) {
    return translator.Translate(u"Select * From files Where Title Like '%1'"_s.arg(QLatin1String(pattern))).statement;
  };
  EXPECT_EQ(translated("%a%").text, translated("%[[]b!%").text);
  EXPECT_EQ(translated("%[[]b!%").parameters[0], QVariant(u"%[b!!%"_s));
  EXPECT_NE(translated("%[ab]%").text, translated("%a%").text);
}

TEST_F(TranslatorTest, APatternWithoutClassesStaysTheDatabasesOwnLike) {
  const QString text = Text(DialectKind::Sqlite, u"Select * From files Where Title Like '%[[]a%'"_s);
  EXPECT_FALSE(text.contains("folvane_like"_L1)) << text.toStdString();
}

TEST_F(TranslatorTest, MoreTemplatesThanAreKeptDoNotHurt) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const auto list = [](int length) { return QStringList(length, u"'1'"_s).join(u','); };
  constexpr int kLongest = 36;  // 1225 templates of two lists, more than twice as many as are kept
  for (int first = 2; first <= kLongest; ++first) {
    for (int second = 2; second <= kLongest; ++second) {
      const QString statement =
          u"Insert Into files(Title) Values('x'+Coalesce(%1)+Coalesce(%2))"_s.arg(list(first), list(second));
      ASSERT_EQ(translator.Translate(statement).statement.parameters.size(), std::size_t(1 + first + second));
    }
  }
}

TEST_F(TranslatorTest, ALiteralOfAnotherClassIsTranslatedAnew) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const Plan key = translator.Translate(u"Select * From files Where ArchiveID = '20020304'"_s);
  const Plan word = translator.Translate(u"Select * From files Where ArchiveID = 'abc'"_s);
  EXPECT_NE(key.statement.text, word.statement.text);
}

TEST_F(TranslatorTest, AKeptTranslationGoesWithTheTableItWasMadeOver) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const QString statement = u"Select * From files Where RegID = '5'"_s;
  EXPECT_EQ(translator.Translate(statement).statement.parameters[0], QVariant(qlonglong(5)));
  files_.columns[2].type = AdoType::VarChar;
  translator.Forget();
  EXPECT_EQ(translator.Translate(statement).statement.parameters[0], QVariant(u"5"_s));
}

TEST_F(TranslatorTest, NumbersOfOrderByAreNotValues) {
  const Plan plan = Translate(DialectKind::Sqlite, u"Select RegID From files Order By 1 Desc"_s);
  EXPECT_TRUE(plan.statement.parameters.empty());
  EXPECT_TRUE(QString::fromUtf8(plan.statement.text).endsWith("ORDER BY 1 DESC"_L1));
}

TEST_F(TranslatorTest, TheOrderOfTheKeyIsThatOfItsIndex) {
  EXPECT_TRUE(Text(DialectKind::Sqlite, u"Select * From files Order By ArchiveId Desc"_s)
                  .endsWith("ORDER BY \"ArchiveID\" DESC"_L1));
  EXPECT_TRUE(Text(DialectKind::PostgreSql, u"Select * From files Order By ArchiveId Desc"_s)
                  .endsWith("ORDER BY \"ArchiveID\" DESC"_L1));
}

TEST_F(TranslatorTest, PostgreSqlGetsLiteralsInTheTextWithTheirQuotesDoubled) {
  const QString text = Text(DialectKind::PostgreSql, u"Update files Set Title='a''b\\' Where RegID='7'"_s);
  EXPECT_TRUE(text.contains("\"Title\" = E'a''b\\\\'"_L1)) << text.toStdString();
  EXPECT_TRUE(text.endsWith("\"RegID\" = 7)"_L1)) << text.toStdString();
}

TEST_F(TranslatorTest, ARefusalNamesTheForm) {
  try {
    Translate(DialectKind::Sqlite, u"Select Soundex(Title) From files"_s);
    FAIL() << "nothing was refused";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Untranslatable);
    EXPECT_TRUE(error.Message().contains("soundex"_L1)) << error.what();
  }
}

TEST_F(TranslatorTest, AFunctionWithOtherArgumentsThanItsOwnIsRefused) {
  for (const char* call : {"Count(1,2)",
                           "Sum(RegID,2)",
                           "Avg(RegID,2)",
                           "Max(RegID,2)",
                           "Min(RegID,2)",
                           "IsNull(1)",
                           "IsNull(1,2,3)",
                           "Coalesce(1)",
                           "NullIf(1)",
                           "NullIf(1,2,3)",
                           "Len()",
                           "Len(Title,1)",
                           "Left(Title)",
                           "Left(Title,1,2)",
                           "Right(Title)",
                           "Right(Title,1,2)",
                           "SubString(Title,1)",
                           "SubString(Title,1,2,3)",
                           "CharIndex(Title)",
                           "CharIndex('a',Title,1,2)",
                           "Replace(Title,'a')",
                           "Replace(Title,'a','b','c')",
                           "LTrim(Title,1)",
                           "RTrim(Title,1)",
                           "Upper(Title,1)",
                           "Lower(Title,1)",
                           "Replicate('a')",
                           "Replicate('a',1,2)",
                           "Space(1,2)",
                           "Ascii('a',1)",
                           "Char(1,2)",
                           "IsNumeric('1',2)",
                           "Str()",
                           "Str(1,2,3,4)",
                           "Abs(1,2)",
                           "Sign(1,2)",
                           "Round(1)",
                           "Round(1,2,3)",
                           "Floor(1,2)",
                           "Ceiling(1,2)",
                           "Year()",
                           "Month(1,2)",
                           "Day(1,2)",
                           "GetDate(1)"})
    EXPECT_THROW(Text(DialectKind::Sqlite, u"Select %1 From files"_s.arg(QLatin1String(call))), DataError) << call;
}

TEST_F(TranslatorTest, TheTableToWriteBackToIsTheOneThatIsReadAlone) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const auto base = [&](const char* statement) { return translator.BaseTable(QString::fromUtf8(statement)); };
  EXPECT_EQ(base("Select * From Lwdj Where (a='x') Order By ArchiveId Desc"), u"Lwdj"_s);
  EXPECT_EQ(base("Select * From [Lw dj]"), u"Lw dj"_s);
  EXPECT_EQ(base("Select a.* From Lwdj a,Fwdj b"), QString());
  EXPECT_EQ(base("Select Distinct DocNo From Lwdj"), QString());
  EXPECT_EQ(base("Select Count(*) From Lwdj Group By DocNo"), QString());
  EXPECT_EQ(base("Delete From Lwdj"), QString());
}

// A list of a million records is only as fast as the look-up of one key.
class KeyLookup : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    FillTables(Database());
  }

  QString PlanOf(const char* statement) {
    Translator translator(DatabaseSession::Of(*Connected()).NativeDriver().Dialect(),
                          [&](const QString& name) { return DatabaseSession::Of(*Connected()).Table(name); });
    NativeStatement native = translator.Translate(QString::fromUtf8(statement)).statement;
    native.text.prepend(OnSqlite() ? "EXPLAIN QUERY PLAN " : "EXPLAIN ");
    Driver& driver = DatabaseSession::Of(*Connected()).NativeDriver();
    if (!OnSqlite()) driver.Execute({"SET enable_seqscan = off", {}});
    std::vector<ColumnInfo> columns;
    RowStore rows;
    driver.Query(native, columns, rows);
    QString plan;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
      plan += rows.At(row, rows.ColumnCount() - 1).ToVariant().toString() + u'\n';
    return plan;
  }
};

TEST_P(KeyLookup, ARecordIsFoundThroughTheIndex) {
  const QString plan = PlanOf("Select * From Lwdj Where ArchiveID = '20020304101112000001'");
  EXPECT_TRUE(plan.contains(OnSqlite() ? "SEARCH"_L1 : "Index"_L1)) << plan.toStdString();
}

TEST_P(KeyLookup, OriginalsAreFoundThroughTheIndexOfTheirRecords) {
  Database().Native(u"CREATE INDEX OriginalsOfRecords ON Original_Text (RecordID)"_s);
  const QString plan = PlanOf("Select * From Original_Text Where RecordID = '20020304101112000001'");
  EXPECT_TRUE(plan.contains("OriginalsOfRecords"_L1, Qt::CaseInsensitive)) << plan.toStdString();
}

TEST_P(KeyLookup, AYearOfTextDatesIsFoundThroughTheIndex) {
  if (!OnSqlite()) GTEST_SKIP() << "PostgreSQL orders the index by the database's collation";
  Database().Native(u"CREATE INDEX LwdjByDate ON Lwdj (CreatedDate)"_s);
  const QString plan = PlanOf("Select * From Lwdj Where CreatedDate Between '2002-01-01' And '2002-12-31'");
  EXPECT_TRUE(plan.contains("LwdjByDate"_L1)) << plan.toStdString();
}

TEST_P(KeyLookup, RecordsOfAListAreFoundThroughTheIndex) {
  const QString plan = PlanOf("Delete From Lwdj Where ArchiveId IN ('20020304101112000001','20020305101112000002')");
  EXPECT_TRUE(plan.contains(OnSqlite() ? "SEARCH"_L1 : "Index"_L1)) << plan.toStdString();
}

TEST_P(KeyLookup, TheOrderOfTheKeyNeedsNoSort) {
  const QString plan = PlanOf("Select * From Lwdj Order By ArchiveId Desc");
  EXPECT_FALSE(plan.contains("TEMP B-TREE"_L1) || plan.contains("Sort"_L1)) << plan.toStdString();
}

FOLVANE_ON_EACH_DATABASE(KeyLookup);

}  // namespace folvane::test
