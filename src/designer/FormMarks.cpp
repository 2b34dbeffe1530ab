#include "designer/FormMarks.h"

#include <QPainter>

namespace folvane::designer {
namespace {

constexpr int kHandle = 7;  // pixels
const QColor kTrouble(0xd0, 0x3a, 0x2b);

QColor Faint(QColor colour, int alpha) {
  colour.setAlpha(alpha);
  return colour;
}

}  // namespace

std::vector<SizeHandle> SizeHandles(const QRect& box, bool isOneLine) {
  std::vector<SizeHandle> handles;
  const QPoint middle = box.center();
  for (const int down : {-1, 0, 1}) {
    for (const int across : {-1, 0, 1}) {
      if ((across == 0 && down == 0) || (isOneLine && down != 0)) continue;
      QRect rect(0, 0, kHandle, kHandle);
      rect.moveCenter({across < 0   ? box.left()
                       : across > 0 ? box.right()
                                    : middle.x(),
                       down < 0   ? box.top()
                       : down > 0 ? box.bottom()
                                  : middle.y()});
      handles.push_back({rect, across, down});
    }
  }
  return handles;
}

FormMarks::FormMarks(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }

void FormMarks::Show(Shapes shapes) {
  shapes_ = std::move(shapes);
  update();
}

void FormMarks::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(QPen(kTrouble, 1, Qt::DashLine));
  for (const QRect& box : shapes_.troubles) painter.drawRect(box.adjusted(-2, -2, 1, 1));
  PaintChosen(painter);
  PaintLines(painter);
  PaintNumbers(painter);
  if (shapes_.hint.isEmpty()) return;
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(rect().adjusted(16, 16, -16, -16), Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap, shapes_.hint);
}

void FormMarks::PaintChosen(QPainter& painter) const {
  const QColor colour = palette().color(shapes_.isActive ? QPalette::Active : QPalette::Inactive, QPalette::Highlight);
  for (const Chosen& chosen : shapes_.chosen) {
    painter.setPen(colour);
    painter.fillRect(chosen.box, Faint(colour, 40));
    painter.drawRect(chosen.box.adjusted(0, 0, -1, -1));
    const QBrush filling = chosen.isCurrent ? QBrush(colour) : palette().base();
    for (const SizeHandle& handle : SizeHandles(chosen.box, chosen.isOneLine)) {
      painter.fillRect(handle.rect, filling);
      painter.drawRect(handle.rect.adjusted(0, 0, -1, -1));
    }
  }
}

void FormMarks::PaintLines(QPainter& painter) const {
  painter.setPen(QPen(palette().color(QPalette::Link), 1, Qt::DashLine));
  for (const QLine& guide : shapes_.guides) painter.drawLine(guide);
  if (shapes_.band.isNull()) return;
  const QColor colour = palette().color(QPalette::Highlight);
  painter.setPen(colour);
  painter.fillRect(shapes_.band, Faint(colour, 30));
  painter.drawRect(shapes_.band.adjusted(0, 0, -1, -1));
}

void FormMarks::PaintNumbers(QPainter& painter) const {
  for (const Number& number : shapes_.numbers) {
    const QString text = QString::number(number.number);
    const int height = fontMetrics().height() + 2;
    const int width = std::max(height, fontMetrics().horizontalAdvance(text) + 8);
    const QRect badge(number.box.left() + 3, number.box.top() + (number.box.height() - height) / 2, width, height);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(number.isGiven ? palette().highlight() : palette().base());
    painter.drawRoundedRect(badge, height / 2.0, height / 2.0);
    painter.setPen(palette().color(number.isGiven ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(badge, Qt::AlignCenter, text);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
  }
}

}  // namespace folvane::designer
