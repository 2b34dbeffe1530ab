#pragma once

#include <QDialog>

#include "designer/DesignSession.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace folvane::designer {

/// Asks what a new table is to be like, and adds it.
class NewTableDialog : public QDialog {
 public:
  /// @param classId that it is meant for
  NewTableDialog(DesignSession& session, int classId, QWidget* parent);

  /// The name of the table that was added, "" before.
  const QString& Added() const { return added_; }

  void accept() override;

 private:
  void FollowCaption();

  DesignSession& session_;
  QLineEdit *txtCaption_, *txtName_;
  QComboBox *cboClass_, *cboLike_;
  QLabel* lblMessage_;
  bool isNamed_ = false;  ///< by hand
  QString added_;
};

}  // namespace folvane::designer
