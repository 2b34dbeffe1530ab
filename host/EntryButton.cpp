#include "host/EntryButton.h"

#include <QEvent>
#include <QPainter>

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kPadding = 18;
constexpr int kCardPicture = 40;
constexpr int kRadius = 8;

}  // namespace

EntryButton::EntryButton(const QIcon& icon, const QString& title, const QString& line, const QKeySequence& keys,
                         QWidget* parent)
    : QAbstractButton(parent), line_(line) {
  setIcon(icon);
  setIconSize({kCardPicture, kCardPicture});
  setText(title);
  setShortcut(keys);
  setAccessibleDescription(line);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QString EntryButton::Keys() const { return shortcut().toString(QKeySequence::NativeText); }

QFont EntryButton::TitleFont() const {
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.3);
  large.setBold(true);
  return large;
}

QSize EntryButton::sizeHint() const {
  const QFontMetrics title(TitleFont());
  const int texts = qMax(title.horizontalAdvance(text()) + fontMetrics().horizontalAdvance(Keys()) + kPadding,
                         fontMetrics().horizontalAdvance(line_));
  return {3 * kPadding + kCardPicture + texts, 2 * kPadding + title.height() + fontMetrics().lineSpacing() + 12};
}

bool EntryButton::event(QEvent* event) {
  if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) update();
  return QAbstractButton::event(event);
}

void EntryButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawCard(painter);
  icon().paint(&painter, kPadding, (height() - kCardPicture) / 2, kCardPicture, kCardPicture);
  DrawTexts(painter);
}

void EntryButton::DrawCard(QPainter& painter) const {
  const QColor accent = palette().color(QPalette::Highlight);
  QColor ground = palette().color(QPalette::Base);
  QColor edge = palette().color(QPalette::WindowText);
  edge.setAlphaF(0.16);
  const bool hot = underMouse() || hasFocus();
  const QRectF card = QRectF(rect()).adjusted(1, 1, -1, -1);
  painter.setPen(QPen(hot ? accent : edge, hot ? 1.5 : 1.0));
  painter.setBrush(ground);
  painter.drawRoundedRect(card, kRadius, kRadius);
  if (!underMouse() && !isDown()) return;
  QColor wash = accent;
  wash.setAlphaF(isDown() ? 0.16 : 0.07);
  painter.setBrush(wash);
  painter.drawRoundedRect(card, kRadius, kRadius);
}

void EntryButton::DrawTexts(QPainter& painter) const {
  const QFontMetrics title(TitleFont());
  const int left = 2 * kPadding + kCardPicture;
  const int block = title.height() + 6 + fontMetrics().height();
  const QRect upper(left, (height() - block) / 2, width() - left - kPadding, title.height());
  const QRect lower(left, upper.bottom() + 7, upper.width(), fontMetrics().height());
  painter.setFont(TitleFont());
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(upper, Qt::AlignLeft | Qt::AlignVCenter, text());
  QColor soft = palette().color(QPalette::Text);
  soft.setAlphaF(0.62);
  painter.setFont(font());
  painter.setPen(soft);
  painter.drawText(lower, Qt::AlignLeft | Qt::AlignVCenter, line_);
  painter.drawText(upper, Qt::AlignRight | Qt::AlignVCenter, Keys());
}

}  // namespace folvane::host
