#include "data/dialect/StatementParser.h"

#include <array>

#include "data/dialect/Refusal.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

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
  if (token.kind == TokenKind::Word && token.text.startsWith(u'@')) Refuse(u"变量“%1”"_s.arg(token.text));
  if (token.kind == TokenKind::Word && token.text.startsWith(u'#')) Refuse(u"临时表“%1”"_s.arg(token.text));
  return token.text;
}

void StatementParser::RefuseKnownForms() const {
  for (const KnownForm& form : kRefusedForms)
    if (IsWord(form.first) && (!*form.second || IsWord(form.second, 1))) Refuse(QString::fromUtf8(form.name));
  for (const char* sign : {"&", "|", "^", "~"})
    if (IsSign(sign)) Refuse(u"位运算“%1”"_s.arg(QLatin1String(sign)));
}

void StatementParser::RejectHere() const {
  const Token& token = Now();
  if (token.kind == TokenKind::End) RejectSyntax(u"语句不完整"_s);
  if (token.IsSign(";"_L1)) Refuse(u"一次执行多条语句"_s);
  RefuseKnownForms();
  RejectSyntax(u"“%1”附近有错误"_s.arg(text_.mid(token.at, 30)));
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
      if (IsWord(word)) Refuse(u"一次执行多条语句"_s);
    if (at_ > 0 && tokens_[at_ - 1].IsSign(";"_L1)) Refuse(u"一次执行多条语句"_s);
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
    if (IsWord(word)) Refuse(u"%1 语句"_s.arg(Now().text));
  RejectHere();
}

Statement StatementParser::ReadConditional() {
  Statement statement;
  statement.kind = Statement::Conditional;
  statement.condition = ReadExpression();
  if (!IsWord("select")) Refuse(u"If 后面不是 Select 语句"_s);
  statement.then = ReadQuery();
  if (!TakeWord("else")) Refuse(u"没有 Else 的 If"_s);
  if (!IsWord("select")) Refuse(u"Else 后面不是 Select 语句"_s);
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
  if (IsWord("default")) Refuse(u"Default Values"_s);
  if (IsWord("exec") || IsWord("execute")) Refuse(u"Insert … Exec"_s);
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
    if (IsWord("default")) Refuse(u"Values 中的 Default"_s);
    if (!named) statement.assignments.emplace_back();
    if (count == statement.assignments.size()) RejectSyntax(u"值比字段多"_s);
    statement.assignments[count++].value = ReadExpression();
  } while (TakeSign(","));
  NeedSign(")");
  if (count < statement.assignments.size()) RejectSyntax(u"字段比值多"_s);
  if (IsSign(",")) Refuse(u"一次插入多行"_s);
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
  if (IsWord("from")) Refuse(u"Update … From"_s);
  if (TakeWord("where")) statement.where = ReadExpression();
  return statement;
}

Statement StatementParser::ReadDelete() {
  Statement statement;
  statement.kind = Statement::Delete;
  TakeWord("from");
  statement.target = ReadTarget();
  if (IsWord("from")) Refuse(u"Delete … From"_s);
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
