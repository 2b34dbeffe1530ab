// How StatementParser reads values and conditions.

#include <array>

#include "data/dialect/Refusal.h"
#include "data/dialect/StatementParser.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kDeepest = 200;  // brackets in brackets; far beyond what people write

ExpressionPtr Binary(const QString& op, ExpressionPtr left, ExpressionPtr right) {
  ExpressionPtr value = MakeExpression(Expression::Binary);
  value->text = op;
  value->parts = {std::move(left), std::move(right)};
  return value;
}

ExpressionPtr Unary(const QString& op, ExpressionPtr inner) {
  ExpressionPtr value = MakeExpression(Expression::Unary);
  value->text = op;
  value->parts = {std::move(inner)};
  return value;
}

}  // namespace

ExpressionPtr StatementParser::ReadExpression() {
  if (++depth_ > kDeepest) Refuse(u"括号嵌套过深"_s);
  ExpressionPtr left = ReadAnd();
  while (TakeWord("or")) left = Binary(u"OR"_s, std::move(left), ReadAnd());
  --depth_;
  return left;
}

ExpressionPtr StatementParser::ReadAnd() {
  ExpressionPtr left = ReadNot();
  while (TakeWord("and")) left = Binary(u"AND"_s, std::move(left), ReadNot());
  return left;
}

ExpressionPtr StatementParser::ReadNot() {
  int count = 0;
  while (TakeWord("not")) ++count;
  ExpressionPtr value = ReadPredicate();
  for (; count > 0; --count) value = Unary(u"NOT"_s, std::move(value));
  return value;
}

ExpressionPtr StatementParser::ReadPredicate() {
  ExpressionPtr left = ReadSum();
  if (TakeWord("is")) return ReadIsNull(std::move(left));
  const bool negated = IsWord("not") && (IsWord("like", 1) || IsWord("in", 1) || IsWord("between", 1));
  if (negated) ++at_;
  ExpressionPtr test;
  if (TakeWord("like"))
    test = ReadLike(std::move(left));
  else if (TakeWord("between"))
    test = ReadBetween(std::move(left));
  else if (TakeWord("in"))
    test = ReadIn(std::move(left));
  else
    return ReadComparison(std::move(left));
  test->negated = negated;
  return test;
}

ExpressionPtr StatementParser::ReadComparison(ExpressionPtr left) {
  using Spelling = std::pair<const char*, const char*>;
  static constexpr std::array kComparisons{Spelling{"<>", "<>"}, Spelling{"!=", "<>"}, Spelling{"<=", "<="},
                                           Spelling{">=", ">="}, Spelling{"!<", ">="}, Spelling{"!>", "<="},
                                           Spelling{"=", "="},   Spelling{"<", "<"},   Spelling{">", ">"}};
  for (const auto& [sign, op] : kComparisons)
    if (TakeSign(sign)) return Binary(QLatin1String(op), std::move(left), ReadSum());
  RefuseKnownForms();
  return left;
}

ExpressionPtr StatementParser::ReadIsNull(ExpressionPtr left) {
  ExpressionPtr test = MakeExpression(Expression::IsNull);
  test->negated = TakeWord("not");
  NeedWord("null");
  test->parts = {std::move(left)};
  return test;
}

ExpressionPtr StatementParser::ReadLike(ExpressionPtr left) {
  ExpressionPtr test = MakeExpression(Expression::Like);
  test->parts = {std::move(left), ReadSum()};
  if (TakeWord("escape")) test->parts.push_back(ReadSum());
  return test;
}

ExpressionPtr StatementParser::ReadBetween(ExpressionPtr left) {
  ExpressionPtr test = MakeExpression(Expression::Between);
  ExpressionPtr low = ReadSum();
  NeedWord("and");
  test->parts = {std::move(left), std::move(low), ReadSum()};
  return test;
}

ExpressionPtr StatementParser::ReadIn(ExpressionPtr left) {
  ExpressionPtr test = MakeExpression(Expression::In);
  test->parts.push_back(std::move(left));
  NeedSign("(");
  if (IsWord("select")) {
    test->query = ReadQuery();
  } else {
    if (IsSign(")")) RejectSyntax(u"In 的括号中没有值"_s);
    do test->parts.push_back(ReadSum());
    while (TakeSign(","));
  }
  NeedSign(")");
  return test;
}

ExpressionPtr StatementParser::ReadSum() {
  ExpressionPtr left = ReadProduct();
  for (;;) {
    const char* op = IsSign("+") ? "+" : IsSign("-") ? "-" : nullptr;
    if (!op) return left;
    ++at_;
    left = Binary(QLatin1String(op), std::move(left), ReadProduct());
  }
}

ExpressionPtr StatementParser::ReadProduct() {
  ExpressionPtr left = ReadSigned();
  for (;;) {
    const char* op = IsSign("*") ? "*" : IsSign("/") ? "/" : IsSign("%") ? "%" : nullptr;
    if (!op) return left;
    ++at_;
    left = Binary(QLatin1String(op), std::move(left), ReadSigned());
  }
}

ExpressionPtr StatementParser::ReadSigned() {
  std::vector<QString> signs;
  while (IsSign("-") || IsSign("+")) signs.push_back(tokens_[at_++].text);
  ExpressionPtr value = ReadPrimary();
  for (auto sign = signs.rbegin(); sign != signs.rend(); ++sign) value = Unary(*sign, std::move(value));
  return value;
}

ExpressionPtr StatementParser::ReadPrimary() {
  const Token& token = Now();
  if (token.kind == TokenKind::Text || token.kind == TokenKind::Number) return ReadLiteral();
  if (TakeSign("*")) return MakeExpression(Expression::Star);
  if (TakeSign("(")) return ReadBracketed();
  if (TakeWord("null")) return MakeExpression(Expression::Null);
  if (TakeWord("case")) return ReadCase();
  if (token.kind == TokenKind::Word && IsSign("(", 1)) {
    if (IsWord("exists")) return ReadExists();
    if (IsWord("cast")) return ReadCast();
    if (IsWord("convert")) return ReadConvert();
    if (!IsWord("in") && !IsWord("and") && !IsWord("or") && !IsWord("not")) return ReadCall();
  }
  if (IsName()) return ReadName();
  RejectHere();
}

ExpressionPtr StatementParser::ReadLiteral() {
  const Token& token = tokens_[at_++];
  ExpressionPtr literal = MakeExpression(token.kind == TokenKind::Text ? Expression::Text : Expression::Number);
  literal->text = token.text;
  literal->literal = literals_++;
  return literal;
}

ExpressionPtr StatementParser::ReadBracketed() {
  ExpressionPtr value;
  if (IsWord("select")) {
    value = MakeExpression(Expression::Subquery);
    value->query = ReadQuery();
  } else {
    value = MakeExpression(Expression::Group);
    value->parts.push_back(ReadExpression());
  }
  NeedSign(")");
  return value;
}

ExpressionPtr StatementParser::ReadExists() {
  at_ += 2;
  ExpressionPtr test = MakeExpression(Expression::Exists);
  test->query = ReadQuery();
  NeedSign(")");
  return test;
}

ExpressionPtr StatementParser::ReadName() {
  ExpressionPtr name = MakeExpression(Expression::Name);
  name->text = NeedName();
  if (name->text.compare("current_timestamp"_L1, Qt::CaseInsensitive) == 0) {
    name->kind = Expression::Call;
    name->text = u"getdate"_s;
    return name;
  }
  while (TakeSign(".")) {
    name->qualifier = name->text;
    if (TakeSign("*")) {
      name->kind = Expression::Star;
      return name;
    }
    name->text = NeedName();
  }
  return name;
}

ExpressionPtr StatementParser::ReadCase() {
  ExpressionPtr value = MakeExpression(Expression::Case);
  value->hasOperand = !IsWord("when");
  if (value->hasOperand) value->parts.push_back(ReadExpression());
  if (!IsWord("when")) RejectHere();
  while (TakeWord("when")) {
    value->parts.push_back(ReadExpression());
    NeedWord("then");
    value->parts.push_back(ReadExpression());
  }
  value->hasElse = TakeWord("else");
  if (value->hasElse) value->parts.push_back(ReadExpression());
  NeedWord("end");
  return value;
}

void StatementParser::ReadType(Expression& cast) {
  cast.text = NeedName().toLower();
  if (!TakeSign("(")) return;
  if (TakeWord("max")) {
    cast.size = -1;
  } else {
    cast.size = NeedStructuralNumber();
    if (TakeSign(",")) cast.scale = NeedStructuralNumber();
  }
  NeedSign(")");
}

ExpressionPtr StatementParser::ReadCast() {
  at_ += 2;
  ExpressionPtr cast = MakeExpression(Expression::Cast);
  cast->parts.push_back(ReadExpression());
  NeedWord("as");
  ReadType(*cast);
  NeedSign(")");
  return cast;
}

ExpressionPtr StatementParser::ReadConvert() {
  at_ += 2;
  ExpressionPtr cast = MakeExpression(Expression::Cast);
  ReadType(*cast);
  NeedSign(",");
  cast->parts.push_back(ReadExpression());
  if (TakeSign(",")) cast->style = NeedStructuralNumber();
  NeedSign(")");
  return cast;
}

ExpressionPtr StatementParser::ReadCall() {
  ExpressionPtr call = MakeExpression(Expression::Call);
  call->text = tokens_[at_].text.toLower();
  at_ += 2;
  call->distinct = TakeWord("distinct");
  if (!IsSign(")")) {
    do call->parts.push_back(ReadExpression());
    while (TakeSign(","));
  }
  NeedSign(")");
  if (IsWord("over")) RefuseKnownForms();
  return call;
}

}  // namespace folvane::sql
