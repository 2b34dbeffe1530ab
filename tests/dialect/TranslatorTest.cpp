#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "Fixture.h"
#include "data/RowStore.h"
#include "data/dialect/Translator.h"

namespace folvane::test {

namespace {

TableInfo Files() {
  TableInfo table;
  table.name = QStringLiteral("files");
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
  const QString statement = QStringLiteral("If Not (1=1) Select 'False' As Result Else Select 'True' As Result");
  const Plan plan = Translate(DialectKind::TransactSql, statement);
  EXPECT_EQ(plan.statement.text, statement.toUtf8());
  EXPECT_TRUE(plan.givesRows);
  EXPECT_FALSE(plan.conditional);
}

TEST_F(TranslatorTest, SqlServerGetsNoTwoStatementsAtOnce) {
  EXPECT_THROW(Translate(DialectKind::TransactSql, QStringLiteral("Select 1; Delete From files")), DataError);
}

TEST_F(TranslatorTest, StatementsOfOneShapeShareATranslationAndDifferInTheirValues) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const Plan one = translator.Translate(QStringLiteral("Insert Into files(ArchiveID,Title,RegID) Values('1','甲',5)"));
  const Plan two = translator.Translate(QStringLiteral("Insert Into files(ArchiveID,Title,RegID) Values('2','乙',6)"));
  EXPECT_EQ(one.statement.text, two.statement.text);
  EXPECT_EQ(two.statement.parameters, (std::vector<QVariant>{QStringLiteral("2"), QStringLiteral("乙"), qlonglong(6)}));
}

TEST_F(TranslatorTest, QuotesWithinLiteralsAndNamesAndCommentsDoNotMixUpTheLiterals) {
  Translator translator(DialectKind::Sqlite, lookup_);
  for (const int number : {5, 6}) {
    const QString statement = QStringLiteral(
                                  "Insert Into files(ArchiveID,[Title],RegID) /* it's 1 */ Values(N'a''b',-- '2\n"
                                  "'''',%1)")
                                  .arg(number);
    EXPECT_EQ(translator.Translate(statement).statement.parameters,
              (std::vector<QVariant>{QStringLiteral("a'b"), QStringLiteral("'"), qlonglong(number)}));
  }
}

TEST_F(TranslatorTest, AnInsertIsTranslatedOnceWhateverItsTextsAreLike) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const QString insert = QStringLiteral("Insert Into files(ArchiveID,Title) Values('%1','%2')");
  const QByteArray text = translator.Translate(insert.arg(QLatin1String("1"), QLatin1String("2"))).statement.text;
  for (const char* title : {"", "abc", "50%", "a_b [c]", "ends with a blank ", "of more than sixteen characters"})
    EXPECT_EQ(translator.Translate(insert.arg(QLatin1String("x"), QLatin1String(title))).statement.text, text) << title;
}

TEST_F(TranslatorTest, ASizeInTheTextIsNotTakenFromAnotherStatement) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const QString select = QStringLiteral("Select Cast(Title As varchar(%1)) From files");
  const QByteArray three = translator.Translate(select.arg(3)).statement.text;
  EXPECT_NE(translator.Translate(select.arg(4)).statement.text, three);
  EXPECT_EQ(translator.Translate(select.arg(3)).statement.text, three);
}

TEST_F(TranslatorTest, PatternsOfOneKindShareATranslation) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const auto translated = [&](const char* pattern) {
    return translator.Translate(QStringLiteral("Select * From files Where Title Like '%1'").arg(QLatin1String(pattern)))
        .statement;
  };
  EXPECT_EQ(translated("%a%").text, translated("%[[]b!%").text);
  EXPECT_EQ(translated("%[[]b!%").parameters[0], QVariant(QStringLiteral("%[b!!%")));
  EXPECT_NE(translated("%[ab]%").text, translated("%a%").text);
}

TEST_F(TranslatorTest, APatternWithoutClassesStaysTheDatabasesOwnLike) {
  const QString text = Text(DialectKind::Sqlite, QStringLiteral("Select * From files Where Title Like '%[[]a%'"));
  EXPECT_FALSE(text.contains(QLatin1String("folvane_like"))) << text.toStdString();
}

TEST_F(TranslatorTest, MoreShapesThanAreKeptDoNotHurt) {
  Translator translator(DialectKind::Sqlite, lookup_);
  QString list = QStringLiteral("'1'");
  for (std::size_t i = 1; i < 1200; ++i) {
    list += QStringLiteral(",'1'");
    const QString statement = QStringLiteral("Insert Into files(Title) Values('x'+Coalesce(%1))").arg(list);
    ASSERT_EQ(translator.Translate(statement).statement.parameters.size(), i + 2);
  }
}

TEST_F(TranslatorTest, ALiteralOfAnotherClassIsTranslatedAnew) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const Plan key = translator.Translate(QStringLiteral("Select * From files Where ArchiveID = '20020304'"));
  const Plan word = translator.Translate(QStringLiteral("Select * From files Where ArchiveID = 'abc'"));
  EXPECT_NE(key.statement.text, word.statement.text);
}

TEST_F(TranslatorTest, AKeptTranslationGoesWithTheTableItWasMadeOver) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const QString statement = QStringLiteral("Select * From files Where RegID = '5'");
  EXPECT_EQ(translator.Translate(statement).statement.parameters[0], QVariant(qlonglong(5)));
  files_.columns[2].type = AdoType::VarChar;
  translator.Forget();
  EXPECT_EQ(translator.Translate(statement).statement.parameters[0], QVariant(QStringLiteral("5")));
}

TEST_F(TranslatorTest, NumbersOfOrderByAreNotValues) {
  const Plan plan = Translate(DialectKind::Sqlite, QStringLiteral("Select RegID From files Order By 1 Desc"));
  EXPECT_TRUE(plan.statement.parameters.empty());
  EXPECT_TRUE(QString::fromUtf8(plan.statement.text).endsWith(QLatin1String("ORDER BY 1 DESC")));
}

TEST_F(TranslatorTest, TheOrderOfTheKeyIsThatOfItsIndex) {
  EXPECT_TRUE(Text(DialectKind::Sqlite, QStringLiteral("Select * From files Order By ArchiveId Desc"))
                  .endsWith(QLatin1String("ORDER BY \"ArchiveID\" DESC")));
  EXPECT_TRUE(Text(DialectKind::PostgreSql, QStringLiteral("Select * From files Order By ArchiveId Desc"))
                  .endsWith(QLatin1String("ORDER BY \"ArchiveID\" DESC")));
}

TEST_F(TranslatorTest, PostgreSqlGetsLiteralsInTheTextWithTheirQuotesDoubled) {
  const QString text = Text(DialectKind::PostgreSql, QStringLiteral("Update files Set Title='a''b\\' Where RegID='7'"));
  EXPECT_TRUE(text.contains(QLatin1String("\"Title\" = E'a''b\\\\'"))) << text.toStdString();
  EXPECT_TRUE(text.endsWith(QLatin1String("\"RegID\" = 7)"))) << text.toStdString();
}

TEST_F(TranslatorTest, ARefusalNamesTheForm) {
  try {
    Translate(DialectKind::Sqlite, QStringLiteral("Select Soundex(Title) From files"));
    FAIL() << "nothing was refused";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Untranslatable);
    EXPECT_TRUE(error.Message().contains(QLatin1String("soundex"))) << error.what();
  }
}

TEST_F(TranslatorTest, TheTableToWriteBackToIsTheOneThatIsReadAlone) {
  Translator translator(DialectKind::Sqlite, lookup_);
  const auto base = [&](const char* statement) { return translator.BaseTable(QString::fromUtf8(statement)); };
  EXPECT_EQ(base("Select * From Lwdj Where (a='x') Order By ArchiveId Desc"), QStringLiteral("Lwdj"));
  EXPECT_EQ(base("Select * From [Lw dj]"), QStringLiteral("Lw dj"));
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
    FillTables(Database(), *Connected());
  }

  QString PlanOf(const char* statement) {
    Translator translator(Connected()->NativeDriver().Dialect(),
                          [&](const QString& name) { return Connected()->Table(name); });
    NativeStatement native = translator.Translate(QString::fromUtf8(statement)).statement;
    native.text.prepend(OnSqlite() ? "EXPLAIN QUERY PLAN " : "EXPLAIN ");
    Driver& driver = Connected()->NativeDriver();
    if (!OnSqlite()) driver.Execute({"SET enable_seqscan = off", {}});
    std::vector<ColumnInfo> columns;
    RowStore rows;
    driver.Query(native, columns, rows);
    QString plan;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
      plan += rows.At(row, rows.ColumnCount() - 1).ToVariant().toString() + QLatin1Char('\n');
    return plan;
  }
};

TEST_P(KeyLookup, ARecordIsFoundThroughTheIndex) {
  const QString plan = PlanOf("Select * From Lwdj Where ArchiveID = '20020304101112000001'");
  EXPECT_TRUE(plan.contains(OnSqlite() ? QLatin1String("SEARCH") : QLatin1String("Index"))) << plan.toStdString();
}

TEST_P(KeyLookup, OriginalsAreFoundThroughTheIndexOfTheirRecords) {
  Database().Native(QStringLiteral("CREATE INDEX OriginalsOfRecords ON Original_Text (RecordID)"));
  const QString plan = PlanOf("Select * From Original_Text Where RecordID = '20020304101112000001'");
  EXPECT_TRUE(plan.contains(QLatin1String("OriginalsOfRecords"), Qt::CaseInsensitive)) << plan.toStdString();
}

TEST_P(KeyLookup, AYearOfTextDatesIsFoundThroughTheIndex) {
  if (!OnSqlite()) GTEST_SKIP() << "PostgreSQL orders the index by the database's collation";
  Database().Native(QStringLiteral("CREATE INDEX LwdjByDate ON Lwdj (CreatedDate)"));
  const QString plan = PlanOf("Select * From Lwdj Where CreatedDate Between '2002-01-01' And '2002-12-31'");
  EXPECT_TRUE(plan.contains(QLatin1String("LwdjByDate"))) << plan.toStdString();
}

TEST_P(KeyLookup, RecordsOfAListAreFoundThroughTheIndex) {
  const QString plan = PlanOf("Delete From Lwdj Where ArchiveId IN ('20020304101112000001','20020305101112000002')");
  EXPECT_TRUE(plan.contains(OnSqlite() ? QLatin1String("SEARCH") : QLatin1String("Index"))) << plan.toStdString();
}

TEST_P(KeyLookup, TheOrderOfTheKeyNeedsNoSort) {
  const QString plan = PlanOf("Select * From Lwdj Order By ArchiveId Desc");
  EXPECT_FALSE(plan.contains(QLatin1String("TEMP B-TREE")) || plan.contains(QLatin1String("Sort")))
      << plan.toStdString();
}

FOLVANE_ON_EACH_DATABASE(KeyLookup);

}  // namespace folvane::test
