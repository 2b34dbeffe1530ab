#include "data/persist/JsonLine.h"

#include "data/persist/JsonText.h"

namespace folvane {

QByteArray& JsonLine::Value(QByteArrayView key) {
  if (json_.size() > 1) json_.append(',');
  AppendJsonWord(json_, key);
  json_.append(':');
  return json_;
}

void JsonLine::Number(QByteArrayView key, qint64 value) { AppendJsonNumber(Value(key), value); }
void JsonLine::Bool(QByteArrayView key, bool value) { Value(key).append(value ? "true" : "false"); }
void JsonLine::Text(QByteArrayView key, QStringView value) { AppendJsonText(Value(key), value); }
void JsonLine::Word(QByteArrayView key, QByteArrayView value) { AppendJsonWord(Value(key), value); }

const QByteArray& JsonLine::End() {
  json_.append("}\n");
  return json_;
}

}  // namespace folvane
