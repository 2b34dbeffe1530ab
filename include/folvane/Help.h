#pragma once

#include <QString>

#include <folvane/Export.h>

class QWidget;

namespace folvane {

/// Shows a topic of help.chm in the program's directory or, where there is none, of the one that was installed with the
/// library; says that the file is missing when neither is there. Errors are not passed on.
FOLVANE_EXPORT void OpenHelp(QWidget* window, const QString& topic);

}  // namespace folvane
