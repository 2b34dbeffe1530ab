#include "shell/RegistryValues.h"

#include <folvane/HostServices.h>

#include "base/CodePage.h"

namespace folvane {
namespace {

QString KeyOf(const QString& root, const QString& path) { return root + u'\\' + path; }

}  // namespace

QString QueryValue(const QString& root, const QString& path, const QString& name) {
  const QString text = Services().registry->Read(KeyOf(root, path), name);
  return text.left(text.indexOf(QChar::Null));
}

void SaveValue(const QString& root, const QString& path, const QString& name, const QString& text) {
  Services().registry->Write(KeyOf(root, path), name, FromCodePage(ToCodePage(text)));
}

}  // namespace folvane
