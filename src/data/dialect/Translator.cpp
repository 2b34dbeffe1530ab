#include "data/dialect/Translator.h"

#include <folvane/DataError.h>

#include "data/dialect/Emitter.h"
#include "data/dialect/Functions.h"
#include "data/dialect/Parser.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/Rewriter.h"
#include "data/dialect/StatementTemplate.h"
#include "data/dialect/TemplateCache.h"
#include "data/dialect/Tokenizer.h"
#include "data/dialect/TypeInference.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

// Servers of the language get their statements untouched, but one at a time like the others.
Plan Untouched(const QString& statement) {
  const std::vector<sql::Token> tokens = sql::Tokenize(statement);
  for (std::size_t i = 0; i + 2 < tokens.size(); ++i)
    if (tokens[i].IsSign(";"_L1)) sql::Refuse(u"一次执行多条语句"_s);
  Plan plan;
  plan.statement.text = statement.toUtf8();
  plan.givesRows = tokens[0].IsWord("select"_L1) || tokens[0].IsWord("if"_L1);
  return plan;
}

// A translation with the literals of one statement.
class Filling {
 public:
  Filling(const QString& statement, const std::vector<sql::Literal>& literals, bool bindsLiterals)
      : statement_(statement), literals_(literals), bindsLiterals_(bindsLiterals) {}

  NativeStatement Of(const sql::Translation& translation) const {
    return bindsLiterals_ ? Bound(translation) : Written(translation);
  }

 private:
  const sql::Literal& At(const sql::Slot& slot) const { return literals_[size_t(slot.literal)]; }

  NativeStatement Bound(const sql::Translation& translation) const {
    NativeStatement native{translation.text, {}};
    native.parameters.reserve(translation.slots.size());
    for (const sql::Slot& slot : translation.slots)
      native.parameters.push_back(sql::ValueOf(At(slot), statement_, slot));
    return native;
  }

  NativeStatement Written(const sql::Translation& translation) const {
    NativeStatement native;
    qsizetype from = 0;
    for (const sql::Slot& slot : translation.slots) {
      native.text += translation.text.sliced(from, slot.at - from);
      native.text += sql::TextOf(At(slot), statement_, slot);
      from = slot.at;
    }
    native.text += translation.text.sliced(from);
    return native;
  }

  const QString& statement_;
  const std::vector<sql::Literal>& literals_;
  bool bindsLiterals_;
};

bool IsAggregated(const sql::Query& query) {
  for (const sql::SelectItem& item : query.items) {
    const sql::Function* function =
        item.value->kind == sql::Expression::Call ? sql::FindFunction(item.value->text, 1) : nullptr;
    if (function && function->arguments[0] == 'A') return true;
  }
  return !query.groupBy.empty();
}

}  // namespace

class Translator::Impl {
 public:
  Impl(DialectKind dialect, TableLookup tables, const QByteArray& orderCollation)
      : kind_(dialect), tables_(std::move(tables)), orderCollation_(orderCollation) {}

  Plan Translate(const QString& statement) {
    try {
      return kind_ == DialectKind::TransactSql ? Untouched(statement) : Filled(statement);
    } catch (const DataError& error) {
      throw DataError(error).During(statement);
    }
  }

  void Forget() { cache_.Clear(); }

 private:
  Plan Filled(const QString& statement) {
    const bool readable = template_.Read(statement);
    const std::vector<sql::Literal>& literals = template_.Literals();
    const sql::Translated* known = readable ? cache_.Find(template_.Key(), literals, statement) : nullptr;
    if (!known) known = &cache_.Keep(template_.Key(), TranslateAnew(statement));
    const Filling filling(statement, literals, sql::DialectOf(kind_).bindsLiterals);
    Plan plan;
    plan.givesRows = known->givesRows;
    plan.conditional = known->conditional;
    plan.statement = filling.Of(known->statement);
    if (!known->conditional) return plan;
    plan.condition = filling.Of(known->condition);
    plan.otherwise = filling.Of(known->otherwise);
    return plan;
  }

  sql::Translated TranslateAnew(const QString& text) {
    sql::Parsed parsed = sql::Parse(text);
    sql::Statement& statement = parsed.statement;
    sql::InferTypes(statement, tables_);
    const sql::Dialect& dialect = sql::DialectOf(kind_);
    sql::RewriteContext context(dialect, template_.Literals(), orderCollation_);
    sql::RewriteStatement(statement, context);
    sql::Translated translated;
    translated.conditional = statement.kind == sql::Statement::Conditional;
    translated.givesRows = translated.conditional || statement.kind == sql::Statement::Select;
    if (translated.conditional) {
      translated.condition = sql::EmitCondition(*statement.condition, dialect);
      translated.statement = sql::Emit(*statement.then, dialect);
      translated.otherwise = sql::Emit(*statement.otherwise, dialect);
    } else {
      translated.statement = sql::Emit(statement, dialect);
    }
    translated.pinned = parsed.structural;
    translated.pinned.insert(translated.pinned.end(), context.Pinned().begin(), context.Pinned().end());
    for (const int literal : translated.pinned) {
      const QString value = template_.Literals()[size_t(literal)].ValueIn(text);
      translated.pinnedValues << QString(value.constData(), value.size());  // outlives the statement
    }
    return translated;
  }

  DialectKind kind_;
  TableLookup tables_;
  QByteArray orderCollation_;
  sql::StatementTemplate template_;
  sql::TemplateCache cache_;
};

Translator::Translator(DialectKind dialect, TableLookup tables, const QByteArray& orderCollation)
    : impl_(std::make_unique<Impl>(dialect, std::move(tables), orderCollation)) {}

Translator::~Translator() = default;

Plan Translator::Translate(const QString& statement) { return impl_->Translate(statement); }

void Translator::Forget() { impl_->Forget(); }

QString Translator::BaseTable(const QString& text) {
  try {
    const sql::Statement statement = sql::Parse(text).statement;
    if (statement.kind != sql::Statement::Select) return {};
    const sql::Query& query = *statement.query;
    const bool plain = query.tables.size() == 1 && !query.tables[0].query && !query.next && !query.distinct;
    return plain && !IsAggregated(query) ? query.tables[0].name : QString();
  } catch (const DataError&) {
    return {};  // a text that cannot be read was refused when it was opened
  }
}

}  // namespace folvane
