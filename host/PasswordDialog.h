#pragma once

#include <QDialog>
#include <QList>

#include "host/Accounts.h"
#include "host/HostDatabase.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace folvane::host {

/// Gives a user a password: oneself, who has to know the old one where there is one; the administrator also anybody
/// else. Stays, with the reason, as long as that does not work.
class PasswordDialog : public QDialog {
  Q_OBJECT

 public:
  /// @param self who is at work, first among the users that can be chosen
  /// @param reason why the dialog comes unasked
  PasswordDialog(Accounts accounts, const HostUser& self, const QList<HostUser>& users, const QString& reason,
                 QWidget* parent = nullptr);

 public Q_SLOTS:
  void accept() override;

 private:
  QLineEdit* AddBox(QFormLayout& rows, const char* name, const QString& caption);
  QString ChosenUser() const;
  bool AsksForOld() const;
  void ShowChosen();

  Accounts accounts_;
  HostUser self_;
  QComboBox* cboUser_;
  QLineEdit *txtOld_, *txtNew_, *txtRepeat_;
  QLabel *lblOld_, *lblMessage_;
};

}  // namespace folvane::host
