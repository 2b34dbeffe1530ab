// How StatementParser reads queries.

#include <array>

#include "data/dialect/Refusal.h"
#include "data/dialect/StatementParser.h"

namespace folvane::sql {
using namespace Qt::Literals::StringLiterals;

QueryPtr StatementParser::ReadQuery() {
  QueryPtr query = ReadSelect();
  Query* last = query.get();
  while (TakeWord("union")) {
    last->unionWord = TakeWord("all") ? "UNION ALL" : "UNION";
    last->next = ReadSelect();
    last = last->next.get();
  }
  if (TakeWord("order")) ReadOrder(*query);
  RefuseKnownForms();
  return query;
}

void StatementParser::ReadOrder(Query& query) {
  NeedWord("by");
  do {
    OrderTerm item;
    item.value = ReadExpression();
    item.descending = TakeWord("desc");
    if (!item.descending) TakeWord("asc");
    query.orderBy.push_back(std::move(item));
  } while (TakeSign(","));
}

QueryPtr StatementParser::ReadSelect() {
  NeedWord("select");
  auto query = std::make_unique<Query>();
  query->distinct = TakeWord("distinct");
  if (!query->distinct) TakeWord("all");
  if (IsWord("top") && (Now(1).kind == TokenKind::Number || IsSign("(", 1))) ReadTop(*query);
  do query->items.push_back(ReadItem());
  while (TakeSign(","));
  if (IsWord("into")) RefuseKnownForms();
  if (TakeWord("from")) ReadTables(*query);
  if (TakeWord("where")) query->where = ReadExpression();
  if (TakeWord("group")) {
    NeedWord("by");
    do query->groupBy.push_back(ReadExpression());
    while (TakeSign(","));
  }
  if (TakeWord("having")) query->having = ReadExpression();
  return query;
}

void StatementParser::ReadTop(Query& query) {
  NeedWord("top");
  query.top = ReadPrimary();
  if (IsWord("percent") || IsWord("with")) RefuseKnownForms();
}

SelectItem StatementParser::ReadItem() {
  SelectItem item;
  // "name = value" names the value: a condition cannot be selected.
  if ((IsName() || Now().kind == TokenKind::Text) && IsSign("=", 1)) {
    item.alias = IsName() ? NeedName() : TakeStructuralText();
    NeedSign("=");
    item.value = ReadExpression();
    return item;
  }
  item.value = ReadExpression();
  while (item.value->kind == Expression::Group && item.value->parts[0]->kind == Expression::Name)
    item.value = item.value->parts[0];  // Distinct(name) selects the name
  const bool named = TakeWord("as");
  if (Now().kind == TokenKind::Text)
    item.alias = TakeStructuralText();
  else if (named || (IsName() && !IsWord("over")))
    item.alias = NeedName();
  return item;
}

void StatementParser::ReadTables(Query& query) {
  query.tables.push_back(ReadTable());
  for (;;) {
    QString join;
    if (TakeSign(","))
      join = u","_s;
    else if (IsWord("join") || IsWord("inner") || IsWord("left") || IsWord("right") || IsWord("full") ||
             IsWord("cross") || IsWord("outer"))
      join = ReadJoinWords();
    else
      return;
    query.tables.push_back(ReadTable());
    query.tables.back().join = join;
    if (TakeWord("on")) query.tables.back().on = ReadExpression();
  }
}

QString StatementParser::ReadJoinWords() {
  QString words;
  while (!TakeWord("join")) {
    static constexpr std::array kJoinWords{"inner", "left", "right", "full", "cross", "outer"};
    bool known = false;
    for (const char* word : kJoinWords) known = known || IsWord(word);
    RefuseKnownForms();
    if (!known) RejectHere();
    words += tokens_[at_++].text.toUpper() + u' ';
  }
  return words + u"JOIN"_s;
}

TableReference StatementParser::ReadTable() {
  TableReference table;
  if (TakeSign("(")) {
    if (!IsWord("select")) Refuse(u"From 中的括号"_s);
    table.query = ReadQuery();
    NeedSign(")");
  } else {
    table = ReadTarget();
  }
  const bool named = TakeWord("as");
  if (named || IsName()) table.alias = NeedName();
  if (table.query && table.alias.isEmpty()) RejectSyntax(u"From 中的子查询没有别名"_s);
  if (IsWord("with")) RefuseKnownForms();
  return table;
}

}  // namespace folvane::sql
