#include "bulk/BatchUpdate.h"

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "bulk/ReturnTo.h"
#include "data/RefusedValues.h"
#include "data/ValueText.h"
#include "records/RecordStatement.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// Large enough for the cost of a transaction not to count, small enough for progress and a stop to show soon.
constexpr size_t kPortion = 500;

}  // namespace

std::optional<QString> Replacement::Of(const QVariant& stored) const {
  if (!stored.isValid()) return std::nullopt;
  const QString text = ValueText(stored);
  if (wholeValue) return text == find ? std::optional(value) : std::nullopt;
  const Qt::CaseSensitivity comparison = matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
  if (find.isEmpty() || !text.contains(find, comparison)) return std::nullopt;
  QString replaced = text;
  replaced.replace(find, value, comparison);
  return replaced == text ? std::nullopt : std::optional(replaced);
}

QString BrowserFilter(const QString& rights, const QString& query) {
  const QString filter = JoinedWithRights(rights, query);
  if (filter.isEmpty()) return u"1=1"_s;
  return HasTopLevelOr(filter) ? u"("_s + filter + u")"_s : filter;
}

std::array<QString, 2> FillOfEmpty::Statements() const {
  const QString start = u"Update "_s + table + u" Set "_s + field + u" ="_s + UnescapedLiteral(value) + u" Where "_s +
                        filter + u" And "_s + field;
  return {start + u" Is Null"_s, start + u" = ''"_s};
}

qint64 FillOfEmpty::Count(const std::shared_ptr<Connection>& connection) const {
  Recordset records;
  records.Open(u"Select Count(*) From "_s + table + u" Where "_s + filter + u" And ("_s + field + u" Is Null Or "_s +
                   field + u" = '')"_s,
               connection, CursorType::Static, LockType::ReadOnly);
  return records.Fields().Item(0).Value().toLongLong();
}

void FillOfEmpty::Run(Connection& connection) const {
  for (const QString& statement : Statements()) connection.Execute(statement);
}

BatchWalk::BatchWalk(Recordset& records, QString field, Replacement replacement, Direction direction, qint64 row)
    : records_(records),
      field_(std::move(field)),
      replacement_(std::move(replacement)),
      direction_(direction),
      row_(row) {}

void BatchWalk::Start() {
  if (records_.RecordCount() == 0) return;
  if (direction_ == Direction::All)
    records_.MoveFirst();
  else
    records_.Move(row_ - 1, MoveFrom::First);
}

bool BatchWalk::OnRow() const { return records_.AbsolutePosition() > 0; }

void BatchWalk::Step() { direction_ == Direction::Up ? records_.MovePrevious() : records_.MoveNext(); }

std::optional<QString> BatchWalk::Replaced() const { return replacement_.Of(records_[field_].Value()); }

qint64 BatchWalk::Count() {
  const ReturnTo before(records_);
  qint64 count = 0;
  for (Start(); OnRow(); Step()) count += Replaced() ? 1 : 0;
  return count;
}

bool BatchWalk::Run(const Progress& progress) {
  const ReturnTo before(records_);
  CheckLengths();
  try {
    return Walk(progress);
  } catch (const std::exception&) {
    // The records before the failing one stay changed; that they are written must not hide what failed.
    IgnoreErrors([this] { WritePortion(); });
    throw;
  }
}

void BatchWalk::CheckLengths() {
  const Field field = records_[field_];
  ColumnInfo column;
  column.name = field.Name();
  column.type = field.Type();
  column.definedSize = field.DefinedSize();
  if (GroupOfType(column.type) != TypeGroup::Text) return;
  for (Start(); OnRow(); Step()) {
    if (const std::optional<QString> value = Replaced()) FittedText(*value, column, field.Text());
  }
}

bool BatchWalk::Walk(const Progress& progress) {
  const qint64 count = records_.RecordCount();
  qint64 done = 0;
  bool goesOn = true;
  for (Start(); OnRow() && goesOn; Step()) {
    Replace();
    if (portion_.size() == kPortion) WritePortion();
    goesOn = progress(++done, count);
  }
  WritePortion();
  return goesOn;
}

void BatchWalk::Replace() {
  const std::optional<QString> value = Replaced();
  if (!value) return;
  records_[field_].SetValue(*value);
  records_.Update();
  portion_.push_back(records_.Bookmark());
}

void BatchWalk::WritePortion() {
  if (portion_.empty()) return;
  if (!IgnoreErrors([this] { records_.UpdateBatch(AffectKind::All); })) return WriteSingly();
  written_ += qint64(portion_.size());
  portion_.clear();
}

// A portion is written whole or not at all. One that is refused is written record by record up to the one at fault.
void BatchWalk::WriteSingly() {
  const std::vector<qint64> rows = std::exchange(portion_, {});
  const ReturnTo before(records_);
  try {
    for (const qint64 row : rows) {
      records_.SetBookmark(row);
      records_.UpdateBatch(AffectKind::Current);
      ++written_;
    }
  } catch (const DataError&) {
    records_.CancelBatch(AffectKind::All);
    throw;
  }
}

}  // namespace folvane
