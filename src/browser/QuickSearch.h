#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// The comparison words that a field of a type offers, the usual one first.
QStringList RelationWords(const QString& fieldType);

/// Whether a word compares with no value too: then it asks for empty fields, or for those that are not.
bool AcceptsEmptyValue(const QString& word);

/// The condition for a field, a comparison word and a value. Every value is quoted; the database converts.
QString SearchCondition(const QString& field, const QString& word, const QString& value);

/// The values of a history, newest first, each once. Kept as one text, each value behind an "@" and one more at the
/// end.
QStringList HistoryValues(const QString& history);
QString HistoryText(const QStringList& values);

}  // namespace folvane
