#include <algorithm>
#include <memory>

#include "data/TextFold.h"
#include "data/dialect/TextValues.h"
#include "data/drivers/sqlite/LikeMatcher.h"
#include "data/drivers/sqlite/SqliteFunctionTools.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

// The pattern is the same for all rows of a statement as a rule: SQLite keeps what was made of it.
const LikeMatcher* MatcherOf(sqlite3_context* context, int count, sqlite3_value** values,
                             std::unique_ptr<LikeMatcher>& own) {
  if (const void* kept = sqlite3_get_auxdata(context, 0)) return static_cast<const LikeMatcher*>(kept);
  const QString escape = count > 2 ? TextOf(values[2]) : QString();
  const char32_t sign = escape.isEmpty() ? 0 : escape.toUcs4().constFirst();
  own = std::make_unique<LikeMatcher>(Utf8Of(values[0]), sign);
  sqlite3_set_auxdata(context, 0, new LikeMatcher(*own), [](void* kept) { delete static_cast<LikeMatcher*>(kept); });
  return own.get();
}

void Like(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  std::unique_ptr<LikeMatcher> own;
  sqlite3_result_int(context, MatcherOf(context, count, values, own)->Matches(Utf8Of(values[1])));
}

// The text that equal ones have in common, for an order that compares bytes. What is no text stays what it is.
void Folded(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) != SQLITE_TEXT) return sqlite3_result_value(context, values[0]);
  const QByteArrayView text = Utf8Of(values[0]);
  if (IsFolded(text)) return sqlite3_result_value(context, values[0]);
  const QByteArrayView kept = WithoutTrailingBlanks(text);
  auto* folded = static_cast<char*>(sqlite3_malloc64(sqlite3_uint64(kept.size()) + 1));
  if (!folded) return sqlite3_result_error_nomem(context);
  std::transform(kept.begin(), kept.end(), folded, FoldAscii);
  sqlite3_result_text64(context, folded, sqlite3_uint64(kept.size()), sqlite3_free, SQLITE_UTF8);
}

// Characters are counted as SQLite itself and PostgreSQL count them: one beyond the basic plane is one, of two units.

qlonglong CharactersIn(QStringView text) {
  return text.size() - std::count_if(text.begin(), text.end(), [](QChar unit) { return unit.isLowSurrogate(); });
}

// Where so many characters of a text end.
qsizetype UnitsOf(QStringView text, qlonglong characters) {
  qsizetype end = 0;
  for (; characters > 0 && end < text.size(); --characters)
    end += end + 1 < text.size() && text[end + 1].isLowSurrogate() ? 2 : 1;
  return end;
}

// No text is as long, and sums of two such numbers are numbers.
qlonglong PlaceIn(sqlite3_value* value) {
  constexpr qlonglong kBeyond = qlonglong(1) << 40;
  return std::clamp<qlonglong>(sqlite3_value_int64(value), -kBeyond, kBeyond);
}

void Right(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const QString text = TextOf(values[0]);
  ResultText(context, text.mid(UnitsOf(text, CharactersIn(text) - std::max<qlonglong>(0, PlaceIn(values[1])))));
}

// A start before the first character eats up a part of the length.
void SubString(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const QString text = TextOf(values[0]);
  const qlonglong start = PlaceIn(values[1]) - 1, length = PlaceIn(values[2]);
  if (length < 0) return Fail(context, u"SubString 的长度不能是负数。"_s);
  const qsizetype from = UnitsOf(text, start), to = std::max(from, UnitsOf(text, start + length));
  ResultText(context, text.mid(from, to - from));
}

QString FoldedAscii(QString text) {
  for (QChar& c : text)
    if (c >= u'A' && c <= u'Z') c = QChar(c.unicode() + 32);
  return text;
}

void CharIndex(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const QString find = FoldedAscii(TextOf(values[0])), text = FoldedAscii(TextOf(values[1]));
  const qsizetype at = find.isEmpty() ? -1 : text.indexOf(find, UnitsOf(text, PlaceIn(values[2]) - 1));
  sqlite3_result_int64(context, at < 0 ? 0 : CharactersIn(QStringView(text).first(at)) + 1);
}

void Replace(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  const QString text = TextOf(values[0]), with = TextOf(values[2]);
  const QString folded = FoldedAscii(text), find = FoldedAscii(TextOf(values[1]));
  if (find.isEmpty()) return sqlite3_result_value(context, values[0]);
  QString replaced;
  qsizetype from = 0;
  for (qsizetype at; (at = folded.indexOf(find, from)) >= 0; from = at + find.size())
    replaced += text.mid(from, at - from) + with;
  ResultText(context, replaced + text.mid(from));
}

void Replicate(sqlite3_context* context, int count, sqlite3_value** values) {
  if (HasNull(count, values)) return sqlite3_result_null(context);
  constexpr qlonglong kLongest = 8000;  // of a varchar of the language
  const QString text = TextOf(values[0]);
  const qlonglong times = sqlite3_value_int64(values[1]);
  if (times < 0) return sqlite3_result_null(context);
  ResultText(context, text.repeated(text.isEmpty() ? 0 : std::min(times, kLongest / text.size())));
}

void IsNumeric(sqlite3_context* context, int, sqlite3_value** values) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL) return sqlite3_result_int(context, 0);
  const QString text = TextOf(values[0]);
  sqlite3_result_int(context, !text.trimmed().isEmpty() && sql::FloatFromText(text).has_value());
}

}  // namespace

void AddTextFunctions(SqliteFunctionList& list) {
  list.Add("folvane_like", 2, Like);
  list.Add("folvane_like", 3, Like);
  list.Add("folvane_right", 2, Right);
  list.Add("folvane_substring", 3, SubString);
  list.Add("folvane_folded", 1, Folded);
  list.Add("folvane_charindex", 3, CharIndex);
  list.Add("folvane_replace", 3, Replace);
  list.Add("folvane_replicate", 2, Replicate);
  list.Add("folvane_isnumeric", 1, IsNumeric);
}

}  // namespace folvane
