#pragma once

#include <QByteArrayList>
#include <functional>
#include <vector>

namespace folvane::test {

/// Does works at the same time, each in a process of its own that copies this one, and gives what they answer. A work
/// opens its own connections: those of this process are not its. One that does not end well within a minute, or in
/// which the test fails, is a failure.
QByteArrayList AtOnce(const std::vector<std::function<QByteArray()>>& works);

}  // namespace folvane::test
