#pragma once

#include <QString>

namespace folvane::scanning {

/// What the user chose last, by name: "Device", "Source", "Mode", "Resolution", "Paper", "KeepAs"; "" for nothing.
QString Remembered(const QString& name);
void Remember(const QString& name, const QString& value);

}  // namespace folvane::scanning
