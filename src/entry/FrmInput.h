#pragma once

#include <QMainWindow>
#include <QString>

#include "entry/EntrySurroundings.h"

namespace folvane {

/// The entry window: the one form for the records of any table, made from the table's design and bound to the shared
/// record set. Used through DefaultInstance; whoever opened it unloads it afterwards.
class FrmInput : public QMainWindow {
 public:
  FrmInput();
  ~FrmInput() override;

  QString CurrTable;
  QString AddOnOpen;  ///< "1" begins a new record as the window opens, and is "0" from then on
  EntrySurroundings Surroundings;

  /// Builds the form of the table and shows the window modally. @throws DataError what fails while it opens
  void Open();
};

}  // namespace folvane
