// Statements made by chance mean the same on each database and to a plain evaluator. FOLVANE_ORACLE_COUNT tells how
// many, FOLVANE_ORACLE_SEED which, FOLVANE_ORACLE_FIRST where among them to begin.
#include <gtest/gtest.h>

#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "Maker.h"
#include "support/TestDatabase.h"

namespace folvane::test::oracle {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kStatementsPerTables = 25, kMostTold = 20;

std::uint64_t NumberIn(const char* variable, std::uint64_t otherwise) {
  return qEnvironmentVariableIsSet(variable) ? qgetenv(variable).toULongLong() : otherwise;
}

std::vector<Table> Tables() {
  return {{u"Files"_s,
           {{u"id"_s, Type::Integer},
            {u"t"_s, Type::Text},
            {u"c"_s, Type::Text, true},
            {u"n"_s, Type::Integer},
            {u"d"_s, Type::Decimal},
            {u"day"_s, Type::Date},
            {u"moment"_s, Type::Date}},
           {}},
          {u"Sheets"_s,
           {{u"id"_s, Type::Integer}, {u"t"_s, Type::Text}, {u"n"_s, Type::Integer}, {u"day"_s, Type::Date}},
           {}}};
}

QString Told(const Value& value, Type type, bool folds) {
  if (IsNull(value)) return u"<null>"_s;
  if (std::holds_alternative<double>(value)) return QString::number(Number(value) + 0.0, 'g', 9);
  return type == Type::Text && folds ? Folded(AsText(value)) : AsText(value);
}

class Oracle : public testing::Test {
 protected:
  struct Side {
    std::unique_ptr<TestDatabase> database;
    std::shared_ptr<Connection> connection;
  };

  void SetUp() override {
    for (const char* kind : {"SQLite", "PostgreSQL"}) {
      Side& side = sides_.emplace_back();
      side.database = TestDatabase::Create(kind);
      side.connection = side.database->Connect();
      const QString moment = side.database->Kind() == "SQLite" ? u"datetime"_s : u"timestamp"_s;
      side.database->Native(
          u"CREATE TABLE Files (id integer PRIMARY KEY, t varchar(20), c varchar(10), n integer, "
          "d numeric(9,2), day date, moment %1)"_s.arg(moment));
      side.database->Native(u"CREATE TABLE Sheets (id integer PRIMARY KEY, t varchar(20), n integer, day date)"_s);
    }
  }

  void Fill(std::uint64_t seed) {
    Maker maker(seed, tables_);
    for (Table& table : tables_) {
      table.records.clear();
      for (int count = maker.Below(7), id = 0; count > 0; --count) {
        auto record = std::make_shared<std::vector<Value>>();
        for (const Column& column : table.columns) record->push_back(maker.MakeValue(column));
        (*record)[0] = double(id += 1 + maker.Below(3));
        table.records.push_back(record);
      }
      for (const Side& side : sides_) {
        side.database->Native(u"DELETE FROM "_s + table.name);
        if (!table.records.empty())
          side.database->Native(u"INSERT INTO "_s + table.name + u" VALUES "_s + Rows(table).join(u','));
      }
    }
  }

  static QStringList Rows(const Table& table) {
    QStringList rows;
    for (const Record& record : table.records) {
      QStringList values;
      for (const Value& value : *record)
        values << (IsNull(value) ? u"NULL"_s : u"'"_s + AsText(value).replace(u"'"_s, u"''"_s) + u"'"_s);
      rows << u"("_s + values.join(u',') + u")"_s;
    }
    return rows;
  }

  static QStringList Sorted(QStringList rows, bool ordered) {
    if (!ordered) rows.sort();
    return rows;
  }

  static QStringList Given(const std::vector<Record>& records, const Query& query) {
    QStringList rows;
    for (const Record& record : records) {
      QStringList values;
      for (std::size_t i = 0; i < record->size(); ++i)
        values << Told((*record)[i], query.columns[i].type, query.choosesTexts);
      rows << values.join(u'|');
    }
    return Sorted(rows, query.ordered);
  }

  static QStringList Given(const Side& side, const Query& query) {
    const ResultSet result(*side.connection, query.text);
    QStringList rows;
    for (qint64 row = 0; row < result.RowCount(); ++row) {
      QStringList values;
      for (int i = 0; i < result.ColumnCount(); ++i) {
        const Type type = query.columns[std::size_t(i)].type;
        Value value;
        if (result.Value(row, i).isValid()) value = result.Text(row, i);
        if (!IsNull(value) && (type == Type::Integer || type == Type::Decimal)) value = result.Text(row, i).toDouble();
        values << Told(value, type, query.choosesTexts);
      }
      rows << values.join(u'|');
    }
    return Sorted(rows, query.ordered);
  }

  template <typename Ask>
  static QString Answer(Ask ask) {
    try {
      return ask().join(u'\n');
    } catch (const DataError& error) {
      return u"error: "_s + error.Message();
    }
  }

  void Compare(std::uint64_t number, const QString& statement, const QStringList& expected,
               const std::function<QStringList(const Side&)>& ask) {
    QStringList answers{expected.join(u'\n')};
    for (const Side& side : sides_) answers << Answer([&] { return ask(side); });
    if (answers[1] == answers[0] && answers[2] == answers[0]) return;
    if (++disagreements_ > kMostTold) return;
    QString tables;
    for (const Table& table : tables_) tables += u"\n  "_s + table.name + u": "_s + Rows(table).join(u' ');
    ADD_FAILURE() << "FOLVANE_ORACLE_SEED=" << seed_ << " FOLVANE_ORACLE_FIRST=" << number
                  << " FOLVANE_ORACLE_COUNT=1\n"
                  << statement.toStdString() << tables.toStdString() << "\nexpected:\n"
                  << answers[0].toStdString() << "\nSQLite:\n"
                  << answers[1].toStdString() << "\nPostgreSQL:\n"
                  << answers[2].toStdString();
  }

  void CompareQuery(std::uint64_t number, Maker& maker) {
    const Query query = maker.MakeStatement();
    Compare(number, query.text, Given(query.rows({}), query), [&](const Side& side) { return Given(side, query); });
  }

  void CompareChange(std::uint64_t number, Maker& maker) {
    const Change change = maker.MakeChange();
    const std::vector<Table> before = tables_;
    change.apply();
    std::vector<Query> dumps;
    QStringList expected;
    for (const Table& table : tables_) {
      dumps.push_back({u"Select * From "_s + table.name, table.columns, nullptr});
      expected << Given(table.records, dumps.back());
    }
    const std::vector<Table> after = std::exchange(tables_, before);
    tables_ = before;
    Compare(number, change.text, expected, [&](const Side& side) {
      Transaction transaction(*side.connection);
      side.connection->Execute(change.text);
      QStringList rows;
      for (const Query& dump : dumps) rows << Given(side, dump);
      return rows;
    });
  }

  std::vector<Side> sides_;
  std::vector<Table> tables_ = Tables();
  std::uint64_t seed_ = 0;
  int disagreements_ = 0;
};

}  // namespace

TEST_F(Oracle, StatementsMeanTheSameOnEachDatabaseAndToAPlainEvaluator) {
  seed_ = NumberIn("FOLVANE_ORACLE_SEED", 1);
  const std::uint64_t count = NumberIn("FOLVANE_ORACLE_COUNT", 1000), first = NumberIn("FOLVANE_ORACLE_FIRST", 0);
  std::uint64_t filled = ~std::uint64_t(0);
  for (std::uint64_t number = first; number < first + count; ++number) {
    if (const std::uint64_t block = number / kStatementsPerTables; block != filled)
      Fill(seed_ * 1'000'003 + (filled = block));
    Maker maker(seed_ * 7'777'777 + number, tables_);
    number % 4 == 3 ? CompareChange(number, maker) : CompareQuery(number, maker);
  }
  std::printf("oracle: %llu statements from number %llu of seed %llu on two databases, %d disagreements\n",
              static_cast<unsigned long long>(count), static_cast<unsigned long long>(first),
              static_cast<unsigned long long>(seed_), disagreements_);
}

}  // namespace folvane::test::oracle
