#include "data/dialect/Parser.h"

#include <array>

#include "data/dialect/Refusal.h"
#include "data/dialect/Tokenizer.h"

namespace folvane::sql {

namespace {

// Words that end an expression or a table name without "As" before them.
constexpr std::array kClauseWords{
    "select", "from",   "where",  "group", "having", "order",  "union", "inner",  "left",      "right",  "full",
    "cross",  "join",   "on",     "and",   "or",     "not",    "like",  "in",     "between",   "is",     "escape",
    "as",     "else",   "when",   "then",  "end",    "values", "set",   "into",   "if",        "asc",    "desc",
    "insert", "update", "delete", "for",   "option", "with",   "outer", "except", "intersect", "compute"};

bool IsClauseWord(const Token& token) {
  if (token.kind != TokenKind::Word) return false;
  for (const char* word : kClauseWords)
    if (token.IsWord(QLatin1String(word))) return true;
  return false;
}

class Parser {
 public:
  explicit Parser(const QString& text) : text_(text), tokens_(Tokenize(text)) {}

  Statement ReadAll() {
    Statement statement = ReadStatement();
    TakeSign(";");
    if (Now().kind != TokenKind::End) RefuseHere();
    return statement;
  }

 private:
  // Tokens.
  const Token& Now(std::size_t ahead = 0) const { return tokens_[std::min(at_ + ahead, tokens_.size() - 1)]; }
  bool IsWord(const char* word, std::size_t ahead = 0) const { return Now(ahead).IsWord(QLatin1String(word)); }
  bool IsSign(const char* sign, std::size_t ahead = 0) const { return Now(ahead).IsSign(QLatin1String(sign)); }
  bool IsName(std::size_t ahead = 0) const {
    return Now(ahead).kind == TokenKind::Quoted || (Now(ahead).kind == TokenKind::Word && !IsClauseWord(Now(ahead)));
  }
  bool TakeWord(const char* word) { return IsWord(word) && ++at_; }
  bool TakeSign(const char* sign) { return IsSign(sign) && ++at_; }
  void NeedWord(const char* word) {
    if (!TakeWord(word)) RefuseHere();
  }
  void NeedSign(const char* sign) {
    if (!TakeSign(sign)) RefuseHere();
  }
  [[noreturn]] void RefuseHere() const {
    const Token& token = Now();
    if (token.kind == TokenKind::End) Refuse(QStringLiteral("语句不完整"), text_);
    if (token.IsSign(QLatin1String(";"))) Refuse(QStringLiteral("一次执行多条语句"), text_);
    Refuse(QStringLiteral("“%1”").arg(text_.mid(token.at, 30)), text_);
  }
  QString NeedName(bool* quoted = nullptr) {
    if (!IsName()) RefuseHere();
    if (quoted) *quoted = Now().kind == TokenKind::Quoted;
    return tokens_[at_++].text;
  }

  // Statements.
  Statement ReadStatement() {
    if (IsWord("select")) {
      Statement statement;
      statement.query = ReadQuery();
      return statement;
    }
    if (TakeWord("insert")) return ReadInsert();
    if (TakeWord("update")) return ReadUpdate();
    if (TakeWord("delete")) return ReadDelete();
    if (TakeWord("if")) return ReadConditional();
    RefuseHere();
  }

  Statement ReadConditional() {
    Statement statement;
    statement.kind = Statement::Conditional;
    statement.condition = ReadExpression();
    statement.then = ReadQuery();
    NeedWord("else");
    statement.otherwise = ReadQuery();
    return statement;
  }

  Statement ReadInsert() {
    Statement statement;
    statement.kind = Statement::Insert;
    TakeWord("into");
    statement.target = ReadTargetTable();
    std::vector<Assignment> columns;
    if (IsSign("(") && !IsWord("select", 1)) {
      NeedSign("(");
      do {
        Assignment column;
        column.column = NeedName(&column.quoted);
        columns.push_back(std::move(column));
      } while (TakeSign(","));
      NeedSign(")");
    }
    if (TakeWord("values")) {
      ReadValues(statement, columns);
      return statement;
    }
    const bool bracketed = TakeSign("(");
    for (const Assignment& column : columns) statement.columns.push_back(column.column);
    statement.query = ReadQuery();
    if (bracketed) NeedSign(")");
    return statement;
  }

  void ReadValues(Statement& statement, std::vector<Assignment>& columns) {
    NeedSign("(");
    do {
      Assignment assignment;
      if (const std::size_t place = statement.assignments.size(); place < columns.size()) {
        assignment.column = columns[place].column;
        assignment.quoted = columns[place].quoted;
      } else if (!columns.empty()) {
        Refuse(QStringLiteral("值比字段多"), text_);
      }
      assignment.value = ReadExpression();
      statement.assignments.push_back(std::move(assignment));
    } while (TakeSign(","));
    NeedSign(")");
    if (statement.assignments.size() < columns.size()) Refuse(QStringLiteral("字段比值多"), text_);
    if (IsSign(",")) Refuse(QStringLiteral("一次插入多行"), text_);
  }

  Statement ReadUpdate() {
    Statement statement;
    statement.kind = Statement::Update;
    statement.target = ReadTargetTable();
    NeedWord("set");
    do {
      Assignment assignment;
      assignment.column = NeedName(&assignment.quoted);
      if (TakeSign(".")) assignment.column = NeedName(&assignment.quoted);
      NeedSign("=");
      assignment.value = ReadExpression();
      statement.assignments.push_back(std::move(assignment));
    } while (TakeSign(","));
    if (IsWord("from")) Refuse(QStringLiteral("Update … From"), text_);
    if (TakeWord("where")) statement.where = ReadExpression();
    return statement;
  }

  Statement ReadDelete() {
    Statement statement;
    statement.kind = Statement::Delete;
    TakeWord("from");
    statement.target = ReadTargetTable();
    if (IsWord("from")) Refuse(QStringLiteral("Delete … From"), text_);
    if (TakeWord("where")) statement.where = ReadExpression();
    return statement;
  }

  TableReference ReadTargetTable() {
    TableReference table;
    table.name = NeedName(&table.quoted);
    while (TakeSign(".")) table.name = NeedName(&table.quoted);  // the owner before the point is the database's affair
    return table;
  }

  // Queries.
  QueryPtr ReadQuery() {
    QueryPtr query = ReadSelect();
    Query* last = query.get();
    while (TakeWord("union")) {
      last->unionWord = TakeWord("all") ? QStringLiteral("UNION ALL") : QStringLiteral("UNION");
      last->next = ReadSelect();
      last = last->next.get();
    }
    if (TakeWord("order")) {
      NeedWord("by");
      do {
        OrderItem item;
        item.value = ReadExpression();
        if (TakeWord("desc"))
          item.descending = true;
        else
          TakeWord("asc");
        query->orderBy.push_back(std::move(item));
      } while (TakeSign(","));
    }
    return query;
  }

  QueryPtr ReadSelect() {
    NeedWord("select");
    auto query = std::make_unique<Query>();
    if (TakeWord("distinct"))
      query->distinct = true;
    else
      TakeWord("all");
    if (IsWord("top") && (Now(1).kind == TokenKind::Number || IsSign("(", 1))) {
      ++at_;
      query->top = ReadPrimary();
      if (IsWord("percent") || IsWord("with")) Refuse(QStringLiteral("Top n Percent"), text_);
    }
    do query->items.push_back(ReadItem());
    while (TakeSign(","));
    if (IsWord("into")) Refuse(QStringLiteral("Select … Into"), text_);
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

  SelectItem ReadItem() {
    SelectItem item;
    // "name = value" names the value: a condition cannot be selected.
    if (IsName() && IsSign("=", 1)) {
      item.alias = NeedName();
      NeedSign("=");
      item.value = ReadExpression();
      return item;
    }
    item.value = ReadExpression();
    if (TakeWord("as"))
      item.alias = Now().kind == TokenKind::Text ? tokens_[at_++].text : NeedName();
    else if (IsName())
      item.alias = NeedName();
    return item;
  }

  void ReadTables(Query& query) {
    query.tables.push_back(ReadTable());
    for (;;) {
      QString join;
      if (TakeSign(",")) {
        join = QStringLiteral(",");
      } else if (IsWord("join") || IsWord("inner") || IsWord("left") || IsWord("right") || IsWord("full") ||
                 IsWord("cross")) {
        join = ReadJoinWords();
      } else {
        return;
      }
      query.tables.push_back(ReadTable());
      query.tables.back().join = join;
      if (TakeWord("on")) query.tables.back().on = ReadExpression();
    }
  }

  QString ReadJoinWords() {
    QString words;
    while (!TakeWord("join")) {
      if (!IsWord("inner") && !IsWord("left") && !IsWord("right") && !IsWord("full") && !IsWord("cross") &&
          !IsWord("outer"))
        RefuseHere();
      words += tokens_[at_++].text.toUpper() + QLatin1Char(' ');
    }
    return words + QStringLiteral("JOIN");
  }

  TableReference ReadTable() {
    TableReference table;
    if (TakeSign("(")) {
      table.query = ReadQuery();
      NeedSign(")");
    } else {
      table = ReadTargetTable();
    }
    if (TakeWord("as"))
      table.alias = NeedName();
    else if (IsName())
      table.alias = NeedName();
    if (IsWord("with")) Refuse(QStringLiteral("With (…)"), text_);
    return table;
  }

  // Expressions, from the loosest binding to the tightest.
  ExpressionPtr ReadExpression() {
    ExpressionPtr left = ReadAnd();
    while (TakeWord("or")) left = Binary(QStringLiteral("OR"), std::move(left), ReadAnd());
    return left;
  }

  ExpressionPtr ReadAnd() {
    ExpressionPtr left = ReadNot();
    while (TakeWord("and")) left = Binary(QStringLiteral("AND"), std::move(left), ReadNot());
    return left;
  }

  ExpressionPtr ReadNot() {
    if (!TakeWord("not")) return ReadPredicate();
    auto inner = std::make_unique<Expression>(Expression::Unary);
    inner->text = QStringLiteral("NOT");
    inner->parts.push_back(ReadNot());
    return inner;
  }

  ExpressionPtr ReadPredicate() {
    ExpressionPtr left = ReadSum();
    static constexpr std::array<std::pair<const char*, const char*>, 9> kComparisons{{{"<>", "<>"},
                                                                                      {"!=", "<>"},
                                                                                      {"<=", "<="},
                                                                                      {">=", ">="},
                                                                                      {"!<", ">="},
                                                                                      {"!>", "<="},
                                                                                      {"=", "="},
                                                                                      {"<", "<"},
                                                                                      {">", ">"}}};
    for (const auto& [sign, op] : kComparisons)
      if (TakeSign(sign)) return Binary(QLatin1String(op), std::move(left), ReadSum());
    if (TakeWord("is")) {
      auto test = std::make_unique<Expression>(Expression::IsNull);
      test->negated = TakeWord("not");
      NeedWord("null");
      test->parts.push_back(std::move(left));
      return test;
    }
    const bool negated = IsWord("not") && (IsWord("like", 1) || IsWord("in", 1) || IsWord("between", 1));
    if (negated) ++at_;
    ExpressionPtr test;
    if (TakeWord("like")) {
      test = std::make_unique<Expression>(Expression::Like);
      test->parts.push_back(std::move(left));
      test->parts.push_back(ReadSum());
      if (TakeWord("escape")) test->parts.push_back(ReadSum());
    } else if (TakeWord("between")) {
      test = std::make_unique<Expression>(Expression::Between);
      test->parts.push_back(std::move(left));
      test->parts.push_back(ReadSum());
      NeedWord("and");
      test->parts.push_back(ReadSum());
    } else if (TakeWord("in")) {
      test = ReadIn(std::move(left));
    } else {
      return left;
    }
    test->negated = negated;
    return test;
  }

  ExpressionPtr ReadIn(ExpressionPtr left) {
    auto test = std::make_unique<Expression>(Expression::In);
    test->parts.push_back(std::move(left));
    NeedSign("(");
    if (IsWord("select")) {
      test->query = ReadQuery();
    } else if (!IsSign(")")) {
      do test->parts.push_back(ReadSum());
      while (TakeSign(","));
    } else {
      Refuse(QStringLiteral("In ()"), text_);
    }
    NeedSign(")");
    return test;
  }

  ExpressionPtr ReadSum() {
    ExpressionPtr left = ReadProduct();
    for (;;) {
      if (TakeSign("+"))
        left = Binary(QStringLiteral("+"), std::move(left), ReadProduct());
      else if (TakeSign("-"))
        left = Binary(QStringLiteral("-"), std::move(left), ReadProduct());
      else
        return left;
    }
  }

  ExpressionPtr ReadProduct() {
    ExpressionPtr left = ReadSigned();
    for (;;) {
      if (TakeSign("*"))
        left = Binary(QStringLiteral("*"), std::move(left), ReadSigned());
      else if (TakeSign("/"))
        left = Binary(QStringLiteral("/"), std::move(left), ReadSigned());
      else if (TakeSign("%"))
        left = Binary(QStringLiteral("%"), std::move(left), ReadSigned());
      else
        return left;
    }
  }

  ExpressionPtr ReadSigned() {
    for (const char* sign : {"-", "+"})
      if (TakeSign(sign)) {
        auto value = std::make_unique<Expression>(Expression::Unary);
        value->text = QLatin1String(sign);
        value->parts.push_back(ReadSigned());
        return value;
      }
    return ReadPrimary();
  }

  ExpressionPtr ReadPrimary() {
    const Token& token = Now();
    if (token.kind == TokenKind::Text || token.kind == TokenKind::Number) {
      auto literal =
          std::make_unique<Expression>(token.kind == TokenKind::Text ? Expression::Text : Expression::Number);
      literal->text = token.text;
      literal->literal = literals_++;
      ++at_;
      return literal;
    }
    if (TakeSign("*")) return std::make_unique<Expression>(Expression::Star);
    if (TakeSign("(")) return ReadBracketed();
    if (TakeWord("null")) return std::make_unique<Expression>(Expression::Null);
    if (TakeWord("case")) return ReadCase();
    if (IsWord("exists") && IsSign("(", 1)) {
      at_ += 2;
      auto test = std::make_unique<Expression>(Expression::Exists);
      test->query = ReadQuery();
      NeedSign(")");
      return test;
    }
    if (IsWord("cast") && IsSign("(", 1)) return ReadCast();
    if (IsWord("convert") && IsSign("(", 1)) return ReadConvert();
    if (token.kind == TokenKind::Word && IsSign("(", 1)) return ReadCall();
    if (IsName()) return ReadName();
    RefuseHere();
  }

  ExpressionPtr ReadBracketed() {
    if (IsWord("select")) {
      auto subquery = std::make_unique<Expression>(Expression::Subquery);
      subquery->query = ReadQuery();
      NeedSign(")");
      return subquery;
    }
    auto group = std::make_unique<Expression>(Expression::Group);
    group->parts.push_back(ReadExpression());
    NeedSign(")");
    return group;
  }

  ExpressionPtr ReadName() {
    auto name = std::make_unique<Expression>(Expression::Name);
    name->text = NeedName(&name->quoted);
    if (name->text.startsWith(u'@') && !name->quoted) Refuse(QStringLiteral("变量“%1”").arg(name->text), text_);
    while (TakeSign(".")) {
      name->qualifier = name->text;
      if (TakeSign("*")) {
        name->kind = Expression::Star;
        return name;
      }
      name->text = NeedName(&name->quoted);
    }
    return name;
  }

  ExpressionPtr ReadCase() {
    auto value = std::make_unique<Expression>(Expression::Case);
    if (!IsWord("when")) {
      value->hasOperand = true;
      value->parts.push_back(ReadExpression());
    }
    while (TakeWord("when")) {
      value->parts.push_back(ReadExpression());
      NeedWord("then");
      value->parts.push_back(ReadExpression());
    }
    if (TakeWord("else")) {
      value->hasElse = true;
      value->parts.push_back(ReadExpression());
    }
    NeedWord("end");
    return value;
  }

  void ReadType(Expression& cast) {
    cast.text = NeedName().toLower();
    if (!TakeSign("(")) return;
    if (Now().kind != TokenKind::Number) RefuseHere();
    cast.size = tokens_[at_++].text.toInt();
    ++literals_;  // a number of the statement like any other, though it is part of the type
    if (TakeSign(",")) {
      if (Now().kind != TokenKind::Number) RefuseHere();
      ++at_;
      ++literals_;
    }
    NeedSign(")");
  }

  ExpressionPtr ReadCast() {
    at_ += 2;
    auto cast = std::make_unique<Expression>(Expression::Cast);
    cast->parts.push_back(ReadExpression());
    NeedWord("as");
    ReadType(*cast);
    NeedSign(")");
    return cast;
  }

  ExpressionPtr ReadConvert() {
    at_ += 2;
    auto cast = std::make_unique<Expression>(Expression::Cast);
    ReadType(*cast);
    NeedSign(",");
    cast->parts.push_back(ReadExpression());
    if (TakeSign(",")) {
      if (Now().kind != TokenKind::Number) RefuseHere();
      cast->style = tokens_[at_++].text.toInt();
      ++literals_;
    }
    NeedSign(")");
    return cast;
  }

  ExpressionPtr ReadCall() {
    auto call = std::make_unique<Expression>(Expression::Call);
    call->text = tokens_[at_].text.toLower();
    at_ += 2;
    call->distinct = TakeWord("distinct");
    if (!IsSign(")")) do
        call->parts.push_back(ReadExpression());
      while (TakeSign(","));
    NeedSign(")");
    if (IsWord("over")) Refuse(QStringLiteral("Over (…)"), text_);
    return call;
  }

  static ExpressionPtr Binary(const QString& op, ExpressionPtr left, ExpressionPtr right) {
    auto value = std::make_unique<Expression>(Expression::Binary);
    value->text = op;
    value->parts.push_back(std::move(left));
    value->parts.push_back(std::move(right));
    return value;
  }

  const QString& text_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int literals_ = 0;
};

}  // namespace

Statement Parse(const QString& statement) { return Parser(statement).ReadAll(); }

}  // namespace folvane::sql
