#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include <folvane/Connection.h>
#include <folvane/OriginalFiles.h>

namespace folvane::originals {

/// A file that rows name and the store does not hold.
struct MissingFile {
  OriginalPlace place;
  QString name;           ///< by the first row
  QStringList recordIds;  ///< of all rows that share it
};

/// What a store and the rows of Original_Text hold that does not belong together.
struct CheckFindings {
  qsizetype rows = 0, files = 0;  ///< that were looked at
  std::vector<MissingFile> missingFiles;
  std::vector<StoredFile> unknownFiles;  ///< that no row names

  bool IsClean() const { return missingFiles.empty() && unknownFiles.empty(); }
  /// In one sentence.
  QString Summary() const;
  /// As a text for the clipboard or a file: the summary, then a line for each finding with tabs between its parts.
  QString Text() const;
};

/// A finding as the cells of a line: what is wrong, the place, the name, the size, the records.
QStringList LineOf(const MissingFile& file);
QStringList LineOf(const StoredFile& unknown);

/// Told what is being done, and how much of it; the total is -1 while it is not known. Answers false to end the check.
using CheckProgress = std::function<bool(const QString& step, qint64 done, qint64 total)>;

/// Compares the whole store with all rows, changing nothing. Files and rows that come or go meanwhile are no findings.
/// @return nothing where the check was ended @throws DataError
std::optional<CheckFindings> CheckStore(Connection& connection, OriginalFiles& store, const CheckProgress& progress);

/// The path of a file below the root of the store, for the user.
QString PlaceText(const QString& filePath, const QString& fileName);

}  // namespace folvane::originals
