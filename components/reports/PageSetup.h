#pragma once

#include <QPageLayout>
#include <QString>
#include <optional>

namespace folvane::reports {

/// Paper, orientation and margins as a template writes them: "A4 landscape 15 12 15 12", the margins in millimetres
/// from the top clockwise. What is left out stays as in A4 upright with margins of 20 mm.
/// @throws DataError Usage for a text that says something else, or leaves no room
QPageLayout ReadPageLayout(const QString& text);
/// Whether the margins leave at least 30 mm of the paper both ways.
bool HasRoom(const QPageLayout& layout);
QString PageLayoutText(const QPageLayout& layout);

/// What the user has set up for a report, nothing when he has left it as the template says. Kept in the registry of
/// Services().
std::optional<QPageLayout> KeptPageLayout(const QString& reportId);
void KeepPageLayout(const QString& reportId, const QPageLayout& layout);

/// The papers that can be chosen.
const QList<QPageSize::PageSizeId>& Papers();

}  // namespace folvane::reports
