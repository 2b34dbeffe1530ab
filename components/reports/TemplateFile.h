#pragma once

#include <QString>
#include <optional>

namespace folvane::reports {

/// The file of a report's template, in the folder Reports of the program's directory.
/// @throws DataError Usage for an id that is no plain file name
QString TemplatePath(const QString& reportId);

/// The text of a report's template, nothing when there is none. @throws DataError Usage, File
std::optional<QString> ReadTemplate(const QString& reportId);

/// Saves a template, making the folder. @throws DataError Usage, File
void WriteTemplate(const QString& reportId, const QString& text);

/// What a line such as <meta name="order" content="RegID"> of a template says, "" without one.
QString MetaOf(const QString& text, const QString& name);

}  // namespace folvane::reports
