#pragma once

#include <QString>
#include <optional>

namespace folvane {

/// The hint on a field for how much it holds, "限长14个字符"; the checks read the number back out of it.
QString LimitText(const QString& length);

/// The number in a hint: what stands from its third character up to the first "个". None when that is no number.
std::optional<int> LimitIn(const QString& hint);

}  // namespace folvane
