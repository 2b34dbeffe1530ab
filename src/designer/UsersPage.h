#pragma once

#include "designer/DesignPage.h"
#include "designer/ThingModel.h"

class QComboBox;
class QLabel;
class QSplitter;
class QStandardItemModel;
class QTableView;

namespace folvane::designer {

class DesignGrid;

/// The users, the rights of the current one table by table, and what the user sees by them.
class UsersPage : public DesignPage {
 public:
  explicit UsersPage(DesignSession& session);
  ~UsersPage() override;

 protected:
  void Refresh() override;

 private:
  GridModel* NewUsers();
  GridModel* NewRights();
  ThingColumn<Design::Rights> TableColumn();
  ThingColumn<Design::Rights> ConditionColumn();
  QWidget* NewSeen();
  /// The current user of a design, and the rights in a table that are current; null for none.
  const Design::User* UserIn(const Design& design) const;
  const Design::Rights* RightsIn(const Design& design) const;

  void FillTables();
  void FollowRights();
  void ShowSeen();
  void EditCondition();

  DesignGrid *users_, *rights_ = nullptr;
  QAction* condition_;
  QComboBox* table_;
  QLabel* words_;
  QStandardItemModel* seen_;
  QTableView* view_;
  QSplitter *beside_, *below_;
};

}  // namespace folvane::designer
