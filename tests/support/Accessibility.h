#pragma once

#include <QStringList>

class QWidget;

namespace folvane::test {

/// The shown controls of a window that a screen reader has no name for, as "class objectName"; parts of other controls,
/// such as the line edit of a combo box, are left out.
QStringList UnnamedControls(QWidget& window);

}  // namespace folvane::test
