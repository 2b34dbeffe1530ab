#include "components/common/Placement.h"

#include <QEvent>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QWidget>
#include <functional>

#include <folvane/HostServices.h>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kPlacements = u"HKEY_CURRENT_USER\\Software\\Norvex\\Folvane\\Windows"_s;

// Where a window stood is a comfort: no trouble with the store may keep it from opening or closing.
QByteArray ReadKept(const QString& name) {
  try {
    const auto& registry = Services().registry;
    return registry ? QByteArray::fromBase64(registry->Read(kPlacements, name).toLatin1()) : QByteArray();
  } catch (const std::exception&) {
    return {};
  }
}

void WriteKept(const QString& name, const QByteArray& state) {
  try {
    const auto& registry = Services().registry;
    if (registry) registry->Write(kPlacements, name, QString::fromLatin1(state.toBase64()));
  } catch (const std::exception&) {
  }
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
  const QByteArray kept = ReadKept(window.objectName());
  if (!kept.isEmpty()) window.restoreGeometry(kept);
  window.resize(window.size().boundedTo(window.screen()->availableSize()));
  new PlacementKeeper(window, [&window] { WriteKept(window.objectName(), window.saveGeometry()); });
}

void KeepWidths(QHeaderView& header) {
  QWidget& list = *header.parentWidget();
  const QString name = list.window()->objectName() + u'.' + list.objectName();
  const QByteArray kept = ReadKept(name);
  if (!kept.isEmpty()) header.restoreState(kept);
  new PlacementKeeper(*list.window(), [&header, name] { WriteKept(name, header.saveState()); });
}

void KeepSizes(QSplitter& splitter) {
  const QString name = splitter.window()->objectName() + u'.' + splitter.objectName();
  const QByteArray kept = ReadKept(name);
  if (!kept.isEmpty()) splitter.restoreState(kept);
  new PlacementKeeper(*splitter.window(), [&splitter, name] { WriteKept(name, splitter.saveState()); });
}

}  // namespace folvane
