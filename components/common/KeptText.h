#pragma once

#include <QString>

namespace folvane {

/// A text that the user's registry keeps for his comfort, such as where a window stood or what was chosen last: no
/// trouble with the registry may keep anybody from working. "" where it cannot be read.
QString ReadKept(const QString& key, const QString& name);
void WriteKept(const QString& key, const QString& name, const QString& text);

}  // namespace folvane
