#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace folvane {

/// Units of UTF-16LE as a text, lone surrogates as they are. A last odd byte is left out.
QString Utf16ToText(QByteArrayView bytes);

/// Appends the units of a text in UTF-16LE.
void AppendUtf16(QByteArray& bytes, QStringView text);

/// Puts units of UTF-16LE into a buffer as UTF-8, in place of what is there; a lone surrogate becomes U+FFFD.
void Utf16ToUtf8(QByteArrayView bytes, QByteArray& utf8);

/// Puts UTF-8 into a buffer as UTF-16LE, in place of what is there; what is no UTF-8 becomes U+FFFD.
void Utf8ToUtf16(QByteArrayView utf8, QByteArray& bytes);

}  // namespace folvane
