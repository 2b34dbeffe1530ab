#include "widgets/CodePicker.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTreeView>

#include "data/Recordset.h"
#include "shell/RegistryValues.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kRowsShown = 12;

QTreeView* NewTwoColumnView() {
  auto* view = new QTreeView;
  view->setRootIsDecorated(false);
  view->setUniformRowHeights(true);
  view->setAllColumnsShowFocus(true);
  view->setSelectionBehavior(QAbstractItemView::SelectRows);
  view->setHeaderHidden(true);
  view->header()->setStretchLastSection(true);
  return view;
}

QList<QStandardItem*> NewRow(const QString& number, const QString& name) {
  return {new QStandardItem(number), new QStandardItem(name)};
}

}  // namespace

CodePicker::CodePicker(QWidget* parent) : ListCombo(parent), list_(new QStandardItemModel(0, 2, this)) {
  auto* view = NewTwoColumnView();
  setModel(list_);
  setView(view);
  setModelColumn(0);
  setMaxVisibleItems(kRowsShown);
}

void CodePicker::ReadList() {
  Recordset rows;
  rows.Open(ListStatement(), SharedConnection());
  for (; !rows.EOF_(); rows.MoveNext())
    list_->appendRow(NewRow(rows.Fields().Item(0).Text(), rows.Fields().Item(1).Text()));
}

void CodePicker::PrepareList() {
  auto* rows = static_cast<QTreeView*>(view());
  rows->resizeColumnToContents(0);
  rows->resizeColumnToContents(1);
  const int bar = list_->rowCount() > kRowsShown ? rows->verticalScrollBar()->sizeHint().width() : 0;
  rows->setMinimumWidth(rows->columnWidth(0) + rows->columnWidth(1) + bar + fontMetrics().averageCharWidth() * 2);
}

QString UnitCodePicker::ListStatement() const {
  return u"Select FondsNo,FondsName From FondsDefine Order By FondsNo"_s;
}

QString ClassCodePicker::ListStatement() const {
  const QString fonds = QueryValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s);
  return u"Select ClassNo,ClassName From EntityClass Where FondsNo='"_s + EscapeSql(fonds) + u"' Order By ClassNo"_s;
}

}  // namespace folvane
