#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// A profile beside the program that says one thing about each table, "0" where nothing is said: a section of lines
/// "table=value" under lines of explanation. A person may edit it.
struct TableProfile {
  QString path;
  QString section;
  QStringList heading;  ///< the lines above the section of a file that is made anew
  int bufferSize = 0;   ///< bytes of the code page that a value may take, and one more

  /// What the file says about a table. A missing file is made and a missing table is added, each with "0"; a directory
  /// that nobody may write to costs the line in the file, nothing else. @throws FileError when it cannot be read
  QString Read(const QString& table) const;
};

}  // namespace folvane
