#include "records/TableParameters.h"

#include <algorithm>

namespace folvane {

void TableParameters::Clear() {
  Select(0);
  SetTag(QString());
  beginResetModel();
  rows_.clear();
  endResetModel();
}

int TableParameters::Add(const QString& table) {
  beginInsertRows({}, Count(), Count());
  rows_.emplace_back();
  rows_.back()[0] = table;
  endInsertRows();
  return Count();
}

void TableParameters::RemoveFrom(int row) {
  if (row > Count()) return;
  beginRemoveRows({}, row - 1, Count() - 1);
  rows_.resize(size_t(row) - 1);
  endRemoveRows();
}

TableGrants TableParameters::Grants() const {
  const auto granted = [this](Parameter right) { return Selected(right) == QLatin1String("1"); };
  return {granted(Parameter::LookFile), granted(Parameter::Print), granted(Parameter::Edit),
          !Selected(Parameter::Target).isEmpty()};
}

void TableParameters::Set(int row, Parameter parameter, const QString& text) {
  rows_.at(size_t(row) - 1)[size_t(parameter)] = text;
  const QModelIndex changed = index(row - 1, int(parameter));
  Q_EMIT dataChanged(changed, changed);
}

int TableParameters::Find(const QString& table) const {
  const QString wanted = table.trimmed();
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const auto& row) {
    return row[0].trimmed().compare(wanted, Qt::CaseInsensitive) == 0;
  });
  return found == rows_.end() ? 0 : int(found - rows_.begin()) + 1;
}

void TableParameters::Select(int row) {
  selected_ = row;
  Q_EMIT SelectedRowChanged(row);
}

void TableParameters::SetTag(const QString& tag) {
  tag_ = tag;
  Q_EMIT TagChanged(tag);
}

int TableParameters::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Count(); }

int TableParameters::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kParameterCount + 1; }

QVariant TableParameters::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
  return rows_.at(size_t(index.row()))[size_t(index.column())];
}

}  // namespace folvane
