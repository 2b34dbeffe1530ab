#pragma once

#include <QStatusBar>
#include <functional>

class QLabel;

namespace folvane {

/// The status bar of a window with records: where it stands, a notice, and who is logged on.
class WindowStatus : public QStatusBar {
 public:
  explicit WindowStatus(QWidget* parent = nullptr);

  void ShowUser(const QString& name);
  /// Where the window stands in its records.
  void ShowRecords(const QString& text);
  /// What a command is about to do, has done or could not do; "" takes it away. The details stand in its tip alone.
  void ShowNotice(const QString& text, const QString& details = {});
  /// Runs a command whose errors end it without a message box: the notice tells what could not be done.
  void RunTrapped(const std::function<void()>& command);
  /// Tells what a command could not do.
  void ShowFailure(const QString& reason);

 private:
  QLabel *records_, *notice_, *user_;
};

}  // namespace folvane
