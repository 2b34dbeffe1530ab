#include "data/drivers/sqlite/SqliteFunctions.h"

#include <QCollator>
#include <algorithm>
#include <cstring>
#include <memory>
#include <sqlite3.h>

#include "data/TextFold.h"
#include "data/Utf8.h"
#include "data/dialect/Refusal.h"
#include "data/drivers/sqlite/SqliteErrors.h"
#include "data/drivers/sqlite/SqliteFunctionTools.h"

namespace folvane {

namespace {

// How many bytes two texts have alike from a place on, at least. Titles begin alike over many, which are passed over
// eight at a time.
qsizetype AlikeFrom(qsizetype at, qsizetype end, const char* a, const char* b) {
  for (; at + 8 <= end; at += 8) {
    std::uint64_t x = 0, y = 0;
    std::memcpy(&x, a + at, sizeof x);
    std::memcpy(&y, b + at, sizeof y);
    if (x != y) break;
  }
  return at;
}

int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
  const QByteArrayView left = WithoutTrailingBlanks({static_cast<const char*>(a), lengthA});
  const QByteArrayView right = WithoutTrailingBlanks({static_cast<const char*>(b), lengthB});
  const qsizetype common = std::min(left.size(), right.size());
  for (qsizetype i = AlikeFrom(0, common, left.data(), right.data()); i < common; ++i) {
    const auto x = uchar(FoldAscii(left[i])), y = uchar(FoldAscii(right[i]));
    if (x != y) return x < y ? -1 : 1;
  }
  return left.size() < right.size() ? -1 : left.size() > right.size();
}

int CollatePinyin(void* collator, int lengthA, const void* a, int lengthB, const void* b) {
  const auto text = [](const void* bytes, int length) {
    return QString::fromUtf8(WithoutTrailingBlanks({static_cast<const char*>(bytes), length}));
  };
  const int order = static_cast<const QCollator*>(collator)->compare(text(a, lengthA), text(b, lengthB));
  return order ? order : Collate(nullptr, lengthA, a, lengthB, b);
}

// Whether Qt was built with the tables for it: "a", "yi" and "zhong" stand in another order by their codes.
bool KnowsPinyin(const QCollator& collator) {
  const QString a(QChar(0x554A)), yi(QChar(0x4E00)), zhong(QChar(0x4E2D));
  return collator.compare(a, yi) < 0 && collator.compare(yi, zhong) < 0;
}

}  // namespace

void SqliteFunctionList::Add(const char* name, int arguments, Body body) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
  if (result_ == SQLITE_OK)
    result_ = sqlite3_create_function_v2(database_, name, arguments, kFlags, nullptr, body, nullptr, nullptr, nullptr);
}

bool HasNull(int count, sqlite3_value** values) {
  return std::any_of(values, values + count, [](sqlite3_value* v) { return sqlite3_value_type(v) == SQLITE_NULL; });
}

QByteArrayView Utf8Of(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, sqlite3_value_bytes(value)};
}

QString TextOf(sqlite3_value* value) { return TextOfUtf8(Utf8Of(value)); }

void ResultText(sqlite3_context* context, const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  sqlite3_result_text(context, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void Fail(sqlite3_context* context, const QString& message) {
  const QByteArray utf8 = message.toUtf8();
  sqlite3_result_error(context, utf8.constData(), int(utf8.size()));
}

void FailConversion(sqlite3_context* context, const QString& text, const QString& wanted) {
  Fail(context, sql::UnfitValueText(text, wanted));
  sqlite3_result_error_code(context, SQLITE_MISMATCH);
}

void RegisterSqliteFunctions(sqlite3* database) {
  SqliteFunctionList list(database);
  list.SetResult(sqlite3_create_collation_v2(database, "FOLVANE", SQLITE_UTF8, nullptr, Collate, nullptr));
  AddTextFunctions(list);
  AddNumberFunctions(list);
  AddDateFunctions(list);
  if (list.Result() != SQLITE_OK) ThrowSqliteError(database, list.Result());
}

QByteArray RegisterPinyinCollation(sqlite3* database) {
  constexpr char kName[] = "FOLVANE_PINYIN";
  auto collator = std::make_unique<QCollator>(QLocale(QLocale::Chinese, QLocale::China));
  collator->setCaseSensitivity(Qt::CaseInsensitive);
  if (!KnowsPinyin(*collator)) return {};
  const int result = sqlite3_create_collation_v2(database, kName, SQLITE_UTF8, collator.get(), CollatePinyin,
                                                 [](void* registered) { delete static_cast<QCollator*>(registered); });
  if (result != SQLITE_OK) ThrowSqliteError(database, result);
  static_cast<void>(collator.release());  // the handle's from now on
  return kName;
}

}  // namespace folvane
