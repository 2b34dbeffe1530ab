#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <memory>

#include "host/HostDatabase.h"
#include "host/LogOnChoices.h"
#include "host/Session.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace folvane::host {

/// Asks for the database, its kind and the user, and logs on. Stays, with the reason, as long as that does not work.
class LogOnDialog : public QDialog {
  Q_OBJECT

 public:
  /// Makes the demo database and gives its path. @throws HostError, DataError
  using DemoMaker = std::function<QString()>;

  LogOnDialog(const LogOnChoices& choices, DemoMaker makeDemo, QWidget* parent = nullptr);

  /// The session after the dialog was accepted.
  std::unique_ptr<Session> TakeSession() { return std::move(session_); }
  LogOnChoices Choices() const;

 public Q_SLOTS:
  void accept() override;

 private:
  QWidget* Form();
  QLayout* FileRow();
  QLayout* Buttons();
  void Show(const LogOnChoices& choices);
  void ShowWayIn();
  void Browse();
  void MakeDemo();
  void MakeOffice();
  bool Connect();
  void ListUsers();
  QString UserId() const;
  void ShowRule();
  /// Has the user say who that is, where the database wants to know. Answers whether that is settled.
  bool Authenticate();

  DemoMaker makeDemo_;
  std::shared_ptr<HostDatabase> database_;
  std::unique_ptr<Session> session_;
  QString wantedUser_;

  QRadioButton* optFile_;
  QRadioButton* optOdbc_;
  QWidget* fileRow_;
  QLineEdit* txtFile_;
  QLineEdit* txtOdbc_;
  QComboBox* cboKind_;
  QComboBox* cboUser_;
  QLineEdit* txtPassword_;
  QLabel* lblMessage_;
};

}  // namespace folvane::host
