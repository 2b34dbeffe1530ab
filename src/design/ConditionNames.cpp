#include "design/ConditionNames.h"

#include <functional>

#include <folvane/DataError.h>

#include "data/dialect/Tokenizer.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;
using Tokens = std::vector<sql::Token>;

Tokens TokensOf(const QString& condition) {
  try {
    return sql::Tokenize(condition);
  } catch (const DataError&) {
    return {};
  }
}

bool IsName(const sql::Token& token) {
  return token.kind == sql::TokenKind::Word || token.kind == sql::TokenKind::Quoted;
}

bool IsSignAt(const Tokens& tokens, std::size_t at, QLatin1String sign) {
  return at < tokens.size() && tokens[at].IsSign(sign);
}

// From the end, so that the places before stay what they are.
QString Renamed(QString condition, const QString& from, const QString& to,
                const std::function<bool(const Tokens&, std::size_t at)>& isMeant) {
  const Tokens tokens = TokensOf(condition);
  for (std::size_t at = tokens.size(); at-- > 0;) {
    if (!IsName(tokens[at]) || !IsSame(tokens[at].text, from) || !isMeant(tokens, at)) continue;
    const qsizetype mark = tokens[at].kind == sql::TokenKind::Quoted ? 1 : 0;
    condition.replace(tokens[at].at + mark, tokens[at].text.size(), to);
  }
  return condition;
}

}  // namespace

bool Names(const QString& condition, const QString& column) {
  const Tokens tokens = TokensOf(condition);
  return std::any_of(tokens.begin(), tokens.end(),
                     [&](const sql::Token& token) { return IsName(token) && IsSame(token.text, column); });
}

QStringList FieldsIn(const QString& condition, const Design::Table& table) {
  QStringList names;
  for (const sql::Token& token : TokensOf(condition)) {
    const Design::Field* field = IsName(token) ? FindNamed(table.fields, token.text) : nullptr;
    if (field && !names.contains(field->name)) names << field->name;
  }
  return names;
}

QString WithFieldRenamed(const QString& condition, const QString& table, const QString& from, const QString& to) {
  return Renamed(condition, from, to, [&](const Tokens& tokens, std::size_t at) {
    if (IsSignAt(tokens, at + 1, "."_L1)) return false;
    return at < 2 || !IsSignAt(tokens, at - 1, "."_L1) || IsSame(tokens[at - 2].text, table);
  });
}

QString WithTableRenamed(const QString& condition, const QString& from, const QString& to) {
  return Renamed(condition, from, to,
                 [](const Tokens& tokens, std::size_t at) { return IsSignAt(tokens, at + 1, "."_L1); });
}

}  // namespace folvane::design
