#pragma once

#include <QWidget>
#include <vector>

#include "forms/ControlPlace.h"
#include "forms/EntryField.h"

class QScrollBar;

namespace folvane {

/// The client area of a form: controls at their design places, in twips, and a bar that moves them up and down. A field
/// that gets the focus is brought into sight.
///
/// The control PicControls holds the fields; the bar is named HScroll, though it stands upright.
class ScrolledFields : public QWidget {
  Q_OBJECT

 public:
  explicit ScrolledFields(QWidget* parent = nullptr);

  /// Where controls are made.
  QWidget* Area() const { return area_; }

  /// Puts a control at its place and shows it. The top is kept as the control's dynamic property DesignTop.
  void Place(QWidget& control, const ControlPlace& design);
  /// Makes the area reach down to a placed control's end, and follow the focus to it.
  void Reach(EntryField& field);
  /// Forgets all controls.
  void Forget();
  /// Shows the bar where the area is too low for what was placed.
  void FitBar();

  /// The room in which everything can be seen at once.
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  struct Placed {
    QWidget* control;
    ControlPlace design;
  };
  void PutInSight(const Placed& placed);
  void PutAllInPlace();
  void BringIntoSight(const QWidget& control);
  int EndOf(const Placed& placed) const;
  const Placed* Find(const QWidget& control) const;

  QWidget* area_;
  QScrollBar* bar_;
  std::vector<Placed> placed_;
  int bottomExtent_ = 0;  ///< twips
};

}  // namespace folvane
