#pragma once

#include <QDialog>
#include <QString>

namespace folvane {

/// A query form that is made of the fields set up for one table.
class frmSimFind : public QDialog {
 public:
  frmSimFind();

  QString TableName;    ///< in
  QString M_Condition;  ///< in: a restriction that is put behind the condition
  QString ReturnSql;    ///< out: the condition without Where; "" when the user left without a query

  /// Makes the inputs of the table and shows the window modally. @throws DataError
  void Open();
};

}  // namespace folvane
