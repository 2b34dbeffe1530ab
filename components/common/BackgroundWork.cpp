#include "components/common/BackgroundWork.h"

#include <QEventLoop>
#include <QPointer>
#include <QProgressDialog>
#include <atomic>
#include <exception>
#include <thread>

namespace folvane {
using namespace Qt::Literals::StringLiterals;

void RunInBackground(QWidget* window, const QString& text, int steps, const std::function<void(const GoOn&)>& work) {
  constexpr int kShownAfterMs = 500;
  QProgressDialog progress(text, u"取消"_s, 0, steps, window);
  progress.setObjectName(u"Progress"_s);
  progress.setWindowModality(Qt::WindowModal);
  progress.setAutoReset(false);
  progress.setMinimumDuration(kShownAfterMs);
  // Nobody else may use the window meanwhile, also before the bar is shown.
  const QPointer<QWidget> focus = window->focusWidget();
  window->setEnabled(false);
  progress.setEnabled(true);

  std::atomic<bool> stop = false;
  std::exception_ptr failure;
  QEventLoop loop;
  QObject::connect(&progress, &QProgressDialog::canceled, &progress, [&stop] { stop = true; });
  std::thread thread([&] {
    try {
      work([&](int done) {
        QMetaObject::invokeMethod(
            &progress, [&progress, done] { progress.setValue(done); }, Qt::QueuedConnection);
        return !stop;
      });
    } catch (...) {
      failure = std::current_exception();
    }
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec();
  thread.join();
  window->setEnabled(true);
  if (focus) focus->setFocus();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace folvane
