#pragma once

#include <QByteArray>
#include <QString>

namespace folvane::documents {

/// The text of a file: UTF-8 or UTF-16 where a mark at its beginning says so, UTF-8 where all of it reads as that,
/// otherwise the national code page (GB 18030, which has GBK in it). What stands for nothing becomes U+FFFD.
QString DecodedText(const QByteArray& bytes);

}  // namespace folvane::documents
