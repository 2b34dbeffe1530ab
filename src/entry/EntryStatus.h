#pragma once

#include <QStatusBar>

class QLabel;

namespace folvane {

/// The status bar of the entry window: what goes on, where it stands in the records, and who is logged on.
class EntryStatus : public QStatusBar {
 public:
  explicit EntryStatus(QWidget* parent = nullptr);

  void ShowUser(const QString& name);
  /// Shown at once, also while the program is busy.
  void ShowWork(const QString& text);
  /// What the user should know of the last save or move, beside the work panel; "" for nothing.
  void ShowNote(const QString& text);
  void ShowOpened(qint64 position, qint64 count);
  void ShowPosition(qint64 position, qint64 count);
  void ShowNoRecords();
  void ShowCount(qint64 count);

 private:
  QLabel *work_, *note_, *records_, *user_;
};

}  // namespace folvane
