#pragma once

#include <QString>
#include <memory>

#include <folvane/ClsFolvane.h>

#include "host/HostDatabase.h"

namespace folvane::host {

/// A user at work in a database: the library, set up in the order that it asks for.
class Session {
 public:
  /// @throws HostError, DataError
  Session(std::shared_ptr<HostDatabase> database, const QString& userId, const QString& kind);

  ClsFolvane& Library() { return library_; }
  const HostUser& User() const { return user_; }
  const QString& Kind() const { return kind_; }
  const HostDatabase& Database() const { return *database_; }

 private:
  std::shared_ptr<HostDatabase> database_;
  HostUser user_;
  QString kind_;
  ClsFolvane library_;
};

}  // namespace folvane::host
