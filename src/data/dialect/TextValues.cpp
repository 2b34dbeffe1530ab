#include "data/dialect/TextValues.h"

#include <QRegularExpression>

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

bool IsDigits(QStringView text) {
  for (const QChar c : text)
    if (c < u'0' || c > u'9') return false;
  return !text.isEmpty();
}

QStringView WithoutSign(QStringView text) {
  return text.startsWith(u'-') || text.startsWith(u'+') ? text.mid(1) : text;
}

bool IsDecimal(QStringView text) {
  const QStringView digits = WithoutSign(text);
  const qsizetype point = digits.indexOf(u'.');
  if (point < 0) return IsDigits(digits);
  const QStringView before = digits.first(point), after = digits.mid(point + 1);
  return (before.isEmpty() || IsDigits(before)) && (after.isEmpty() || IsDigits(after)) &&
         !(before.isEmpty() && after.isEmpty());
}

std::optional<double> ToDouble(QStringView text) {
  bool ok = false;
  const double value = text.toDouble(&ok);
  return ok ? std::optional(value) : std::nullopt;
}

QDateTime ReadMoment(const QString& text) {
  static const QRegularExpression pattern(
      u"^(?:(\\d{4})(?:([-/.])(\\d{1,2})\\2(\\d{1,2})|(\\d{2})(\\d{2}))|(\\d{1,2})([-/.])(\\d{1,2})\\8(\\d{4}))"
      "(?:[ T]+(\\d{1,2}):(\\d{2})(?::(\\d{2})(?:\\.(\\d{1,7}))?)?)?$"_s);
  const QRegularExpressionMatch match = pattern.match(text);
  if (!match.hasMatch()) return {};
  const auto part = [&](int group) { return match.capturedView(group).toInt(); };
  QDate date(part(1), part(3) + part(5), part(4) + part(6));
  if (match.capturedLength(7) > 0) date = QDate(part(10), part(7), part(9));
  const int milliseconds = QString(match.captured(14) + u"000"_s).left(3).toInt();
  const QTime time(part(11), part(12), part(13), milliseconds);
  return date.isValid() && time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

}  // namespace

std::optional<qlonglong> IntegerFromText(QStringView text) {
  const QStringView trimmed = text.trimmed();
  if (trimmed.isEmpty()) return 0;
  if (!IsDigits(WithoutSign(trimmed))) return std::nullopt;
  bool ok = false;
  const qlonglong value = trimmed.toLongLong(&ok);
  return ok ? std::optional(value) : std::nullopt;
}

std::optional<double> DecimalFromText(QStringView text) {
  const QStringView trimmed = text.trimmed();
  return IsDecimal(trimmed) ? ToDouble(trimmed) : std::nullopt;
}

std::optional<double> FloatFromText(QStringView text) {
  const QStringView trimmed = text.trimmed();
  if (trimmed.isEmpty()) return 0.0;
  const qsizetype exponent = trimmed.indexOf(u'e', 0, Qt::CaseInsensitive);
  if (exponent < 0) return IsDecimal(trimmed) ? ToDouble(trimmed) : std::nullopt;
  const bool fits = IsDecimal(trimmed.first(exponent)) && IsDigits(WithoutSign(trimmed.mid(exponent + 1)));
  return fits ? ToDouble(trimmed) : std::nullopt;
}

std::optional<QDateTime> MomentFromText(QStringView text) {
  const QString trimmed = text.trimmed().toString();
  if (trimmed.isEmpty()) return QDateTime(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC);
  const QDateTime moment = ReadMoment(trimmed);
  return moment.isValid() ? std::optional(moment) : std::nullopt;
}

QString MomentText(const QDateTime& moment) {
  const QTime time = moment.time();
  const bool midnight = time == QTime(0, 0);
  return moment.toString(midnight           ? u"yyyy-MM-dd"_s
                         : time.msec() == 0 ? u"yyyy-MM-dd HH:mm:ss"_s
                                            : u"yyyy-MM-dd HH:mm:ss.zzz"_s);
}

std::optional<QString> DateFromText(QStringView text) {
  const std::optional<QDateTime> moment = MomentFromText(text);
  return moment ? std::optional(MomentText(*moment)) : std::nullopt;
}

QString IntegerWord() { return u"整数"_s; }
QString NumberWord() { return u"数字"_s; }
QString DateWord() { return u"日期"_s; }

}  // namespace folvane::sql
