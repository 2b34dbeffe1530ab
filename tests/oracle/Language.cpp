#include "Language.h"

#include <cmath>

namespace folvane::test::oracle {
using namespace Qt::Literals::StringLiterals;

Truth And(Truth a, Truth b) {
  if ((a && !*a) || (b && !*b)) return false;
  return a && b ? Truth(true) : std::nullopt;
}

Truth Or(Truth a, Truth b) { return Not(And(Not(a), Not(b))); }

Truth Not(Truth a) { return a ? Truth(!*a) : std::nullopt; }

QString WithoutTrailingBlanks(QString text) {
  while (text.endsWith(u' ')) text.chop(1);
  return text;
}

QString Folded(const QString& text) { return Lower(WithoutTrailingBlanks(text)); }

int Compare(const Value& a, const Value& b) {
  if (std::holds_alternative<QString>(a)) {
    const QByteArray left = Folded(Text(a)).toUtf8(), right = Folded(Text(b)).toUtf8();
    return left < right ? -1 : left > right;
  }
  if (std::holds_alternative<double>(a)) return Number(a) < Number(b) ? -1 : Number(a) > Number(b);
  return Moment(a) < Moment(b) ? -1 : Moment(a) > Moment(b);
}

QString Upper(QString text) {
  for (QChar& c : text)
    if (c >= u'a' && c <= u'z') c = QChar(c.unicode() - 32);
  return text;
}

QString Lower(QString text) {
  for (QChar& c : text)
    if (c >= u'A' && c <= u'Z') c = QChar(c.unicode() + 32);
  return text;
}

int Length(const QString& text) { return int(text.toUcs4().size()); }

QString Left(const QString& text, int length) { return SubString(text, 1, length); }

QString Right(const QString& text, int length) { return SubString(text, Length(text) - length + 1, length); }

QString SubString(const QString& text, int start, int length) {
  const auto characters = text.toUcs4();
  QString piece;
  for (int at = start; at < start + length; ++at)
    if (at >= 1 && at <= characters.size()) piece += QChar::fromUcs4(characters[at - 1]);
  return piece;
}

int CharIndex(const QString& find, const QString& text, int from) {
  if (find.isEmpty()) return 0;
  for (int at = std::max(from, 1); at + Length(find) - 1 <= Length(text); ++at)
    if (Lower(SubString(text, at, Length(find))) == Lower(find)) return at;
  return 0;
}

QString Replace(const QString& text, const QString& find, const QString& with) {
  QString replaced;
  for (int at = 1; at <= Length(text);) {
    const int found = CharIndex(find, text, at);
    if (found == 0) return replaced + SubString(text, at, Length(text));
    replaced += SubString(text, at, found - at) + with;
    at = found + Length(find);
  }
  return replaced;
}

double Rounded(double number, int decimals) {
  const double factor = std::pow(10.0, decimals);
  return std::round(number * factor) / factor;
}

QString Str(double number, int width, int decimals) {
  if (QString::number(Rounded(number, 0), 'f', 0).size() > width) return QString(width, u'*');
  return QString::number(Rounded(number, decimals), 'f', decimals).left(width).rightJustified(width);
}

bool IsNumeric(const QString& text) {
  bool ok = false;
  text.trimmed().toDouble(&ok);
  return ok;
}

double WholeNumber(const QString& text) { return text.trimmed().toDouble(); }

QString AsText(const Value& value) {
  if (std::holds_alternative<QString>(value)) return Text(value);
  if (std::holds_alternative<double>(value)) return QString::number(Number(value), 'g', 15);
  const bool midnight = Moment(value).time() == QTime(0, 0);
  return Moment(value).toString(midnight ? u"yyyy-MM-dd"_s : u"yyyy-MM-dd HH:mm:ss"_s);
}

QDateTime MomentOf(int year, int month, int day, int hour, int minute, int second) {
  return {QDate(year, month, day), QTime(hour, minute, second), Qt::UTC};
}

namespace {

// The borders of a part that lie before a moment; weeks begin on Sunday.
double Borders(const QString& part, const QDateTime& at) {
  const QDate date = at.date();
  if (part == "year"_L1) return date.year();
  if (part == "quarter"_L1) return date.year() * 4 + (date.month() - 1) / 3;
  if (part == "month"_L1) return date.year() * 12 + date.month();
  if (part == "week"_L1) return std::floor(double(QDate(1899, 12, 31).daysTo(date)) / 7);
  if (part == "day"_L1) return double(date.toJulianDay());
  const double seconds = double(date.toJulianDay()) * 86400 + at.time().msecsSinceStartOfDay() / 1000;
  return std::floor(seconds / (part == "hour"_L1 ? 3600 : part == "minute"_L1 ? 60 : 1));
}

}  // namespace

double DatePart(const QString& part, const QDateTime& at) {
  const QDate date = at.date();
  if (part == "year"_L1) return date.year();
  if (part == "quarter"_L1) return (date.month() - 1) / 3 + 1;
  if (part == "month"_L1) return date.month();
  if (part == "day"_L1) return date.day();
  if (part == "dayofyear"_L1) return date.dayOfYear();
  if (part == "weekday"_L1) return date.dayOfWeek() % 7 + 1;
  if (part == "week"_L1) return Borders(part, at) - Borders(part, MomentOf(date.year(), 1, 1)) + 1;
  return part == "hour"_L1 ? at.time().hour() : part == "minute"_L1 ? at.time().minute() : at.time().second();
}

double DateDiff(const QString& part, const QDateTime& from, const QDateTime& to) {
  return Borders(part, to) - Borders(part, from);
}

QDateTime DateAdd(const QString& part, int count, const QDateTime& at) {
  if (part == "year"_L1) return at.addYears(count);
  if (part == "quarter"_L1) return at.addMonths(3 * count);
  if (part == "month"_L1) return at.addMonths(count);
  if (part == "week"_L1) return at.addDays(7 * count);
  if (part == "day"_L1) return at.addDays(count);
  return at.addSecs(count * (part == "hour"_L1 ? 3600 : part == "minute"_L1 ? 60 : 1));
}

QString Formatted(int style, const QDateTime& at) {
  switch (style) {
    case 101:
      return at.toString(u"MM/dd/yyyy"_s);
    case 102:
      return at.toString(u"yyyy.MM.dd"_s);
    case 108:
      return at.toString(u"HH:mm:ss"_s);
    case 111:
      return at.toString(u"yyyy/MM/dd"_s);
    case 112:
      return at.toString(u"yyyyMMdd"_s);
    default:
      return at.toString(u"yyyy-MM-dd HH:mm:ss"_s);
  }
}

}  // namespace folvane::test::oracle
