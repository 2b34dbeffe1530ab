#include "data/dialect/Translator.h"

#include <QHash>

#include <folvane/DataError.h>

#include "data/dialect/Emitter.h"
#include "data/dialect/Literals.h"
#include "data/dialect/Parser.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/Resolver.h"
#include "data/dialect/Tokenizer.h"

namespace folvane {

namespace {

constexpr qsizetype kMostShapes = 512;

/// A translation that serves every statement of its shape.
struct Kept {
  QByteArray text;
  std::vector<sql::Binding> bindings;
  bool givesRows = false;
};

std::vector<QVariant> Bind(const std::vector<sql::Binding>& bindings, const std::vector<sql::Literal>& literals) {
  std::vector<QVariant> values;
  values.reserve(bindings.size());
  for (const sql::Binding& binding : bindings)
    values.push_back(sql::Apply(binding.transform, literals.at(static_cast<std::size_t>(binding.literal))));
  return values;
}

// The literals in the order in which the parser numbers them.
std::vector<sql::Literal> LiteralsOf(const QString& statement) {
  std::vector<sql::Literal> literals;
  for (const sql::Token& token : sql::Tokenize(statement))
    if (token.kind == sql::TokenKind::Text || token.kind == sql::TokenKind::Number)
      literals.push_back({token.kind == sql::TokenKind::Text, token.text});
  return literals;
}

// Servers of the language get their statements untouched, but one at a time like the others.
Plan Untouched(const QString& statement) {
  const std::vector<sql::Token> tokens = sql::Tokenize(statement);
  for (std::size_t i = 0; i + 2 < tokens.size(); ++i)
    if (tokens[i].IsSign(QLatin1String(";"))) sql::Refuse(QStringLiteral("一次执行多条语句"), statement);
  Plan plan;
  plan.statement.text = statement.toUtf8();
  plan.givesRows = tokens[0].IsWord(QLatin1String("select")) || tokens[0].IsWord(QLatin1String("if"));
  return plan;
}

}  // namespace

class Translator::Impl {
 public:
  Impl(DialectKind dialect, TableLookup tables) : dialect_(dialect), tables_(std::move(tables)) {}

  Plan Translate(const QString& statement) {
    if (dialect_ == DialectKind::TransactSql) return Untouched(statement);
    if (!sql::WordsOf(dialect_).bindsLiterals) return TranslateAnew(statement, nullptr);
    sql::ReadShape(statement, shape_);
    if (!shape_.cacheable) return TranslateAnew(statement, nullptr);
    if (const auto kept = kept_.constFind(shape_.key); kept != kept_.constEnd()) {
      Plan plan;
      plan.givesRows = kept->givesRows;
      plan.statement = {kept->text, Bind(kept->bindings, shape_.literals)};
      return plan;
    }
    return TranslateAnew(statement, &shape_.key);
  }

  void Forget() { kept_.clear(); }

 private:
  Plan TranslateAnew(const QString& text, const QString* key) {
    sql::Statement statement = sql::Parse(text);
    sql::Resolve(statement, tables_);
    const std::vector<sql::Literal> literals = LiteralsOf(text);
    const auto native = [&](const sql::Emitted& emitted) {
      return NativeStatement{emitted.text.toUtf8(), Bind(emitted.bindings, literals)};
    };
    Plan plan;
    if (statement.kind == sql::Statement::Conditional) {
      plan.conditional = plan.givesRows = true;
      plan.condition = native(sql::EmitCondition(*statement.condition, dialect_));
      plan.statement = native(sql::EmitQuery(*statement.then, dialect_));
      plan.otherwise = native(sql::EmitQuery(*statement.otherwise, dialect_));
      return plan;
    }
    const sql::Emitted emitted = sql::EmitStatement(statement, dialect_);
    plan.givesRows = statement.kind == sql::Statement::Select;
    plan.statement = native(emitted);
    if (key && emitted.cacheable) {
      if (kept_.size() >= kMostShapes) kept_.clear();
      kept_.insert(*key, {plan.statement.text, emitted.bindings, plan.givesRows});
    }
    return plan;
  }

  DialectKind dialect_;
  TableLookup tables_;
  sql::Shape shape_;
  QHash<QString, Kept> kept_;
};

Translator::Translator(DialectKind dialect, TableLookup tables)
    : impl_(std::make_unique<Impl>(dialect, std::move(tables))) {}

Translator::~Translator() = default;

Plan Translator::Translate(const QString& statement) { return impl_->Translate(statement); }

void Translator::Forget() { impl_->Forget(); }

QString Translator::BaseTable(const QString& text) {
  try {
    const sql::Statement statement = sql::Parse(text);
    if (statement.kind != sql::Statement::Select) return {};
    const sql::Query& query = *statement.query;
    const bool plain =
        query.tables.size() == 1 && !query.tables[0].query && !query.next && !query.distinct && query.groupBy.empty();
    return plain ? query.tables[0].name : QString();
  } catch (const DataError&) {
    return {};  // a text that cannot be read was refused when it was opened
  }
}

}  // namespace folvane
