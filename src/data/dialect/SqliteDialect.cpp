#include "data/dialect/Dialect.h"

namespace folvane::sql {

// The collation FOLVANE and the functions that begin with folvane_ are registered on the handle, see SqliteFunctions.
//
// A text without letters is compared by ranges that an index over the column serves, whatever its collation: trailing
// blanks sort right behind the bare text and before the same text with "!" behind it.
const Dialect kSqliteDialect{
    .kind = DialectKind::Sqlite,
    .bindsLiterals = true,
    .deletesWhileReading = true,

    .textToInteger = "folvane_integer($1)",
    .textToDecimal = "folvane_decimal($1)",
    .textToFloat = "folvane_float($1)",
    .textToDate = "folvane_date($1)",
    .numberToText = "folvane_text($1)",
    .numberToDate = "folvane_dateadd('day',$1,'1900-01-01')",
    .dateToText = "$1",
    .numberToInteger = "CAST($1 AS INTEGER)",
    .integerToFloat = "CAST($1 AS REAL)",
    .bitToInteger = "",
    .integerToBit = "",

    .folded = "$1 COLLATE FOLVANE",
    .sortedBy = "folvane_folded($1)",
    .compareText = "($1 COLLATE FOLVANE $o $2)",
    .foldsLiterals = false,
    .compareUnknown = "($1 COLLATE FOLVANE $o $2)",
    .inTexts = "($1 COLLATE FOLVANE IN ($+))",
    .inQuery = "($1 COLLATE FOLVANE IN ($q))",
    .foldsInQuery = false,
    .plainText = {"($1 >= $2 AND $1 < $3 AND rtrim($1) = $2)",
                  nullptr,
                  "($1 < $2)",
                  "($1 < $3 AND rtrim($1) <= $2)",
                  "($1 > $2 AND rtrim($1) > $2)",
                  "($1 >= $2)",
                  {Transform::Trimmed, Transform::PastEnd}},
    .plainKey = {},
    .date = {"($1 >= $2 AND $1 <= $3)",
             "($1 < $2 OR $1 > $3)",
             "($1 < $2)",
             "($1 <= $3)",
             "($1 > $3)",
             "($1 >= $2)",
             {Transform::Date, Transform::DateEnd}},
    .mostKeysApart = 50,
    .inKeys = "",

    .like = "($1 LIKE $2 ESCAPE '!')",
    .likeTrimmed = "(rtrim($1) LIKE $2 ESCAPE '!')",
    .likeClass = "folvane_like($2,$1)",
    .likeClassEscape = "folvane_like($2,$1,$3)",
    .classPattern = Transform::Plain,
    .likeValue = "folvane_like($2,$1)",

    .concat = "($1 || $2)",
    .divide = "folvane_divide($1,$2)",
    .modulo = "folvane_modulo($1,$2)",
    .addDays = "folvane_dateadd('day',$2,$1)",

    .sumOfIntegers = "sum($*)",
    .averageOfIntegers = "CAST(avg($*) AS INTEGER)",
    .leastText = "min($1 COLLATE FOLVANE)",
    .greatestText = "max($1 COLLATE FOLVANE)",
    .distinctText = "$1 COLLATE FOLVANE",

    .cutText = "substr($1,1,$2)",
    .padText = "substr($1 || printf('%*s',$2,''),1,$2)",
    .formatDate = "folvane_formatdate($1,$2)",
    .formatDateLong = "folvane_formatdate($1,$2)",
    .formatDateInText = "folvane_formattext($1,$2)",
    .toDecimal = "folvane_round($1,$3)",
    .toBit = "CASE WHEN $1 = 0 THEN 0 WHEN $1 IS NOT NULL THEN 1 END",

    .nullsFirst = "",
    .nullsLast = "",
    .groupedText = "",
    .distinctByColumn = true,
    .ordersUnionsByName = false,
    .foldsNames = false,
};

}  // namespace folvane::sql
