#pragma once

#include "designer/DesignPage.h"

class QSplitter;

namespace folvane::designer {

class DesignGrid;
class GridModel;

/// The codes that archive numbers are made of: fonds, the classes within each, and retention periods.
class CodesPage : public DesignPage {
 public:
  explicit CodesPage(DesignSession& session);
  ~CodesPage() override;

 protected:
  void Refresh() override;

 private:
  GridModel* NewFonds();
  GridModel* NewClasses();
  GridModel* NewRetentions();

  DesignGrid *fonds_, *classes_, *retentions_;
  QSplitter* below_;
};

}  // namespace folvane::designer
