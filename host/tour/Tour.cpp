#include "host/tour/Tour.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QSet>
#include <QTimer>
#include <QWidget>
#include <cstdio>

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kLookEvery = 20;     // milliseconds
constexpr int kPatience = 60'000;  // milliseconds for one step

// A window that drew nothing is one or two flat colours.
bool IsBlank(const QImage& picture) {
  QSet<QRgb> colours;
  for (int y = 0; y < picture.height(); y += 2) {
    for (int x = 0; x < picture.width(); x += 2) colours.insert(picture.pixel(x, y));
    if (colours.size() > 20) return false;
  }
  return true;
}

void Print(const QString& line) {
  std::fprintf(stdout, "%s\n", line.toUtf8().constData());
  std::fflush(stdout);
}

}  // namespace

void Expect(bool holds, const QString& what) {
  if (!holds) throw TourError(what);
}

QWidget* VisibleWindow(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->objectName() == name) return window;
  return nullptr;
}

QWidget& Window(const QString& name) {
  QWidget* window = VisibleWindow(name);
  if (!window) throw TourError(u"no window %1"_s.arg(name));
  return *window;
}

Tour::Tour(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

Tour& Tour::Step(const QString& what, Condition ready, Action act) {
  steps_.push_back({what, std::move(ready), std::move(act)});
  return *this;
}

void Tour::Start() {
  waiting_.start();
  LookAgain();
}

// A single shot each time: a repeating timer would keep still while its own handler is in a nested event loop.
void Tour::LookAgain() { QTimer::singleShot(kLookEvery, this, &Tour::Look); }

void Tour::Look() {
  if (failed_ || at_ == steps_.size()) return;
  const Stage& step = steps_[at_];
  try {
    if (!step.ready()) {
      Expect(waiting_.elapsed() < kPatience, u"waited in vain"_s);
      return LookAgain();
    }
    Print(u"%1. %2"_s.arg(at_ + 1, 2).arg(step.what));
    ++at_;
    waiting_.restart();
    LookAgain();  // before the step: it may open a window and return only when that is closed
    step.act();
  } catch (const std::exception& error) {
    Fail(u"%1: %2"_s.arg(step.what, QString::fromUtf8(error.what())));
  }
}

void Tour::Fail(const QString& why) {
  if (failed_) return;
  failed_ = true;
  Print(u"FAILED  %1"_s.arg(why));
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible()) window->grab().save(folder_ + u"/failed-%1.png"_s.arg(window->objectName()));
  QCoreApplication::exit(1);
}

void Tour::Picture(QWidget& window, const QString& name, int scale) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);  // of texts that have just changed
  QPixmap picture(window.size() * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  window.render(&picture);
  const QString file = u"%1/%2-%3.png"_s.arg(folder_).arg(++pictures_, 2, 10, QChar(u'0')).arg(name);
  Expect(!IsBlank(picture.toImage()), u"%1 is blank"_s.arg(name));
  Expect(picture.save(file), u"cannot write %1"_s.arg(file));
}

}  // namespace folvane::host
