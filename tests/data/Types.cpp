#include <QDateTime>
#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {

constexpr int kUnlimited = 2147483647;

class Types : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Database().Native(QStringLiteral("CREATE TABLE Kinds (id integer NOT NULL PRIMARY KEY, small smallint, big bigint, "
                                     "amount numeric(12,3), ratio double precision, share real, flag boolean, day "
                                     "date, moment timestamp, code char(5), title varchar(60), wide varchar(300), "
                                     "edge varchar(255), remark text, content ") +
                      (OnSqlite() ? QStringLiteral("blob)") : QStringLiteral("bytea)")));
  }
  std::unique_ptr<Recordset> Open() {
    auto records = std::make_unique<Recordset>();
    records->Open(QStringLiteral("Select * From kinds"), Connected());
    return records;
  }
};
FOLVANE_ON_EACH_DATABASE(Types);

struct Described {
  const char* name;
  int type, size;
};

TEST_P(Types, EveryColumnTellsItsTypeAndSize) {
  const auto records = Open();
  const Described expected[]{{"id", 3, 4},
                             {"small", 2, 2},
                             {"big", 20, 8},
                             {"amount", 131, 19},
                             {"ratio", 5, 8},
                             {"share", 4, 4},
                             {"flag", 11, 2},
                             {"day", 133, 6},
                             {"moment", 135, 16},
                             {"code", 129, 5},
                             {"title", 200, 60},
                             {"wide", 200, 300},
                             {"edge", 200, 255},
                             {"remark", 201, kUnlimited},
                             {"content", 205, kUnlimited}};
  ASSERT_EQ(records->Fields().Count(), int(std::size(expected)));
  for (int i = 0; i < records->Fields().Count(); ++i) {
    const Field field = records->Fields().Item(i);
    EXPECT_EQ(field.Name(), QLatin1String(expected[i].name));
    EXPECT_EQ(field.Type(), expected[i].type) << expected[i].name;
    EXPECT_EQ(field.DefinedSize(), expected[i].size) << expected[i].name;
  }
}

TEST_P(Types, EveryKindOfValueIsReadBackAsItWasWritten) {
  const std::pair<const char*, QVariant> values[]{{"id", 1LL},
                                                  {"small", -7LL},
                                                  {"big", 9007199254740993LL},
                                                  {"amount", 12.5},
                                                  {"ratio", 0.1},
                                                  {"share", 0.25},
                                                  {"flag", 1LL},
                                                  {"day", QDate(2002, 3, 4)},
                                                  {"moment", QDateTime(QDate(2002, 3, 4), QTime(5, 6, 7), Qt::UTC)},
                                                  {"code", QStringLiteral("ABCDE")},
                                                  {"title", QStringLiteral("关于档案")},
                                                  {"wide", QString(150, QChar(0x6863))},
                                                  {"edge", QStringLiteral("20020304")},
                                                  {"remark", QStringLiteral("甲")},
                                                  {"content", QByteArray("\x00\x01\xff\x27", 4)}};
  const auto writer = Open();
  writer->AddNew();
  for (const auto& [name, value] : values) (*writer)[QLatin1String(name)].SetValue(value);
  writer->UpdateBatch();

  const auto reader = Open();
  for (const auto& [name, value] : values) EXPECT_EQ((*reader)[QLatin1String(name)].Value(), value) << name;
}

TEST_P(Types, EveryKindOfValueCanBeChangedAndCleared) {
  Database().Native(QStringLiteral("INSERT INTO Kinds VALUES (1, 2, 3, 4.125, 0.1, 0.1, %1, '2002-03-04', "
                                   "'2002-03-04 05:06:07', 'ABCDE', 't', 'w', 'e', 'r', %2)")
                        .arg(OnSqlite() ? QStringLiteral("1") : QStringLiteral("true"),
                             OnSqlite() ? QStringLiteral("x'00ff'") : QStringLiteral("'\\x00ff'")));
  const auto records = Open();
  for (int i = 1; i < records->Fields().Count(); ++i) records->Fields().Item(i).SetValue({});
  records->UpdateBatch();
  EXPECT_EQ(records->PendingCount(), 0);

  const auto reader = Open();
  for (int i = 1; i < reader->Fields().Count(); ++i)
    EXPECT_TRUE(reader->Fields().Item(i).IsNull()) << reader->Fields().Item(i).Name().toStdString();
}

TEST_P(Types, ATruthValueCanBeChangedByItself) {
  Database().Native(QStringLiteral("INSERT INTO Kinds (id, flag) VALUES (1, %1)")
                        .arg(OnSqlite() ? QStringLiteral("0") : QStringLiteral("false")));
  const auto records = Open();
  EXPECT_EQ((*records)[QStringLiteral("flag")].Value(), QVariant(0LL));
  (*records)[QStringLiteral("flag")].SetValue(1);
  records->UpdateBatch();
  EXPECT_EQ((*Open())[QStringLiteral("flag")].Value(), QVariant(1LL));
}

TEST_P(Types, AMomentWithAFractionOfASecondCanBeChanged) {
  Database().Native(QStringLiteral("INSERT INTO Kinds (id, moment) VALUES (1, '2002-03-04 05:06:07.891234')"));
  const auto records = Open();
  (*records)[QStringLiteral("moment")].SetValue(QStringLiteral("2003-01-01 10:20:30"));
  records->UpdateBatch();
  EXPECT_EQ(Database().Value(QStringLiteral("SELECT moment FROM Kinds")), QStringLiteral("2003-01-01 10:20:30"));
}

TEST_P(Types, AnExpressionHasTheTypeOfItsValues) {
  MakeFiles(Database());
  const NativeResult result =
      QueryNative(*Connected(), "SELECT count(*), max(title), sum(pages) / 2.0 FROM files WHERE id < 3");
  EXPECT_EQ(GroupOfType(result.columns[0].type), TypeGroup::Number);
  EXPECT_EQ(GroupOfType(result.columns[1].type), TypeGroup::Text);
  EXPECT_EQ(result.columns[1].definedSize, kUnlimited);
  EXPECT_EQ(GroupOfType(result.columns[2].type), TypeGroup::Number);
  EXPECT_EQ(result.rows[0][0], QVariant(2LL));
  EXPECT_EQ(result.rows[0][2].toDouble(), 17.5);
}

TEST_P(Types, ATextWithoutALengthHasNoLimit) {
  Database().Native(QStringLiteral("CREATE TABLE loose (name varchar)"));
  const NativeResult result = QueryNative(*Connected(), "SELECT name FROM loose");
  EXPECT_EQ(result.columns[0].type, AdoType::VarChar);
  EXPECT_EQ(result.columns[0].definedSize, kUnlimited);
}

TEST_P(Types, ATableIsDescribedWhateverTheCaseOfItsName) {
  const std::optional<TableInfo> table = Connected()->NativeDriver().Describe(QStringLiteral("KINDS"));
  ASSERT_TRUE(table);
  EXPECT_EQ(table->name.toLower(), QStringLiteral("kinds"));
  EXPECT_EQ(table->key, std::vector{0});
  EXPECT_FALSE(table->columns[0].nullable);
  EXPECT_TRUE(table->columns[1].nullable);
  const ColumnInfo& title = table->columns[std::size_t(table->IndexOf(QStringLiteral("TITLE")))];
  EXPECT_EQ(title.type, AdoType::VarChar);
  EXPECT_EQ(title.definedSize, 60);
}

TEST_P(Types, ATableThatIsNotThereIsNotDescribed) {
  EXPECT_FALSE(Connected()->NativeDriver().Describe(QStringLiteral("nowhere")));
}

TEST_P(Types, AColumnThatTheDatabaseCountsIsKnown) {
  Database().Native(OnSqlite() ? QStringLiteral("CREATE TABLE counted (id integer PRIMARY KEY, n integer)")
                               : QStringLiteral("CREATE TABLE counted (id serial PRIMARY KEY, n integer)"));
  const std::optional<TableInfo> table = Connected()->NativeDriver().Describe(QStringLiteral("counted"));
  ASSERT_TRUE(table);
  EXPECT_TRUE(table->columns[0].autoNumber);
  EXPECT_FALSE(table->columns[1].autoNumber);
}

TEST_P(Types, TheColumnsOfAKeyComeInTheOrderOfTheKey) {
  Database().Native(QStringLiteral("CREATE TABLE pairs (a varchar(5), b varchar(5), c integer, PRIMARY KEY (c, a))"));
  EXPECT_EQ(Connected()->NativeDriver().Describe(QStringLiteral("pairs"))->key, (std::vector{2, 0}));
}

TEST_P(Types, AUniqueIndexServesAsKeyUnlessItsColumnsMayBeNull) {
  Database().Native(QStringLiteral("CREATE TABLE keyless (a varchar(5) NOT NULL, b varchar(5))"));
  Database().Native(QStringLiteral("CREATE UNIQUE INDEX keyless_b ON keyless (b)"));
  EXPECT_TRUE(Connected()->NativeDriver().Describe(QStringLiteral("keyless"))->key.empty());
  Database().Native(QStringLiteral("CREATE UNIQUE INDEX keyless_a ON keyless (a)"));
  EXPECT_EQ(Connected()->NativeDriver().Describe(QStringLiteral("keyless"))->key, std::vector{0});
}

TEST_P(Types, AViewIsDescribedWithoutAKey) {
  Database().Native(QStringLiteral("CREATE VIEW seen AS SELECT id, title FROM Kinds"));
  const std::optional<TableInfo> view = Connected()->NativeDriver().Describe(QStringLiteral("seen"));
  ASSERT_TRUE(view);
  EXPECT_EQ(view->columns.size(), 2u);
  EXPECT_TRUE(view->key.empty());
}

}  // namespace

}  // namespace folvane::test
