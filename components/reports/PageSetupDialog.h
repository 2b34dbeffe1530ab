#pragma once

#include <QDialog>
#include <QPageLayout>
#include <array>

class QComboBox;
class QDoubleSpinBox;

namespace folvane::reports {

/// Sets paper, orientation and margins.
class PageSetupDialog : public QDialog {
 public:
  PageSetupDialog(const QPageLayout& layout, QWidget* parent);

  /// As it is set up in the dialog.
  QPageLayout Layout() const;

 private:
  void AcceptIfThereIsRoom();
  QDoubleSpinBox* NewMargin(const QString& name, const QString& caption, double millimetres);

  QComboBox *paper_, *orientation_;
  std::array<QDoubleSpinBox*, 4> margins_{};  ///< left, top, right, bottom
};

}  // namespace folvane::reports
