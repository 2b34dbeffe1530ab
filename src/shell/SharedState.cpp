#include "shell/SharedState.h"

#include <folvane/DataError.h>

namespace folvane {
using namespace Qt::Literals::StringLiterals;

SharedState& Shared() {
  // Never destroyed: at the end of the process the host's handle under the connection may be gone already.
  static auto* state = new SharedState;
  return *state;
}

std::shared_ptr<Connection> SharedConnection() { return Required(Shared().Connection); }

std::shared_ptr<Connection> Required(const std::shared_ptr<Connection>& connection) {
  if (!connection) {
    throw DataError(DataErrorKind::Usage, u"尚未设置数据库连接，请先设置 Connection。"_s);
  }
  return connection;
}

}  // namespace folvane
