#include "widgets/EditCombo.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QScreen>

#include "shell/TypedKeys.h"

namespace folvane {

EditCombo::EditCombo(QWidget* parent) : TextCombo(parent), box_(new TextBox) {
  setEditable(true);
  setLineEdit(box_);
  setCompleter(nullptr);
  setInsertPolicy(NoInsert);
  setFocusPolicy(Qt::StrongFocus);
  connect(box_, &TextBox::Changed, this, [this] { TakeTyping(); });
  connect(this, &QComboBox::activated, this, [this](int index) { TakeChoice(itemText(index)); });
}

void EditCombo::TakeChoice(const QString& entry) {
  const QString text = TextOfChoice(entry);
  if (text == known_ || !fits_ || fits_(text)) return TakeByHand(text);
  setEditText(known_);
  Beep();
}

void EditCombo::showPopup() {
  view()->setAccessibleName(accessibleName());
  TextCombo::showPopup();
}

void EditCombo::SetText(const QString& text) {
  known_ = text;
  if (currentText() != text || currentIndex() != findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive))
    TextCombo::SetText(text);
}

void EditCombo::TakeByHand(const QString& text) {
  const bool differs = text != known_;
  known_ = text;
  if (currentText() != text) setEditText(text);
  if (differs) Q_EMIT Changed();
}

void EditCombo::DropDown(QWidget& popup) const {
  popup.adjustSize();
  const QRect room = screen()->availableGeometry();
  const QPoint under = mapToGlobal(QPoint(0, height()));
  QRect place(under, popup.size());
  if (place.bottom() > room.bottom()) place.moveBottom(mapToGlobal(QPoint()).y() - 1);
  place.moveLeft(qBound(room.left(), place.left(), qMax(room.left(), room.right() - place.width())));
  popup.move(place.topLeft());
  popup.show();
}

}  // namespace folvane
