#pragma once

#include <QDialog>
#include <QString>
#include <optional>

#include "entry/KeyOrder.h"

class QListWidget;
class QToolButton;

namespace folvane {

class NumberBox;

/// Puts the fields of an entry form in the order in which the Enter key walks through them.
class FrmKeyOrder : public QDialog {
 public:
  FrmKeyOrder();

  QString CurrTable;

  /// Reads the fields of the table and shows the window modally. @throws DataError
  void Open();

 private:
  QToolButton* NewMoveKey(const QString& name, const QString& tip, const QString& icon, Qt::Key key);
  void LayOut();
  void Connect();
  void Load();

  /// The position of the field that is selected, from 1; 0 when none is.
  int Position() const;
  /// Shows the order as it is now, with the field at that position selected.
  void Select(int position);
  void ShowPosition();
  void TakePosition(int wanted);
  void Save();

  std::optional<KeyOrderList> order_;
  QListWidget* fields_;
  NumberBox* position_;
  QToolButton *up_, *down_;
  class QCheckBox* byNumber_;
  class QPushButton* ok_;
};

}  // namespace folvane
