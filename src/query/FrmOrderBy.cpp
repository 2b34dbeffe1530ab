#include "query/FrmOrderBy.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "query/FieldListView.h"
#include "query/OrderText.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"
#include "widgets/BusyPointer.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kImageRole = Qt::UserRole + 1;

bool IsDescending(const QStandardItem& row) { return row.checkState() == Qt::Checked; }

// A change of the picture is a change of the row as well, which would be told again.
void ShowDirection(QStandardItem& row) {
  const QString image = IsDescending(row) ? u"movedown"_s : u"moveup"_s;
  if (!row.isCheckable() || row.data(kImageRole) == image) return;
  row.setData(image, kImageRole);
  row.setIcon(Icon(image));
}

void MakeChosen(QStandardItem& row) {
  row.setCheckable(true);
  row.setCheckState(Qt::Unchecked);
  ShowDirection(row);
}

void MakeOffered(QStandardItem& row) {
  row.setCheckable(false);
  for (const int role : {int(Qt::CheckStateRole), int(Qt::DecorationRole), kImageRole}) row.setData({}, role);
}

// The header's arrow would be wrong as soon as a row is moved.
void SortByHeader(FieldListView& list) {
  list.header()->setSectionsClickable(true);
  ConnectGuarded(list.header(), &QHeaderView::sectionClicked, &list,
                 [&list, order = Qt::DescendingOrder](int column) mutable {
                   order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
                   list.Rows().sort(column, order);
                 });
}

}  // namespace

FrmOrderBy::FrmOrderBy()
    : offered_(new FieldListView(u"LV1"_s, {u"表字段"_s}, this)),
      chosen_(new FieldListView(u"LV2"_s, {u"已选择排序字段"_s}, this)) {
  setObjectName(u"FrmOrderBy"_s);
  setWindowTitle(u"排序方式"_s);
  setWindowIcon(Icon(u"sort"_s));
  chosen_->setToolTip(u"勾选的字段按降序排列，其余按升序 (空格键勾选，Alt+↑、Alt+↓ 或拖动调整先后)"_s);
  offered_->SetPartner(*chosen_);
  offered_->OnArrival(MakeOffered);
  chosen_->OnArrival(MakeChosen);
  AddEmptyHint(*offered_, u"全部字段均已选择。"_s);
  AddEmptyHint(*chosen_, u"尚无排序字段。\n请在左边选中字段，再按“>”。"_s);
  AddMoveKeys();
  LayOut();
  Connect();
}

void FrmOrderBy::AddMoveKeys() {
  struct Design {
    QString caption, tip, shortcut;
  };
  const std::array<Design, 4> designs{{{u"<<"_s, u"移除全部排序字段"_s, u"Alt+Shift+Left"_s},
                                       {u"<"_s, u"移除右边选中的排序字段"_s, u"Alt+Left"_s},
                                       {u">"_s, u"按左边选中的字段排序"_s, u"Alt+Right"_s},
                                       {u">>"_s, u"按全部字段排序"_s, u"Alt+Shift+Right"_s}}};
  for (size_t element = 0; element < designs.size(); ++element) {
    const Design& design = designs[element];
    auto* key = new QPushButton(design.caption, this);
    SetUpMoveKey(*key, u"CmdSort(%1)"_s.arg(element), design.tip, design.shortcut);
    key->setFixedWidth(48);
    moves_[element] = key;
  }
}

void FrmOrderBy::LayOut() {
  resize(560, 420);
  auto* keys = new QVBoxLayout;
  keys->addStretch();
  for (const size_t element : {3, 2, 1, 0}) keys->addWidget(moves_[element]);
  keys->addStretch();
  auto* lists = new QHBoxLayout;
  lists->addWidget(offered_, 1);
  lists->addLayout(keys);
  lists->addWidget(chosen_, 1);
  auto* column = new QVBoxLayout(this);
  column->addLayout(lists, 1);
  const DialogKeys bottom(*this);
  ok_ = bottom.ok;
  bottom.row->insertWidget(0, NewHint(u"勾选的字段按降序排列"_s, this));
  column->addLayout(bottom.row);
}

void FrmOrderBy::Connect() {
  const auto over = [this] { offered_->MoveSelectedTo(*chosen_); };
  const auto back = [this] { chosen_->MoveSelectedTo(*offered_); };
  ConnectGuarded(moves_[0], &QPushButton::clicked, this, [this] { chosen_->MoveAllTo(*offered_); });
  ConnectGuarded(moves_[1], &QPushButton::clicked, this, back);
  ConnectGuarded(moves_[2], &QPushButton::clicked, this, over);
  ConnectGuarded(moves_[3], &QPushButton::clicked, this, [this] { offered_->MoveAllTo(*chosen_); });
  ConnectGuarded(offered_, &QTreeView::doubleClicked, this, over);
  ConnectGuarded(chosen_, &QTreeView::doubleClicked, this, back);
  ConnectGuarded(&chosen_->Rows(), &QStandardItemModel::itemChanged, this,
                 [](QStandardItem* row) { ShowDirection(*row); });
  ConnectGuarded(ok_, &QPushButton::clicked, this, &FrmOrderBy::Save);
  for (FieldListView* list : {offered_, chosen_}) {
    SortByHeader(*list);
    ConnectGuarded(list, &FieldListView::CountChanged, this, &FrmOrderBy::EnableKeys);
  }
  EnableKeys();
}

void FrmOrderBy::EnableKeys() {
  for (const size_t element : {0, 1}) moves_[element]->setEnabled(chosen_->Count() > 0);
  for (const size_t element : {2, 3}) moves_[element]->setEnabled(offered_->Count() > 0);
}

void FrmOrderBy::Open() {
  Load();
  ShowModal(*this);
}

void FrmOrderBy::Load() {
  ReturnSql.clear();
  ReturnSqlChn.clear();
  chosen_->Clear();
  offered_->Clear();
  const std::vector<OrderItem> order = ShownOrder(TableName, OldOrder);
  for (const OrderItem& item : order) {
    chosen_->Append({item.field});
    if (item.descending) chosen_->First(chosen_->Count() - 1).setCheckState(Qt::Checked);
  }
  for (const QString& caption : OfferedCaptions(TableName, order)) offered_->Append({caption});
  offered_->setFocus();
}

void FrmOrderBy::Save() {
  ReturnSql.clear();
  ReturnSqlChn.clear();
  if (chosen_->Count() == 0) return accept();
  const BusyPointer busy;
  std::vector<OrderItem> chosen;
  for (int row = 0; row < chosen_->Count(); ++row)
    chosen.push_back({chosen_->Cell(row), IsDescending(chosen_->First(row))});
  const ChosenOrder kept = KeepOrder(TableName, chosen);
  ReturnSql = kept.sql;
  ReturnSqlChn = kept.words;
  accept();
}

void FrmOrderBy::reject() {
  ReturnSql.clear();
  ReturnSqlChn.clear();
  QDialog::reject();
}

}  // namespace folvane
