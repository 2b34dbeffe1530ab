#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

/// Makes the demo's data files readable under ":/folvane/demo/".
void InitDemoResources();

namespace folvane::demo {

/// The lines of a data file without comments and empty lines, each taken apart at "|" and trimmed.
/// @throws std::runtime_error when there is no such file
std::vector<QStringList> ReadLines(const QString& file);

struct Entry {
  QString text, code;
};

/// A file of lists: "[name]", then one entry to a line, with a code behind "|" where it has one.
struct TextLists {
  QStringList names;  ///< in the order of the file
  QHash<QString, std::vector<Entry>> entries;

  static TextLists Read(const QString& file);
};

}  // namespace folvane::demo
