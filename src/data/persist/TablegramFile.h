#pragma once

#include <QByteArray>
#include <QString>

namespace folvane {

/// The content of a file that is to be read as a record set. @throws FileError when there is no such file, it is no
/// ordinary one, empty, or cannot be read
QByteArray ReadTablegramFile(const QString& path);

}  // namespace folvane
