#include <array>

#include "data/dialect/Functions.h"

namespace folvane::sql {

namespace {
using namespace Qt::Literals::StringLiterals;

struct DateForm {
  const char* function;
  const char* names;  // of the part, each with a blank on both sides
  const char* sqlite;
  const char* postgres;
};

constexpr const char* kYear = " year yy yyyy ";
constexpr const char* kQuarter = " quarter qq q ";
constexpr const char* kMonth = " month mm m ";
constexpr const char* kDayOfYear = " dayofyear dy y ";
constexpr const char* kDay = " day dd d ";
constexpr const char* kWeek = " week wk ww ";
constexpr const char* kWeekday = " weekday dw ";
constexpr const char* kHour = " hour hh ";
constexpr const char* kMinute = " minute mi n ";
constexpr const char* kSecond = " second ss s ";

// A week begins on Sunday and week 1 holds the first of January; 1899-12-31 was a Sunday. DateDiff counts the borders
// between two moments, not the time between them.
constexpr std::array kForms{
    DateForm{"datepart", kYear, "folvane_datepart('year',$1)",
             "CAST(extract(year FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datepart", kQuarter, "folvane_datepart('quarter',$1)",
             "CAST(extract(quarter FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datepart", kMonth, "folvane_datepart('month',$1)",
             "CAST(extract(month FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datepart", kDayOfYear, "folvane_datepart('dayofyear',$1)",
             "CAST(extract(doy FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datepart", kDay, "folvane_datepart('day',$1)",
             "CAST(extract(day FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datepart", kWeek, "folvane_datepart('week',$1)",
             "CAST(floor((extract(doy FROM CAST($1 AS timestamp))+extract(dow FROM date_trunc('year',CAST($1 AS "
             "timestamp)))+6)/7) AS integer)"},
    DateForm{"datepart", kWeekday, "folvane_datepart('weekday',$1)",
             "CAST(extract(dow FROM CAST($1 AS timestamp))+1 AS integer)"},
    DateForm{"datepart", kHour, "folvane_datepart('hour',$1)",
             "CAST(extract(hour FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datepart", kMinute, "folvane_datepart('minute',$1)",
             "CAST(extract(minute FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datepart", kSecond, "folvane_datepart('second',$1)",
             "CAST(floor(extract(second FROM CAST($1 AS timestamp))) AS integer)"},

    DateForm{"datediff", kYear, "folvane_datediff('year',$1,$2)",
             "CAST(extract(year FROM CAST($2 AS timestamp))-extract(year FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datediff", kQuarter, "folvane_datediff('quarter',$1,$2)",
             "CAST(extract(year FROM CAST($2 AS timestamp))*4+extract(quarter FROM CAST($2 AS timestamp))-extract(year "
             "FROM CAST($1 AS timestamp))*4-extract(quarter FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datediff", kMonth, "folvane_datediff('month',$1,$2)",
             "CAST(extract(year FROM CAST($2 AS timestamp))*12+extract(month FROM CAST($2 AS timestamp))-extract(year "
             "FROM CAST($1 AS timestamp))*12-extract(month FROM CAST($1 AS timestamp)) AS integer)"},
    DateForm{"datediff", kDay, "folvane_datediff('day',$1,$2)", "(CAST($2 AS date)-CAST($1 AS date))"},
    DateForm{"datediff", kDayOfYear, "folvane_datediff('day',$1,$2)", "(CAST($2 AS date)-CAST($1 AS date))"},
    DateForm{"datediff", kWeek, "folvane_datediff('week',$1,$2)",
             "((CAST($2 AS date)-DATE '1899-12-31')/7-(CAST($1 AS date)-DATE '1899-12-31')/7)"},
    DateForm{"datediff", kHour, "folvane_datediff('hour',$1,$2)",
             "CAST(extract(epoch FROM date_trunc('hour',CAST($2 AS timestamp))-date_trunc('hour',CAST($1 AS "
             "timestamp)))/3600 AS integer)"},
    DateForm{"datediff", kMinute, "folvane_datediff('minute',$1,$2)",
             "CAST(extract(epoch FROM date_trunc('minute',CAST($2 AS timestamp))-date_trunc('minute',CAST($1 AS "
             "timestamp)))/60 AS integer)"},
    DateForm{"datediff", kSecond, "folvane_datediff('second',$1,$2)",
             "CAST(extract(epoch FROM date_trunc('second',CAST($2 AS timestamp))-date_trunc('second',CAST($1 AS "
             "timestamp))) AS integer)"},

    DateForm{"dateadd", kYear, "folvane_dateadd('year',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 year')"},
    DateForm{"dateadd", kQuarter, "folvane_dateadd('quarter',$1,$2)",
             "(CAST($2 AS timestamp)+($1)*interval '3 months')"},
    DateForm{"dateadd", kMonth, "folvane_dateadd('month',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 month')"},
    DateForm{"dateadd", kDay, "folvane_dateadd('day',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 day')"},
    DateForm{"dateadd", kDayOfYear, "folvane_dateadd('day',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 day')"},
    DateForm{"dateadd", kWeek, "folvane_dateadd('week',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '7 days')"},
    DateForm{"dateadd", kWeekday, "folvane_dateadd('day',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 day')"},
    DateForm{"dateadd", kHour, "folvane_dateadd('hour',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 hour')"},
    DateForm{"dateadd", kMinute, "folvane_dateadd('minute',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 minute')"},
    DateForm{"dateadd", kSecond, "folvane_dateadd('second',$1,$2)", "(CAST($2 AS timestamp)+($1)*interval '1 second')"},
};

}  // namespace

bool IsDateFunction(const QString& name) {
  return name == "datepart"_L1 || name == "datediff"_L1 || name == "dateadd"_L1;
}

const char* DateFunctionForm(DialectKind dialect, const QString& function, const QString& part) {
  const QString word = u' ' + part.toLower() + u' ';
  for (const DateForm& known : kForms)
    if (function == QLatin1String(known.function) && QLatin1String(known.names).contains(word))
      return dialect == DialectKind::Sqlite ? known.sqlite : known.postgres;
  return nullptr;
}

}  // namespace folvane::sql
