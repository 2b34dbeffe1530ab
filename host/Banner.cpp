#include "host/Banner.h"

#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QVBoxLayout>

#include <folvane/Icons.h>

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kPicture = 96;

QLabel* Line(const QString& text, double sizes, bool bold, QRgb colour) {
  auto* label = new QLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * sizes);
  font.setBold(bold);
  label->setFont(font);
  QPalette colours = label->palette();
  colours.setColor(QPalette::WindowText, QColor(colour));
  label->setPalette(colours);
  label->setAlignment(Qt::AlignHCenter);
  return label;
}

}  // namespace

Banner::Banner(const QString& title, const QString& line, QWidget* parent) : QWidget(parent) {
  auto* picture = new QLabel;
  picture->setPixmap(Icon(u"folvane"_s).pixmap(QSize(kPicture, kPicture), devicePixelRatio()));
  picture->setAlignment(Qt::AlignHCenter);
  auto* down = new QVBoxLayout(this);
  down->setContentsMargins(28, 28, 28, 28);
  down->addStretch(2);
  down->addWidget(picture);
  down->addSpacing(16);
  down->addWidget(Line(title, 1.35, true, 0xffffffff));
  down->addSpacing(4);
  down->addWidget(Line(line, 1.0, false, 0xffcfe4fa));
  down->addStretch(3);
}

void Banner::paintEvent(QPaintEvent*) {
  QLinearGradient ground(rect().topLeft(), rect().bottomLeft());
  ground.setColorAt(0, QColor(0xff1566b8));
  ground.setColorAt(1, QColor(0xff0a3f7d));
  QPainter(this).fillRect(rect(), ground);
}

}  // namespace folvane::host
