#include "data/dialect/Literals.h"

#include <QStringList>
#include <algorithm>

#include "data/RefusedValues.h"
#include "data/dialect/LikePatterns.h"
#include "data/dialect/Refusal.h"
#include "data/dialect/TextValues.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

QString Trimmed(const QString& text) {
  qsizetype length = text.size();
  while (length > 0 && text[length - 1] == u' ') --length;
  return text.left(length);
}

QString Folded(const QString& text) {
  QString folded = Trimmed(text);
  for (QChar& c : folded)
    if (c >= u'A' && c <= u'Z') c = QChar(c.unicode() + 32);
  return folded;
}

template <typename Value>
QVariant Required(const std::optional<Value>& value, const QString& text, const QString& wanted) {
  if (!value) RejectValue(text, wanted);
  return QVariant::fromValue(*value);
}

QString DateEnd(const QString& text) {
  const std::optional<QString> date = DateFromText(text);
  if (!date) RejectValue(text, DateWord());
  return date->size() == 10 ? *date + u" 00:00:00.000"_s : *date;
}

QVariant NumberValue(const QString& text, Transform transform) {
  bool whole = false;
  const qlonglong value = text.toLongLong(&whole);
  if (transform == Transform::Text || transform == Transform::Stored) return whole ? QString::number(value) : text;
  if (whole) return value;
  return text.toDouble();
}

}  // namespace

QString Literal::ValueIn(const QString& statement) const {
  if (!hasDoubledQuotes) return QString::fromRawData(statement.constData() + begin, length);
  return statement.mid(begin, length).replace("''"_L1, "'"_L1);
}

QVariant ValueOf(const Literal& literal, const QString& statement, const Slot& slot) {
  const QString text = literal.ValueIn(statement);
  if (literal.kind != Literal::Text) {
    const QVariant value = NumberValue(text, slot.transform);
    return slot.transform == Transform::Stored ? FittedText(value.toString(), slot.column) : value;
  }
  switch (slot.transform) {
    case Transform::Stored:
      return FittedText(text, slot.column);
    case Transform::Integer:
      return Required(IntegerFromText(text), text, IntegerWord());
    case Transform::Decimal:
      return Required(DecimalFromText(text), text, NumberWord());
    case Transform::Float:
      return Required(FloatFromText(text), text, NumberWord());
    case Transform::Date:
      return Required(DateFromText(text), text, DateWord());
    case Transform::DateEnd:
      return DateEnd(text);
    case Transform::Trimmed:
      return Trimmed(text);
    case Transform::PastEnd:
      return QString(Trimmed(text) + u'!');
    case Transform::Folded:
      return Folded(text);
    case Transform::Pattern:
      return ReadPattern(text).native;
    case Transform::Regex:
      return RegexOf(ReadPattern(text));
    default:
      return text;
  }
}

namespace {

// The text with no, one, two ... trailing blanks, as many as its column or the eye can hold.
QByteArray Variants(const QString& text, int limit) {
  constexpr int kMostBlanks = 16;
  const QString bare = Trimmed(text);
  const qsizetype blanks = std::clamp<qsizetype>(limit - bare.size(), 0, kMostBlanks);
  QByteArray list;
  for (qsizetype i = 0; i <= blanks; ++i) list += (i ? "," : "") + QuotedText(bare + QString(i, u' '));
  return list;
}

}  // namespace

QByteArray TextOf(const Literal& literal, const QString& statement, const Slot& slot) {
  const Transform transform = slot.transform;
  if (transform == Transform::Variants) return Variants(literal.ValueIn(statement), slot.limit);
  if (literal.kind != Literal::Text && transform != Transform::Text && transform != Transform::Stored)
    return literal.ValueIn(statement).toUtf8();
  if (literal.kind == Literal::Text && transform == Transform::Decimal) {  // keeps every digit
    ValueOf(literal, statement, slot);
    return literal.ValueIn(statement).trimmed().toUtf8();
  }
  const QVariant value = ValueOf(literal, statement, slot);
  if (transform == Transform::Date)
    return "TIMESTAMP " + QuotedText(value.toString());  // beside a date it keeps its time
  return value.typeId() == QMetaType::QString ? QuotedText(value.toString()) : value.toString().toUtf8();
}

QByteArray QuotedText(const QString& text) {
  QByteArray quoted = text.toUtf8();
  quoted.replace("'", "''");
  if (!quoted.contains('\\')) return '\'' + quoted + '\'';
  return "E'" + quoted.replace("\\", "\\\\") + '\'';
}

}  // namespace folvane::sql
