#pragma once

#include <QDialog>
#include <QString>
#include <array>

class QPushButton;

namespace folvane {

class FieldListView;

/// Chooses the fields by which the records of a table are sorted, and keeps the choice for the user. A ticked field is
/// sorted downwards.
class FrmOrderBy : public QDialog {
 public:
  FrmOrderBy();

  QString TableName;     ///< in
  QString OldOrder;      ///< in: the order in force; may be empty
  QString ReturnSql;     ///< out: the order as it stands behind Order By; "" for no change
  QString ReturnSqlChn;  ///< out: the same in words

  /// Reads the fields of the table and shows the window modally. @throws DataError
  void Open();

  /// Leaves without a change.
  void reject() override;

 private:
  void AddMoveKeys();
  void LayOut();
  void Connect();
  void Load();
  void EnableKeys();
  void Save();

  FieldListView *offered_, *chosen_;
  std::array<QPushButton*, 4> moves_;  ///< all back, one back, one over, all over
  QPushButton* ok_;
};

}  // namespace folvane
