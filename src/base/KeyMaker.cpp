#include "base/KeyMaker.h"

#include <folvane/HostServices.h>

namespace folvane {
namespace {

// Zeros before the trimmed number up to the width; a longer number stays whole.
QString Padded(int number, int width) { return QString::number(number).rightJustified(width, u'0'); }

}  // namespace

QString CreateName() {
  const auto now = [] { return Services().now(); };  // the clock is read anew for each part
  QString name = QString::number(now().date().year());
  name += Padded(now().date().month(), 2);
  name += Padded(now().date().day(), 2);
  name += Padded(now().time().hour(), 2);
  name += Padded(now().time().minute(), 2);
  name += Padded(now().time().second(), 2);
  return name + Padded(int(Services().random() * 1e6), 6);
}

}  // namespace folvane
