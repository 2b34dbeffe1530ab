#include <cmath>
#include <limits>

#include "data/dialect/TextValues.h"
#include "data/drivers/sqlite/SqliteFunctionTools.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

bool IsText(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_TEXT; }

void Integer(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  if (!IsText(values[0])) return sqlite3_result_int64(context, sqlite3_value_int64(values[0]));
  const QString text = TextOf(values[0]);
  const std::optional<qlonglong> number = sql::IntegerFromText(text);
  number ? sqlite3_result_int64(context, *number) : FailConversion(context, text, sql::IntegerWord());
}

template <std::optional<double> Read(QStringView)>
void Real(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  if (!IsText(values[0])) return sqlite3_result_value(context, values[0]);
  const QString text = TextOf(values[0]);
  const std::optional<double> number = Read(text);
  number ? sqlite3_result_double(context, *number) : FailConversion(context, text, sql::NumberWord());
}

// A number with no more digits than it has: 5 for 5.0.
void Text(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  if (sqlite3_value_type(values[0]) != SQLITE_FLOAT) return ResultText(context, TextOf(values[0]));
  ResultText(context, QString::number(sqlite3_value_double(values[0]), 'g', 15));
}

// Halves go away from zero.
double Rounded(double value, int decimals) {
  const double factor = std::pow(10.0, decimals);
  const double scaled = value * factor;
  return std::isfinite(scaled) ? std::round(scaled) / factor : value;
}

void Round(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const double rounded = Rounded(sqlite3_value_double(values[0]), sqlite3_value_int(values[1]));
  const bool whole = sqlite3_value_type(values[0]) == SQLITE_INTEGER;
  whole ? sqlite3_result_int64(context, qlonglong(rounded)) : sqlite3_result_double(context, rounded);
}

// A number right aligned; stars when it does not fit.
void Str(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const double number = sqlite3_value_double(values[0]);
  const qsizetype width = sqlite3_value_int(values[1]), decimals = sqlite3_value_int(values[2]);
  const QString whole = QString::number(Rounded(number, 0), 'f', 0);
  const QString text = QString::number(Rounded(number, int(decimals)), 'f', int(decimals));
  ResultText(context, whole.size() > width ? QString(width, u'*') : text.left(width).rightJustified(width));
}

bool FailsByZero(sqlite3_context* context, sqlite3_value* divisor) {
  if (sqlite3_value_double(divisor) != 0) return false;
  Fail(context, u"除数是零。"_s);
  sqlite3_result_error_code(context, SQLITE_MISMATCH);
  return true;
}

bool AreWhole(sqlite3_value** values) {
  return sqlite3_value_type(values[0]) == SQLITE_INTEGER && sqlite3_value_type(values[1]) == SQLITE_INTEGER;
}

// The smallest whole number by minus one has no result of its kind; as a real number it has.
bool Overflows(sqlite3_value** values) {
  return sqlite3_value_int64(values[1]) == -1 &&
         sqlite3_value_int64(values[0]) == std::numeric_limits<qlonglong>::min();
}

void Divide(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  if (FailsByZero(context, values[1])) return;
  if (AreWhole(values) && !Overflows(values))
    return sqlite3_result_int64(context, sqlite3_value_int64(values[0]) / sqlite3_value_int64(values[1]));
  sqlite3_result_double(context, sqlite3_value_double(values[0]) / sqlite3_value_double(values[1]));
}

void Modulo(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  if (FailsByZero(context, values[1])) return;
  if (AreWhole(values) && !Overflows(values))
    return sqlite3_result_int64(context, sqlite3_value_int64(values[0]) % sqlite3_value_int64(values[1]));
  sqlite3_result_double(context, std::fmod(sqlite3_value_double(values[0]), sqlite3_value_double(values[1])));
}

}  // namespace

void AddNumberFunctions(SqliteFunctionList& list) {
  list.Add("folvane_integer", 1, Integer);
  list.Add("folvane_decimal", 1, Real<sql::DecimalFromText>);
  list.Add("folvane_float", 1, Real<sql::FloatFromText>);
  list.Add("folvane_text", 1, Text);
  list.Add("folvane_round", 2, Round);
  list.Add("folvane_str", 3, Str);
  list.Add("folvane_divide", 2, Divide);
  list.Add("folvane_modulo", 2, Modulo);
}

}  // namespace folvane
