#pragma once

#include <functional>
#include <random>

#include "Language.h"

namespace folvane::test::oracle {

/// A row of a table; null for the side of a join that has none.
using Record = std::shared_ptr<const std::vector<Value>>;
/// The rows that names are looked up in, outer queries' first.
using Env = std::vector<Record>;

struct Column {
  QString name;
  Type type;
  bool isDigits = false;  ///< a text that is a whole number
};

struct Table {
  QString name;
  std::vector<Column> columns;  ///< "id" first
  std::vector<Record> records;
};

/// A piece of a statement with what it means.
struct Term {
  QString text;
  Type type;
  std::function<Value(const Env&)> of;
};

struct Condition {
  QString text;
  std::function<Truth(const Env&)> of;
};

struct Query {
  QString text;
  std::vector<Column> columns;
  std::function<std::vector<Record>(const Env&)> rows;
  bool ordered = false;
  bool choosesTexts = false;  ///< a text is one of several that compare equal
};

/// A statement that writes, and what it leaves of the tables.
struct Change {
  QString text;
  std::function<void()> apply;
};

/// Makes statements by chance, over tables, each with its meaning. The same seed makes the same statements.
class Maker {
 public:
  Maker(std::uint64_t seed, std::vector<Table>& tables) : random_(seed), tables_(tables) {}

  Query MakeStatement();
  Change MakeChange();
  Value MakeValue(const Column& column);
  int Below(int count) { return int(random_() % std::uint64_t(count)); }

 private:
  struct Source {
    QString name;
    std::vector<Column> columns;
    std::size_t frame;
    bool isTable;
  };
  struct From {
    QString text;
    std::function<std::vector<Env>(const Env&)> rows;
  };
  struct Ordering {
    QString text;
    std::vector<std::pair<Term, bool>> terms;
  };

  bool OneIn(int count) { return Below(count) == 0; }
  template <typename T>
  const T& OneOf(const std::vector<T>& values) {
    return values[std::size_t(Below(int(values.size())))];
  }

  // Values.
  Term MakeTerm(Type type, int depth);
  std::optional<Term> FindColumn(Type type, bool digits = false);
  Term ColumnTerm(const Source& source, std::size_t column);
  Term TextLiteral();
  Term NumberLiteral(Type type);
  Term MakeText(int depth);
  Term MakeTextOfText(int depth);
  Term MakeTextOfOther(int depth);
  Term MakeInteger(int depth);
  Term MakeCount(int depth);
  Term MakeDecimal(int depth);
  Term MakeDate(int depth);
  Term MakeSomeDaysOff(int depth);
  Term MakeDateText(const QDateTime& moment);
  QDateTime AnyMoment();
  QString AnyText();
  QString AnyPattern();
  Term Choose(Type type, int depth);

  // Conditions.
  Condition MakeCondition(int depth);
  Condition MakePredicate(int depth);
  Condition MakeComparison(int depth);
  Condition MixedComparison(int depth);
  Condition Compared(const Term& left, const QString& op, const Term& right);
  Condition MakeLike(int depth);
  Condition MakeBetween(int depth);
  Condition MakeInList(int depth);
  Condition MakeInQuery(int depth);
  Condition MakeExists(int depth);

  // Queries.
  From MakeFrom(int depth);
  From AddSource(int depth);
  Query MakeQuery(int depth);
  Query MakePlain(int depth, bool derived);
  Query MakeAggregate(int depth);
  Query MakeGrouped(int depth);
  Query MakeUnion(int depth);
  Query Distinct(const QString& items, const std::vector<Term>& terms, const From& from, const Condition& where);
  std::function<Value(const std::vector<Env>&)> MakeAggregateTerm(int depth, QString& text, Type& type, bool& chooses);
  Ordering MakeOrdering();
  void LeaveScope(std::size_t size) { scope_.resize(size); }

  // Changes.
  Change MakeInsert(Table& table);
  Change MakeUpdate(Table& table);
  Change MakeDelete(Table& table);
  Term Fitting(const Column& column, int depth);

  std::mt19937_64 random_;
  std::vector<Table>& tables_;
  std::vector<Source> scope_;
  const Table* spared_ = nullptr;  ///< read by no query of the statement
  int aliases_ = 0;
};

}  // namespace folvane::test::oracle
