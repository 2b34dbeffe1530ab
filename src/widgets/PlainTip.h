#pragma once

#include <QString>
#include <QTextDocument>

namespace folvane {

/// A text from the database or the user as the tip of a control. A tip that looks like markup is taken for markup, and
/// reads the files that it names.
inline QString PlainTip(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

}  // namespace folvane
