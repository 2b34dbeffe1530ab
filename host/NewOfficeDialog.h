#pragma once

#include <QDialog>

#include "host/NewOffice.h"

class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QRadioButton;

namespace folvane::host {

/// Asks for the place, the designs and the administrator of a new office, and makes it. Stays, with the reason, as long
/// as that does not work.
class NewOfficeDialog : public QDialog {
  Q_OBJECT

 public:
  explicit NewOfficeDialog(QWidget* parent = nullptr);

  /// Where the office was made.
  DatabaseChoice Where() const;

 public Q_SLOTS:
  void accept() override;

 private:
  QLayout* Place();
  QListWidget* Designs();
  void ShowWay();
  void Browse();
  OfficeOrder Order() const;

  QRadioButton *optFile_, *optOdbc_;
  QWidget* fileRow_;
  QLineEdit *txtFile_, *txtOdbc_, *txtName_, *txtPassword_, *txtRepeat_;
  QListWidget* lstDesigns_;
  QLabel* lblMessage_;
};

}  // namespace folvane::host
