#pragma once

#include <QStatusBar>
#include <functional>

class QLabel;
class QProgressBar;

namespace folvane {

/// The status bar: where the list stands, who is logged on, and the progress of a filling list.
class BrowserStatus : public QStatusBar {
 public:
  explicit BrowserStatus(QWidget* parent = nullptr);

  void ShowUser(const QString& name);
  void ShowNothing();
  void ShowNoRecords();
  void ShowPosition(qint64 position, qint64 count);
  /// What a command is about to do, has done or could not do; "" takes it away.
  void ShowNotice(const QString& text);
  /// Runs a command whose errors end it without a message box: the notice tells what could not be done.
  void RunTrapped(const std::function<void()>& command);
  /// @param done rows filled of the maximum, -1 when the filling has ended
  void ShowProgress(int done, int maximum);

  /// Whether the work of the first activation is done; kept as the progress bar's tag, "0" or "1".
  bool IsStarted() const;
  void SetStarted(bool started);

 private:
  QLabel *records_, *notice_, *user_;
  QProgressBar* progress_;
};

}  // namespace folvane
