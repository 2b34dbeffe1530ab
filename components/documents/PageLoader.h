#pragma once

#include <QImage>
#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "components/documents/DocumentViewer.h"
#include "components/documents/Zoom.h"

namespace folvane::documents {

/// A page as it is wanted.
struct PageWish {
  int page = 0;
  Zoom zoom;
  QSize room;          ///< in pixels of the screen, for the zooms that fit
  int quarters = 0;    ///< turned clockwise by so many right angles
  double density = 1;  ///< pixels of the picture to one of the screen

  bool operator==(const PageWish&) const = default;
};

/// A page as it came: a picture, or why there is none.
struct DrawnPage {
  PageWish wish;
  QImage image;
  QSize size;        ///< on the screen, in its pixels
  double scale = 1;  ///< pixels of the screen to a point
  QString error;
};

/// What a loader tells, always in the thread that made it and never after it is gone.
struct LoaderEvents {
  std::function<void(qint64 bytes)> fetched;         ///< so much of the file has come
  std::function<void(int pages)> opened;             ///< 0: such files are not shown
  std::function<void(const QString& why)> failed;    ///< the file has not come, or cannot be opened
  std::function<void(bool wrong)> passwordNeeded;    ///< whether one was given that is wrong
  std::function<void(const DrawnPage& page)> drawn;  ///< a page that was wished for
};

/// What the loaders of one window share: they fetch one after the other, and their threads are waited for.
class LoaderThreads;
std::shared_ptr<LoaderThreads> NewLoaderThreads();
/// Waits until nothing is fetched any more, and a moment for threads that still draw; they are left to end alone.
void WaitFor(LoaderThreads& threads);

/// Fetches a document into a file, opens it and draws its pages, in a thread of its own. A loader that is destroyed
/// breaks off the fetching and does not wait for its thread.
class PageLoader {
 public:
  /// @param path of the file, which is fetched unless it exists
  PageLoader(std::shared_ptr<LoaderThreads> threads, const Document& document, const QString& path,
             LoaderEvents events);
  ~PageLoader();
  PageLoader(const PageLoader&) = delete;
  PageLoader& operator=(const PageLoader&) = delete;

  /// The pages to draw next, in that order, instead of all that were wished for before.
  void Wish(const std::vector<PageWish>& pages);
  void GivePassword(const QString& password);
  /// The password that the file was opened with.
  QString Password() const;

 private:
  class Work;
  QObject receiver_;
  std::shared_ptr<Work> work_;
};

}  // namespace folvane::documents
