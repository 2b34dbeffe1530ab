#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace folvane::documents {

/// A picture of the first page of a document, within the size; a null image where there is none, be it that the type is
/// not shown, that the file is damaged or that it asks for a password. Needs no widgets and may be called from any
/// thread.
/// @param type the ending of the file, such as ".pdf"
QImage Thumbnail(const QString& type, const QByteArray& content, QSize atMost);

}  // namespace folvane::documents
