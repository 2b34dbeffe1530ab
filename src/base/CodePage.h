#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace folvane {

/// The number that Windows knows the national code page by.
inline constexpr int kNationalCodePage = 936;

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

/// Puts UTF-8 into a buffer as bytes of the national code page, in place of what is there; false when a character of it
/// does not exist there, and then the bytes mean nothing.
bool Utf8ToCodePage(QByteArrayView utf8, QByteArray& bytes);

/// Reads texts in a code page of Windows, such as machines of other countries write.
class CodePageReader {
 public:
  /// @param number as Windows numbers them: 936, 1252, 65001 for UTF-8. @throws DataError Usage for an unknown one
  explicit CodePageReader(int number);
  ~CodePageReader();
  CodePageReader(CodePageReader&&) noexcept;

  /// The text in UTF-8: the bytes themselves where they are ASCII, else what is put into the buffer. A byte that begins
  /// no character becomes U+FFFD.
  QByteArrayView Read(QByteArrayView bytes, QByteArray& buffer);

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace folvane
