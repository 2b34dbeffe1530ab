#pragma once

#include <QImage>
#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>

#include "components/originals/RecordOriginals.h"

namespace folvane::originals {

/// Reads the thumbnails of originals one at a time, whenever the event loop has nothing else to do. A file that is
/// large, or that the store is slow to give, goes without, so that nobody waits for it.
class ThumbnailReader : public QObject {
 public:
  using Show = std::function<void(const QString& id, const QImage& thumbnail)>;

  ThumbnailReader(RecordOriginals& originals, QSize atMost, Show show);

  /// Forgets what waits and begins with these.
  void Start(const std::vector<Original>& wanted);
  /// Told where the store cannot be reached, which ends the reading.
  std::function<void(const QString& problem)> onUnreachable;

  /// Nothing is read while this lives: something else works with the store.
  class Pause {
   public:
    explicit Pause(ThumbnailReader& reader) : reader_(reader) { ++reader_.pauses_; }
    ~Pause() { --reader_.pauses_; }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

   private:
    ThumbnailReader& reader_;
  };

 private:
  void ReadNext();
  QImage Read(const Original& original);

  RecordOriginals& originals_;
  QSize atMost_;
  Show show_;
  std::deque<Original> waiting_;
  QTimer timer_;
  int pauses_ = 0;
};

}  // namespace folvane::originals
