#pragma once

#include "widgets/WindowStatus.h"

class QProgressBar;
class QToolButton;

namespace folvane {

/// The status bar of a window with a record list, with the progress of a filling list and of long work.
class ListStatus : public WindowStatus {
 public:
  explicit ListStatus(QWidget* parent = nullptr);

  void ShowNothing();
  void ShowNoRecords();
  void ShowPosition(qint64 position, qint64 count);
  /// Tells how many records a command has deleted, and what it has left behind.
  void ShowDeleted(qint64 records, const QString& left);
  /// @param done rows filled of the maximum, -1 when the filling has ended
  void ShowProgress(int done, int maximum);
  /// The same for work that the user can end by the key beside it.
  void ShowWork(int done, int maximum);
  QWidget& StopKey() const;

  /// Whether the work of the first activation is done; kept as the progress bar's tag, "0" or "1".
  bool IsStarted() const;
  void SetStarted(bool started);

 private:
  QProgressBar* progress_;
  QToolButton* stop_;
};

}  // namespace folvane
