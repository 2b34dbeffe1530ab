#pragma once

#include <optional>

#include "designer/DesignPage.h"
#include "designer/ThingModel.h"

class QComboBox;
class QLabel;
class QSplitter;
class QStandardItemModel;
class QTableView;
class QToolButton;

namespace folvane::designer {

class DesignGrid;

/// The users, the rights of the current one table by table, and what the user sees by them.
class UsersPage : public DesignPage {
 public:
  explicit UsersPage(DesignSession& session);
  ~UsersPage() override;

 protected:
  void Refresh() override;
  void showEvent(QShowEvent* event) override;

 private:
  /// What the rows that are shown depend on.
  struct Question {
    Design::User user;
    Design::Table table;
    bool operator==(const Question&) const = default;
  };

  GridModel* NewUsers();
  GridModel* NewRights();
  ThingColumn<Design::Rights> TableColumn();
  ThingColumn<Design::Rights> ConditionColumn();
  QWidget* NewSeen();
  QToolButton* NewRefreshKey();
  /// The current user of a design, and the rights in a table that are current; null for none.
  const Design::User* UserIn(const Design& design) const;
  const Design::Rights* RightsIn(const Design& design) const;

  void FillTables();
  void FollowRights();
  void ShowSeen();
  void SeeAgain();
  void EditCondition();

  DesignGrid *users_, *rights_ = nullptr;
  QAction* condition_;
  QComboBox* table_;
  QLabel* words_;
  QStandardItemModel* seen_;
  QTableView* view_;
  QSplitter *beside_, *below_;
  std::optional<Question> seenFor_;
};

}  // namespace folvane::designer
