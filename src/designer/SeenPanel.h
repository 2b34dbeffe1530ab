#pragma once

#include <QWidget>
#include <optional>

#include "designer/DesignSession.h"

class QComboBox;
class QLabel;
class QStandardItemModel;
class QTableView;
class QToolButton;

namespace folvane::designer {

/// The records of a table that a user would see by the rights that are wanted.
class SeenPanel : public QWidget {
 public:
  explicit SeenPanel(DesignSession& session);

  /// Offers the tables of the design; the one that was chosen stays.
  void FillTables();
  void ChooseTable(const QString& table);
  /// @param user by id; "" for none
  void ShowUser(const QString& user);
  /// Asks the database again.
  void SeeAgain();

 private:
  /// What the rows that are shown depend on.
  struct Question {
    Design::User user;
    Design::Table table;
    bool operator==(const Question&) const = default;
  };

  void SetUpView();
  QToolButton* NewKey();
  void Show();

  DesignSession& session_;
  QString user_;
  QComboBox* table_;
  QLabel* words_;
  QStandardItemModel* rows_;
  QTableView* view_;
  std::optional<Question> shown_;
};

}  // namespace folvane::designer
