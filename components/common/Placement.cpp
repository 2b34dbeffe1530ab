#include "components/common/Placement.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

#include <folvane/HostServices.h>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kPlacements = u"HKEY_CURRENT_USER\\Software\\Norvex\\Folvane\\Windows"_s;

// Where a window stood is a comfort: no trouble with the store may keep it from opening or closing.
class PlacementKeeper : public QObject {
 public:
  explicit PlacementKeeper(QWidget& window) : QObject(&window), window_(window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window_ && event->type() == QEvent::Hide && !event->spontaneous()) Remember();
    return false;
  }

 private:
  void Remember() const {
    try {
      const auto& registry = Services().registry;
      if (registry)
        registry->Write(kPlacements, window_.objectName(), QString::fromLatin1(window_.saveGeometry().toBase64()));
    } catch (const std::exception&) {
    }
  }

  QWidget& window_;
};

QString KeptGeometry(const QWidget& window) {
  try {
    const auto& registry = Services().registry;
    return registry ? registry->Read(kPlacements, window.objectName()) : QString();
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace

void KeepPlacement(QWidget& window) {
  const QString kept = KeptGeometry(window);
  if (!kept.isEmpty()) window.restoreGeometry(QByteArray::fromBase64(kept.toLatin1()));
  window.resize(window.size().boundedTo(window.screen()->availableSize()));
  new PlacementKeeper(window);
}

}  // namespace folvane
