#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <functional>

#include <folvane/DataError.h>

namespace folvane {

/// A file of the program could not be read or written.
class FileError : public DataError {
 public:
  explicit FileError(const QString& message) : DataError(DataErrorKind::File, message) {}
};

/// The whole content of a file, "" when it does not exist. @throws FileError
QByteArray ReadFile(const QString& path);

/// Gives a file new content made from its present one, "" when it does not exist. Whoever reads meanwhile sees the old
/// file or the new one, and of two processes that update at a time neither loses the other's change.
/// @throws FileError when the file cannot be read, locked or written; it then stays as it was
void UpdateFile(const QString& path, const std::function<QByteArray(const QByteArray&)>& change);

/// Gives a file new content, made piece by piece: the file is the new one as a whole and safe on the disk, or stays as
/// it was. @throws FileError when it cannot be written, and whatever `write` throws
void ReplaceFile(const QString& path, const std::function<void(QIODevice&)>& write);

}  // namespace folvane
