#pragma once

#include <QDialog>
#include <QString>

class QPushButton;
class QToolButton;

namespace folvane {

class FieldListView;

/// Chooses the fields of the simple query of one table and their order.
class FrmSimSet : public QDialog {
 public:
  FrmSimSet();

  QString TableName;     ///< in
  bool IsCancel = true;  ///< out: whether the fields were left as they are

  /// Reads the fields of the table and shows the window modally. @throws DataError
  void Open();

 private:
  void LayOut();
  void Connect();
  void FillDataField();
  void EnableKeys();
  void Save();

  FieldListView *offered_, *chosen_;
  QPushButton *choose_, *remove_;
  QToolButton *up_, *down_;
  QPushButton* ok_;
};

}  // namespace folvane
