#include "records/ListColumns.h"

#include <QHash>
#include <QHeaderView>
#include <QStyle>
#include <QTreeView>
#include <algorithm>

#include "catalogue/FieldRows.h"
#include "catalogue/ReadRows.h"
#include "forms/TwipScale.h"
#include "records/RecordListModel.h"
#include "shell/RegistryValues.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kHiddenTwips = 15;  // a column this narrow is meant not to be seen
constexpr int kNarrowest = 24;    // enough to take hold of and pull

QString UserPath() { return u"Software\\Norvex\\Folvane\\Columns\\"_s + Shared().UserId; }

// By field in upper case.
QHash<QString, int> ReadWidths(const QString& table) {
  QHash<QString, int> widths;
  for (const QString& item : QueryValue(kCurrentUser, UserPath(), table).split(u',', Qt::SkipEmptyParts)) {
    const int width = item.section(u'=', 1).toInt();
    if (width > 0) widths.insert(item.section(u'=', 0, 0), width);
  }
  return widths;
}

void SaveWidths(const QString& table, const QHash<QString, int>& widths) {
  QStringList items;
  for (auto width = widths.begin(); width != widths.end(); ++width) {
    items.append(width.key() + u'=' + QString::number(width.value()));
  }
  items.sort();
  SaveValue(kCurrentUser, UserPath(), table, items.join(u','));
}

}  // namespace

void BuildColumns(RecordListModel& list, const QString& table) {
  std::vector<ListColumn> columns;
  for (const ListColumnFormatRow& format : ReadRows<ListColumnFormatRow>(
           SharedConnection(), u"Select FieldName,ChnFieldName,ColumnWidth from ListViewFormat where Tablename='"_s +
                                   table + u"' Order By OrderNo"_s)) {
    columns.push_back({format.fieldName, format.chnFieldName, format.columnWidth, QString()});
  }
  columns.push_back({u"ArchiveId"_s, u"ID"_s, 1, QString()});
  list.SetColumns(std::move(columns));
}

int DesignedColumnWidth(const QWidget& list, int twips) {
  return twips <= kHiddenTwips ? 1 : std::max(TwipScale(list).ToPixels(twips), kNarrowest);
}

// A box before the first cell takes no room from what the design has for its text.
int ColumnWidths::BoxRoom(size_t column) const {
  if (column != 0 || !model_.IsTickable() || model_.Columns()[0].key.isEmpty()) return 0;
  const QStyle& style = *list_.style();
  return style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &list_) +
         2 * (style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list_) + 1);
}

void ColumnWidths::Show(const QString& table) {
  const QHash<QString, int> kept = ReadWidths(table);
  const std::vector<ListColumn>& columns = model_.Columns();
  QHeaderView& header = *list_.header();
  for (size_t at = 0; at < columns.size(); ++at) {
    const int width = kept.value(columns[at].key.toUpper(), DesignedColumnWidth(list_, columns[at].width));
    header.resizeSection(int(at), width + BoxRoom(at));
  }
  const int last = int(columns.size()) - 1;
  header.setSectionResizeMode(QHeaderView::Interactive);
  header.resizeSection(last, 1);
  header.setSectionResizeMode(last, QHeaderView::Fixed);
  table_ = table;
}

void ColumnWidths::Keep() {
  if (table_.isEmpty()) return;
  const std::vector<ListColumn>& columns = model_.Columns();
  QHash<QString, int> widths;
  for (size_t at = 0; at + 1 < columns.size(); ++at) {
    const int width = list_.header()->sectionSize(int(at)) - BoxRoom(at);
    if (width != DesignedColumnWidth(list_, columns[at].width)) widths.insert(columns[at].key.toUpper(), width);
  }
  if (widths != ReadWidths(table_)) SaveWidths(table_, widths);
  table_.clear();
}

}  // namespace folvane
