#pragma once

#include <QString>

namespace folvane::documents {

/// The name of a file without what file systems do not take.
QString FileName(const QString& name, const QString& type);

/// Copies a file over another; what was there stays where that fails. @throws DataError File
void CopyFile(const QString& from, const QString& to);

/// Whether a file is a program, by its type or by its first bytes: to open it would be to run it.
bool IsProgram(const QString& path, const QString& type);

/// Hands a copy of the file to the program that the desktop has for it. The copy stays until this program ends.
/// @throws DataError File where it cannot be made, is a program, or no other program takes it
void OpenWithDesktop(const QString& path, const QString& name, const QString& type);

}  // namespace folvane::documents
