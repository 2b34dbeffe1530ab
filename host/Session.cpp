#include "host/Session.h"

namespace folvane::host {

Session::Session(std::shared_ptr<HostDatabase> database, const QString& userId, const QString& kind)
    : database_(std::move(database)), user_(database_->User(userId)), kind_(kind) {
  library_.Connection(database_->Connection());
  library_.GetUser(user_.id);
  library_.GetCopyRight(kind_);
}

}  // namespace folvane::host
