#pragma once

#include <QDialog>

#include <folvane/Design.h>

class QComboBox;
class QLabel;
class QPushButton;

namespace folvane::designer {

/// Shows what is about to be written, in words and as statements, and asks what is to become of data that would go.
class PlanDialog : public QDialog {
 public:
  PlanDialog(const DesignPlan& plan, QWidget* parent);

  /// To the losses of the plan, in their order.
  std::vector<LossAnswer> Answers() const;

 private:
  QWidget* NewLosses(const DesignPlan& plan);
  void Enable();

  std::vector<QComboBox*> answers_;
  QPushButton* ok_;
};

}  // namespace folvane::designer
