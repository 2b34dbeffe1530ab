#pragma once

#include <QString>

namespace folvane::reports {

class ReportData;

/// The template of a report that has none of its own: a sheet with its lines for one sheet of a flow, a form of
/// captions and values for one record, else a table with the columns of the record list.
QString DefaultTemplate(const ReportData& data);

}  // namespace folvane::reports
