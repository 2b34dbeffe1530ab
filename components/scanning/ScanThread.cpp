#include "components/scanning/ScanThread.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <sane/saneopts.h>
#include <thread>

#include "components/scanning/ScanErrors.h"

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

// Enough to read the page on the screen.
constexpr QSize kPreview(1000, 1000);

std::mutex& AtScanner() {
  static std::mutex mutex;
  return mutex;
}

}  // namespace

/// What the owner and the thread share.
class ScanThread::Work : public std::enable_shared_from_this<Work> {
 public:
  using Job = std::function<void(Work&)>;

  Work(QObject& receiver, const QString& directory, ScanEvents events)
      : receiver_(&receiver), directory_(directory), events_(std::make_shared<ScanEvents>(std::move(events))) {}

  void Start() {
    std::thread([work = shared_from_this()] { work->Run(); }).detach();
  }
  void Add(Job job) {
    const std::scoped_lock lock(mutex_);
    stop_ = false;
    jobs_.push_back(std::move(job));
    news_.notify_all();
  }
  void Stop() { stop_ = true; }
  void End() {
    const std::scoped_lock lock(mutex_);
    receiver_ = nullptr;
    stop_ = ended_ = true;
    news_.notify_all();
  }

  void List() {
    const QList<ScannerInfo> scanners = ListScanners();
    Tell([scanners](const ScanEvents& events) { events.listed(scanners); });
  }
  void ReadChoices(const QString& id, const QString& source) {
    Scanner scanner(id);
    if (scanner.Choices().sources.contains(source)) scanner.Set(SANE_NAME_SCAN_SOURCE, source);
    Tell([choices = scanner.Choices()](const ScanEvents& events) { events.opened(choices); });
  }
  void Scan(const QString& id, const ScanSettings& settings, bool all) {
    Scanner scanner(id);
    scanner.Apply(settings);
    int told = -2;
    const auto goOn = [&](int percent) {
      if (percent != told) Tell([percent](const ScanEvents& events) { events.progress(percent); });
      told = percent;
      return !stop_;
    };
    int pages = 0;
    do {
      const std::optional<QImage> page = scanner.ScanPage(goOn);
      if (!page) break;
      ++pages;
      TellPage(*page);
    } while (all && !stop_);
    scanner.EndPages();
    if (pages == 0 && !stop_) throw ScanError(SANE_STATUS_NO_DOCS);
  }

 private:
  void Run() {
    while (true) {
      Job job;
      {
        std::unique_lock lock(mutex_);
        news_.wait(lock, [this] { return ended_ || !jobs_.empty(); });
        if (ended_) return;
        job = std::move(jobs_.front());
        jobs_.pop_front();
      }
      const std::scoped_lock alone(AtScanner());
      if (ended_) return;
      const QString why = Try(job);
      Tell([why](const ScanEvents& events) { events.finished(why); });
    }
  }

  QString Try(const Job& job) {
    try {
      job(*this);
      return {};
    } catch (const ScanError& error) {
      // What the user has broken off some scanners report as a failure.
      return stop_ ? QString() : error.Message();
    } catch (const std::exception& error) {
      return QString::fromUtf8(error.what());
    }
  }

  void TellPage(const QImage& image) {
    const ScannedPage page{u"%1/%2.png"_s.arg(directory_).arg(++stored_)};
    StorePage(image, page.path);
    const QImage preview = image.scaled(kPreview, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    Tell([page, preview](const ScanEvents& events) { events.page(page, preview); });
  }

  template <typename Message>
  void Tell(Message message) {
    const std::scoped_lock lock(mutex_);
    if (!receiver_) return;
    QMetaObject::invokeMethod(
        receiver_, [events = events_, message = std::move(message)] { message(*events); }, Qt::QueuedConnection);
  }

  std::mutex mutex_;
  std::condition_variable news_;
  QObject* receiver_;
  std::atomic<bool> stop_ = false, ended_ = false;
  std::deque<Job> jobs_;
  int stored_ = 0;
  const QString directory_;
  const std::shared_ptr<const ScanEvents> events_;
};

ScanThread::ScanThread(const QString& directory, ScanEvents events)
    : work_(std::make_shared<Work>(receiver_, directory, std::move(events))) {
  work_->Start();
}

ScanThread::~ScanThread() { work_->End(); }

void ScanThread::List() {
  work_->Add([](Work& work) { work.List(); });
}

void ScanThread::ReadChoices(const QString& scanner, const QString& source) {
  work_->Add([scanner, source](Work& work) { work.ReadChoices(scanner, source); });
}

void ScanThread::Scan(const QString& scanner, const ScanSettings& settings, bool all) {
  work_->Add([scanner, settings, all](Work& work) { work.Scan(scanner, settings, all); });
}

void ScanThread::Stop() { work_->Stop(); }

}  // namespace folvane::scanning
