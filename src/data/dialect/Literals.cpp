#include "data/dialect/Literals.h"

#include <QDateTime>

#include <folvane/DataError.h>

#include "data/ValueText.h"
#include "data/dialect/LikePatterns.h"

namespace folvane::sql {

namespace {

bool IsAsciiLetter(QChar c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }

QString Trimmed(const QString& text) {
  qsizetype length = text.size();
  while (length > 0 && text[length - 1] == u' ') --length;
  return text.left(length);
}

QVariant NumberOf(const QString& text) {
  const QString trimmed = text.trimmed();
  if (trimmed.isEmpty()) return qlonglong(0);
  bool ok = false;
  const qlonglong whole = trimmed.toLongLong(&ok);
  if (ok) return whole;
  const double real = trimmed.toDouble(&ok);
  if (ok) return real;
  throw DataError(DataErrorKind::Conversion,
                  QStringLiteral("“%1”不是数字，不能与数字字段比较或存入数字字段。").arg(text));
}

QVariant DateOf(const QString& text) {
  if (text.trimmed().isEmpty()) return QStringLiteral("1900-01-01");
  const QDateTime moment = ReadDateTime(text);
  if (!moment.isValid())
    throw DataError(DataErrorKind::Conversion,
                    QStringLiteral("“%1”不是日期，不能与日期字段比较或存入日期字段。").arg(text));
  return ValueText(moment);
}

}  // namespace

LiteralClass ClassOf(QStringView text) {
  if (text.isEmpty()) return EmptyText;
  LiteralClass found = KeyText;
  for (const QChar c : text) {
    if (c == u'[' || c == u'\\' || c == u'_') return BracketText;
    if (IsAsciiLetter(c)) found = PlainText;
  }
  return found;
}

QVariant Apply(Transform transform, const Literal& literal) {
  if (!literal.quoted) return NumberOf(literal.text);
  switch (transform) {
    case Transform::Plain:
      return literal.text;
    case Transform::Trimmed:
      return Trimmed(literal.text);
    case Transform::PastEnd:
      return QString(Trimmed(literal.text) + u'!');
    case Transform::Folded: {
      QString folded = Trimmed(literal.text);
      for (QChar& c : folded)
        if (c >= u'A' && c <= u'Z') c = QChar(c.unicode() + 32);
      return folded;
    }
    case Transform::Number:
      return NumberOf(literal.text);
    case Transform::Date:
      return DateOf(literal.text);
    case Transform::Pattern:
      return ReadPattern(literal.text).native;
  }
  return {};
}

void ReadShape(const QString& statement, Shape& shape) {
  shape.key.clear();
  shape.key.reserve(statement.size());
  shape.literals.clear();
  shape.cacheable = true;
  const QChar* at = statement.constData();
  const QChar* const end = at + statement.size();
  bool inWord = false;
  while (at < end) {
    const char16_t c = at->unicode();
    if (c == u'\'') {
      // N'...' is a text literal too; the N before it stays in the shape.
      QString text;
      const QChar* start = ++at;
      for (;;) {
        while (at < end && *at != u'\'') ++at;
        if (at >= end) {
          shape.cacheable = false;
          return;
        }
        if (at + 1 < end && at[1] == u'\'') {
          text.append(start, at - start + 1);
          start = at += 2;
          continue;
        }
        text.append(start, at - start);
        ++at;
        break;
      }
      const LiteralClass found = ClassOf(text);
      if (found == BracketText) shape.cacheable = false;
      shape.key += QChar(found);
      shape.literals.push_back({true, std::move(text)});
      inWord = false;
      continue;
    }
    if (!inWord && c >= u'0' && c <= u'9') {
      const QChar* start = at;
      while (at < end && (at->isDigit() || *at == u'.')) ++at;
      if (at < end && (at->isLetter() || *at == u'_')) shape.cacheable = false;  // 1e5 and the like
      shape.key += QChar(NumberLiteral);
      shape.literals.push_back({false, QString(start, at - start)});
      continue;
    }
    if (c == u'[' || c == u'"' || c == u'-' || c == u'/') {
      // Quoted names may hold quotes, and comments may hold anything; both are rare.
      if (c == u'[' || c == u'"' || (at + 1 < end && (at[1] == u'-' || at[1] == u'*'))) shape.cacheable = false;
    }
    inWord = (c >= u'0' && c <= u'9') || c == u'_' || c == u'#' || c == u'@' || c == u'$' || QChar(c).isLetter();
    shape.key += *at++;
  }
}

}  // namespace folvane::sql
