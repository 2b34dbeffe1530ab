#include "data/drivers/sqlite/SqliteFunctions.h"

#include <QDateTime>
#include <algorithm>
#include <sqlite3.h>

#include "data/TextFold.h"
#include "data/ValueText.h"
#include "data/drivers/sqlite/SqliteErrors.h"

namespace folvane {

namespace {

int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
  const QByteArrayView left = WithoutTrailingBlanks({static_cast<const char*>(a), lengthA});
  const QByteArrayView right = WithoutTrailingBlanks({static_cast<const char*>(b), lengthB});
  const qsizetype common = std::min(left.size(), right.size());
  for (qsizetype i = 0; i < common; ++i) {
    const auto x = static_cast<unsigned char>(FoldAscii(left[i])), y = static_cast<unsigned char>(FoldAscii(right[i]));
    if (x != y) return x < y ? -1 : 1;
  }
  return left.size() < right.size() ? -1 : left.size() > right.size();
}

QByteArrayView TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, sqlite3_value_bytes(value)};
}

bool AnyNull(int count, sqlite3_value** values) {
  return std::any_of(values, values + count, [](sqlite3_value* v) { return sqlite3_value_type(v) == SQLITE_NULL; });
}

// The bytes of the UTF-8 character that begins at the place.
qsizetype CharacterLength(QByteArrayView text, qsizetype at) {
  qsizetype end = at + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) ++end;
  return end - at;
}

QByteArray Folded(QByteArrayView character) {
  QByteArray folded = character.toByteArray();
  if (folded.size() == 1) folded[0] = FoldAscii(folded[0]);
  return folded;
}

// Whether a character is in the class between the brackets: [abc], [a-f], [^x].
bool InClass(QByteArrayView inner, QByteArrayView character) {
  const bool negated = inner.startsWith('^');
  if (negated) inner = inner.sliced(1);
  const QByteArray wanted = Folded(character);
  bool found = false;
  for (qsizetype i = 0; i < inner.size() && !found;) {
    const QByteArray low = Folded(inner.sliced(i, CharacterLength(inner, i)));
    i += CharacterLength(inner, i);
    QByteArray high = low;
    if (i + 1 < inner.size() && inner[i] == '-') {
      high = Folded(inner.sliced(i + 1, CharacterLength(inner, i + 1)));
      i += 1 + CharacterLength(inner, i + 1);
    }
    // UTF-8 bytes order as the characters do.
    found = wanted >= low && wanted <= high;
  }
  return found != negated;
}

struct PatternPart {
  enum Kind { End, Run, Any, Class, Literal, Nothing } kind;
  QByteArrayView text;
  qsizetype next;
};

PatternPart PartAt(QByteArrayView pattern, qsizetype at, char escape) {
  if (at >= pattern.size()) return {PatternPart::End, {}, at};
  if (escape && pattern[at] == escape && at + 1 < pattern.size()) {
    const qsizetype length = CharacterLength(pattern, at + 1);
    return {PatternPart::Literal, pattern.sliced(at + 1, length), at + 1 + length};
  }
  if (pattern[at] == '%') return {PatternPart::Run, {}, at + 1};
  if (pattern[at] == '_') return {PatternPart::Any, {}, at + 1};
  if (pattern[at] == '[') {
    const qsizetype close = at + 2 < pattern.size() ? pattern.indexOf(']', at + 2) : -1;
    if (close < 0) return {PatternPart::Nothing, {}, pattern.size()};
    return {PatternPart::Class, pattern.sliced(at + 1, close - at - 1), close + 1};
  }
  const qsizetype length = CharacterLength(pattern, at);
  return {PatternPart::Literal, pattern.sliced(at, length), at + length};
}

bool MatchesOne(const PatternPart& part, QByteArrayView character) {
  switch (part.kind) {
    case PatternPart::Any:
      return true;
    case PatternPart::Class:
      return InClass(part.text, character);
    case PatternPart::Literal:
      return Folded(part.text) == Folded(character);
    default:
      return false;
  }
}

bool Matches(QByteArrayView text, QByteArrayView pattern, char escape) {
  qsizetype t = 0, p = 0, runText = -1, runPattern = -1;
  for (;;) {
    const PatternPart part = PartAt(pattern, p, escape);
    if (part.kind == PatternPart::Run) {
      runPattern = p = part.next;
      runText = t;
      continue;
    }
    if (t >= text.size()) return part.kind == PatternPart::End;
    const qsizetype length = CharacterLength(text, t);
    if (MatchesOne(part, text.sliced(t, length))) {
      t += length;
      p = part.next;
    } else if (runPattern >= 0) {
      runText += CharacterLength(text, runText);
      t = runText;
      p = runPattern;
    } else {
      return false;
    }
  }
}

void Like(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return sqlite3_result_null(context);
  const char escape = count > 2 && sqlite3_value_bytes(values[2]) > 0 ? TextOf(values[2])[0] : '\0';
  sqlite3_result_int(context, Matches(TextOf(values[1]), TextOf(values[0]), escape));
}

void Fail(sqlite3_context* context, const QString& message) {
  const QByteArray utf8 = message.toUtf8();
  sqlite3_result_error(context, utf8.constData(), static_cast<int>(utf8.size()));
  sqlite3_result_error_code(context, SQLITE_MISMATCH);
}

void Number(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return sqlite3_result_null(context);
  if (sqlite3_value_type(values[0]) != SQLITE_TEXT) return sqlite3_result_value(context, values[0]);
  const QByteArray text = TextOf(values[0]).toByteArray().trimmed();
  bool ok = text.isEmpty();
  const qlonglong whole = ok ? 0 : text.toLongLong(&ok);
  if (ok) return sqlite3_result_int64(context, whole);
  const double real = text.toDouble(&ok);
  if (ok) return sqlite3_result_double(context, real);
  Fail(context, QStringLiteral("“%1”不是数字，不能与数字比较或计算。").arg(QString::fromUtf8(text)));
}

void Date(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return sqlite3_result_null(context);
  const QString text = QString::fromUtf8(TextOf(values[0]));
  const QDateTime moment =
      text.trimmed().isEmpty() ? QDateTime(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC) : ReadDateTime(text);
  if (!moment.isValid()) return Fail(context, QStringLiteral("“%1”不是日期。").arg(text));
  const QByteArray date = ValueText(moment).toUtf8();
  sqlite3_result_text(context, date.constData(), static_cast<int>(date.size()), SQLITE_TRANSIENT);
}

void Replace(sqlite3_context* context, int count, sqlite3_value** values) {
  if (AnyNull(count, values)) return sqlite3_result_null(context);
  QString text = QString::fromUtf8(TextOf(values[0]));
  const QString find = QString::fromUtf8(TextOf(values[1]));
  if (!find.isEmpty()) text.replace(find, QString::fromUtf8(TextOf(values[2])), Qt::CaseInsensitive);
  const QByteArray utf8 = text.toUtf8();
  sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

}  // namespace

void RegisterSqliteFunctions(sqlite3* database) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  int result = sqlite3_create_collation_v2(database, "FOLVANE", SQLITE_UTF8, nullptr, Collate, nullptr);
  const auto add = [&](const char* name, int arguments, void (*function)(sqlite3_context*, int, sqlite3_value**)) {
    if (result == SQLITE_OK)
      result =
          sqlite3_create_function_v2(database, name, arguments, kFlags, nullptr, function, nullptr, nullptr, nullptr);
  };
  add("folvane_like", 2, Like);
  add("folvane_like", 3, Like);
  add("folvane_number", 1, Number);
  add("folvane_date", 1, Date);
  add("folvane_replace", 3, Replace);
  if (result != SQLITE_OK) ThrowSqliteError(database, result);
}

}  // namespace folvane
