#pragma once

#include <QString>
#include <QStringList>

namespace folvane::originals {

/// What an original is called in Original_Text: its name and, with the dot, the ending of its file.
struct NameAndType {
  QString name, type;
};

/// Takes the name of a file apart. An ending that is longer than its column, or has other characters than letters,
/// digits, "_" and "-", stays in the name.
NameAndType SplitFileName(const QString& fileName);

/// The name as its column takes it: without control characters, and of at most 255 bytes of the national code page.
/// "未命名" where nothing is left.
QString FitName(const QString& name);

/// The name of the file that an original is exported as, without what a file system refuses.
/// @param taken names that it must not have, in any case
QString ExportName(const NameAndType& original, const QStringList& taken);

/// A size for the user: "823 字节", "12.4 KB", "3.1 MB".
QString SizeText(qint64 bytes);

}  // namespace folvane::originals
