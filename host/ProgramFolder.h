#pragma once

#include <QString>

namespace folvane::host {

/// The folder for the library's settings files and for originals in a local directory: one of the user's, made when it
/// is missing. Beside the program an ordinary user could not write.
QString ProgramFolder();

/// The settings files and the templates of reports in the library's program directory, made where they are missing.
/// @throws std::exception
void ProvideSettings();

/// The demo database in the library's program directory, made with its originals and settings files when it is missing.
/// Gives its path. @throws std::exception
QString ProvideDemoDatabase(int records);

}  // namespace folvane::host
