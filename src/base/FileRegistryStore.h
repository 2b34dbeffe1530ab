#pragma once

#include <QString>

#include <folvane/RegistryStore.h>

#include "base/ProfileFile.h"

namespace folvane {

/// The registry as one UTF-8 profile file: a key is a section, a value a line. Several processes may use it at a time.
class FileRegistryStore : public RegistryStore {
 public:
  explicit FileRegistryStore(const QString& path);

  QString Read(const QString& key, const QString& name) const override;
  void Write(const QString& key, const QString& name, const QString& text) override;

  /// The user's file, made on the first write.
  static QString UserPath();

 private:
  ProfileFile file_;
};

}  // namespace folvane
