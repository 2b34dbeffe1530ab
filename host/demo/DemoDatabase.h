#pragma once

#include <QDate>
#include <QString>
#include <functional>

#include <folvane/Connection.h>

namespace folvane::demo {

struct DemoOptions {
  int records = 2000;  ///< over all business tables, 100 to 1,000,000
  quint64 seed = 1;    ///< the same seed and day give the same database
  QDate today = QDate::currentDate();
  QString storeDirectory;  ///< for the originals' files; "" makes their rows only
  bool replace = false;    ///< drops what stands in the way; otherwise a table that is there already is an error
  /// Told now and then how many of the records are written.
  std::function<void(int done, int total)> progress;
};

/// Fills a database with a records office: the design tables for incoming and outgoing documents and their archives,
/// documents of five years, flow sheets, originals, and the users 1 (administrator), 2 (clerk), 3 (sees one section's
/// documents) and 4 (no rights). All or nothing is written.
/// @throws DataError, std::runtime_error for a file that cannot be written, std::invalid_argument for the options
void MakeDemoDatabase(Connection& connection, const DemoOptions& options);

/// The same into a new SQLite file, which takes the place of one that is there only with `replace` and goes again when
/// it cannot be finished. Without a store directory the originals lie in "Data" beside the file.
void MakeDemoFile(const QString& file, DemoOptions options);

/// Writes the settings files that make the demo's tree show years and agency words, and its registers count by year.
/// @throws std::runtime_error
void WriteDemoProfiles(const QString& directory);

/// Writes the templates of the demo's reports into the folder Reports of a directory; those that are there stay.
/// @throws std::runtime_error
void WriteDemoReports(const QString& directory);

}  // namespace folvane::demo
