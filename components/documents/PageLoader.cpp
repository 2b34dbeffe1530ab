#include "components/documents/PageLoader.h"

#include <QFile>
#include <QTransform>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

#include "components/documents/PageSource.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr std::chrono::seconds kPatience{2};
constexpr qint64 kToldBytes = 1 << 20;

/// A file that takes nothing any more once it is told to stop.
class StoppableFile : public QFile {
 public:
  StoppableFile(const QString& path, const std::atomic<bool>& stop, std::function<void(qint64)> progress)
      : QFile(path), stop_(stop), progress_(std::move(progress)) {}

 protected:
  qint64 writeData(const char* data, qint64 length) override {
    if (stop_) {
      setErrorString(u"已取消"_s);
      return -1;
    }
    const qint64 written = QFile::writeData(data, length);
    if (written > 0) count_ += written;
    if (count_ - told_ >= kToldBytes) progress_(told_ = count_);
    return written;
  }

 private:
  const std::atomic<bool>& stop_;
  std::function<void(qint64)> progress_;
  qint64 count_ = 0, told_ = 0;
};

DrawnPage Draw(PageSource& pages, const PageWish& wish) {
  DrawnPage drawn;
  drawn.wish = wish;
  try {
    QSizeF size = pages.SizeOf(wish.page);
    const bool lies = wish.quarters % 2 != 0;
    drawn.scale = ScaleOf(wish.zoom, lies ? size.transposed() : size, wish.room);
    drawn.image = pages.Render(wish.page, drawn.scale * wish.density);
    if (wish.quarters != 0) drawn.image = drawn.image.transformed(QTransform().rotate(90.0 * wish.quarters));
    if (lies) size.transpose();
    drawn.size = (size * drawn.scale).toSize().expandedTo(QSize(1, 1));
  } catch (const std::exception& error) {
    drawn.error = QString::fromUtf8(error.what());
  }
  return drawn;
}

}  // namespace

class LoaderThreads {
 public:
  std::mutex fetching;

  void Begin() {
    const std::scoped_lock lock(mutex_);
    ++running_;
  }
  void End() {
    const std::scoped_lock lock(mutex_);
    --running_;
    ended_.notify_all();
  }
  void Wait() {
    { const std::scoped_lock last(fetching); }
    std::unique_lock lock(mutex_);
    ended_.wait_for(lock, kPatience, [this] { return running_ == 0; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable ended_;
  int running_ = 0;
};

std::shared_ptr<LoaderThreads> NewLoaderThreads() { return std::make_shared<LoaderThreads>(); }
void WaitFor(LoaderThreads& threads) { threads.Wait(); }

/// What the loader and its thread share.
class PageLoader::Work : public std::enable_shared_from_this<Work> {
 public:
  Work(QObject& receiver, std::shared_ptr<LoaderThreads> threads, const Document& document, const QString& path,
       LoaderEvents events)
      : receiver_(&receiver),
        threads_(std::move(threads)),
        document_(document),
        path_(path),
        events_(std::make_shared<LoaderEvents>(std::move(events))) {}

  void Start() {
    threads_->Begin();
    std::thread([work = shared_from_this()] {
      work->Run();
      work->threads_->End();
    }).detach();
  }
  void Stop() {
    const std::scoped_lock lock(mutex_);
    receiver_ = nullptr;
    stop_ = true;
    news_.notify_all();
  }
  void Wish(const std::vector<PageWish>& pages) {
    const std::scoped_lock lock(mutex_);
    wishes_.assign(pages.begin(), pages.end());
    news_.notify_all();
  }
  void GivePassword(const QString& password) {
    const std::scoped_lock lock(mutex_);
    password_ = password;
    isNewPassword_ = true;
    news_.notify_all();
  }
  QString Password() {
    const std::scoped_lock lock(mutex_);
    return password_;
  }

 private:
  void Run() {
    try {
      if (!Fetch()) return;
      const std::unique_ptr<PageSource> pages = Open();
      if (stop_) return;
      const int count = pages ? pages->PageCount() : 0;
      Tell([count](const LoaderEvents& events) { events.opened(count); });
      if (pages) DrawWishes(*pages);
    } catch (const std::exception& error) {
      Tell([why = QString::fromUtf8(error.what())](const LoaderEvents& events) { events.failed(why); });
    }
  }

  /// The events are kept by the message itself: the loader may go while it is on its way.
  template <typename Message>
  void Tell(Message message) {
    const std::scoped_lock lock(mutex_);
    if (!receiver_) return;
    QMetaObject::invokeMethod(
        receiver_, [events = events_, message = std::move(message)] { message(*events); }, Qt::QueuedConnection);
  }

  bool Fetch() {
    const std::scoped_lock one(threads_->fetching);
    if (stop_) return false;
    if (QFile::exists(path_)) return true;
    StoppableFile file(path_ + u".part"_s, stop_,
                       [this](qint64 bytes) { Tell([bytes](const LoaderEvents& events) { events.fetched(bytes); }); });
    try {
      if (!file.open(QIODevice::WriteOnly)) throw DataError(DataErrorKind::File, file.errorString());
      document_.fetch(file, [this] { return !stop_; });
      if (!file.flush()) throw DataError(DataErrorKind::File, file.errorString());
      file.close();
      if (!stop_ && !file.rename(path_)) throw DataError(DataErrorKind::File, file.errorString());
    } catch (...) {
      file.remove();
      throw;
    }
    return !stop_;
  }

  std::unique_ptr<PageSource> Open() {
    while (true) {
      try {
        return OpenPages(path_, document_.type, Password());
      } catch (const PasswordNeeded& needed) {
        Tell([wrong = needed.IsWrong()](const LoaderEvents& events) { events.passwordNeeded(wrong); });
      }
      std::unique_lock lock(mutex_);
      news_.wait(lock, [this] { return stop_ || isNewPassword_; });
      isNewPassword_ = false;
      if (stop_) return nullptr;
    }
  }

  void DrawWishes(PageSource& pages) {
    while (true) {
      PageWish wish;
      {
        std::unique_lock lock(mutex_);
        news_.wait(lock, [this] { return stop_ || !wishes_.empty(); });
        if (stop_) return;
        wish = wishes_.front();
        wishes_.pop_front();
      }
      Tell([page = Draw(pages, wish)](const LoaderEvents& events) { events.drawn(page); });
    }
  }

  std::mutex mutex_;
  std::condition_variable news_;
  QObject* receiver_;
  std::atomic<bool> stop_ = false;
  bool isNewPassword_ = false;
  QString password_;
  std::deque<PageWish> wishes_;

  const std::shared_ptr<LoaderThreads> threads_;
  const Document document_;
  const QString path_;
  const std::shared_ptr<const LoaderEvents> events_;
};

PageLoader::PageLoader(std::shared_ptr<LoaderThreads> threads, const Document& document, const QString& path,
                       LoaderEvents events)
    : work_(std::make_shared<Work>(receiver_, std::move(threads), document, path, std::move(events))) {
  work_->Start();
}

PageLoader::~PageLoader() { work_->Stop(); }
void PageLoader::Wish(const std::vector<PageWish>& pages) { work_->Wish(pages); }
void PageLoader::GivePassword(const QString& password) { work_->GivePassword(password); }
QString PageLoader::Password() const { return work_->Password(); }

}  // namespace folvane::documents
