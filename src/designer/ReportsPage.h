#pragma once

#include "designer/DesignPage.h"

namespace folvane::designer {

class DesignGrid;
class GridModel;

/// The reports, and the tables or flows that offer them.
class ReportsPage : public DesignPage {
 public:
  explicit ReportsPage(DesignSession& session);

 protected:
  void Refresh() override;

 private:
  GridModel* NewReports();
  /// All that can offer reports, as lists show them.
  QStringList Groups() const;
  QString GroupShown(const QString& group) const;
  QString GroupMeant(const Design& design, const QString& shown) const;

  DesignGrid* grid_;
};

}  // namespace folvane::designer
