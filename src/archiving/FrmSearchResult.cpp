#include "archiving/FrmSearchResult.h"

#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <algorithm>

#include <folvane/Icons.h>

#include "archiving/PageLink.h"
#include "query/AskQuery.h"
#include "query/ConditionText.h"
#include "records/MovePlan.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"
#include "widgets/ChoiceRelay.h"
#include "widgets/LongWork.h"
#include "widgets/PlainTip.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

qint64 PagesOf(qint64 rows) { return rows / kPageSize + (rows % kPageSize == 0 ? 0 : 1); }

}  // namespace

FrmSearchResult::FrmSearchResult()
    : pages_(
          records_, model_, [](int, int) {}, [](const MessageRequest& message) { ShowMessage(message); }),
      list_(new RecordListView(this)),
      widths_(*list_, model_) {
  MakeControls();
  model_.SetDecoration([](int icon) { return Icon(u"row%1"_s.arg(icon)); });
  model_.SetTickable(true);
  list_->setModel(&model_);
  choice_ = new ChoiceRelay(list_, [this](const QModelIndex& index) { ShowRow(index.row() + 1); });
  list_->SetKeyHandler([this](int key) { return HandleKey(key); });
  LayOut();
  Connect();
}

// The model is a member and destroyed before the view, which is a child: the view must not ask it any more.
FrmSearchResult::~FrmSearchResult() { list_->setModel(nullptr); }

void FrmSearchResult::Connect() {
  ConnectGuarded(search_, &QPushButton::clicked, this, &FrmSearchResult::Search);
  ConnectGuarded(ok_, &QPushButton::clicked, this, &FrmSearchResult::Merge);
  ConnectGuarded(exit_, &QPushButton::clicked, this, &QDialog::reject);
  ConnectGuarded(links_[0], &PageLink::Clicked, this, [this] { GoTo(1); });
  ConnectGuarded(links_[1], &PageLink::Clicked, this, [this] { list_->SendKey(Qt::Key_PageUp); });
  ConnectGuarded(links_[2], &PageLink::Clicked, this, [this] { list_->SendKey(Qt::Key_PageDown); });
  ConnectGuarded(links_[3], &PageLink::Clicked, this, [this] { GoTo(records_.IsOpen() ? records_.RecordCount() : 0); });
  ConnectGuarded(&model_, &QAbstractItemModel::dataChanged, this, [this] { ShowTicked(); });
}

void FrmSearchResult::Open() {
  Load();
  ShowModal(*this);
}

void FrmSearchResult::Load() {
  BuildColumns(model_, CurrTable);
  widths_.Show(CurrTable);
  merge_.emplace(CurrTable, TargetID);
  target_->setText(TargetTitle.isEmpty() ? QString() : u"并入：“"_s + TargetTitle + u"”"_s);
  target_->setToolTip(PlainTip(TargetTitle));
  listHint_->ShowHint(u"按“查询”查出要合并的记录，再勾选它们。"_s);
  page_->clear();
  ShowTicked();
  search_->setDefault(true);
  search_->setFocus();
}

void FrmSearchResult::done(int result) {
  widths_.Keep();
  if (records_.IsOpen()) records_.Close();
  QDialog::done(result);
}

// Searching.

void FrmSearchResult::Search() {
  if (CurrTable.isEmpty()) return;
  const AskedQuery query = AskSimpleQuery(CurrTable);
  if (query.condition.isEmpty()) return;
  Where = query.condition;
  Recordset found;
  {
    const BusyPointer busy;
    found.Open(merge_->SearchStatement(Where), SharedConnection());
    merge_->LeaveOutSurvivor(found);
  }
  records_ = std::move(found);
  model_.ClearRows();
  model_.ClearTicks();
  ShowFound();
  if (const QString leftOut = LeftOutNote(query.ignored); !leftOut.isEmpty()) ticked_->setText(leftOut);
}

void FrmSearchResult::ShowFound() {
  if (records_.RecordCount() == 0) {
    ShowMessage(u"对不起，没有符合条件的数据"_s, MessageFlag::Information, u"数据查询"_s);
    return reject();
  }
  listHint_->ShowHint({});
  GoTo(1);
  ShowTicked();
  ok_->setDefault(true);
  list_->setFocus();
}

// The rows of the list are the first of the records, in their order.
void FrmSearchResult::LoadUpTo(qint64 rows) {
  const int before = model_.Count();
  const qint64 missing = std::min(rows, records_.RecordCount()) - before;
  if (missing <= 0) return;
  // By its key: where others have deleted records, a row stands in another place than its number says.
  if (before > 0 && pages_.PositionOn(model_.KeyOf(before - 1)))
    records_.MoveNext();
  else
    records_.SetAbsolutePosition(before + 1);
  LongWork work(*this, exit_, ShowIn(*progress_));
  for (qint64 added = 0; added < missing && work.GoOn(added, missing); added = model_.Count() - before) {
    const int wanted = int(std::min<qint64>(kPageSize, missing - added));
    const int loaded = model_.Count();
    pages_.FillRows(wanted);
    if (model_.Count() < loaded + wanted) return;  // what stopped it has been told
  }
}

void FrmSearchResult::GoTo(qint64 row) {
  if (!records_.IsOpen() || row < 1) return;
  LoadUpTo(std::max<qint64>(row, kPageSize));
  const int target = int(std::min<qint64>(row, model_.Count()));
  if (target == 0) return;
  choice_->SelectSilently(model_.index(target - 1, 0));
  ShowRow(target);
}

void FrmSearchResult::ShowRow(int row) {
  records_.SetAbsolutePosition(row);
  page_->setText(u"当前记录位置在：第 %1 页, 共 %2 页"_s.arg(PagesOf(row)).arg(PagesOf(records_.RecordCount())));
}

bool FrmSearchResult::HandleKey(int key) {
  const int row = list_->CurrentRow();
  if (row == 0 || !records_.IsOpen()) return false;
  const bool extends = QGuiApplication::keyboardModifiers() & Qt::ShiftModifier;
  if (key == Qt::Key_Space) {
    list_->TickSelected();
    return true;
  }
  const int step = key == Qt::Key_PageUp || key == Qt::Key_PageDown ? kPageSize : 1;
  if (key == Qt::Key_Down || key == Qt::Key_PageDown) {
    LoadUpTo(row + step);
    if (!extends && step > 1) GoTo(std::min<qint64>(row + step, records_.RecordCount()));
    return !extends && step > 1;
  }
  if (key != Qt::Key_PageUp || extends) return false;
  GoTo(std::max(1, row - step));
  return true;
}

// Ticking.

void FrmSearchResult::ShowTicked() {
  const bool hasRows = model_.Count() > 0;
  const QString how = u"空格键勾选选中的行，Ctrl+A 全选"_s;
  const qsizetype count = model_.Ticked().size();
  ticked_->setText(!hasRows     ? QString()
                   : count == 0 ? how
                                : u"已勾选 %1 份，共 %2 份"_s.arg(count).arg(records_.RecordCount()));
}

QStringList FrmSearchResult::TickedInOrder() const {
  const QSet<QString> ticked(model_.Ticked().begin(), model_.Ticked().end());
  QStringList keys;
  for (int row = 0; row < model_.Count(); ++row) {
    if (ticked.contains(model_.KeyOf(row))) keys << model_.KeyOf(row);
  }
  return keys;
}

// Merging.

void FrmSearchResult::Merge() {
  if (ShowMessage(u"是否确定要将选中的记录合并一件？"_s, MessageFlag::OkCancel, u"提示"_s) != Answer::Ok) return;
  {
    LongWork work(*this, nullptr, ShowIn(*progress_));
    try {
      merge_->Merge(TickedInOrder(), [&work](int done, int total) { work.GoOn(done, total); });
    } catch (const std::exception&) {
      Outcome = merge_->Outcome();
      ticked_->setText(Outcome);
      throw;
    }
  }
  Outcome = merge_->Outcome();
  accept();
}

}  // namespace folvane
