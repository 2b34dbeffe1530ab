#pragma once

#include <QJsonObject>
#include <vector>

namespace folvane::test {

/// What the lines of a file print as, taken apart again.
struct Printed {
  std::vector<QJsonObject> sets, fields, rows;

  /// The values of a field in the rows, in their order.
  QJsonArray Values(const QString& key) const;
};

/// The lines that a file prints as, in the code page of its texts.
QByteArrayList PrintedLines(const QByteArray& file, int codePage = 936);
Printed PrintedFile(const QByteArray& file, int codePage = 936);

}  // namespace folvane::test
