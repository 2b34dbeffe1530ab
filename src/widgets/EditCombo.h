#pragma once

#include <QWheelEvent>
#include <functional>

#include "widgets/TextBox.h"
#include "widgets/TextCombo.h"

namespace folvane {

/// A combo box for free text. A change by hand, typed or chosen from the list, is told once by Changed; choosing what
/// the box already shows is none. The list completes and corrects nothing that is typed, and the wheel does not turn
/// it: it scrolls the form.
///
/// Boxes that drop down something else than a list of texts derive from it, so that all look and answer alike.
class EditCombo : public TextCombo {
  Q_OBJECT

 public:
  explicit EditCombo(QWidget* parent = nullptr);

  virtual QString Text() const { return currentText(); }
  void SetText(const QString& text) override;
  TextBox& Box() const { return *box_; }
  /// Says which texts the box can hold: a choice from the list that would give another is refused with a beep.
  void SetFits(std::function<bool(const QString& text)> fits) { fits_ = std::move(fits); }
  void showPopup() override;

 Q_SIGNALS:
  void Changed();

 protected:
  /// What the box shows when that entry of the list is chosen.
  virtual QString TextOfChoice(const QString& entry) const { return entry; }
  /// The text has been changed by typing.
  virtual void TakeTyping() { TakeByHand(currentText()); }
  /// Shows a text that the user has chosen; tells if it is another than before.
  void TakeByHand(const QString& text);
  /// What the box held before the change that is going on.
  const QString& Known() const { return known_; }
  /// Shows a pop-up under the box, above it where the screen ends.
  void DropDown(QWidget& popup) const;

  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

 private:
  void TakeChoice(const QString& entry);

  TextBox* box_;
  QString known_;
  std::function<bool(const QString&)> fits_;
};

}  // namespace folvane
