#include "browser/BrowserTest.h"

#include <QHeaderView>
#include <QMenu>

#include "browser/FrmMain.h"
#include "shell/RegistryValues.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

QStringList Browser::Column(const QString& view, int column) const {
  const QAbstractItemModel& model = *View(view).model();
  QStringList texts;
  for (int row = 0; row < model.rowCount(); ++row) texts << model.index(row, column).data().toString();
  return texts;
}

QStringList Browser::Captions() const {
  const QAbstractItemModel& model = *List().model();
  QStringList captions;
  for (int column = 0; column < model.columnCount(); ++column) {
    captions << model.headerData(column, Qt::Horizontal).toString();
  }
  return captions;
}

QModelIndex Browser::Node(const QString& key) const {
  const QAbstractItemModel& model = *View(u"TV_File"_s).model();
  const QModelIndexList found = model.match(model.index(0, 0), Qt::UserRole, key, 1,
                                            Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive);
  if (found.isEmpty()) throw std::runtime_error("no node " + key.toStdString());
  return found.first();
}

QStringList Browser::KeysBelow(const QString& key) const {
  const QModelIndex node = Node(key);
  QStringList keys;
  for (int row = 0; row < node.model()->rowCount(node); ++row) {
    keys << node.model()->index(row, 0, node).data(Qt::UserRole).toString();
  }
  return keys;
}

void Browser::Choose(const QString& key) const { ClickItem(View(u"TV_File"_s), Node(key)); }

QString Browser::Parameter(const QString& table, int number) const {
  const QAbstractItemModel& model = *View(u"LV_Para"_s).model();
  for (int row = 0; row < model.rowCount(); ++row) {
    if (model.index(row, 0).data().toString() == table) return model.index(row, number).data().toString();
  }
  return u"<no row>"_s;
}

QAction& Browser::Entry(const QString& name) const {
  for (QAction* action : window_.findChildren<QAction*>(name)) {
    if (qobject_cast<QMenu*>(action->parent())) return *action;
  }
  throw std::runtime_error("no menu entry " + name.toStdString());
}

void Browser::ClickColumn(int column) const {
  QHeaderView& header = *List().header();
  const int middle = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
  ClickAt(*header.viewport(), QPoint(middle, header.height() / 2));
}

void BrowserTest::SetUp() {
  DesignTest::SetUp();
  design_->AddClass(2, u"文书"_s);
}

void TwelveRecordsTest::SetUp() {
  BrowserTest::SetUp();
  design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
  design_->AddRecords(u"Lwdj"_s, 12);
}

void BrowserTest::InBrowser(const std::function<void(const Browser&)>& steps) {
  WithWindow(u"FrmMain"_s, [&](QWidget& window) { steps(Browser(window)); });
  ShowRecordBrowser();
}

QString BrowserTest::Remembered() const { return QueryValue(kLocalMachine, kMainFlags, u"FolvaneDefault"_s); }

void BrowserTest::Remember(const QString& text) const {
  SaveValue(kLocalMachine, kMainFlags, u"FolvaneDefault"_s, text);
}

}  // namespace folvane::test
