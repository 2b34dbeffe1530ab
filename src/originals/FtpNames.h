#pragma once

#include <QByteArray>
#include <QString>

namespace folvane {

/// The bytes of a name or path for a server that reads UTF-8 or else the national code page.
/// @throws DataError File for a line break or a null character, or a character that the code page does not have
QByteArray EncodedForFtp(const QString& text, bool utf8);

/// A name or a reply of the server; bytes that are no UTF-8 are of the national code page.
QString DecodedFromFtp(const QByteArray& bytes);

/// Refuses what is no name within a directory. @throws DataError File
void RequireFtpName(const QString& name);

/// The address of a server, or of a file in the directory that a connection to it is in.
/// @param file encoded, "" for none @throws DataError Lost where the server's name is none
QByteArray FtpUrl(const QString& server, quint16 port, const QByteArray& file);

}  // namespace folvane
