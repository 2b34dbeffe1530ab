#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// The words for comparing a field with a value, in the order in which they are offered.
const QStringList& ComparisonWords();

/// The operator of a comparison word; "" for any other text.
QString ComparisonOperator(const QString& word);

/// Whether an operator compares with a pattern, so that its value stands between percent signs.
bool IsPatternOperator(const QString& comparison);

/// The words that tie a condition to the one before it.
const QStringList& ConnectorWords();

/// The connector of a word; "" for any other text.
QString Connector(const QString& word);

}  // namespace folvane
