#include "data/KeysetStatement.h"

#include <algorithm>

#include <folvane/DataError.h>

#include "data/dialect/Tokenizer.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;
using sql::Token;
using sql::TokenKind;

QString Bracketed(QString name) { return u'[' + name.replace(u']', u"]]"_s) + u']'; }

QString Listed(const QStringList& columns) {
  QStringList names;
  for (const QString& column : columns) names << Bracketed(column);
  return names.join(u", "_s);
}

bool IsAnyWord(const Token& token, std::initializer_list<QLatin1String> words) {
  return std::any_of(words.begin(), words.end(), [&](QLatin1String word) { return token.IsWord(word); });
}

// Most statements are of another form, and few of those are worth being taken apart.
bool BeginsWithSelectStar(const QString& statement) {
  const QStringView text = QStringView(statement).trimmed();
  return text.startsWith("select"_L1, Qt::CaseInsensitive) && text.sliced(6).trimmed().startsWith(u'*');
}

}  // namespace

std::optional<KeysetStatement> KeysetStatement::Read(const QString& statement) {
  if (!BeginsWithSelectStar(statement)) return std::nullopt;
  std::vector<Token> tokens;
  try {
    tokens = sql::Tokenize(statement);
  } catch (const DataError&) {
    return std::nullopt;  // it is refused where it is run
  }
  constexpr std::size_t kName = 3, kAfterName = 4;
  if (tokens.size() <= kAfterName || !tokens[1].IsSign("*"_L1) || !tokens[2].IsWord("from"_L1)) return std::nullopt;
  if (tokens[kName].kind != TokenKind::Word && tokens[kName].kind != TokenKind::Quoted) return std::nullopt;
  const Token& next = tokens[kAfterName];
  if (next.kind != TokenKind::End && !IsAnyWord(next, {"where"_L1, "order"_L1})) return std::nullopt;

  KeysetStatement read;
  read.text_ = statement;
  read.table_ = tokens[kName].text;
  read.starAt_ = tokens[1].at;
  read.orderAt_ = statement.size();
  read.hasCondition_ = next.IsWord("where"_L1);
  int depth = 0;
  for (std::size_t i = kAfterName; i + 1 < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.IsSign("("_L1)) ++depth;
    if (token.IsSign(")"_L1)) --depth;
    if (depth != 0) continue;
    if (IsAnyWord(token, {"group"_L1, "having"_L1, "union"_L1, "for"_L1, "option"_L1}) || token.IsSign(";"_L1))
      return std::nullopt;
    const bool orders = read.HasOrder();
    if (token.IsWord("order"_L1)) read.orderAt_ = token.at;
    // A number there counts the columns, which are others in what is made of the statement.
    if (orders && token.kind == TokenKind::Number) return std::nullopt;
  }
  return read;
}

QString KeysetStatement::Selecting(const QString& what, qsizetype end) const {
  return text_.first(starAt_) + what + text_.sliced(starAt_ + 1, end - starAt_ - 1);
}

QString KeysetStatement::OfColumns(const QStringList& columns) const {
  return Selecting(Listed(columns), text_.size());
}

QString KeysetStatement::OfColumnsUnordered(const QStringList& columns) const {
  return Selecting(Listed(columns), orderAt_);
}

QString KeysetStatement::OfFirst(qint64 rows) const {
  return Selecting(u"Top "_s + QString::number(rows) + u" *"_s, text_.size());
}

QString KeysetStatement::CountingUpTo(qint64 rows, const QString& column) const {
  return u"Select Count(*) From (Select Top %1 %2 From %3) t"_s.arg(rows).arg(Bracketed(column), Bracketed(table_));
}

}  // namespace folvane
