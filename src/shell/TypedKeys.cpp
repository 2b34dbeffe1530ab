#include "shell/TypedKeys.h"

#include <QApplication>

#include <folvane/HostServices.h>

#include "base/IgnoreErrors.h"

namespace folvane {
namespace {

constexpr char16_t kBackspace = 8;

}  // namespace

void Beep() {
  if (Services().beep) {
    Services().beep();
  } else {
    QApplication::beep();
  }
}

int FilterKey(int keyCode, const QString& allowed, bool allowBackspace) {
  int result = 0;
  IgnoreErrors([&] {
    QString set = allowed.toUpper();
    if (allowBackspace) set += QChar(kBackspace);
    const char32_t character = char32_t(keyCode);
    if (set.contains(QString::fromUcs4(&character, 1).toUpper())) {
      result = keyCode;
    } else {
      Beep();
    }
  });
  return result;
}

}  // namespace folvane
