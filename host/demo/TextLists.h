#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

/// Makes the demo's data files readable under ":/folvane/demo/".
void InitDemoResources();

namespace folvane::demo {

/// A data file. @throws std::runtime_error when there is no such file
QByteArray ReadData(const QString& file);

/// The lines of a data file without comments and empty lines, each taken apart at "|" and trimmed.
/// @throws std::runtime_error when there is no such file
std::vector<QStringList> ReadLines(const QString& file);

/// A file of lists by name: "[name]", then one entry to a line.
QHash<QString, QStringList> ReadLists(const QString& file);

}  // namespace folvane::demo
