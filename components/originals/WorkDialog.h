#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QSize>
#include <vector>

class QLabel;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace folvane::originals {

/// Tells when work should show how far it is: at once, then some times a second.
class Pulse {
 public:
  bool IsDue() {
    if (since_.isValid() && since_.elapsed() < kMilliseconds) return false;
    since_.start();
    return true;
  }

 private:
  static constexpr int kMilliseconds = 40;
  QElapsedTimer since_;
};

/// A window over a list whose work may take long: a line and a bar tell how far it is, and it can be stopped. While it
/// works its events are let through, and all that can be done is to stop.
class WorkDialog : public QDialog {
 public:
  /// Ends the work under way; without any, closes the window.
  void reject() override;

 protected:
  struct Names {
    QString window, caption, icon;
    QString work;      ///< what is done, in a word for tips and screen readers
    QString progress;  ///< of the bar
  };
  WorkDialog(QWidget* parent, const Names& names);

  /// Lays the list over the line, the bar and the keys, with one to stop and one to close as the last, and enables what
  /// can be used. To be called when all keys are made.
  /// @param size of the window, in characters and in lines
  /// @param widths of the list's columns, in characters
  void LayOut(QTreeView& list, QSize size, const std::vector<int>& widths, const std::vector<QPushButton*>& left,
              const std::vector<QPushButton*>& right = {});

  bool IsWorking() const { return isWorking_; }
  /// Runs the work with the keys as they are meanwhile. It asks again and again whether it GoesOn.
  template <typename Work>
  void RunWork(Work work);
  /// Whether it is time to show how far the work is.
  bool IsDue() { return pulse_.IsDue(); }
  /// Lets the events of the window through, after showing that. @return whether to go on
  bool LetThrough();
  bool GoesOn() const { return !isStopped_; }

  /// Sets the keys by what the window shows and whether it works.
  virtual void Enable();

  QLabel* state_;
  QProgressBar* progress_;
  QPushButton* close_ = nullptr;

 private:
  void Begin();
  void End();

  const QString work_;
  bool isWorking_ = false, isStopped_ = false;
  Pulse pulse_;
  QPushButton* stop_ = nullptr;
};

template <typename Work>
void WorkDialog::RunWork(Work work) {
  const struct Ending {
    WorkDialog& window;
    ~Ending() { window.End(); }
  } ending{*this};
  Begin();
  work();
}

}  // namespace folvane::originals
