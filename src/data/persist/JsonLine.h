#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

namespace folvane {

/// A JSON object that grows member by member. Keys are plain ASCII.
class JsonLine {
 public:
  void Begin() { json_ = "{"; }
  void Number(QByteArrayView key, qint64 value);
  void Bool(QByteArrayView key, bool value);
  void Text(QByteArrayView key, QStringView value);
  /// A text that has nothing to be escaped.
  void Word(QByteArrayView key, QByteArrayView value);
  /// Begins a member whose value is appended to what this gives.
  QByteArray& Value(QByteArrayView key);
  /// The line, ended; Begin starts the next one.
  const QByteArray& End();

 private:
  QByteArray json_;
};

}  // namespace folvane
