#include "data/persist/JsonText.h"

#include <QString>
#include <charconv>

namespace folvane {

namespace {

void AppendEscape(QByteArray& json, char16_t unit) {
  constexpr char kDigits[] = "0123456789abcdef";
  json.append("\\u");
  for (const int shift : {12, 8, 4, 0}) json.append(kDigits[unit >> shift & 15]);
}

/// Appends a character of ASCII.
void AppendAscii(QByteArray& json, char c) {
  switch (c) {
    case '"':
      json.append("\\\"");
      break;
    case '\\':
      json.append("\\\\");
      break;
    case '\n':
      json.append("\\n");
      break;
    case '\r':
      json.append("\\r");
      break;
    case '\t':
      json.append("\\t");
      break;
    default:
      uchar(c) < 0x20 || c == 0x7f ? AppendEscape(json, uchar(c)) : void(json.append(c));
  }
}

void AppendEscaped(QByteArray& json, QByteArrayView utf8) {
  for (const char c : utf8) uchar(c) < 0x80 ? AppendAscii(json, c) : void(json.append(c));
}

}  // namespace

void AppendJsonText(QByteArray& json, QStringView text) {
  json.append('"');
  qsizetype begin = 0;  // of what is still to be appended
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (!text[i].isSurrogate()) continue;
    if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      ++i;
      continue;
    }
    AppendEscaped(json, text.sliced(begin, i - begin).toUtf8());
    AppendEscape(json, text[i].unicode());
    begin = i + 1;
  }
  AppendEscaped(json, text.sliced(begin).toUtf8());
  json.append('"');
}

void AppendJsonUtf8(QByteArray& json, QByteArrayView utf8) {
  json.append('"');
  AppendEscaped(json, utf8);
  json.append('"');
}

void AppendJsonWord(QByteArray& json, QByteArrayView word) {
  json.append('"');
  json.append(word);
  json.append('"');
}

void AppendJsonNumber(QByteArray& json, qint64 number) {
  char digits[24];
  const char* end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  json.append(digits, end - digits);
}

}  // namespace folvane
