#pragma once

#include <QFile>
#include <QString>

namespace folvane {

/// A file that comes to stand in a directory whole or not at all: written under a temporary name, which is gone with
/// this object unless it was kept.
class NewFile {
 public:
  /// @throws DataError File
  NewFile(const QString& directory, const QString& name);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  QIODevice& Device() { return file_; }
  /// Has what was written reach the disk, then gives the file its name.
  /// @throws DataError File also where the name has been taken meanwhile
  void Keep();

 private:
  QString directory_, name_;
  QFile file_;
};

/// Makes a directory in another, and has that reach the disk. One that exists meanwhile is no error.
/// @throws DataError File
void MakeDirectory(const QString& parent, const QString& name);

}  // namespace folvane
