#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

namespace folvane {

/// Appends a text as a JSON string. Lone surrogates are written as escapes, so that nothing of a text is lost.
void AppendJsonText(QByteArray& json, QStringView text);
/// Appends a text in UTF-8 as a JSON string.
void AppendJsonUtf8(QByteArray& json, QByteArrayView utf8);

/// Appends a text that has nothing to be escaped as a JSON string.
void AppendJsonWord(QByteArray& json, QByteArrayView word);
void AppendJsonNumber(QByteArray& json, qint64 number);

}  // namespace folvane
