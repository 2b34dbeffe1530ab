#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace folvane {

/// The text in the national code page (GBK): one byte for a character of ASCII, two for a Chinese one. A character
/// that the code page does not have becomes '?'.
QByteArray ToCodePage(const QString& text);

/// The text that the bytes of the national code page stand for; a byte that begins no character becomes U+FFFD.
QString FromCodePage(QByteArrayView bytes);

/// The length of the text in bytes of the national code page, which is how columns and length hints count.
int ByteLength(const QString& text);

/// Whether the text is of at most so many bytes. Costs next to nothing for a text of half as many characters.
bool FitsByteLength(const QString& text, int maximum);

/// The text cut from the right, at whole characters, so that it fits a column of that many bytes of the code page.
QString LimitByteLength(const QString& text, int maximum);

/// Whether every character of the text exists in the national code page.
bool FitsCodePage(const QString& text);

}  // namespace folvane
