#include "query/FrmReadOrder.h"

#include <QFile>
#include <QGridLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include <folvane/Icons.h>

#include "query/BrowseGrouping.h"
#include "query/FieldListView.h"
#include "records/YearFormula.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "widgets/DialogKeys.h"
#include "widgets/TextCombo.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QPushButton* NewKey(QWidget* parent, const QString& name, const QString& caption, const QString& tip) {
  auto* key = new QPushButton(caption, parent);
  key->setObjectName(name);
  key->setToolTip(tip);
  key->setAutoDefault(false);
  return key;
}

}  // namespace

FrmReadOrder::FrmReadOrder()
    : captions_(new TextCombo(this)),
      tables_(new TextCombo(this)),
      fields_(new FieldListView(u"ListView1"_s, {u"表字段"_s, u"字段名"_s}, this)),
      chosen_(new FieldListView(u"ListView2"_s, {u"已选择排序字段"_s, u"字段名"_s}, this)),
      add_(new QPushButton(u"选择"_s, this)),
      remove_(new QPushButton(u"删除"_s, this)),
      ok_(NewKey(this, u"CmdOK"_s, u"设置"_s, u"按右边的第一个字段分组；右边没有选中的字段时取消分组"_s)),
      cancel_(NewKey(this, u"CmdCancel"_s, u"退出"_s, u"关闭窗口 (Esc)"_s)) {
  setObjectName(u"FrmReadOrder"_s);
  setWindowTitle(u"浏览排序设置"_s);
  setWindowIcon(Icon(u"order"_s));
  SetUpMoveKey(*add_, u"CmdAdd"_s, u"加入左边选中的字段"_s, u"Alt+Right"_s);
  SetUpMoveKey(*remove_, u"CmdDel"_s, u"去掉右边选中的字段"_s, u"Alt+Left"_s);
  captions_->setObjectName(u"CboChnTable"_s);
  tables_->setObjectName(u"CboTable"_s);
  tables_->hide();
  for (FieldListView* list : {fields_, chosen_}) {
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setDragDropMode(QAbstractItemView::NoDragDrop);
    list->setColumnWidth(0, 140);
  }
  AddEmptyHint(*fields_, u"请先在上面选择表。"_s);
  AddEmptyHint(*chosen_, u"尚未选择字段。\n请在左边选中字段，再按“选择”。"_s);
  LayOut();
  Connect();
}

void FrmReadOrder::LayOut() {
  resize(680, 440);
  auto* label = new QLabel(u"请选择表："_s, this);
  label->setBuddy(captions_);
  auto* top = new QHBoxLayout;
  top->addWidget(label);
  top->addWidget(captions_, 1);
  auto* middle = new QVBoxLayout;
  middle->addStretch();
  middle->addWidget(add_);
  middle->addWidget(remove_);
  middle->addStretch();
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(NewHint(u"按右边的第一个字段分组；右边没有选中的字段时取消分组"_s, this), 1);
  bottom->addWidget(ok_);
  bottom->addWidget(cancel_);
  ok_->setDefault(true);

  auto* grid = new QGridLayout(this);
  grid->addLayout(top, 0, 0, 1, 3);
  grid->addWidget(fields_, 1, 0);
  grid->addLayout(middle, 1, 1);
  grid->addWidget(chosen_, 1, 2);
  grid->addLayout(bottom, 2, 0, 1, 3);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(2, 1);
}

void FrmReadOrder::Connect() {
  ConnectGuarded(captions_, &QComboBox::currentIndexChanged, this, &FrmReadOrder::ChooseTable);
  ConnectGuarded(add_, &QPushButton::clicked, this, &FrmReadOrder::AddField);
  ConnectGuarded(fields_, &QTreeView::doubleClicked, this, &FrmReadOrder::AddField);
  ConnectGuarded(remove_, &QPushButton::clicked, this, [this] { chosen_->RemoveSelected(); });
  chosen_->SetKeyHandler([this](int key) {
    if (key == Qt::Key_Delete) chosen_->RemoveSelected();
    return key == Qt::Key_Delete;
  });
  ConnectGuarded(ok_, &QPushButton::clicked, this, &FrmReadOrder::Save);
  ConnectGuarded(cancel_, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmReadOrder::Open() {
  if (!QFile::exists(YearFormulaPath())) {
    ShowMessage(u"未找到YearFormula.ini文件!"_s, MessageFlag::Information, windowTitle());
    return;
  }
  Load();
  ShowModal(*this);
}

void FrmReadOrder::Load() {
  const QSignalBlocker silence(captions_);
  captions_->clear();
  tables_->clear();
  for (const NamedTable& table : ReadTablesOfKind(vsFlag)) {
    captions_->addItem(table.caption + u"--"_s + table.table);
    tables_->addItem(table.table);
  }
  fields_->Clear();
  chosen_->Clear();
  captions_->setCurrentIndex(-1);
  ChooseTable(-1);
  captions_->setFocus();
}

// Without a table there is nothing to set.
void FrmReadOrder::ChooseTable(int index) {
  tables_->setCurrentIndex(index);
  CurrTable = tables_->currentText();
  ok_->setEnabled(index >= 0);
  fields_->Clear();
  if (index < 0) return;
  for (const NamedField& field : ReadFieldsByName(CurrTable)) fields_->Append({field.caption, field.field});
}

void FrmReadOrder::AddField() {
  const QList<int> selected = fields_->Selected();
  if (selected.isEmpty()) return;
  const QString caption = fields_->Cell(selected.front());
  for (int row = 0; row < chosen_->Count(); ++row) {
    if (chosen_->Cell(row) == caption) return;
  }
  chosen_->Append({caption, fields_->Cell(selected.front(), 1)});
}

void FrmReadOrder::Save() {
  if (chosen_->Selected().isEmpty()) {
    WriteYearFormula(CurrTable, u"0"_s);
    ShowMessage(u"已经取消浏览排序设置！"_s);
    return;
  }
  WriteYearFormula(CurrTable, chosen_->Cell(0, 1));
  ShowMessage(u"已经成功设置！"_s, MessageFlag::Information);
}

}  // namespace folvane
