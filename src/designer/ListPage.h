#pragma once

#include "designer/DesignPage.h"

class QAction;

namespace folvane::designer {

class DesignGrid;
class GridModel;
class LiveList;

/// The columns of a table's list, and under them the list as it looks.
class ListPage : public DesignPage {
  Q_OBJECT

 public:
  explicit ListPage(DesignSession& session);
  ~ListPage() override;

 private:
  void Refresh() override;
  GridModel* NewModel();
  /// Puts the fields into the list that have no column yet.
  void AddRest();

  DesignGrid* grid_;
  LiveList* live_;
  QAction* addRest_;
};

}  // namespace folvane::designer
