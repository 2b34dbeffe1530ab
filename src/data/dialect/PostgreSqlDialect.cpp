#include "data/dialect/Dialect.h"

namespace folvane::sql {

// Under the collation "C" lower() changes ASCII letters alone and texts order by their bytes, whatever the database's
// own collation is: https://www.postgresql.org/docs/15/collation.html
//
// A key is compared with its literal and that literal with blanks behind it, so that its index serves. Other columns
// have no index worth keeping, and lose their blanks.
const Dialect kPostgreSqlDialect{
    .kind = DialectKind::PostgreSql,
    .bindsLiterals = false,
    .deletesWhileReading = false,

    .textToInteger = "CAST(CASE WHEN btrim($1) = '' THEN '0' ELSE $1 END AS bigint)",
    .textToDecimal = "CAST($1 AS numeric)",
    .textToFloat = "CAST(CASE WHEN btrim($1) = '' THEN '0' ELSE $1 END AS double precision)",
    .textToDate = "CAST(CASE WHEN btrim($1) = '' THEN '1900-01-01' ELSE $1 END AS timestamp)",
    .numberToText = "CAST($1 AS text)",
    .numberToDate = "(TIMESTAMP '1900-01-01'+($1)*interval '1 day')",
    .dateToText = "regexp_replace(to_char($1,'YYYY-MM-DD HH24:MI:SS'),' 00:00:00$','')",
    .numberToInteger = "CAST(trunc(CAST($1 AS numeric)) AS bigint)",
    .integerToFloat = "CAST($1 AS double precision)",
    .bitToInteger = "CAST($1 AS integer)",
    .integerToBit = "($1 <> 0)",

    .folded = "lower(rtrim($1) COLLATE \"C\")",
    .sortedBy = "lower(rtrim($1) COLLATE \"C\")",
    .compareText = "($1 $o $2)",
    .foldsLiterals = true,
    .compareUnknown = "($1 $o $2)",
    .inTexts = "($1 IN ($+))",
    .inQuery = "($1 IN ($q))",
    .foldsInQuery = true,
    .plainText = {"(rtrim($1) = $2)",
                  "(rtrim($1) <> $2)",
                  nullptr,
                  nullptr,
                  nullptr,
                  nullptr,
                  {Transform::Trimmed, Transform::Trimmed}},
    .plainKey = {"($1 IN ($2))",
                 "($1 NOT IN ($2))",
                 nullptr,
                 nullptr,
                 nullptr,
                 nullptr,
                 {Transform::Variants, Transform::Variants}},
    .date = {},
    .mostKeysApart = 0,
    .inKeys = "($1 IN ($+))",

    .like = "($1 COLLATE \"C\" ILIKE $2 ESCAPE '!')",
    .likeTrimmed = "(rtrim($1) COLLATE \"C\" ILIKE $2 ESCAPE '!')",
    .likeClass = "(lower($1 COLLATE \"C\") ~ $2)",
    .likeClassEscape = "",
    .classPattern = Transform::Regex,
    .likeValue =
        "($1 COLLATE \"C\" ILIKE replace(replace(replace(replace($2,'!','!!'),'[%]','!%'),'[_]','!_'),'[[]',"
        "'[') ESCAPE '!')",

    .concat = "($1 || $2)",
    .divide = "($1 / $2)",
    .modulo = "($1 % $2)",
    .addDays = "(CAST($1 AS timestamp)+($2)*interval '1 day')",

    .sumOfIntegers = "CAST(sum($*) AS bigint)",
    .averageOfIntegers = "CAST(trunc(avg($*)) AS bigint)",
    .leastText = "(array_agg($1 ORDER BY lower(rtrim($1) COLLATE \"C\")))[1]",
    .greatestText = "(array_agg($1 ORDER BY lower(rtrim($1) COLLATE \"C\") DESC NULLS LAST))[1]",
    .distinctText = "lower(rtrim($1) COLLATE \"C\")",

    .cutText = "left($1,$2)",
    .padText = "rpad($1,$2)",
    .formatDate = "to_char(CAST($1 AS timestamp),$2)",
    .formatDateLong =
        "(to_char(CAST($1 AS timestamp),'Mon ') || lpad(to_char(CAST($1 AS timestamp),'FMDD'),2) || "
        "to_char(CAST($1 AS timestamp),' YYYY ') || lpad(to_char(CAST($1 AS timestamp),'FMHH12'),2) || "
        "to_char(CAST($1 AS timestamp),':MIAM'))",
    .formatDateInText = "",
    .toDecimal = "CAST($1 AS numeric($2,$3))",
    .toBit = "CASE WHEN $1 = 0 THEN 0 WHEN $1 IS NOT NULL THEN 1 END",

    .nullsFirst = " NULLS FIRST",
    .nullsLast = " NULLS LAST",
    .groupedText = "min($1)",
    .distinctByColumn = false,
    .ordersUnionsByName = true,
    .foldsNames = true,
};

}  // namespace folvane::sql
