#pragma once

#include <QDate>
#include <QString>

namespace folvane {

/// Today by the clock of the surroundings.
QDate Today();

/// The directory of the program: INI files, the Data folder and the help file lie there. Without trailing separator.
QString ProgramDirectory();

/// The path of a file in the program's directory. See ExistingPath.
QString ProgramFile(const QString& name);

/// The path as the file's name is spelt on the disk: the configuration files' names are written in several ways, and
/// a file is found whatever the case of its name. The path unchanged when no such file exists.
QString ExistingPath(const QString& path);

/// The path of a file that was installed with the library. It follows the library wherever its folders are moved to.
QString InstalledFile(const QString& name);

}  // namespace folvane
