#pragma once

#include <QDialog>

#include "designer/RowCondition.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;
class QVBoxLayout;

namespace folvane::designer {

class ConditionRow;

/// Puts together which rows of a table a user may see, and tries it on the database as it is typed. A condition of
/// another form is shown as it stands, to be corrected or put together anew.
class ConditionDialog : public QDialog {
 public:
  /// @param connection is only read
  ConditionDialog(const Design& design, const Design::Table& table, Connection& connection, QWidget* parent);

  void Show(const QString& condition);
  /// What follows Where; "" for all rows. It is as it was given as long as no line is another.
  QString Condition() const;

  /// Stays while something is wrong with the condition.
  void accept() override;

 private:
  void LayOut();
  ConditionRow* AddRow(const ConditionLine& line);
  void AddLine();
  void RemoveRow(ConditionRow* row);
  void Clear();
  void NumberRows();
  RowCondition Lines() const;
  void Follow();
  /// Tells what the condition gives. @return whether it can be kept
  bool Try();

  Design design_;
  Design::Table table_;
  transfer::BusinessTable columns_;
  Connection& connection_;
  QString given_;
  std::optional<RowCondition> linesGiven_;  ///< nothing where it had another form
  QList<ConditionRow*> rows_;
  QVBoxLayout* list_;
  QPushButton *add_, *clear_;
  QLabel *words_, *result_;
  QLineEdit* text_;
  QTimer* pause_;        ///< runs while the user is typing
  bool isFree_ = false;  ///< the text is edited as it stands, for want of lines
};

}  // namespace folvane::designer
