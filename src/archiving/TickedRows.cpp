#include "archiving/TickedRows.h"

#include <QAbstractItemView>
#include <QHash>
#include <QItemSelectionModel>
#include <set>

namespace folvane {
namespace {

QString RecordOf(const QAbstractItemModel& list, int row) {
  return list.index(row, list.columnCount() - 1).data().toString();
}

}  // namespace

QStringList SelectedRecords(const QAbstractItemView& list) {
  QStringList records;
  if (!list.selectionModel()) return records;
  std::set<int> rows;
  for (const QItemSelectionRange& range : list.selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row) rows.insert(row);
  for (const int row : rows) records << RecordOf(*list.model(), row);
  return records;
}

QStringList TickedRecords(const QAbstractItemModel& list, int count) {
  QHash<QString, int> ticked;
  for (int row = 0; row < list.rowCount(); ++row) {
    const QModelIndex box = list.index(row, 0);
    if (box.data(Qt::CheckStateRole).toInt() != Qt::Checked) continue;
    const QString number = box.data().toString();
    if (!ticked.contains(number)) ticked.insert(number, row);
  }
  QStringList records;
  for (int number = 1; number <= count; ++number) {
    const auto row = ticked.constFind(QString::number(number));
    if (row != ticked.constEnd()) records << RecordOf(list, *row);
  }
  return records;
}

}  // namespace folvane
