#pragma once

#include <QString>
#include <functional>

namespace folvane::host {

/// Copies the SQLite database of an office, which others may be using meanwhile, and checks the copy whole. What the
/// target held before stays until the copy is finished and found good.
/// @param progress is told the done part, from 0 to 1, and answers whether to go on
/// @return false where it was ended by progress; nothing is left behind then
/// @throws HostError where one of the files cannot be read or written, or where the copy is not whole
bool CopyOffice(const QString& source, const QString& target, const std::function<bool(double done)>& progress);

}  // namespace folvane::host
