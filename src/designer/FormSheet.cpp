#include "designer/FormSheet.h"

#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QPainter>

#include "forms/EntryParts.h"
#include "forms/TwipScale.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMargin = 300;  // twips, beside and under the controls

std::unique_ptr<EntryField> FieldOf(const FormItem& item, QWidget* parent) {
  const bool hasLimit = item.row.control.type != ControlKind::DTP;
  auto field = NewField(item.row, hasLimit ? LimitText(item.row.fieldLong) : QString(), {}, parent);
  if (auto* list = qobject_cast<QComboBox*>(&field->Widget())) list->addItems(item.entries);
  field->SetText({});
  return field;
}

// Stands where the entry form has no box.
QLabel* NewGap(const FormItem& item, QWidget* parent) {
  auto* gap = new QLabel(item.trouble, parent);
  gap->setTextFormat(Qt::PlainText);
  gap->setFrameShape(QFrame::Box);
  gap->setObjectName(u"Gap(%1)"_s.arg(item.control));
  gap->setIndent(4);
  return gap;
}

}  // namespace

struct FormSheet::Built {
  std::unique_ptr<EntryField> field;
  std::unique_ptr<QLabel> gap, caption, sign;

  QWidget& Box() const { return field ? field->Widget() : *gap; }
};

FormSheet::FormSheet(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }

FormSheet::~FormSheet() = default;

void FormSheet::Show(std::vector<FormItem> items, const Design::Control* frame) {
  const auto looksLike = [](const FormItem& one, const FormItem& other) { return one.LooksLike(other); };
  const bool isBuilt = std::equal(items.begin(), items.end(), items_.begin(), items_.end(), looksLike);
  items_ = std::move(items);
  frame_ = frame ? QRect(frame->left, frame->top + kRoomAboveForm, frame->width, frame->height) : QRect();
  if (!isBuilt) Build();
  PutAllInPlace();
}

void FormSheet::Build() {
  built_.clear();
  int number = 0;
  for (const FormItem& item : items_) {
    Built& built = built_.emplace_back();
    if (item.isBuilt)
      built.field = FieldOf(item, this);
    else
      built.gap.reset(NewGap(item, this));
    built.caption = NewCaption(item.row, ++number, this);
    if (item.isRequired) built.sign = NewSign(number, this);
    built.Box().setFocusPolicy(Qt::NoFocus);
    for (QWidget* part : built.Box().findChildren<QWidget*>()) part->setFocusPolicy(Qt::NoFocus);
  }
}

void FormSheet::PutAllInPlace() {
  const TwipScale scale(*this);
  const auto put = [&](QWidget& part, const ControlPlace& place) {
    PutInPlace(part, place, scale);
    part.show();
  };
  for (std::size_t i = 0; i < built_.size(); ++i) {
    const LayoutRow& row = items_[i].row;
    put(built_[i].Box(), FieldPlace(row));
    put(*built_[i].caption, CaptionPlace(row));
    if (built_[i].sign) put(*built_[i].sign, SignPlace(row));
  }
  update();
}

QRect FormSheet::BoxOf(std::size_t item) const { return built_[item].Box().geometry(); }

QRect FormSheet::ReachOf(std::size_t item) const { return BoxOf(item) | built_[item].caption->geometry(); }

QSize FormSheet::sizeHint() const {
  const TwipScale scale(*this);
  const int margin = scale.ToPixels(kMargin);
  QRect all(0, 0, scale.ToPixels(frame_.x() + frame_.width()), scale.ToPixels(frame_.y() + frame_.height()));
  for (std::size_t i = 0; i < built_.size(); ++i) all |= BoxOf(i);
  return {all.right() + 1 + margin, all.bottom() + 1 + margin};
}

void FormSheet::paintEvent(QPaintEvent*) {
  if (frame_.width() <= 0 || frame_.height() <= 0) return;
  const TwipScale scale(*this);
  QPainter painter(this);
  painter.setPen(QPen(palette().color(QPalette::PlaceholderText), 1, Qt::DashLine));
  painter.drawRect(scale.ToPixels(frame_.x()), scale.ToPixels(frame_.y()), scale.ToPixels(frame_.width()),
                   scale.ToPixels(frame_.height()));
}

void FormSheet::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) PutAllInPlace();
}

}  // namespace folvane::designer
