#pragma once

#include <QString>
#include <vector>

namespace folvane::reports {

class ReportData;

/// What can be put into a template.
struct MarkerChoice {
  QString caption;  ///< for the user
  QString text;     ///< what goes into the template
};

/// Choices that belong together.
struct MarkerGroup {
  QString caption;
  std::vector<MarkerChoice> choices;
};

/// All markers that stand for something in a report over that data.
std::vector<MarkerGroup> MarkerChoices(const ReportData& data);

}  // namespace folvane::reports
