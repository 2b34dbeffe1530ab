#pragma once

#include <QString>

namespace folvane {

/// The text with the full-width forms of ASCII, as an input method gives them, in their usual form.
QString ToHalfWidth(const QString& text);

}  // namespace folvane
