#include "records/RecordListModel.h"

#include <algorithm>
#include <limits>

#include "widgets/PlainTip.h"

namespace folvane {
namespace {

constexpr int kMostNumbered = std::numeric_limits<qint16>::max();
constexpr int kNumberTwips = 1500;  // box, icon and number

}  // namespace

int IconOfRow(const QString& seventhCell, bool hasOriginals) {
  if (seventhCell.trimmed().isEmpty()) return hasOriginals ? RowIcon::EmptyWithOriginals : RowIcon::Empty;
  return hasOriginals ? RowIcon::FilledWithOriginals : RowIcon::Filled;
}

void RecordListModel::SetColumns(std::vector<ListColumn> columns) {
  beginResetModel();
  rows_.clear();
  ticked_.clear();
  columns_ = std::move(columns);
  if (ticks_ == Ticks::Numbered && !columns_.empty())
    columns_.insert(columns_.begin(), {QString(), QStringLiteral("序号"), kNumberTwips, QString()});
  endResetModel();
}

int RecordListModel::FindColumn(const QString& key) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const ListColumn& column) {
    return column.key.compare(key, Qt::CaseInsensitive) == 0;
  });
  return found == columns_.end() ? -1 : int(found - columns_.begin());
}

void RecordListModel::SetCaption(int column, const QString& caption) {
  columns_.at(size_t(column)).caption = caption;
  Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void RecordListModel::ClearRows() {
  if (rows_.empty()) return;
  // Removed rather than reset: a reset would have the header start over with its widths.
  beginRemoveRows({}, 0, Count() - 1);
  rows_.clear();
  endRemoveRows();
}

void RecordListModel::InsertRow(int at, ListRow row) {
  beginInsertRows({}, at, at);
  rows_.insert(rows_.begin() + at, std::move(row));
  endInsertRows();
}

void RecordListModel::ShowOriginals(int row, bool hasOriginals) {
  int& icon = rows_.at(size_t(row)).icon;
  const bool filled = icon == RowIcon::Filled || icon == RowIcon::FilledWithOriginals;
  icon = filled ? (hasOriginals ? RowIcon::FilledWithOriginals : RowIcon::Filled)
                : (hasOriginals ? RowIcon::EmptyWithOriginals : RowIcon::Empty);
  Q_EMIT dataChanged(index(row, 0), index(row, 0), {Qt::DecorationRole, Qt::UserRole + 1});
}

QString RecordListModel::KeyOf(int row) const {
  return row >= 0 && row < Count() && !Row(row).cells.isEmpty() ? Row(row).cells.last() : QString();
}

void RecordListModel::SetTickable(bool tickable) { SetTicks(tickable ? Ticks::Boxes : Ticks::None); }

void RecordListModel::NumberTicks() { SetTicks(Ticks::Numbered); }

void RecordListModel::SetTicks(Ticks ticks) {
  beginResetModel();
  ticks_ = ticks;
  ticked_.clear();
  endResetModel();
}

// The numbers behind a tick that goes move up.
void RecordListModel::SetTicked(QStringList keys) {
  ticked_ = std::move(keys);
  if (Count() > 0) Q_EMIT dataChanged(index(0, 0), index(Count() - 1, 0), {Qt::CheckStateRole, Qt::DisplayRole});
}

void RecordListModel::TickLoaded() {
  QStringList keys;
  for (int row = 0; row < Count() && (ticks_ != Ticks::Numbered || row < kMostNumbered); ++row) keys << KeyOf(row);
  SetTicked(std::move(keys));
}

void RecordListModel::ClearTicks() {
  if (!ticked_.isEmpty()) SetTicked({});
}

bool RecordListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable)) return false;
  const QString key = KeyOf(index.row());
  const qsizetype at = ticked_.indexOf(key);
  const bool ticks = value.toInt() == Qt::Checked;
  if (ticks == (at >= 0)) return true;
  if (ticks) {
    if (ticks_ == Ticks::Numbered && ticked_.size() >= kMostNumbered) return false;
    ticked_.append(key);
  } else {
    ticked_.removeAt(at);
    if (ticks_ == Ticks::Numbered)
      Q_EMIT dataChanged(this->index(0, 0), this->index(Count() - 1, 0), {Qt::DisplayRole});
  }
  Q_EMIT dataChanged(index, index, {Qt::CheckStateRole, Qt::DisplayRole});
  return true;
}

QString RecordListModel::TickNumber(int row) const {
  const qsizetype at = ticked_.indexOf(KeyOf(row));
  return at < 0 ? QString() : QString::number(at + 1);
}

Qt::ItemFlags RecordListModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
  return IsTickable() && index.isValid() && index.column() == 0 ? usual | Qt::ItemIsUserCheckable : usual;
}

int RecordListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Count(); }

int RecordListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(columns_.size());
}

QVariant RecordListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const ListRow& row = Row(index.row());
  switch (role) {
    case Qt::DisplayRole:
      if (ticks_ == Ticks::Numbered && index.column() == 0) return TickNumber(index.row());
      return row.cells.value(index.column());
    case Qt::DecorationRole:
      return index.column() == 0 && decoration_ ? decoration_(row.icon) : QVariant();
    case Qt::CheckStateRole:
      if (!(flags(index) & Qt::ItemIsUserCheckable)) return {};
      return ticked_.contains(KeyOf(index.row())) ? Qt::Checked : Qt::Unchecked;
    case Qt::UserRole:
      return KeyOf(index.row());
    case Qt::UserRole + 1:
      return row.icon;
    default:
      return {};
  }
}

QVariant RecordListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const ListColumn& column = columns_[size_t(section)];
  switch (role) {
    case Qt::DisplayRole:
      return column.caption;
    case Qt::ToolTipRole:
      return PlainTip(column.caption);
    case Qt::TextAlignmentRole:
      return int(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::UserRole:
      return column.key;
    case Qt::UserRole + 2:
      return column.tag;
    default:
      return {};
  }
}

}  // namespace folvane
