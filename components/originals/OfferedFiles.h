#pragma once

#include <QStringList>
#include <vector>

#include "components/originals/RecordOriginals.h"

class QMimeData;
class QWidget;

namespace folvane::originals {

// What a user offers as originals: files that he drops, pastes or chooses.

/// The MIME types that hold files or an image.
QStringList OfferedTypes();

/// The files of what was dropped or copied; an image is written to the directory first. @throws DataError
std::vector<FileToAdd> FilesIn(const QMimeData& data, const QString& directory);

/// The same of the clipboard.
std::vector<FileToAdd> FilesInClipboard(const QString& directory);

/// Asks for any number of files; in the host's own dialog, which gives one, where it has such.
std::vector<FileToAdd> ChooseFiles(QWidget* parent);

}  // namespace folvane::originals
