#include "data/dialect/Functions.h"

#include <QHash>
#include <array>

namespace folvane::sql {

namespace {

constexpr auto kText = TypeGroup::Text;
constexpr auto kNumber = TypeGroup::Number;
constexpr auto kDate = TypeGroup::Date;
constexpr std::nullopt_t kOfArgument = std::nullopt;

// PostgreSQL's text functions take text alone; $1 of those comes cast when it is anything else.
const std::array kFunctions{
    Function{"count", 1, 1, kNumber, false, "count($*)", "count($*)"},
    Function{"sum", 1, 1, kNumber, false, "sum($*)", "sum($*)"},
    Function{"avg", 1, 1, kNumber, false, "avg($*)", "avg($*)"},
    Function{"max", 1, 1, kOfArgument, false, "max($*)", "max($*)"},
    Function{"min", 1, 1, kOfArgument, false, "min($*)", "min($*)"},
    Function{"isnull", 2, 2, kOfArgument, false, "coalesce($1,$2)", "coalesce($1,$2)"},
    Function{"coalesce", 2, -1, kOfArgument, false, "coalesce($*)", "coalesce($*)"},
    Function{"nullif", 2, 2, kOfArgument, false, "nullif($1,$2)", "nullif($1,$2)"},
    Function{"len", 1, 1, kNumber, true, "length(rtrim($1,' '))", "length(rtrim($1,' '))"},
    Function{"datalength", 1, 1, kNumber, true, "length(CAST($1 AS BLOB))", "octet_length($1)"},
    Function{"left", 2, 2, kText, true, "substr($1,1,$2)", "left($1,$2)"},
    Function{"right", 2, 2, kText, true, "substr($1,max(length($1)-($2),0)+1)", "right($1,$2)"},
    Function{"substring", 3, 3, kText, true, "substr($1,$2,$3)", "substr($1,$2,$3)"},
    Function{"charindex", 2, 2, kNumber, true, "instr(lower($2),lower($1))", "strpos(lower(($2)::text),lower($1))"},
    Function{"replace", 3, 3, kText, true, "folvane_replace($1,$2,$3)",
             "regexp_replace($1,regexp_replace(($2)::text,'([^[:alnum:][:space:]])','\\\\\\1','g'),replace(($3)::text,'"
             "\\','\\\\'),'gi')"},
    Function{"ltrim", 1, 1, kText, true, "ltrim($1,' ')", "ltrim($1,' ')"},
    Function{"rtrim", 1, 1, kText, true, "rtrim($1,' ')", "rtrim($1,' ')"},
    Function{"upper", 1, 1, kText, true, "upper($1)", "upper($1)"},
    Function{"lower", 1, 1, kText, true, "lower($1)", "lower($1)"},
    Function{"replicate", 2, 2, kText, true, "replace(hex(zeroblob($2)),'00',$1)", "repeat($1,$2)"},
    Function{"space", 1, 1, kText, false, "replace(hex(zeroblob($1)),'00',' ')", "repeat(' ',$1)"},
    Function{"str", 1, 1, kText, false, "printf('%10d',CAST(round($1) AS INTEGER))",
             "lpad(round(($1)::numeric)::text,10)"},
    Function{"str", 2, 2, kText, false, "printf('%*d',$2,CAST(round($1) AS INTEGER))",
             "lpad(round(($1)::numeric)::text,$2)"},
    Function{"abs", 1, 1, kNumber, false, "abs($1)", "abs($1)"},
    Function{"round", 2, 2, kNumber, false, "round($1,$2)", "round(($1)::numeric,$2)"},
    Function{"floor", 1, 1, kNumber, false, "(CAST($1 AS INTEGER)-($1<CAST($1 AS INTEGER)))", "floor($1)"},
    Function{"ceiling", 1, 1, kNumber, false, "(CAST($1 AS INTEGER)+($1>CAST($1 AS INTEGER)))", "ceil($1)"},
    Function{"year", 1, 1, kNumber, false, "CAST(strftime('%Y',folvane_date($1)) AS INTEGER)",
             "CAST(extract(year FROM CAST($1 AS timestamp)) AS integer)"},
    Function{"month", 1, 1, kNumber, false, "CAST(strftime('%m',folvane_date($1)) AS INTEGER)",
             "CAST(extract(month FROM CAST($1 AS timestamp)) AS integer)"},
    Function{"day", 1, 1, kNumber, false, "CAST(strftime('%d',folvane_date($1)) AS INTEGER)",
             "CAST(extract(day FROM CAST($1 AS timestamp)) AS integer)"},
    Function{"getdate", 0, 0, kDate, false, "strftime('%Y-%m-%d %H:%M:%S','now','localtime')", "localtimestamp"},
};

struct DatePart {
  const char* names;  ///< separated by blanks
  const char* strftime;
  const char* postgres;
  const char* modifier;
};

const std::array kParts{
    DatePart{" year yy yyyy ", "%Y", "year", "years"},    DatePart{" month mm m ", "%m", "month", "months"},
    DatePart{" day dd d ", "%d", "day", "days"},          DatePart{" hour hh ", "%H", "hour", "hours"},
    DatePart{" minute mi n ", "%M", "minute", "minutes"}, DatePart{" second ss s ", "%S", "second", "seconds"},
    DatePart{" dayofyear dy y ", "%j", "doy", "days"},
};

const DatePart* FindPart(const QString& part) {
  for (const DatePart& known : kParts)
    if (QLatin1String(known.names).contains(QString(u' ' + part.toLower() + u' '))) return &known;
  return nullptr;
}

QString DiffForm(DialectKind dialect, const DatePart& part) {
  const QLatin1String unit(part.postgres);
  if (dialect == DialectKind::PostgreSql) {
    const QString a = QStringLiteral("CAST($1 AS timestamp)"), b = QStringLiteral("CAST($2 AS timestamp)");
    if (unit == QLatin1String("year"))
      return QStringLiteral("CAST(extract(year FROM %2)-extract(year FROM %1) AS integer)").arg(a, b);
    if (unit == QLatin1String("month"))
      return QStringLiteral(
                 "CAST((extract(year FROM %2)-extract(year FROM %1))*12+extract(month FROM %2)-extract(month FROM %1) "
                 "AS integer)")
          .arg(a, b);
    if (unit == QLatin1String("day")) return QStringLiteral("(CAST($2 AS date)-CAST($1 AS date))");
    return {};
  }
  const QString a = QStringLiteral("folvane_date($1)"), b = QStringLiteral("folvane_date($2)");
  if (unit == QLatin1String("year")) return QStringLiteral("(strftime('%Y',%2)-strftime('%Y',%1))").arg(a, b);
  if (unit == QLatin1String("month"))
    return QStringLiteral("((strftime('%Y',%2)-strftime('%Y',%1))*12+strftime('%m',%2)-strftime('%m',%1))").arg(a, b);
  if (unit == QLatin1String("day"))
    return QStringLiteral("CAST(julianday(date(%2))-julianday(date(%1)) AS INTEGER)").arg(a, b);
  return {};
}

}  // namespace

const Function* FindFunction(const QString& name, int arguments) {
  for (const Function& function : kFunctions)
    if (name == QLatin1String(function.name) && arguments >= function.least &&
        (function.most < 0 || arguments <= function.most))
      return &function;
  return nullptr;
}

std::optional<TypeGroup> GroupOfTypeWord(const QString& word) {
  static const QHash<QString, TypeGroup> groups{
      {QStringLiteral("char"), kText},         {QStringLiteral("varchar"), kText},
      {QStringLiteral("nchar"), kText},        {QStringLiteral("nvarchar"), kText},
      {QStringLiteral("text"), kText},         {QStringLiteral("ntext"), kText},
      {QStringLiteral("int"), kNumber},        {QStringLiteral("integer"), kNumber},
      {QStringLiteral("smallint"), kNumber},   {QStringLiteral("tinyint"), kNumber},
      {QStringLiteral("bigint"), kNumber},     {QStringLiteral("bit"), kNumber},
      {QStringLiteral("float"), kNumber},      {QStringLiteral("real"), kNumber},
      {QStringLiteral("decimal"), kNumber},    {QStringLiteral("numeric"), kNumber},
      {QStringLiteral("money"), kNumber},      {QStringLiteral("datetime"), kDate},
      {QStringLiteral("smalldatetime"), kDate}};
  const auto found = groups.constFind(word);
  return found == groups.constEnd() ? std::nullopt : std::optional(*found);
}

QString DatePartForm(DialectKind dialect, const QString& function, const QString& part) {
  const DatePart* known = FindPart(part);
  if (!known) return {};
  const bool sqlite = dialect == DialectKind::Sqlite;
  if (function == QLatin1String("datediff")) return DiffForm(dialect, *known);
  if (function == QLatin1String("datepart"))
    return sqlite
               ? QStringLiteral("CAST(strftime('%1',folvane_date($1)) AS INTEGER)").arg(QLatin1String(known->strftime))
               : QStringLiteral("CAST(extract(%1 FROM CAST($1 AS timestamp)) AS integer)")
                     .arg(QLatin1String(known->postgres));
  if (function == QLatin1String("dateadd"))
    return sqlite ? QStringLiteral("datetime(folvane_date($2),($1)||' %1')").arg(QLatin1String(known->modifier))
                  : QStringLiteral("(CAST($2 AS timestamp)+($1)*interval '1 %1')")
                        .arg(known->modifier == QLatin1String("days") ? QStringLiteral("day")
                                                                      : QLatin1String(known->postgres));
  return {};
}

QString DateStyleForm(DialectKind dialect, int style) {
  struct Style {
    int style;
    const char* sqlite;
    const char* postgres;
  };
  static constexpr std::array kStyles{
      Style{23, "%Y-%m-%d", "YYYY-MM-DD"},
      Style{20, "%Y-%m-%d %H:%M:%S", "YYYY-MM-DD HH24:MI:SS"},
      Style{120, "%Y-%m-%d %H:%M:%S", "YYYY-MM-DD HH24:MI:SS"},
      Style{21, "%Y-%m-%d %H:%M:%f", "YYYY-MM-DD HH24:MI:SS.MS"},
      Style{121, "%Y-%m-%d %H:%M:%f", "YYYY-MM-DD HH24:MI:SS.MS"},
      Style{111, "%Y/%m/%d", "YYYY/MM/DD"},
      Style{102, "%Y.%m.%d", "YYYY.MM.DD"},
      Style{112, "%Y%m%d", "YYYYMMDD"},
      Style{101, "%m/%d/%Y", "MM/DD/YYYY"},
      Style{103, "%d/%m/%Y", "DD/MM/YYYY"},
      Style{108, "%H:%M:%S", "HH24:MI:SS"},
  };
  for (const Style& known : kStyles)
    if (known.style == style)
      return dialect == DialectKind::Sqlite
                 ? QStringLiteral("strftime('%1',folvane_date($1))").arg(QLatin1String(known.sqlite))
                 : QStringLiteral("to_char(CAST($1 AS timestamp),'%1')").arg(QLatin1String(known.postgres));
  return {};
}

}  // namespace folvane::sql
