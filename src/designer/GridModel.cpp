#include "designer/GridModel.h"

#include "widgets/PlainTip.h"

namespace folvane::designer {

GridModel::GridModel(DesignSession& session, std::vector<GridColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), session_(session), columns_(std::move(columns)) {}

void GridModel::Refresh() {
  const int count = Count();
  if (count == shown_) {
    if (count > 0) Q_EMIT dataChanged(index(0, 0), index(count - 1, columnCount() - 1));
    return;
  }
  beginResetModel();
  shown_ = count;
  endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : int(columns_.size()); }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= Count()) return {};
  const bool isCheck = Column(index.column()).kind == GridColumn::Kind::Check;
  if (role == Qt::CheckStateRole && isCheck)
    return Value(index.row(), index.column()).toBool() ? Qt::Checked : Qt::Unchecked;
  if ((role == Qt::DisplayRole || role == Qt::EditRole) && !isCheck) return Value(index.row(), index.column());
  if (role == Qt::ToolTipRole && !isCheck) return PlainTip(Value(index.row(), index.column()).toString());
  return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
  if (role == Qt::DisplayRole) return Column(section).title;
  if (role == Qt::ToolTipRole) return Column(section).tip;
  if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid() || index.row() >= Count()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (IsLocked(index.row(), index.column())) return flags;
  return flags |
         (Column(index.column()).kind == GridColumn::Kind::Check ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!(flags(index) & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable))) return false;
  const bool isCheck = Column(index.column()).kind == GridColumn::Kind::Check;
  if (role != (isCheck ? Qt::CheckStateRole : Qt::EditRole)) return false;
  return Write(index.row(), index.column(), isCheck ? QVariant(value.toInt() == Qt::Checked) : value);
}

}  // namespace folvane::designer
