#pragma once

#include <QDialog>
#include <QString>

namespace folvane {

/// Puts together a condition over the fields of one table out of a list that is kept for all users of the table.
class frmfhfind : public QDialog {
 public:
  frmfhfind();

  QString ReturnSql;     ///< out: the condition without Where; "" when the user left without a query
  QString ChnReturnSql;  ///< out: the same in words
  QString M_Condition;   ///< in: a restriction that is put behind the condition
  QString FormTag;       ///< in: the table

  /// Reads the saved conditions of the table and shows the window modally. @throws DataError
  void Open();
};

}  // namespace folvane
