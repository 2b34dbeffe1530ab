#pragma once

#include <QString>
#include <memory>

namespace folvane {

class Recordset;

/// The files of originals where they are stored: in a directory or on an FTP server.
class OriginalFiles {
 public:
  virtual ~OriginalFiles() = default;

  /// Where the files lie by the setting, whose row or value is written where it is missing. @throws DataError
  /// @param setting the rows of Report_Info that hold it, none or one
  virtual QString Root(const Recordset& setting) const = 0;
  /// Removes the file of an original whose row has these values.
  virtual void Remove(const QString& filePath, const QString& fileId, const QString& type) const = 0;
};

/// The key of the setting's row in Report_Info.
inline const QString kOriginalSetting = QStringLiteral("2002123456789");

/// A directory that all workstations reach; one that is not set is "Data" beside the program.
std::unique_ptr<OriginalFiles> DirectoryOriginals();
/// An FTP server, without a connection to it: files stay when their rows go.
std::unique_ptr<OriginalFiles> FtpOriginals();

/// The path of a file of DirectoryOriginals, with the directory separator of this system.
QString OriginalPath(const QString& filePath, const QString& fileId, const QString& type);

}  // namespace folvane
