#include "components/common/KeptGeometry.h"

#include <QEvent>
#include <QHeaderView>
#include <QWidget>
#include <functional>

#include <folvane/HostServices.h>

namespace folvane::components {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kPlaces = u"HKEY_CURRENT_USER\\Software\\Norvex\\Folvane\\Windows"_s;

// Where a window stood is a comfort: no trouble with the host's registry may keep it from opening or closing.
QByteArray ReadState(const QString& name) {
  try {
    return Services().registry ? QByteArray::fromBase64(Services().registry->Read(kPlaces, name).toLatin1())
                               : QByteArray();
  } catch (const std::exception&) {
    return {};
  }
}

void WriteState(const QString& name, const QByteArray& state) {
  try {
    if (Services().registry) Services().registry->Write(kPlaces, name, QString::fromLatin1(state.toBase64()));
  } catch (const std::exception&) {
  }
}

class KeeperAtHide : public QObject {
 public:
  KeeperAtHide(QWidget& window, std::function<void()> keep) : QObject(&window), keep_(std::move(keep)) {
    window.installEventFilter(this);
  }

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Hide && !event->spontaneous()) keep_();
    return false;
  }

  std::function<void()> keep_;
};

}  // namespace

void KeepGeometry(QWidget& window) {
  window.restoreGeometry(ReadState(window.objectName()));
  new KeeperAtHide(window, [&window] { WriteState(window.objectName(), window.saveGeometry()); });
}

void KeepWidths(QHeaderView& header) {
  QWidget& list = *header.parentWidget();
  const QString name = list.window()->objectName() + u'.' + list.objectName();
  header.restoreState(ReadState(name));
  new KeeperAtHide(*list.window(), [&header, name] { WriteState(name, header.saveState()); });
}

}  // namespace folvane::components
