#pragma once

#include <QString>
#include <vector>

namespace folvane::reports {

/// A marker of a template: {{Name}}, {{#Name}} or {{/Name}}. Names are in capitals here; templates may write them in
/// any case.
struct Marker {
  enum Kind { Value, Begin, End } kind;
  QString name;
  int line;              ///< from 1
  qsizetype at, length;  ///< of the name as it stands in the text
};

/// The markers of a template in their order; comments are left out.
/// @throws DataError Usage that tells the line: for a marker that does not end or has no name, for a section without
///         end or an end without section, for includes and other delimiters
std::vector<Marker> MarkersOf(const QString& text);

/// The kinds of sections.
namespace Section {
inline const QString kRows = QStringLiteral("ROWS");    ///< once for each record
inline const QString kNext = QStringLiteral("NEXT");    ///< inside of ROWS: for each record but the first
inline const QString kLines = QStringLiteral("LINES");  ///< once for each line of a sheet
}  // namespace Section

}  // namespace folvane::reports
