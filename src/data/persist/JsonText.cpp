#include "data/persist/JsonText.h"

#include <QString>

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

}  // namespace

void AppendJsonText(QByteArray& json, QStringView text) {
  json.append('"');
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c.unicode() < 0x80) {
      AppendAscii(json, char(c.unicode()));
    } else if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      json.append(text.sliced(i++, 2).toUtf8());
    } else if (c.isSurrogate()) {
      AppendEscape(json, c.unicode());
    } else {
      json.append(text.sliced(i, 1).toUtf8());
    }
  }
  json.append('"');
}

void AppendJsonUtf8(QByteArray& json, QByteArrayView utf8) {
  json.append('"');
  for (const char c : utf8) uchar(c) < 0x80 ? AppendAscii(json, c) : void(json.append(c));
  json.append('"');
}

}  // namespace folvane
