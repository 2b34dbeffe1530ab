#include "data/View.h"

#include <QDateTime>
#include <QStringList>
#include <algorithm>
#include <numeric>

#include <folvane/DataError.h>

#include "data/TextFold.h"
#include "data/ValueText.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

qint64 View::Count() const { return list_ ? qint64(list_->size()) : qint64(rows_.EndId()); }

RowId View::At(qint64 position) const { return list_ ? (*list_)[size_t(position)] : RowId(position); }

std::vector<RowId> View::Between(qint64 begin, qint64 end) const {
  std::vector<RowId> rows;
  for (qint64 position = begin; position < end; ++position) rows.push_back(At(position));
  return rows;
}

qint64 View::PositionOf(RowId row) const {
  if (!list_) return row < rows_.EndId() ? row : -1;
  if (positions_.empty() && !list_->empty()) {
    positions_.assign(rows_.EndId(), -1);
    for (std::size_t i = 0; i < list_->size(); ++i) positions_[(*list_)[i]] = qint64(i);
  }
  return row < positions_.size() ? positions_[row] : -1;
}

void View::Show(std::optional<std::vector<RowId>> rows) {
  positions_.clear();
  list_ = std::move(rows);
  if (list_ || rows_.AllLive()) return;
  list_.emplace();
  for (RowId row = 0; row < rows_.EndId(); ++row)
    if (rows_.IsLive(row)) list_->push_back(row);
}

void View::Append(RowId row) {
  positions_.clear();
  if (list_) list_->push_back(row);
}

void View::RemoveAt(qint64 position) {
  positions_.clear();
  if (!list_) {
    list_.emplace(rows_.EndId());
    std::iota(list_->begin(), list_->end(), RowId(0));
  }
  list_->erase(list_->begin() + position);
}

namespace {

// A column's values in a form that compares fast, gathered once before the sort.
struct SortKey {
  enum Rank : char { Null, Number, Text };
  Rank rank = Null;
  double number = 0;
  QByteArray text;

  explicit SortKey(const QVariant& value, TypeGroup group) {
    if (!value.isValid()) return;
    bool isNumber = false;
    if (group == TypeGroup::Number) number = value.toDouble(&isNumber);
    rank = isNumber ? Number : Text;
    if (!isNumber) text = FoldText(ValueText(value));
  }

  int Compare(const SortKey& other) const {
    if (rank != other.rank) return rank < other.rank ? -1 : 1;
    if (rank == Number) return number < other.number ? -1 : number > other.number;
    return text.compare(other.text);
  }
};

struct SortColumn {
  int column;
  bool descending;
};

std::vector<SortColumn> ReadOrder(const Rows& rows, const QString& order) {
  std::vector<SortColumn> columns;
  for (const QString& item : order.split(u',')) {
    QStringList words = item.simplified().split(u' ', Qt::SkipEmptyParts);
    const QString direction = words.size() > 1 ? words.takeLast().toLower() : u"asc"_s;
    QString name = words.join(u' ');
    if (name.startsWith(u'[') && name.endsWith(u']')) name = name.mid(1, name.size() - 2);
    const int column = rows.IndexOf(name);
    if (column < 0 || (direction != "asc"_L1 && direction != "desc"_L1))
      throw DataError(DataErrorKind::Usage, u"不能识别的排序：%1"_s.arg(order));
    columns.push_back({column, direction == "desc"_L1});
  }
  return columns;
}

// Few rows are read, of many the columns.
template <typename Visit>
void EachListed(const Rows& rows, const std::vector<RowId>& list, const std::vector<int>& columns, Visit visit) {
  constexpr std::size_t kFewParts = 8;
  if (rows.Store().IsWhole() || list.size() < rows.EndId() / kFewParts) {
    rows.Load(list);
    for (const RowId row : list)
      if (rows.IsLive(row)) visit(row, [&](int column) { return rows.Value(row, column); });
    return;
  }
  std::vector<bool> isListed(rows.EndId());
  for (const RowId row : list) isListed[row] = true;
  rows.Each(columns, [&](RowId row, auto valueOf) {
    if (isListed[row]) visit(row, valueOf);
  });
}

}  // namespace

void SortRows(const Rows& rows, const QString& order, std::vector<RowId>& list) {
  const std::vector<SortColumn> columns = ReadOrder(rows, order);
  std::vector<int> read;
  std::vector<TypeGroup> groups;
  for (const SortColumn& by : columns) {
    read.push_back(by.column);
    groups.push_back(GroupOfType(rows.Columns()[size_t(by.column)].type));
  }
  std::vector<RowId> sorted;
  std::vector<SortKey> keys;  // of one row after the other
  sorted.reserve(list.size());
  keys.reserve(list.size() * columns.size());
  const auto add = [&](RowId row, auto valueOf) {
    sorted.push_back(row);
    for (std::size_t k = 0; k < read.size(); ++k) keys.emplace_back(valueOf(read[k]), groups[k]);
  };
  EachListed(rows, list, read, add);

  std::vector<std::size_t> indexes(sorted.size());
  std::iota(indexes.begin(), indexes.end(), std::size_t(0));
  std::sort(indexes.begin(), indexes.end(), [&](std::size_t a, std::size_t b) {
    const SortKey* const keysOfA = &keys[a * columns.size()];
    const SortKey* const keysOfB = &keys[b * columns.size()];
    for (std::size_t k = 0; k < columns.size(); ++k)
      if (const int sign = keysOfA[k].Compare(keysOfB[k]); sign != 0)
        return columns[k].descending ? sign > 0 : sign < 0;
    return sorted[a] < sorted[b];
  });
  list.clear();
  for (const std::size_t index : indexes) list.push_back(sorted[index]);
}

}  // namespace folvane
