#include "records/RecordsetModel.h"

#include <algorithm>

#include "widgets/PlainTip.h"

namespace folvane {

void RecordsetModel::Reset() {
  beginResetModel();
  fields_.clear();
  if (records_.IsOpen()) {
    for (const GridColumn& column : columns_) fields_.push_back(records_.Fields().IndexOf(column.field));
  }
  endResetModel();
}

void RecordsetModel::TellChanged(int row) { Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1)); }

int RecordsetModel::FieldColumn(const QString& field) const {
  const auto found =
      std::find_if(columns_.begin(), columns_.end(), [&](const GridColumn& column) { return column.field == field; });
  return found == columns_.end() ? -1 : int(found - columns_.begin());
}

int RecordsetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || fields_.empty() || !records_.IsOpen() ? 0 : int(records_.RecordCount());
}

int RecordsetModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(columns_.size()); }

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::DecorationRole) return {};
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const int field = fields_[size_t(index.column())];
  const QString text = field < 0 ? QString() : records_.TextAt(index.row() + 1, field);
  if (role == Qt::DisplayRole) return text;
  if (role == Qt::ToolTipRole) return PlainTip(text);
  return decoration_ ? decoration_(columns_[size_t(index.column())].field, text) : QVariant();
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const GridColumn& column = columns_[size_t(section)];
  if (role == Qt::DisplayRole) return column.caption;
  return role == Qt::UserRole ? column.field : QVariant();
}

}  // namespace folvane
