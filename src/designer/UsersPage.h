#pragma once

#include "designer/DesignPage.h"
#include "designer/ThingModel.h"

class QSplitter;

namespace folvane::designer {

class DesignGrid;
class SeenPanel;

/// The users, the rights of the current one table by table, and what the user sees by them.
class UsersPage : public DesignPage {
 public:
  explicit UsersPage(DesignSession& session);
  ~UsersPage() override;

 protected:
  void Refresh() override;
  void showEvent(QShowEvent* event) override;

 private:
  GridModel* NewUsers();
  GridModel* NewRights();
  ThingColumn<Design::Rights> TableColumn();
  ThingColumn<Design::Rights> ConditionColumn();
  /// The current user of a design, and the rights in a table that are current; null for none.
  const Design::User* UserIn(const Design& design) const;
  const Design::Rights* RightsIn(const Design& design) const;

  void FollowRights();
  void EditCondition();

  DesignGrid *users_, *rights_ = nullptr;
  QAction* condition_;
  SeenPanel* seen_;
  QSplitter *beside_, *below_;
};

}  // namespace folvane::designer
