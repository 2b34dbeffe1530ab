#pragma once

#include <QByteArray>
#include <QVariant>
#include <vector>

namespace folvane {

/// A statement in the database's own dialect, in UTF-8, with the values of its "?" markers.
/// Values are null (invalid), QString, qlonglong, double, bool or QByteArray.
struct NativeStatement {
  QByteArray text;
  std::vector<QVariant> parameters;
};

}  // namespace folvane
