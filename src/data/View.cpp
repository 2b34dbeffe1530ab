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

}  // namespace

void SortRows(const Rows& rows, const QString& order, std::vector<RowId>& list) {
  const std::vector<SortColumn> columns = ReadOrder(rows, order);
  std::vector<std::vector<SortKey>> keys(columns.size());
  for (std::size_t k = 0; k < columns.size(); ++k) {
    const TypeGroup group = GroupOfType(rows.Columns()[size_t(columns[k].column)].type);
    keys[k].reserve(list.size());
    for (const RowId row : list) keys[k].emplace_back(rows.Value(row, columns[k].column), group);
  }
  std::vector<std::size_t> indexes(list.size());
  std::iota(indexes.begin(), indexes.end(), std::size_t(0));
  std::stable_sort(indexes.begin(), indexes.end(), [&](std::size_t a, std::size_t b) {
    for (std::size_t k = 0; k < columns.size(); ++k)
      if (const int sign = keys[k][a].Compare(keys[k][b]); sign != 0)
        return columns[k].descending ? sign > 0 : sign < 0;
    return false;
  });
  std::vector<RowId> sorted(list.size());
  for (std::size_t i = 0; i < indexes.size(); ++i) sorted[i] = list[indexes[i]];
  list = std::move(sorted);
}

}  // namespace folvane
