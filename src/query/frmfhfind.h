#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>
#include <optional>

#include "query/CompoundQuery.h"

class QAction;
class QCheckBox;
class QLabel;
class QStandardItemModel;
class QToolBar;

namespace folvane {

class EditCombo;
class RecordListView;
class TextCombo;

/// Puts together a condition over the fields of one table out of a list that is kept for all users of the table.
class frmfhfind : public QDialog {
 public:
  frmfhfind();

  QString ReturnSql;     ///< out: the condition without Where; "" when the user left without a query
  QString ChnReturnSql;  ///< out: the same in words
  QString InForce;       ///< out: the conditions that count, as they read in the list
  QStringList Ignored;   ///< out: what the user sees as a condition and does not count as it reads, each with why
  QString M_Condition;   ///< in: a restriction that is put behind the condition
  QString FormTag;       ///< in: the table

  /// Reads the saved conditions of the table and shows the window modally. @throws DataError
  void Open();

  /// Leaves without a query.
  void reject() override;
  /// Forgets the saved conditions where the user wants that, in whatever way the window is left.
  void done(int result) override;

 protected:
  /// Enter in one of the boxes adds the condition that stands in them.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QAction* AddKey(const QString& name, const QString& caption, const QString& icon, const QString& shortcut,
                  const QString& tip);
  void MakeBoxes();
  void MakeKeys();
  void MakeList();
  void LayOut();

  void Load();
  /// Shows the list as it is, with that row selected, from 0.
  void ShowConditions(int selected);
  ShownCondition Typed() const;
  /// What stands in the boxes and has not been added, as a condition that does not count; "" when there is nothing.
  QString NotAdded() const;
  void ShowNotAdded();
  void AddCondition();
  void RemoveCondition();
  void Query();

  std::optional<CompoundQuery> query_;
  QToolBar* toolbar_;
  TextCombo *connector_, *relation_;
  EditCombo *field_, *value_;
  QStandardItemModel* conditions_;
  RecordListView* list_;
  QCheckBox* forget_;
  QLabel *notice_, *notAdded_;
  QAction* add_;
  ShownCondition added_;  ///< what was added last
};

}  // namespace folvane
