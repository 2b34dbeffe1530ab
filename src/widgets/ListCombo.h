#pragma once

#include "widgets/EditCombo.h"

namespace folvane {

/// A box whose list is read from the database each time it is shown or stepped through with the arrow keys. What the
/// box shows is not touched by that; an error is shown, and the list stays shut.
class ListCombo : public EditCombo {
  Q_OBJECT

 public:
  using EditCombo::EditCombo;
  void showPopup() override;

 protected:
  /// Fills the empty list.
  virtual void ReadList() = 0;
  /// The entry that belongs to a text of the box.
  virtual QString EntryOf(const QString& text) const { return text; }
  /// The list has been read and is about to drop down.
  virtual void PrepareList() {}
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool Reload();
};

}  // namespace folvane
