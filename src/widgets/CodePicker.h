#pragma once

#include "widgets/ListCombo.h"

class QStandardItemModel;

namespace folvane {

/// A box for a number that drops down the numbers and their names. The number is typed freely: it need not be in the
/// list.
class CodePicker : public ListCombo {
  Q_OBJECT

 public:
  explicit CodePicker(QWidget* parent = nullptr);

 protected:
  /// The statement for the rows of the list: number, name.
  virtual QString ListStatement() const = 0;
  void ReadList() override;
  void PrepareList() override;

 private:
  QStandardItemModel* list_;
};

/// The number of a fonds.
class UnitCodePicker : public CodePicker {
  Q_OBJECT

 public:
  using CodePicker::CodePicker;

 protected:
  QString ListStatement() const override;
};

/// The number of an entity class of the current fonds, which the station's settings name.
class ClassCodePicker : public CodePicker {
  Q_OBJECT

 public:
  using CodePicker::CodePicker;

 protected:
  QString ListStatement() const override;
};

}  // namespace folvane
