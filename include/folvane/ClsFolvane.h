#pragma once

#include <QString>
#include <memory>

#include <folvane/Connection.h>
#include <folvane/Export.h>

namespace folvane {

/// The entry to the library. A host sets Connection, GetUser and GetCopyRight, in this order, and calls one of the six
/// operations; each shows one window and returns when the user has closed it. All calls come from the thread of the
/// application object, a QApplication; without one the operations throw.
///
/// Nothing is trapped here: an error of the database, a missing connection or one while a window opens is thrown to
/// the host as DataError. Whatever else goes wrong, in a service of the host's too, is thrown as DataError Other.
/// Where a statement fails and tables of <folvane/Catalogue.h> are missing, the message names them.
class FOLVANE_EXPORT ClsFolvane {
 public:
  /// Sets the user's id and reads the user's name from UserPopedom. An id is a whole number written in digits, since
  /// some tables keep it as text and others as a number; whatever reads as 1, such as "1", "001" or "1.0", is the
  /// administrator, who may do everything. For an unknown id and for one that is no number it throws; the id is set
  /// all the same, and the name stays what it was.
  /// @throws DataError Usage
  void GetUser(const QString& userId);
  QString GetUser() const;

  /// Sets the open connection that all windows of the process use. The host keeps it open.
  void Connection(std::shared_ptr<folvane::Connection> connection);

  /// Sets the database kind, "SQL SERVER" or "SYSBASE"; with any other the originals lie in a directory.
  void GetCopyRight(const QString& databaseKind);

  void FileOpen();        ///< registered documents
  void FileArchive();     ///< transfer into the archive
  void DistributeFile();  ///< distribution sheets
  void PassReadFile();    ///< circulation sheets
  void TransactFile();    ///< handling sheets
  void HastenFile();      ///< handling sheets, to hasten them

 private:
  std::shared_ptr<folvane::Connection> connection_;
  QString userId_;
};

}  // namespace folvane
