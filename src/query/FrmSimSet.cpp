#include "query/FrmSimSet.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "query/FieldListView.h"
#include "query/SearchFields.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QToolButton* NewSortKey(QWidget* parent, const QString& icon) {
  auto* button = new QToolButton(parent);
  button->setIcon(Icon(icon));
  button->setIconSize(QSize(24, 24));
  return button;
}

std::vector<NamedField> FieldsIn(const FieldListView& list) {
  std::vector<NamedField> fields;
  for (int row = 0; row < list.Count(); ++row) fields.push_back({list.Cell(row), list.Cell(row, 1)});
  return fields;
}

}  // namespace

FrmSimSet::FrmSimSet()
    : offered_(new FieldListView(u"LV1"_s, {u"可选字段"_s, u"字段名"_s}, this)),
      chosen_(new FieldListView(u"LV2"_s, {u"已选字段"_s, u"字段名"_s}, this)),
      choose_(new QPushButton(u"选中 >"_s, this)),
      remove_(new QPushButton(u"移除 <"_s, this)),
      up_(NewSortKey(this, u"moveup"_s)),
      down_(NewSortKey(this, u"movedown"_s)) {
  setObjectName(u"FrmSimSet"_s);
  setWindowTitle(u"简单查询设置"_s);
  setWindowIcon(Icon(u"search"_s));
  SetUpMoveKey(*choose_, u"Image3"_s, u"将左边选中的字段加入查询"_s, u"Alt+Right"_s);
  SetUpMoveKey(*remove_, u"Image4"_s, u"不再按右边选中的字段查询"_s, u"Alt+Left"_s);
  SetUpMoveKey(*up_, u"CmdSort(1)"_s, u"上移一位"_s, u"Alt+Up"_s);
  SetUpMoveKey(*down_, u"CmdSort(2)"_s, u"下移一位"_s, u"Alt+Down"_s);
  offered_->SetPartner(*chosen_);
  AddEmptyHint(*offered_, u"全部字段均已选择。"_s);
  AddEmptyHint(*chosen_, u"尚无查询字段。\n请在左边选中字段，再按“选中 >”。"_s);
  LayOut();
  Connect();
}

void FrmSimSet::LayOut() {
  resize(700, 460);
  auto* moves = new QVBoxLayout;
  moves->addStretch();
  moves->addWidget(choose_);
  moves->addWidget(remove_);
  moves->addStretch();
  auto* sorts = new QVBoxLayout;
  sorts->addStretch();
  sorts->addWidget(up_);
  sorts->addWidget(down_);
  sorts->addStretch();
  auto* lists = new QHBoxLayout;
  lists->addWidget(offered_, 1);
  lists->addLayout(moves);
  lists->addWidget(chosen_, 1);
  lists->addLayout(sorts);
  for (FieldListView* list : {offered_, chosen_}) list->setColumnWidth(0, 130);
  auto* column = new QVBoxLayout(this);
  column->addLayout(lists, 1);
  const DialogKeys keys(*this);
  ok_ = keys.ok;
  column->addLayout(keys.row);
}

void FrmSimSet::Connect() {
  ConnectGuarded(choose_, &QPushButton::clicked, this, [this] { offered_->MoveSelectedTo(*chosen_); });
  ConnectGuarded(remove_, &QPushButton::clicked, this, [this] { chosen_->MoveSelectedTo(*offered_); });
  ConnectGuarded(offered_, &QTreeView::doubleClicked, this, [this] { offered_->MoveSelectedTo(*chosen_); });
  ConnectGuarded(chosen_, &QTreeView::doubleClicked, this, [this] { chosen_->MoveSelectedTo(*offered_); });
  ConnectGuarded(up_, &QToolButton::clicked, this, [this] { chosen_->Swap(-1); });
  ConnectGuarded(down_, &QToolButton::clicked, this, [this] { chosen_->Swap(1); });
  ConnectGuarded(ok_, &QPushButton::clicked, this, &FrmSimSet::Save);
  for (FieldListView* list : {offered_, chosen_})
    ConnectGuarded(list, &FieldListView::CountChanged, this, &FrmSimSet::EnableKeys);
  EnableKeys();
}

void FrmSimSet::EnableKeys() {
  choose_->setEnabled(offered_->Count() > 0);
  remove_->setEnabled(chosen_->Count() > 0);
  up_->setEnabled(chosen_->Count() > 1);
  down_->setEnabled(chosen_->Count() > 1);
}

void FrmSimSet::Open() {
  IsCancel = true;
  FillDataField();
  ShowModal(*this);
}

void FrmSimSet::FillDataField() {
  const std::vector<NamedField> chosen = ReadChosenFields(TableName);
  chosen_->Clear();
  for (const NamedField& field : chosen) chosen_->Append({field.caption, field.field});
  offered_->Clear();
  for (const NamedField& field : ReadOfferedFields(TableName, chosen)) offered_->Append({field.caption, field.field});
  offered_->setFocus();
}

void FrmSimSet::Save() {
  SaveSimSearch(TableName, FieldsIn(*chosen_));
  IsCancel = false;
  accept();
}

}  // namespace folvane
