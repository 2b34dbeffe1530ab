#pragma once

#include <QDialog>
#include <QString>

namespace folvane {

/// Chooses the fields by which the records of a table are sorted, and keeps the choice for the user.
class FrmOrderBy : public QDialog {
 public:
  FrmOrderBy();

  QString TableName;     ///< in
  QString OldOrder;      ///< in: the order in force; may be empty
  QString ReturnSql;     ///< out: the order as it stands behind Order By; "" for no change
  QString ReturnSqlChn;  ///< out: the same in words

  /// Reads the fields of the table and shows the window modally. @throws DataError
  void Open();
};

}  // namespace folvane
