#pragma once

#include <QString>

namespace folvane::scanning {

/// What a mode or a source of a scanner is called to the user; the scanner's own word where it is not known.
QString ModeInWords(const QString& mode);
QString SourceInWords(const QString& source);

}  // namespace folvane::scanning
