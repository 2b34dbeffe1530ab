#pragma once

#include <QString>
#include <memory>
#include <vector>

#include <folvane/Export.h>
#include <folvane/FtpConnection.h>

class QIODevice;

namespace folvane {

struct OriginalsRequest;

/// Where the file of an original lies: three columns of Original_Text.
struct OriginalPlace {
  QString filePath;  ///< the directory below the store's root (FTP: below the top of the server), "" for that itself
  QString id, type;  ///< together the file's name
};

/// A file that a store holds.
struct StoredFile {
  QString filePath, name;
  qint64 size = -1;  ///< in bytes, -1 where the store does not tell
};

/// The store of originals: a directory or an FTP server. A place that leads out of the store (a path of a drive or of
/// another machine, or one that goes upwards, a separator or a null character in the name, a link to elsewhere) is
/// refused before anything is touched.
///
/// Members throw DataError: File with the path where a file cannot be read or written, Lost where a server is gone.
class FOLVANE_EXPORT OriginalFiles {
 public:
  virtual ~OriginalFiles();

  /// The directory that files added today go into, as FilePath.
  virtual QString PathOfToday() const = 0;
  /// Puts a new file into the store; it stands there whole or not at all. @throws DataError File where the name is
  /// taken
  virtual void Put(const OriginalPlace& place, QIODevice& content, const TransferProgress& progress = {}) = 0;
  virtual void Get(const OriginalPlace& place, QIODevice& target, const TransferProgress& progress = {}) = 0;
  virtual void Remove(const OriginalPlace& place) = 0;
  virtual bool Has(const OriginalPlace& place) = 0;
  /// All files below the root, those left by a transfer that was broken off among them.
  /// @param progress told the number of files found so far
  virtual std::vector<StoredFile> List(const TransferProgress& progress = {}) = 0;
};

/// The store that a request names. @throws DataError where it cannot be reached
FOLVANE_EXPORT std::unique_ptr<OriginalFiles> OpenOriginalFiles(const OriginalsRequest& request);

/// Deletes the originals of a clause that begins with " Where ", in the store that the windows use: the files that no
/// other record holds, then the rows. @throws DataError
FOLVANE_EXPORT void DeleteOriginals(const QString& whereClause);

}  // namespace folvane
