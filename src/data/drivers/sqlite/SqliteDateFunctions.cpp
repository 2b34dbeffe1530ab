#include <array>

#include "data/ValueText.h"
#include "data/dialect/TextValues.h"
#include "data/drivers/sqlite/SqliteFunctionTools.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

std::optional<QDateTime> MomentOf(sqlite3_context* context, sqlite3_value* value) {
  const QString text = TextOf(value);
  const std::optional<QDateTime> moment = sql::MomentFromText(text);
  if (!moment) FailConversion(context, text, sql::DateWord());
  return moment;
}

void Date(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  if (const auto moment = MomentOf(context, values[0])) ResultText(context, sql::MomentText(*moment));
}

// Weeks begin on Sunday, and week 1 holds the first of January.
int Weekday(QDate date) { return date.dayOfWeek() % 7 + 1; }

// The day numbers of the Julian calendar begin on a Monday: https://en.wikipedia.org/wiki/Julian_day
qlonglong WeekNumber(QDate date) { return (date.toJulianDay() + 1) / 7; }

struct Part {
  const char* name;
  qlonglong (*valueOf)(const QDateTime&);
  qlonglong (*borderOf)(const QDateTime&);  ///< how many of its borders lie before a moment
  QDateTime (*add)(const QDateTime&, qlonglong);
};

constexpr qlonglong kDaySeconds = 86400;

qlonglong Seconds(const QDateTime& at) {
  return at.date().toJulianDay() * kDaySeconds + at.time().msecsSinceStartOfDay() / 1000;
}

constexpr std::array kParts{
    Part{"year", [](const QDateTime& at) { return qlonglong(at.date().year()); },
         [](const QDateTime& at) { return qlonglong(at.date().year()); },
         [](const QDateTime& at, qlonglong n) { return at.addYears(int(n)); }},
    Part{"quarter", [](const QDateTime& at) { return qlonglong((at.date().month() + 2) / 3); },
         [](const QDateTime& at) { return qlonglong(at.date().year() * 4 + (at.date().month() + 2) / 3); },
         [](const QDateTime& at, qlonglong n) { return at.addMonths(int(n * 3)); }},
    Part{"month", [](const QDateTime& at) { return qlonglong(at.date().month()); },
         [](const QDateTime& at) { return qlonglong(at.date().year() * 12 + at.date().month()); },
         [](const QDateTime& at, qlonglong n) { return at.addMonths(int(n)); }},
    Part{"dayofyear", [](const QDateTime& at) { return qlonglong(at.date().dayOfYear()); },
         [](const QDateTime& at) { return qlonglong(at.date().toJulianDay()); },
         [](const QDateTime& at, qlonglong n) { return at.addDays(n); }},
    Part{"day", [](const QDateTime& at) { return qlonglong(at.date().day()); },
         [](const QDateTime& at) { return qlonglong(at.date().toJulianDay()); },
         [](const QDateTime& at, qlonglong n) { return at.addDays(n); }},
    Part{"week",
         [](const QDateTime& at) { return WeekNumber(at.date()) - WeekNumber(QDate(at.date().year(), 1, 1)) + 1; },
         [](const QDateTime& at) { return WeekNumber(at.date()); },
         [](const QDateTime& at, qlonglong n) { return at.addDays(n * 7); }},
    Part{"weekday", [](const QDateTime& at) { return qlonglong(Weekday(at.date())); },
         [](const QDateTime& at) { return qlonglong(at.date().toJulianDay()); },
         [](const QDateTime& at, qlonglong n) { return at.addDays(n); }},
    Part{"hour", [](const QDateTime& at) { return qlonglong(at.time().hour()); },
         [](const QDateTime& at) { return Seconds(at) / 3600; },
         [](const QDateTime& at, qlonglong n) { return at.addSecs(n * 3600); }},
    Part{"minute", [](const QDateTime& at) { return qlonglong(at.time().minute()); },
         [](const QDateTime& at) { return Seconds(at) / 60; },
         [](const QDateTime& at, qlonglong n) { return at.addSecs(n * 60); }},
    Part{"second", [](const QDateTime& at) { return qlonglong(at.time().second()); }, Seconds,
         [](const QDateTime& at, qlonglong n) { return at.addSecs(n); }},
};

const Part* PartOf(sqlite3_context* context, sqlite3_value* value) {
  const QByteArrayView name = Utf8Of(value);
  for (const Part& part : kParts)
    if (name == QByteArrayView(part.name)) return &part;
  Fail(context, u"没有名为“%1”的日期部分。"_s.arg(TextOf(value)));
  return nullptr;
}

void DatePart(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const Part* part = PartOf(context, values[0]);
  if (!part) return;
  const auto moment = MomentOf(context, values[1]);
  if (moment) sqlite3_result_int64(context, part->valueOf(*moment));
}

void DateDiff(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const Part* part = PartOf(context, values[0]);
  if (!part) return;
  const auto from = MomentOf(context, values[1]);
  const auto to = from ? MomentOf(context, values[2]) : std::nullopt;
  if (to) sqlite3_result_int64(context, part->borderOf(*to) - part->borderOf(*from));
}

void DateAdd(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const Part* part = PartOf(context, values[0]);
  if (!part) return;
  const auto moment = MomentOf(context, values[2]);
  if (!moment) return;
  const QDateTime sum = part->add(*moment, sqlite3_value_int64(values[1]));
  if (!sum.isValid() || sum.date().year() > 9999 || sum.date().year() < 1) return Fail(context, u"日期超出了范围。"_s);
  ResultText(context, sql::MomentText(sum));
}

struct DateSign {
  const char* sign;
  QString (*write)(const QDateTime&);
};

QString Padded(int number, int width, char with = '0') {
  return QString::number(number).rightJustified(width, QLatin1Char(with));
}

int HourOfTwelve(const QDateTime& at) { return (at.time().hour() + 11) % 12 + 1; }

QString MonthName(int month) {
  static constexpr std::array kNames{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  return QLatin1String(kNames[size_t(month - 1)]);
}

// The signs of PostgreSQL's to_char that the styles use; the longer of two that begin alike stands first.
constexpr std::array kSigns{
    DateSign{"YYYY", [](const QDateTime& at) { return Padded(at.date().year(), 4); }},
    DateSign{"YY", [](const QDateTime& at) { return Padded(at.date().year() % 100, 2); }},
    DateSign{"MM", [](const QDateTime& at) { return Padded(at.date().month(), 2); }},
    DateSign{"MI", [](const QDateTime& at) { return Padded(at.time().minute(), 2); }},
    DateSign{"MS", [](const QDateTime& at) { return Padded(at.time().msec(), 3); }},
    DateSign{"Mon", [](const QDateTime& at) { return MonthName(at.date().month()); }},
    DateSign{"DD", [](const QDateTime& at) { return Padded(at.date().day(), 2); }},
    DateSign{"dd", [](const QDateTime& at) { return Padded(at.date().day(), 2, ' '); }},
    DateSign{"HH24", [](const QDateTime& at) { return Padded(at.time().hour(), 2); }},
    DateSign{"hh", [](const QDateTime& at) { return Padded(HourOfTwelve(at), 2, ' '); }},
    DateSign{"SS", [](const QDateTime& at) { return Padded(at.time().second(), 2); }},
    DateSign{"AM", [](const QDateTime& at) { return at.time().hour() < 12 ? u"AM"_s : u"PM"_s; }},
};

QString Formatted(const QDateTime& moment, QByteArrayView pattern) {
  QString text;
  while (!pattern.isEmpty()) {
    const auto* known = std::find_if(kSigns.begin(), kSigns.end(), [&](const DateSign& sign) {
      return pattern.startsWith(QByteArrayView(sign.sign));
    });
    if (known == kSigns.end()) {
      text += QLatin1Char(pattern.front());
      pattern = pattern.sliced(1);
    } else {
      text += known->write(moment);
      pattern = pattern.sliced(QByteArrayView(known->sign).size());
    }
  }
  return text;
}

void FormatDate(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  if (const auto moment = MomentOf(context, values[0])) ResultText(context, Formatted(*moment, Utf8Of(values[1])));
}

// A column of texts may hold dates; what is none stays as it is.
void FormatText(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const QString text = TextOf(values[0]);
  const auto moment = text.trimmed().isEmpty() ? std::nullopt : sql::MomentFromText(text);
  ResultText(context, moment ? Formatted(*moment, Utf8Of(values[1])) : text);
}

// A date of a column in one spelling, so many letters of it; what is none stays as it is.
void StoredDate(sqlite3_context* context, int, sqlite3_value** values) {
  const QDateTime moment = sqlite3_value_type(values[0]) == SQLITE_TEXT ? ReadDateTime(TextOf(values[0])) : QDateTime();
  if (!moment.isValid()) return sqlite3_result_value(context, values[0]);
  ResultText(context, moment.toString(u"yyyy-MM-dd HH:mm:ss"_s).left(sqlite3_value_int(values[1])));
}

}  // namespace

void AddDateFunctions(SqliteFunctionList& list) {
  list.Add("folvane_date", 1, Date);
  list.Add("folvane_storeddate", 2, StoredDate);
  list.Add("folvane_datepart", 2, DatePart);
  list.Add("folvane_datediff", 3, DateDiff);
  list.Add("folvane_dateadd", 3, DateAdd);
  list.Add("folvane_formatdate", 2, FormatDate);
  list.Add("folvane_formattext", 2, FormatText);
}

}  // namespace folvane
