#include "widgets/TextCombo.h"

#include <QSignalBlocker>

namespace folvane {

void TextCombo::SetText(const QString& text) {
  const QSignalBlocker silence(this);
  setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
  if (isEditable()) setEditText(text);
}

}  // namespace folvane
