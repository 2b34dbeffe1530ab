#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include "base/CodePage.h"

namespace folvane {

/// The content of a file that is to be read as a record set. @throws FileError when there is no such file, it is no
/// ordinary one, empty, or cannot be read
QByteArray ReadTablegramFile(const QString& path);

/// Reads a persisted record set to its end and forgets it. @throws FileError for bytes that are none, or a broken one
void CheckTablegram(QByteArrayView content);

/// Reads a persisted record set and writes all of it again. @throws FileError as CheckTablegram, and when the device
/// takes no more
void CopyTablegram(QByteArrayView content, QIODevice& out);

/// Prints a persisted record set as lines of JSON; see TablegramPrinter. @throws FileError as CopyTablegram
void PrintTablegram(QByteArrayView content, CodePageReader& codePage, QIODevice& out);

}  // namespace folvane
