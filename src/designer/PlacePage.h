#pragma once

#include "designer/DesignPage.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace folvane::designer {

/// What a table is called, and where it stands.
class TablePage : public DesignPage {
 public:
  explicit TablePage(DesignSession& session);

 protected:
  void Refresh() override;

 private:
  void Rename();
  void ShowNumbering(const Design::Table& table);
  void TakeNumbering();

  QLineEdit *txtCaption_, *txtName_;
  QComboBox *cboKind_, *cboClass_, *cboParent_, *cboRelation_, *cboNumbering_;
  QLabel *lblNext_, *lblSums_;
};

/// What a class is called, and under which one it stands.
class ClassPage : public DesignPage {
 public:
  explicit ClassPage(DesignSession& session);
  void SetClass(int id);

 protected:
  void Refresh() override;

 private:
  void ChangeClass(const QString& words, const std::function<void(Design::Class&)>& work);

  int id_ = 0;
  QLineEdit* txtName_;
  QComboBox* cboParent_;
};

/// The classes of a design with those above them, such as "公文 / 收文", in the box with their numbers.
void FillClasses(QComboBox& box, const Design& design, const QString& none, int noneId);

}  // namespace folvane::designer
