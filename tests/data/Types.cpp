#include <QDateTime>
#include <gtest/gtest.h>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kUnlimited = 2147483647;

class Types : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Database().Native(
        u"CREATE TABLE Kinds (id integer NOT NULL PRIMARY KEY, small smallint, big bigint, "
        "amount numeric(12,3), ratio double precision, share real, flag boolean, day "
        "date, moment timestamp, code char(5), title varchar(60), wide varchar(300), "
        "edge varchar(255), remark text, content "_s +
        (OnSqlite() ? u"blob)"_s : u"bytea)"_s));
  }
  std::unique_ptr<Recordset> Open() {
    auto records = std::make_unique<Recordset>();
    records->Open(u"Select * From kinds"_s, Connected());
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

TEST_P(Types, AFirstColumnTellsItsSizeToo) {
  Database().Native(u"CREATE TABLE edges (edge varchar(255), id integer)"_s);
  Recordset records;
  records.Open(u"Select * From edges"_s, Connected());
  EXPECT_EQ(records.Fields().Item(0).DefinedSize(), 255);
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
                                                  {"code", u"ABCDE"_s},
                                                  {"title", u"关于档案"_s},
                                                  {"wide", QString(150, QChar(0x6863))},
                                                  {"edge", u"20020304"_s},
                                                  {"remark", u"甲"_s},
                                                  {"content", QByteArray("\x00\x01\xff\x27", 4)}};
  const auto writer = Open();
  writer->AddNew();
  for (const auto& [name, value] : values) (*writer)[QLatin1String(name)].SetValue(value);
  writer->UpdateBatch();

  const auto reader = Open();
  for (const auto& [name, value] : values) EXPECT_EQ((*reader)[QLatin1String(name)].Value(), value) << name;
}

TEST_P(Types, EveryKindOfValueCanBeChangedAndCleared) {
  Database().Native(
      u"INSERT INTO Kinds VALUES (1, 2, 3, 4.125, 0.1, 0.1, %1, '2002-03-04', "
      "'2002-03-04 05:06:07', 'ABCDE', 't', 'w', 'e', 'r', %2)"_s.arg(OnSqlite() ? u"1"_s : u"true"_s,
                                                                      OnSqlite() ? u"x'00ff'"_s : u"'\\x00ff'"_s));
  const auto records = Open();
  for (int i = 1; i < records->Fields().Count(); ++i) records->Fields().Item(i).SetValue({});
  records->UpdateBatch();
  EXPECT_EQ(records->PendingCount(), 0);

  const auto reader = Open();
  for (int i = 1; i < reader->Fields().Count(); ++i)
    EXPECT_TRUE(reader->Fields().Item(i).IsNull()) << reader->Fields().Item(i).Name().toStdString();
}

TEST_P(Types, ATruthValueCanBeChangedByItself) {
  Database().Native(u"INSERT INTO Kinds (id, flag) VALUES (1, %1)"_s.arg(OnSqlite() ? u"0"_s : u"false"_s));
  const auto records = Open();
  EXPECT_EQ((*records)[u"flag"_s].Value(), QVariant(0LL));
  (*records)[u"flag"_s].SetValue(1);
  records->UpdateBatch();
  EXPECT_EQ((*Open())[u"flag"_s].Value(), QVariant(1LL));
}

TEST_P(Types, AnEmptyValueOfAnyTypeIsNull) {
  Database().Native(u"INSERT INTO Kinds (id, small, day, title) VALUES (1, 5, '2002-03-04', 'x')"_s);
  const auto records = Open();
  (*records)[u"small"_s].SetValue(QVariant(QMetaType::fromType<int>()));
  (*records)[u"day"_s].SetValue(QVariant(QMetaType::fromType<QDate>()));
  (*records)[u"title"_s].SetValue(QVariant(QMetaType::fromType<QString>()));
  records->UpdateBatch();
  const auto reader = Open();
  for (const QString& name : {u"small"_s, u"day"_s, u"title"_s})
    EXPECT_TRUE((*reader)[name].IsNull()) << qPrintable(name);
}

TEST_P(Types, AMomentWithAFractionOfASecondCanBeChanged) {
  Database().Native(u"INSERT INTO Kinds (id, moment) VALUES (1, '2002-03-04 05:06:07.891234')"_s);
  const auto records = Open();
  (*records)[u"moment"_s].SetValue(u"2003-01-01 10:20:30"_s);
  records->UpdateBatch();
  EXPECT_EQ(Database().Value(u"SELECT moment FROM Kinds"_s), u"2003-01-01 10:20:30"_s);
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
  Database().Native(u"CREATE TABLE loose (name varchar)"_s);
  const NativeResult result = QueryNative(*Connected(), "SELECT name FROM loose");
  EXPECT_EQ(result.columns[0].type, AdoType::VarChar);
  EXPECT_EQ(result.columns[0].definedSize, kUnlimited);
}

TEST_P(Types, SqliteColumnsHaveTheTypesThatOtherDatabasesNameThem) {
  if (!OnSqlite()) GTEST_SKIP() << "a server knows its types";
  const Described declared[]{{"nvarchar(7)", AdoType::VarWChar, 7},
                             {"character varying(8)", AdoType::VarChar, 8},
                             {"nchar(9)", AdoType::WChar, 9},
                             {"ntext", AdoType::LongVarWChar, kUnlimited},
                             {"clob", AdoType::LongVarChar, kUnlimited},
                             {"tinyint", AdoType::UnsignedTinyInt, 1},
                             {"bit", AdoType::Boolean, 2},
                             {"float", AdoType::Double, 8},
                             {"money", AdoType::Currency, 8},
                             {"decimal(5,2)", AdoType::Numeric, 19},
                             {"datetime", AdoType::DbTimeStamp, 16},
                             {"SmallDateTime", AdoType::DbTimeStamp, 16},
                             {"time", AdoType::DbTime, 6},
                             {"image", AdoType::LongVarBinary, kUnlimited},
                             {"varbinary(10)", AdoType::VarBinary, 10},
                             {"binary(11)", AdoType::Binary, 11},
                             {"whatever", AdoType::LongVarChar, kUnlimited}};
  QStringList columns;
  for (std::size_t i = 0; i < std::size(declared); ++i)
    columns.append(u"c%1 %2"_s.arg(i).arg(QLatin1String(declared[i].name)));
  Database().Native(u"CREATE TABLE Declared (%1)"_s.arg(columns.join(u',')));
  const std::optional<TableInfo> table = DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"Declared"_s);
  ASSERT_TRUE(table);
  for (std::size_t i = 0; i < std::size(declared); ++i) {
    EXPECT_EQ(table->columns[i].type, declared[i].type) << declared[i].name;
    EXPECT_EQ(table->columns[i].definedSize, declared[i].size) << declared[i].name;
  }
}

TEST_P(Types, ATableIsDescribedWhateverTheCaseOfItsName) {
  const std::optional<TableInfo> table = DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"KINDS"_s);
  ASSERT_TRUE(table);
  EXPECT_EQ(table->name.toLower(), u"kinds"_s);
  EXPECT_EQ(table->key, std::vector{0});
  EXPECT_FALSE(table->columns[0].nullable);
  EXPECT_TRUE(table->columns[1].nullable);
  const ColumnInfo& title = table->columns[std::size_t(table->IndexOf(u"TITLE"_s))];
  EXPECT_EQ(title.type, AdoType::VarChar);
  EXPECT_EQ(title.definedSize, 60);
}

TEST_P(Types, ATableThatIsNotThereIsNotDescribed) {
  EXPECT_FALSE(DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"nowhere"_s));
}

TEST_P(Types, AColumnThatTheDatabaseCountsIsKnown) {
  Database().Native(OnSqlite() ? u"CREATE TABLE counted (id integer PRIMARY KEY, n integer)"_s
                               : u"CREATE TABLE counted (id serial PRIMARY KEY, n integer)"_s);
  const std::optional<TableInfo> table = DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"counted"_s);
  ASSERT_TRUE(table);
  EXPECT_TRUE(table->columns[0].autoNumber);
  EXPECT_FALSE(table->columns[1].autoNumber);
}

TEST_P(Types, TheColumnsOfAKeyComeInTheOrderOfTheKey) {
  Database().Native(u"CREATE TABLE pairs (a varchar(5), b varchar(5), c integer, PRIMARY KEY (c, a))"_s);
  EXPECT_EQ(DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"pairs"_s)->key, (std::vector{2, 0}));
}

TEST_P(Types, AUniqueIndexServesAsKeyUnlessItsColumnsMayBeNull) {
  Database().Native(u"CREATE TABLE keyless (a varchar(5) NOT NULL, b varchar(5))"_s);
  Database().Native(u"CREATE UNIQUE INDEX keyless_b ON keyless (b)"_s);
  EXPECT_TRUE(DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"keyless"_s)->key.empty());
  Database().Native(u"CREATE UNIQUE INDEX keyless_a ON keyless (a)"_s);
  EXPECT_EQ(DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"keyless"_s)->key, std::vector{0});
}

TEST_P(Types, AViewIsDescribedWithoutAKey) {
  Database().Native(u"CREATE VIEW seen AS SELECT id, title FROM Kinds"_s);
  const std::optional<TableInfo> view = DatabaseSession::Of(*Connected()).NativeDriver().Describe(u"seen"_s);
  ASSERT_TRUE(view);
  EXPECT_EQ(view->columns.size(), 2u);
  EXPECT_TRUE(view->key.empty());
}

TEST_P(Types, ANumberInAColumnWithoutATypeIsComparedAsTheNumberItIs) {
  if (!OnSqlite()) GTEST_SKIP() << "PostgreSQL has no columns without a type";
  Database().Native(u"CREATE TABLE loose (id integer PRIMARY KEY, anything)"_s);
  Database().Native(u"INSERT INTO loose VALUES (1, 1e300), (2, '2.5'), (3, 3), (4, 1)"_s);
  Recordset records;
  records.Open(u"Select id From loose Where anything>1.5"_s, Connected());
  EXPECT_EQ(records.RecordCount(), 3);
}

}  // namespace

}  // namespace folvane::test
