#pragma once

#include <QDialog>
#include <QString>

namespace folvane {

/// Chooses the fields of the simple query of one table and their order.
class FrmSimSet : public QDialog {
 public:
  FrmSimSet();

  QString TableName;     ///< in
  bool IsCancel = true;  ///< out: whether the fields were left as they are

  /// Reads the fields of the table and shows the window modally. @throws DataError
  void Open();
};

}  // namespace folvane
