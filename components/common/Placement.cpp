#include "components/common/Placement.h"

#include <QEvent>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QWidget>
#include <functional>

#include "components/common/KeptText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kPlacements = u"HKEY_CURRENT_USER\\Software\\Norvex\\Folvane\\Windows"_s;

QByteArray KeptState(const QString& name) { return QByteArray::fromBase64(ReadKept(kPlacements, name).toLatin1()); }

void KeepState(const QString& name, const QByteArray& state) {
  WriteKept(kPlacements, name, QString::fromLatin1(state.toBase64()));
}

/// Has something remembered whenever a window is hidden.
class PlacementKeeper : public QObject {
 public:
  PlacementKeeper(QWidget& window, std::function<void()> remember) : QObject(&window), remember_(std::move(remember)) {
    window.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == parent() && event->type() == QEvent::Hide && !event->spontaneous()) remember_();
    return false;
  }

 private:
  std::function<void()> remember_;
};

}  // namespace

void KeepPlacement(QWidget& window) {
  const QByteArray kept = KeptState(window.objectName());
  if (!kept.isEmpty()) window.restoreGeometry(kept);
  window.resize(window.size().boundedTo(window.screen()->availableSize()));
  new PlacementKeeper(window, [&window] { KeepState(window.objectName(), window.saveGeometry()); });
}

void KeepWidths(QHeaderView& header) {
  QWidget& list = *header.parentWidget();
  const QString name = list.window()->objectName() + u'.' + list.objectName();
  const QByteArray kept = KeptState(name);
  if (!kept.isEmpty()) header.restoreState(kept);
  new PlacementKeeper(*list.window(), [&header, name] { KeepState(name, header.saveState()); });
}

void KeepSizes(QSplitter& splitter) {
  const QString name = splitter.window()->objectName() + u'.' + splitter.objectName();
  const QByteArray kept = KeptState(name);
  if (!kept.isEmpty()) splitter.restoreState(kept);
  new PlacementKeeper(*splitter.window(), [&splitter, name] { KeepState(name, splitter.saveState()); });
}

}  // namespace folvane
