#include "records/FilterBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "shell/EventGuard.h"
#include "widgets/PlainTip.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kLongest = 420;  // pixels; the tip has the whole text

QLabel* NewLabel(QWidget* parent, const QString& name) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

FilterBar::FilterBar(QWidget* parent)
    : QWidget(parent),
      note_(NewLabel(this, u"FilterNote"_s)),
      lift_(new QToolButton(this)),
      rights_(NewLabel(this, u"FilterRights"_s)) {
  setObjectName(u"FilterBar"_s);
  lift_->setObjectName(u"LiftFilter"_s);
  lift_->setFocusPolicy(Qt::StrongFocus);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(9, 0, 9, 0);
  for (QWidget* part : {static_cast<QWidget*>(note_), static_cast<QWidget*>(lift_), static_cast<QWidget*>(rights_)}) {
    row->addWidget(part);
  }
  row->addStretch(1);
  // As high with a key as without one: the list is not to jump.
  lift_->setText(u"✕"_s);
  setMinimumHeight(lift_->sizeHint().height());
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // long words are not to widen the window
  Clear();
}

void FilterBar::ShowLimits(const QString& filter, const QString& rights, const QString& all) {
  const bool limited = !filter.isEmpty() || !rights.isEmpty();
  note_->setText(u"当前显示："_s + (limited ? QString() : all));
  QString shown = fontMetrics().elidedText(filter, Qt::ElideRight, kLongest);
  lift_->setText(shown.replace(u'&', u"&&"_s) + u"  ✕"_s);
  lift_->setAccessibleName(u"取消限制："_s + filter);
  lift_->setToolTip(PlainTip(filter + u"\n按此键或 F5 取消此限制，显示全部记录"_s));
  lift_->setVisible(!filter.isEmpty());
  rights_->setText(u"权限："_s + fontMetrics().elidedText(rights, Qt::ElideRight, kLongest));
  rights_->setToolTip(PlainTip(u"您的权限只允许查看这些记录："_s + rights));
  rights_->setVisible(!rights.isEmpty());
}

void FilterBar::Clear() {
  note_->clear();
  lift_->hide();
  rights_->hide();
}

void FilterBar::OnLift(std::function<void()> handler) {
  ConnectGuarded(lift_, &QToolButton::clicked, this, [handler] { handler(); });
}

}  // namespace folvane
