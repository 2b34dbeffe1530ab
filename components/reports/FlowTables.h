#pragma once

#include <QString>

namespace folvane::reports {

/// The tables of a flow, whose fields no dictionary describes.
struct Flow {
  QString head, details;
  QString headId;  ///< the number of a sheet, a column of the head
};

/// The flow that a table is the head, or the details, of; nullptr when it is not.
const Flow* FlowOfHead(const QString& table);
const Flow* FlowOfDetails(const QString& table);

/// The caption of a flow table and of its fields, as the flow windows have them; "" for one that they do not show.
QString FlowTableCaption(const QString& table);
QString FlowFieldCaption(const QString& table, const QString& field);

}  // namespace folvane::reports
