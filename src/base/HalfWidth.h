#pragma once

#include <QString>

namespace folvane {

/// The text with the full-width forms of ASCII, as an input method gives them, in their usual form.
QString ToHalfWidth(const QString& text);

/// The text with ASCII in its full-width forms; the way back of ToHalfWidth.
QString ToFullWidth(const QString& text);

}  // namespace folvane
