#pragma once

#include "widgets/WindowStatus.h"

class QProgressBar;

namespace folvane {

/// The status bar of the record browser, with the progress of a filling list.
class BrowserStatus : public WindowStatus {
 public:
  explicit BrowserStatus(QWidget* parent = nullptr);

  void ShowNothing();
  void ShowNoRecords();
  void ShowPosition(qint64 position, qint64 count);
  /// @param told what stayed behind of the deleted records, "" for nothing
  void ShowDeleted(qint64 count, const QString& told);
  /// @param done rows filled of the maximum, -1 when the filling has ended
  void ShowProgress(int done, int maximum);

  /// Whether the work of the first activation is done; kept as the progress bar's tag, "0" or "1".
  bool IsStarted() const;
  void SetStarted(bool started);

 private:
  QProgressBar* progress_;
};

}  // namespace folvane
