#pragma once

#include <QImage>
#include <QObject>
#include <functional>
#include <memory>

#include "components/scanning/KeptPages.h"
#include "components/scanning/Scanner.h"

namespace folvane::scanning {

/// What a scanning thread tells, always in the thread that made it and never after it is gone.
struct ScanEvents {
  std::function<void(const QList<ScannerInfo>& scanners)> listed;
  std::function<void(const ScannerChoices& choices)> opened;
  std::function<void(int percent)> progress;  ///< of the page that is coming, -1 where its length is not known
  /// A page has come and lies in its file.
  std::function<void(const ScannedPage& page, const QImage& preview)> page;
  /// A job is over. @param why it failed, "" where it did not
  std::function<void(const QString& why)> finished;
};

/// Does what takes time with scanners in a thread of its own, one job at a time. All scanning threads of the process
/// take turns: there is never more than one of them at a scanner.
class ScanThread {
 public:
  /// @param directory for the files of the pages
  ScanThread(const QString& directory, ScanEvents events);
  /// Breaks off what is going on and does not wait for it.
  ~ScanThread();
  ScanThread(const ScanThread&) = delete;
  ScanThread& operator=(const ScanThread&) = delete;

  void List();
  /// Asks what a scanner offers once the source is chosen.
  void ReadChoices(const QString& scanner, const QString& source = {});
  /// Scans a page, or all that the feeder holds.
  void Scan(const QString& scanner, const ScanSettings& settings, bool all);
  /// Ends the job as soon as the scanner lets it.
  void Stop();

 private:
  class Work;
  QObject receiver_;
  std::shared_ptr<Work> work_;
};

}  // namespace folvane::scanning
