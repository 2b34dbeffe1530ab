#pragma once

#include <QElapsedTimer>
#include <QEvent>
#include <QObject>
#include <functional>

#include "widgets/BusyPointer.h"

class QProgressBar;
class QWidget;

namespace folvane {

/// Work of many steps that a window carries out while its user waits. As long as it lives the pointer is busy; GoOn
/// shows how far it has come and keeps all windows painted. Input reaches none of them: pressing the stop key, Escape
/// in the window or closing the window asks for the end of the work, and everything else is dropped. A dialog that the
/// work itself opens is used as ever, with the usual pointer.
class LongWork : public QObject {
 public:
  /// Shows `done` of `maximum`; done -1 once the work has ended.
  using Show = std::function<void(int done, int maximum)>;

  /// @param stopKey the button that asks for the end, null for work that has to be carried through
  LongWork(QWidget& window, QWidget* stopKey, Show show);
  ~LongWork() override;

  /// To be called between any two steps. Answers whether to go on.
  bool GoOn(qint64 done, qint64 maximum);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void NoteDialog(QEvent::Type type);
  bool AsksForEnd(const QObject& receiver, const QEvent& event) const;

  QWidget& window_;
  QWidget* stopKey_;
  Show show_;
  BusyPointer busy_;
  QElapsedTimer sinceShown_;
  bool stopped_ = false;
  bool isInDialog_ = false;
};

/// Shows the work in a bar that is hidden otherwise.
LongWork::Show ShowIn(QProgressBar& bar);

}  // namespace folvane
