#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

/// The text for a quoted literal; with likeMode for a quoted pattern after Like.
QString EscapeSql(const QString& text, bool likeMode = false);

/// Takes a text apart at the delimiter, "," when that is empty: one element more than there are delimiters.
void SplitText(QStringList& elements, const QString& text, const QString& delimiter);

}  // namespace folvane
