#include "forms/ScrolledFields.h"

#include <QCoreApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "forms/TwipScale.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kStep = 300;      // by which the bar moves, and its range grows
constexpr int kBarMargin = 50;  // left free under the fields
constexpr int kSideMargin = 450, kBottomMargin = 240;

}  // namespace

ScrolledFields::ScrolledFields(QWidget* parent)
    : QWidget(parent), area_(new QWidget(this)), bar_(new QScrollBar(Qt::Vertical, this)) {
  area_->setObjectName(u"PicControls"_s);
  bar_->setObjectName(u"HScroll"_s);
  bar_->setAccessibleName(u"上下移动字段"_s);
  bar_->setSingleStep(kStep);
  bar_->hide();
  connect(bar_, &QScrollBar::valueChanged, this, &ScrolledFields::PutAllInPlace);
}

void ScrolledFields::Place(QWidget& control, const ControlPlace& design) {
  control.setProperty("DesignTop", design.top);
  placed_.push_back({&control, design});
  PutInSight(placed_.back());
  control.show();
}

void ScrolledFields::Reach(EntryField& field) {
  if (const Placed* placed = Find(field.Widget())) bottomExtent_ = std::max(bottomExtent_, EndOf(*placed));
  connect(&field, &EntryField::Entered, this, [this, &field] { BringIntoSight(field.Widget()); });
}

void ScrolledFields::Forget() {
  placed_.clear();
  bottomExtent_ = 0;
  FitBar();
}

void ScrolledFields::PutInSight(const Placed& placed) {
  ControlPlace place = placed.design;
  place.top -= bar_->value();
  PutInPlace(*placed.control, place, TwipScale(*this));
}

void ScrolledFields::PutAllInPlace() {
  for (const Placed& placed : placed_) PutInSight(placed);
}

int ScrolledFields::EndOf(const Placed& placed) const {
  const int height = TwipScale(*this).ToTwips(placed.control->height());
  return placed.design.top +
         std::max(height, placed.design.size == ControlPlace::AsDesigned ? placed.design.height : 0);
}

const ScrolledFields::Placed* ScrolledFields::Find(const QWidget& control) const {
  const auto found =
      std::find_if(placed_.begin(), placed_.end(), [&](const Placed& p) { return p.control == &control; });
  return found == placed_.end() ? nullptr : &*found;
}

// The range grows with each resize that needs the bar and is not taken back, so that there is always some room under
// the last field.
void ScrolledFields::FitBar() {
  const TwipScale scale(*this);
  const int height = this->height() - scale.ToPixels(kBarMargin);
  const int extent = scale.ToTwips(height);
  const bool needed = extent < bottomExtent_;
  if (needed) {
    bottomExtent_ += kStep;
    bar_->setPageStep(std::max(extent, kStep));
  }
  bar_->setRange(0, needed ? bottomExtent_ - extent : 0);
  bar_->setVisible(needed);
  const int room = needed ? bar_->sizeHint().width() : 0;
  area_->setGeometry(0, 0, width() - room, height);
  bar_->setGeometry(width() - room, 0, room, this->height());
}

QSize ScrolledFields::sizeHint() const {
  const TwipScale scale(*this);
  int right = 0;
  for (const Placed& placed : placed_) right = std::max(right, placed.control->geometry().right() + 1);
  return {right + scale.ToPixels(kSideMargin), scale.ToPixels(bottomExtent_ + kBottomMargin + kBarMargin)};
}

void ScrolledFields::BringIntoSight(const QWidget& control) {
  const Placed* placed = Find(control);
  if (!placed || !bar_->isVisible()) return;
  const int height = TwipScale(*this).ToTwips(area_->height());
  int value = bar_->value();
  while (EndOf(*placed) - value > height && value < bar_->maximum()) value += kStep;
  while (placed->design.top < value && value > 0) value -= kStep;
  bar_->setValue(value);
}

void ScrolledFields::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FitBar();
}

void ScrolledFields::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) PutAllInPlace();
}

void ScrolledFields::wheelEvent(QWheelEvent* event) {
  bar_->isVisible() ? void(QCoreApplication::sendEvent(bar_, event)) : event->ignore();
}

}  // namespace folvane
