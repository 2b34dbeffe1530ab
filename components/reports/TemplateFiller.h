#pragma once

#include <QString>

namespace folvane::reports {

class ReportData;

/// Fills the markers of a template with what they stand for; gives HTML. Values are text: what looks like HTML in them
/// is shown as it is, and their line breaks are kept.
/// @throws DataError Usage that tells the line of a marker that is broken or not known
QString FillTemplate(const QString& text, const ReportData& data);

}  // namespace folvane::reports
