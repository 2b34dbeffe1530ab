#pragma once

#include <QString>
#include <QStringList>

#include <folvane/OriginalFiles.h>

namespace folvane {

/// A place that has been found to lie within a store.
struct CheckedPlace {
  QStringList directories;  ///< of FilePath, from the root; both "\" and "/" separate them
  QString name;             ///< of the file
};

/// Takes a place apart. @throws DataError File for a path that is absolute, goes upwards or names a drive, a name with
/// a separator or none at all, a null character or a line break anywhere
CheckedPlace Checked(const OriginalPlace& place);

/// The names between the separators of a path, without empty ones.
QStringList PathParts(const QString& path);

/// A name for a file while it is being transferred; one that no other transfer has.
QString TemporaryName(const QString& name);

/// An error about a file or directory. @throws DataError File always
[[noreturn]] void FailOn(const QString& path, const QString& reason);

/// Thrown where the progress of a transfer has answered that it is to be cancelled.
[[noreturn]] void FailCancelled();

}  // namespace folvane
