#include "data/dialect/StatementParser.h"

#include <array>

#include "data/dialect/Refusal.h"

namespace folvane::sql {

namespace {

// Words that end an expression or a table name without "As" before them.
constexpr std::array kClauseWords{
    "select", "from",   "where",  "group",     "having",  "order", "union",  "inner",  "left",    "right", "full",
    "cross",  "join",   "on",     "and",       "or",      "not",   "like",   "in",     "between", "is",    "escape",
    "as",     "else",   "when",   "then",      "end",     "asc",   "desc",   "values", "set",     "into",  "if",
    "insert", "update", "delete", "intersect", "compute", "for",   "option", "with",   "outer",   "except"};

bool IsClauseWord(const Token& token) {
  if (token.kind != TokenKind::Word) return false;
  for (const char* word : kClauseWords)
    if (token.IsWord(QLatin1String(word))) return true;
  return false;
}

struct KnownForm {
  const char* first;
  const char* second;  // "" for any
  const char* name;
};

constexpr std::array kRefusedForms{
    KnownForm{"into", "", "Select … Into"},
    KnownForm{"for", "xml", "For Xml"},
    KnownForm{"for", "", "For"},
    KnownForm{"option", "", "Option (…)"},
    KnownForm{"compute", "", "Compute"},
    KnownForm{"cross", "apply", "Cross Apply"},
    KnownForm{"outer", "apply", "Outer Apply"},
    KnownForm{"except", "", "Except"},
    KnownForm{"intersect", "", "Intersect"},
    KnownForm{"over", "", "Over (…)"},
    KnownForm{"with", "ties", "Top n With Ties"},
    KnownForm{"with", "", "With (…)"},
    KnownForm{"percent", "", "Top n Percent"},
};

// What a statement may begin with that is none of ours.
constexpr std::array kForeignStatements{"exec",   "execute", "drop",  "create", "alter", "truncate", "declare", "set",
                                        "begin",  "commit",  "while", "print",  "use",   "grant",    "revoke",  "deny",
                                        "backup", "restore", "merge", "with",   "go",    "rollback", "return",  "kill"};

}  // namespace

const Token& StatementParser::Now(std::size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

bool StatementParser::IsName(std::size_t ahead) const {
  const Token& token = Now(ahead);
  return token.kind == TokenKind::Quoted || (token.kind == TokenKind::Word && !IsClauseWord(token));
}

void StatementParser::NeedWord(const char* word) {
  if (!TakeWord(word)) RejectHere();
}

void StatementParser::NeedSign(const char* sign) {
  if (!TakeSign(sign)) RejectHere();
}

QString StatementParser::NeedName() {
  if (!IsName()) RejectHere();
  const Token& token = tokens_[at_++];
  if (token.kind == TokenKind::Word && token.text.startsWith(u'@')) Refuse(QStringLiteral("变量“%1”").arg(token.text));
  if (token.kind == TokenKind::Word && token.text.startsWith(u'#'))
    Refuse(QStringLiteral("临时表“%1”").arg(token.text));
  return token.text;
}

void StatementParser::RefuseKnownForms() const {
  for (const KnownForm& form : kRefusedForms)
    if (IsWord(form.first) && (!*form.second || IsWord(form.second, 1))) Refuse(QString::fromUtf8(form.name));
  for (const char* sign : {"&", "|", "^", "~"})
    if (IsSign(sign)) Refuse(QStringLiteral("位运算“%1”").arg(QLatin1String(sign)));
}

void StatementParser::RejectHere() const {
  const Token& token = Now();
  if (token.kind == TokenKind::End) RejectSyntax(QStringLiteral("语句不完整"));
  if (token.IsSign(QLatin1String(";"))) Refuse(QStringLiteral("一次执行多条语句"));
  RefuseKnownForms();
  RejectSyntax(QStringLiteral("“%1”附近有错误").arg(text_.mid(token.at, 30)));
}

int StatementParser::NeedStructuralNumber() {
  if (Now().kind != TokenKind::Number) RejectHere();
  structural_.push_back(literals_++);
  return tokens_[at_++].text.toInt();
}

QString StatementParser::TakeStructuralText() {
  structural_.push_back(literals_++);
  return tokens_[at_++].text;
}

Parsed StatementParser::ReadAll() {
  Parsed parsed;
  parsed.statement = ReadStatement();
  TakeSign(";");
  if (Now().kind != TokenKind::End) {
    for (const char* word : {"select", "insert", "update", "delete", "if"})
      if (IsWord(word)) Refuse(QStringLiteral("一次执行多条语句"));
    if (at_ > 0 && tokens_[at_ - 1].IsSign(QLatin1String(";"))) Refuse(QStringLiteral("一次执行多条语句"));
    RejectHere();
  }
  parsed.structural = std::move(structural_);
  return parsed;
}

Statement StatementParser::ReadStatement() {
  if (IsWord("select")) {
    Statement statement;
    statement.query = ReadQuery();
    return statement;
  }
  if (TakeWord("insert")) return ReadInsert();
  if (TakeWord("update")) return ReadUpdate();
  if (TakeWord("delete")) return ReadDelete();
  if (TakeWord("if")) return ReadConditional();
  for (const char* word : kForeignStatements)
    if (IsWord(word)) Refuse(QStringLiteral("%1 语句").arg(Now().text));
  RejectHere();
}

Statement StatementParser::ReadConditional() {
  Statement statement;
  statement.kind = Statement::Conditional;
  statement.condition = ReadExpression();
  if (!IsWord("select")) Refuse(QStringLiteral("If 后面不是 Select 语句"));
  statement.then = ReadQuery();
  if (!TakeWord("else")) Refuse(QStringLiteral("没有 Else 的 If"));
  if (!IsWord("select")) Refuse(QStringLiteral("Else 后面不是 Select 语句"));
  statement.otherwise = ReadQuery();
  return statement;
}

Statement StatementParser::ReadInsert() {
  Statement statement;
  statement.kind = Statement::Insert;
  TakeWord("into");
  statement.target = ReadTarget();
  if (IsSign("(") && !IsWord("select", 1)) {
    NeedSign("(");
    do statement.assignments.push_back({NeedName(), nullptr, nullptr});
    while (TakeSign(","));
    NeedSign(")");
  }
  if (IsWord("default")) Refuse(QStringLiteral("Default Values"));
  if (IsWord("exec") || IsWord("execute")) Refuse(QStringLiteral("Insert … Exec"));
  if (TakeWord("values")) {
    ReadValues(statement);
    return statement;
  }
  const bool bracketed = TakeSign("(");
  statement.query = ReadQuery();
  if (bracketed) NeedSign(")");
  return statement;
}

void StatementParser::ReadValues(Statement& statement) {
  const bool named = !statement.assignments.empty();
  std::size_t count = 0;
  NeedSign("(");
  do {
    if (IsWord("default")) Refuse(QStringLiteral("Values 中的 Default"));
    if (!named) statement.assignments.emplace_back();
    if (count == statement.assignments.size()) RejectSyntax(QStringLiteral("值比字段多"));
    statement.assignments[count++].value = ReadExpression();
  } while (TakeSign(","));
  NeedSign(")");
  if (count < statement.assignments.size()) RejectSyntax(QStringLiteral("字段比值多"));
  if (IsSign(",")) Refuse(QStringLiteral("一次插入多行"));
}

Statement StatementParser::ReadUpdate() {
  Statement statement;
  statement.kind = Statement::Update;
  statement.target = ReadTarget();
  NeedWord("set");
  do {
    Assignment assignment;
    assignment.column = NeedName();
    while (TakeSign(".")) assignment.column = NeedName();
    NeedSign("=");
    assignment.value = ReadExpression();
    statement.assignments.push_back(std::move(assignment));
  } while (TakeSign(","));
  if (IsWord("from")) Refuse(QStringLiteral("Update … From"));
  if (TakeWord("where")) statement.where = ReadExpression();
  return statement;
}

Statement StatementParser::ReadDelete() {
  Statement statement;
  statement.kind = Statement::Delete;
  TakeWord("from");
  statement.target = ReadTarget();
  if (IsWord("from")) Refuse(QStringLiteral("Delete … From"));
  if (TakeWord("where")) statement.where = ReadExpression();
  return statement;
}

// The owner before the point is the database's affair.
TableReference StatementParser::ReadTarget() {
  TableReference table;
  table.name = NeedName();
  while (TakeSign(".")) {
    TakeSign(".");
    table.name = NeedName();
  }
  return table;
}

Parsed Parse(const QString& statement) { return StatementParser(statement).ReadAll(); }

}  // namespace folvane::sql
