#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// The text for a quoted literal; with likeMode for a quoted pattern after Like.
QString EscapeSql(const QString& text, bool likeMode = false);

/// A text in quotes for a statement that is to escape nothing. At a quote that is not doubled it would end and go on as
/// a part of the statement, in the worst case in place of its condition. @throws DataError Statement for such a text
QString UnescapedLiteral(const QString& text);

/// Takes a text apart at the delimiter, "," when that is empty: one element more than there are delimiters.
void SplitText(QStringList& elements, const QString& text, const QString& delimiter);

}  // namespace folvane
