#include "widgets/NumberBox.h"

#include <QFocusEvent>
#include <QSignalBlocker>

namespace folvane {

void NumberBox::SetText(const QString& text) {
  const QSignalBlocker silence(this);
  setValue(text.toInt());
}

// A click places the caret after it has given the focus.
void NumberBox::focusInEvent(QFocusEvent* event) {
  QSpinBox::focusInEvent(event);
  QMetaObject::invokeMethod(this, &QAbstractSpinBox::selectAll,
                            event->reason() == Qt::MouseFocusReason ? Qt::QueuedConnection : Qt::DirectConnection);
}

}  // namespace folvane
