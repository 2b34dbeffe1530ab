#include "designer/FindingsPanel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QStandardItemModel>
#include <QStyle>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "designer/DesignPage.h"
#include "shell/EventGuard.h"
#include "widgets/BusyPointer.h"
#include "widgets/PlainTip.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

constexpr int kSoon = 400;  // milliseconds after the last change

QIcon IconOf(Weight weight, const QWidget& widget) {
  const auto picture = weight == Weight::Error     ? QStyle::SP_MessageBoxCritical
                       : weight == Weight::Warning ? QStyle::SP_MessageBoxWarning
                                                   : QStyle::SP_MessageBoxInformation;
  return widget.style()->standardIcon(picture, nullptr, &widget);
}

QString WordOf(Weight weight) {
  return weight == Weight::Error ? u"错误"_s : weight == Weight::Warning ? u"警告"_s : u"提示"_s;
}

}  // namespace

FindingsPanel::FindingsPanel(DesignSession& session)
    : session_(session),
      title_(new QLabel),
      detail_(new QLabel),
      view_(new QTreeView),
      rows_(new QStandardItemModel(0, 3, this)) {
  setObjectName(u"FindingsPanel"_s);
  title_->setObjectName(u"LblFindings"_s);
  detail_->setObjectName(u"LblFinding"_s);
  detail_->setTextFormat(Qt::PlainText);
  detail_->setWordWrap(true);
  rows_->setHorizontalHeaderLabels({u"位置"_s, u"问题"_s, u"后果"_s});
  view_->setObjectName(u"LstFindings"_s);
  view_->setAccessibleName(u"检查结果"_s);
  view_->setModel(rows_);
  view_->setRootIsDecorated(false);
  view_->setUniformRowHeights(true);
  view_->setAllColumnsShowFocus(true);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  const int unit = fontMetrics().averageCharWidth();
  for (const auto& [column, width] : {std::pair{0, 44}, std::pair{1, 44}})
    view_->header()->resizeSection(column, unit * width);
  AddEmptyHint(*view_, u"没有发现问题。按 F8 对照数据库再检查一遍。"_s);

  mend_ = new QAction(Icon(u"collect"_s), u"改正(&M)"_s, this);
  mend_->setObjectName(u"CmdMend"_s);
  mend_->setShortcut(QKeySequence(u"Ctrl+M"_s));
  mendAll_ = new QAction(u"全部改正(&L)"_s, this);
  mendAll_->setObjectName(u"CmdMendAll"_s);
  mendAll_->setShortcut(QKeySequence(u"Ctrl+Shift+M"_s));
  auto* head = new QHBoxLayout;
  head->addWidget(title_);
  head->addStretch();
  for (QAction* action : {mend_, mendAll_}) {
    addAction(action);
    auto* key = new QToolButton;
    key->setDefaultAction(action);
    key->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    head->addWidget(key);
  }
  auto* down = new QVBoxLayout(this);
  down->setContentsMargins(0, 0, 0, 0);
  down->setSpacing(2);
  down->addLayout(head);
  down->addWidget(view_, 1);
  down->addWidget(detail_);

  soon_.setSingleShot(true);
  soon_.setInterval(kSoon);
  ConnectGuarded(&soon_, &QTimer::timeout, this, &FindingsPanel::CheckDesignAlone);
  connect(&session, &DesignSession::Changed, &soon_, qOverload<>(&QTimer::start));
  ConnectGuarded(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, &FindingsPanel::ShowCurrent);
  ConnectGuarded(view_, &QTreeView::activated, this, [this] {
    if (const DesignFinding* finding = Current()) Q_EMIT Asked(*finding);
  });
  ConnectGuarded(mend_, &QAction::triggered, this, &FindingsPanel::MendCurrent);
  ConnectGuarded(mendAll_, &QAction::triggered, this, &FindingsPanel::MendAll);
  CheckDesignAlone();
}

void FindingsPanel::CheckDesignAlone() { Show(CheckDesign(session_.Wanted()), {}); }

void FindingsPanel::CheckAll() {
  const BusyPointer busy;
  soon_.stop();
  Show(CheckDesign(session_.Wanted(), session_.Database().get(), Services().programDirectory + u"/Reports"_s),
       u"，已对照数据库"_s);
}

int FindingsPanel::Troubles() const {
  return int(std::count_if(findings_.begin(), findings_.end(),
                           [](const DesignFinding& finding) { return finding.weight != Weight::Note; }));
}

void FindingsPanel::Show(std::vector<DesignFinding> findings, const QString& scope) {
  const int row = std::max(0, view_->currentIndex().row());
  findings_ = std::move(findings);
  rows_->removeRows(0, rows_->rowCount());
  for (const DesignFinding& finding : findings_) {
    QList<QStandardItem*> cells;
    for (const QString& text : {finding.where, finding.what, finding.consequence}) {
      cells << new QStandardItem(text);
      cells.last()->setToolTip(PlainTip(text));
    }
    cells.first()->setIcon(IconOf(finding.weight, *this));
    cells.first()->setData(WordOf(finding.weight) + u'：' + finding.where, Qt::AccessibleTextRole);
    rows_->appendRow(cells);
  }
  view_->setCurrentIndex(rows_->index(std::min(row, rows_->rowCount() - 1), 0));
  const int notes = int(findings_.size()) - Troubles();
  title_->setText(u"检查：%1 个问题，%2 条提示%3"_s.arg(Troubles()).arg(notes).arg(scope));
  ShowCurrent();
}

const DesignFinding* FindingsPanel::Current() const {
  const int row = view_->currentIndex().row();
  return row >= 0 && std::size_t(row) < findings_.size() ? &findings_[std::size_t(row)] : nullptr;
}

void FindingsPanel::ShowCurrent() {
  const DesignFinding* finding = Current();
  detail_->setText(finding ? u"%1，后果：%2。办法：%3。"_s.arg(finding->what, finding->consequence, finding->remedy)
                           : QString());
  detail_->setVisible(finding != nullptr);
  mend_->setEnabled(finding && finding->mend);
  mend_->setToolTip(
      PlainTip(finding && finding->mend ? finding->remedy + u" (Ctrl+M)"_s : u"这一项要由您决定怎么改"_s));
  mendAll_->setEnabled(
      std::any_of(findings_.begin(), findings_.end(), [](const DesignFinding& each) { return bool(each.mend); }));
}

void FindingsPanel::Mend(const std::vector<const DesignFinding*>& findings) {
  if (findings.empty()) return;
  TakeTyped(*window());
  const QString words =
      findings.size() == 1 ? u"改正："_s + findings.front()->what : u"改正 %1 个问题"_s.arg(findings.size());
  const bool isDone = session_.Change(words, [&](Design& wanted) {
    for (const DesignFinding* finding : findings) finding->mend(wanted);
  });
  if (isDone) return CheckDesignAlone();
  Q_EMIT session_.Told(u"设计不用改，应用时会改正数据库。"_s);
}

void FindingsPanel::MendCurrent() {
  if (const DesignFinding* finding = Current(); finding && finding->mend) Mend({finding});
}

void FindingsPanel::MendAll() {
  std::vector<const DesignFinding*> mendable;
  for (const DesignFinding& finding : findings_)
    if (finding.mend) mendable.push_back(&finding);
  Mend(mendable);
}

}  // namespace folvane::designer
