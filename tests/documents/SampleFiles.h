#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QList>

namespace folvane::test {

/// A file as an image format of Qt writes it.
QByteArray ImageFile(const QImage& image, const char* format);
QImage FilledImage(int width, int height, const QColor& colour);

/// A TIFF file of grey pages, 40 x 30 pixels at 100 dots per inch, each filled with one of the shades.
QByteArray GreyTiff(const QList<uchar>& shades);

/// The head of a PNG file that says it is of that size, and nothing behind it.
QByteArray PngHead(quint32 width, quint32 height);

/// A PDF file of A4 pages, each with a black square in its middle; with a password it is encrypted (ISO 32000-1, 7.6,
/// revision 2).
QByteArray PdfOfPages(int pages, const QByteArray& password = {});

}  // namespace folvane::test
