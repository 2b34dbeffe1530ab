#include "widgets/ListCombo.h"

#include <QKeyEvent>
#include <QSignalBlocker>

#include "shell/EventGuard.h"

namespace folvane {

// Emptying and filling the list changes what a combo box shows, so that is put back, after an error too.
bool ListCombo::Reload() {
  const QString shown = currentText();
  const int caret = Box().cursorPosition();
  bool read = false;
  RunGuarded([&] {
    const QSignalBlocker silence(this);
    model()->removeRows(0, model()->rowCount());
    ReadList();
    read = true;
  });
  {
    const QSignalBlocker silence(this);
    setCurrentIndex(findText(EntryOf(shown), Qt::MatchExactly | Qt::MatchCaseSensitive));
    setEditText(shown);
  }
  Box().setCursorPosition(caret);
  return read;
}

void ListCombo::showPopup() {
  if (!Reload()) return;
  PrepareList();
  EditCombo::showPopup();
}

void ListCombo::keyPressEvent(QKeyEvent* event) {
  const bool steps = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  if (steps && !(event->modifiers() & Qt::AltModifier) && !Reload()) return;
  EditCombo::keyPressEvent(event);
}

}  // namespace folvane
