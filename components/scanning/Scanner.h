#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <sane/sane.h>

namespace folvane::scanning {

/// A scanner that the system knows.
struct ScannerInfo {
  QString id;    ///< what it is opened by
  QString name;  ///< what the user knows it by
};

/// What a scanner offers; a list is empty where it offers no choice. Modes and sources are in the scanner's own words.
struct ScannerChoices {
  QStringList sources, modes;
  QList<int> resolutions;  ///< in dots per inch
  QString source, mode;    ///< what is chosen in the scanner
  int resolution = 0;
};

/// How to scan; what is empty or 0 stays as it is in the scanner.
struct ScanSettings {
  QString source{}, mode{};
  int resolution = 0;
  QSizeF paper{};  ///< in millimetres; empty for all that the scanner can take in
};

/// An open scanner. Neither it nor ListScanners may be used by two threads at once. Members throw ScanError.
class Scanner {
 public:
  explicit Scanner(const QString& id);
  ~Scanner();
  Scanner(const Scanner&) = delete;
  Scanner& operator=(const Scanner&) = delete;

  ScannerChoices Choices() const;
  void Apply(const ScanSettings& settings);
  /// Sets an option by its own name; one that does not exist or cannot be set now is left alone. A value that is out of
  /// range becomes the nearest one.
  void Set(const QByteArray& option, const QString& value);

  /// Scans one page. Its resolution is in the image; a bitonal page is an image of one bit.
  /// @param goOn told how much has come, in percent, or -1 where the scanner does not tell the length; false breaks off
  /// @return none when the feeder is empty or the scan was broken off
  std::optional<QImage> ScanPage(const std::function<bool(int percent)>& goOn);
  /// Ends a row of pages: the feeder lets go of its paper.
  void EndPages();

 private:
  struct Option {
    SANE_Int index;
    const SANE_Option_Descriptor* about;
  };
  std::optional<Option> Find(const QByteArray& name) const;
  QString Text(const QByteArray& name) const;
  double Number(const QByteArray& name) const;
  void SetNumber(const QByteArray& name, double number);
  void SetArea(const QSizeF& paper);
  QByteArray ResolutionOption() const;

  SANE_Handle handle_ = nullptr;
};

/// The scanners that the system knows. Takes seconds where the network is searched.
QList<ScannerInfo> ListScanners();

/// Whether a source takes sheet after sheet.
bool IsFeeder(const QString& source);

}  // namespace folvane::scanning
