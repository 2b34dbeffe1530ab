#pragma once

#include <QMessageBox>

#include <folvane/HostServices.h>

namespace folvane {

/// The library's own message box for a request. Its keys carry their answer in the dynamic property "Answer"; the key
/// "Details" unfolds the details of an error and is no answer.
class MessageBox : public QMessageBox {
 public:
  MessageBox(const MessageRequest& request, QWidget* parent);

  /// What the user answered, after exec.
  int GivenAnswer() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QPushButton* AddKey(int answer);
  void AddDetails(const QString& details);

  int escapeAnswer_ = 0;  ///< what Escape and the window's own button answer; 0 when they are not an answer
};

}  // namespace folvane
