#include "data/dialect/Functions.h"

#include <array>

namespace folvane::sql {

namespace {

using F = Function;
using V = ValueType;

// The functions that begin with folvane_ are registered on the SQLite handle, see SqliteFunctions.
constexpr std::array kFunctions{
    F{"count", 1, 1, "A", F::OfType, V::Integer, "count($*)", "count($*)"},
    F{"sum", 1, 1, "A", F::OfFirst, V::Unknown, "sum($*)", "sum($*)"},
    F{"avg", 1, 1, "A", F::OfFirst, V::Unknown, "avg($*)", "avg($*)"},
    F{"max", 1, 1, "A", F::OfFirst, V::Unknown, "max($1)", "max($1)"},
    F{"min", 1, 1, "A", F::OfFirst, V::Unknown, "min($1)", "min($1)"},
    F{"isnull", 2, 2, "A", F::OfFirst, V::Unknown, "coalesce($*)", "coalesce($*)"},
    F{"coalesce", 2, -1, "A", F::OfStrongest, V::Unknown, "coalesce($*)", "coalesce($*)"},
    F{"nullif", 2, 2, "A", F::OfFirst, V::Unknown, "", ""},
    F{"len", 1, 1, "T", F::OfType, V::Integer, "length(rtrim($1))", "length(rtrim($1))"},
    F{"left", 2, 2, "TI", F::OfType, V::Text, "substr($1,1,max($2,0))", "left($1,greatest(CAST($2 AS integer),0))"},
    F{"right", 2, 2, "TI", F::OfType, V::Text, "folvane_right($1,$2)", "right($1,greatest(CAST($2 AS integer),0))"},
    F{"substring", 3, 3, "TII", F::OfType, V::Text, "folvane_substring($1,$2,$3)",
      "substr($1,CAST($2 AS integer),CAST($3 AS integer))"},
    F{"charindex", 2, 2, "TT", F::OfType, V::Integer, "folvane_charindex($1,$2,1)",
      "CASE WHEN $1 = '' AND $2 IS NOT NULL THEN 0 ELSE strpos(lower($2 COLLATE \"C\"),lower($1 COLLATE \"C\")) END"},
    F{"charindex", 3, 3, "TTI", F::OfType, V::Integer, "folvane_charindex($1,$2,$3)",
      "CASE WHEN $2 IS NULL THEN NULL WHEN $1 = '' OR strpos(substr(lower($2 COLLATE \"C\"),greatest(CAST($3 AS "
      "integer),1)),lower($1 COLLATE "
      "\"C\")) = 0 THEN 0 ELSE strpos(substr(lower($2 COLLATE \"C\"),greatest(CAST($3 AS integer),1)),lower($1 COLLATE "
      "\"C\"))+greatest(CAST($3 AS integer),1)-1 END"},
    F{"replace", 3, 3, "TTT", F::OfType, V::Text, "folvane_replace($1,$2,$3)",
      "CASE WHEN $2 = '' THEN $1 ELSE regexp_replace($1,'***='||$2,replace($3,chr(92),chr(92)||chr(92)),'gi') END"},
    F{"ltrim", 1, 1, "T", F::OfType, V::Text, "ltrim($1)", "ltrim($1)"},
    F{"rtrim", 1, 1, "T", F::OfType, V::Text, "rtrim($1)", "rtrim($1)"},
    F{"upper", 1, 1, "T", F::OfType, V::Text, "upper($1)", "upper($1)"},
    F{"lower", 1, 1, "T", F::OfType, V::Text, "lower($1)", "lower($1)"},
    F{"replicate", 2, 2, "TI", F::OfType, V::Text, "folvane_replicate($1,$2)", "repeat($1,CAST($2 AS integer))"},
    F{"space", 1, 1, "I", F::OfType, V::Text, "folvane_replicate(' ',$1)", "repeat(' ',CAST($1 AS integer))"},
    F{"ascii", 1, 1, "T", F::OfType, V::Integer, "unicode($1)", "ascii($1)"},
    F{"char", 1, 1, "I", F::OfType, V::Text, "char($1)", "chr(CAST($1 AS integer))"},
    F{"isnumeric", 1, 1, "T", F::OfType, V::Integer, "folvane_isnumeric($1)",
      "CASE WHEN btrim($1) ~ '^[-+]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][-+]?[0-9]+)?$' THEN 1 ELSE 0 END"},
    F{"str", 1, 1, "N", F::OfType, V::Text, "folvane_str($1,10,0)",
      "lpad(CAST(round(CAST($1 AS numeric)) AS text),10)"},
    F{"str", 2, 2, "NI", F::OfType, V::Text, "folvane_str($1,$2,0)",
      "CASE WHEN length(CAST(round(CAST($1 AS numeric)) AS text)) > $2 THEN repeat('*',CAST($2 AS integer)) ELSE "
      "lpad(CAST(round(CAST($1 AS numeric)) AS text),CAST($2 AS integer)) END"},
    F{"str", 3, 3, "NII", F::OfType, V::Text, "folvane_str($1,$2,$3)",
      "CASE WHEN length(CAST(round(CAST($1 AS numeric)) AS text)) > $2 THEN repeat('*',CAST($2 AS integer)) ELSE "
      "lpad(left(CAST(round(CAST($1 AS numeric),CAST($3 AS integer)) AS text),CAST($2 AS integer)),CAST($2 AS "
      "integer)) END"},
    F{"abs", 1, 1, "N", F::OfFirst, V::Unknown, "abs($1)", "abs($1)"},
    F{"sign", 1, 1, "N", F::OfFirst, V::Unknown, "sign($1)", "CAST(sign($1) AS integer)"},
    F{"round", 2, 2, "NI", F::OfFirst, V::Unknown, "folvane_round($1,$2)",
      "round(CAST($1 AS numeric),CAST($2 AS integer))"},
    F{"floor", 1, 1, "N", F::OfFirst, V::Unknown, "(CAST($1 AS INTEGER)-($1 < CAST($1 AS INTEGER)))", "floor($1)"},
    F{"ceiling", 1, 1, "N", F::OfFirst, V::Unknown, "(CAST($1 AS INTEGER)+($1 > CAST($1 AS INTEGER)))", "ceil($1)"},
    F{"year", 1, 1, "D", F::OfType, V::Integer, "folvane_datepart('year',$1)",
      "CAST(extract(year FROM CAST($1 AS timestamp)) AS integer)"},
    F{"month", 1, 1, "D", F::OfType, V::Integer, "folvane_datepart('month',$1)",
      "CAST(extract(month FROM CAST($1 AS timestamp)) AS integer)"},
    F{"day", 1, 1, "D", F::OfType, V::Integer, "folvane_datepart('day',$1)",
      "CAST(extract(day FROM CAST($1 AS timestamp)) AS integer)"},
    F{"getdate", 0, 0, "", F::OfType, V::Date, "strftime('%Y-%m-%d %H:%M:%S','now','localtime')", "localtimestamp(3)"},
};

constexpr std::array kCastTypes{
    CastType{"char", V::Text, CastType::Padded},
    CastType{"nchar", V::Text, CastType::Padded},
    CastType{"varchar", V::Text},
    CastType{"nvarchar", V::Text},
    CastType{"text", V::Text, CastType::Unlimited},
    CastType{"ntext", V::Text, CastType::Unlimited},
    CastType{"int", V::Integer},
    CastType{"integer", V::Integer},
    CastType{"smallint", V::Integer},
    CastType{"tinyint", V::Integer},
    CastType{"bigint", V::Integer},
    CastType{"bit", V::Integer, CastType::Bit},
    CastType{"float", V::Float},
    CastType{"real", V::Float},
    CastType{"decimal", V::Decimal},
    CastType{"numeric", V::Decimal},
    CastType{"money", V::Decimal},
    CastType{"datetime", V::Date},
    CastType{"smalldatetime", V::Date},
};

struct Style {
  int number;
  const char* form;
};

constexpr std::array kStyles{
    Style{0, "Mon dd YYYY hh:MIAM"},
    Style{100, "Mon dd YYYY hh:MIAM"},
    Style{1, "MM/DD/YY"},
    Style{101, "MM/DD/YYYY"},
    Style{2, "YY.MM.DD"},
    Style{102, "YYYY.MM.DD"},
    Style{3, "DD/MM/YY"},
    Style{103, "DD/MM/YYYY"},
    Style{4, "DD.MM.YY"},
    Style{104, "DD.MM.YYYY"},
    Style{5, "DD-MM-YY"},
    Style{105, "DD-MM-YYYY"},
    Style{8, "HH24:MI:SS"},
    Style{108, "HH24:MI:SS"},
    Style{10, "MM-DD-YY"},
    Style{110, "MM-DD-YYYY"},
    Style{11, "YY/MM/DD"},
    Style{111, "YYYY/MM/DD"},
    Style{12, "YYMMDD"},
    Style{112, "YYYYMMDD"},
    Style{20, "YYYY-MM-DD HH24:MI:SS"},
    Style{120, "YYYY-MM-DD HH24:MI:SS"},
    Style{21, "YYYY-MM-DD HH24:MI:SS.MS"},
    Style{121, "YYYY-MM-DD HH24:MI:SS.MS"},
    Style{23, "YYYY-MM-DD"},
};

}  // namespace

const Function* FindFunction(const QString& name, std::size_t arguments) {
  const int count = int(arguments);
  for (const Function& function : kFunctions)
    if (name == QLatin1String(function.name) && count >= function.least &&
        (function.most < 0 || count <= function.most))
      return &function;
  return nullptr;
}

const CastType* FindCastType(const QString& name) {
  for (const CastType& type : kCastTypes)
    if (name == QLatin1String(type.name)) return &type;
  return nullptr;
}

const char* DateStyle(int style) {
  for (const Style& known : kStyles)
    if (known.number == style) return known.form;
  return nullptr;
}

}  // namespace folvane::sql
