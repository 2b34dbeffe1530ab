#pragma once

#include <QDialog>

#include "components/transfer/TransferSettings.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QTabWidget;

namespace folvane::transfer {

class FormatPage;
class SetsPage;

/// The settings of the transfer into the archive. What is changed waits until it is saved.
class FrmTransferSettings : public QDialog {
 public:
  /// @throws DataError where the settings cannot be read
  FrmTransferSettings(QWidget* parent, std::shared_ptr<Connection> connection);

  /// Asks first where something is not saved.
  void reject() override;

 private:
  void LayOut();
  QHBoxLayout* NewKeys();
  void ShowPage(int page);
  void ShowState();
  void Refresh();

  void Save();
  bool IsSaved();
  void ReadAgain();

  TransferSettings settings_;
  QTabWidget* pages_;
  SetsPage* sets_;
  FormatPage* format_;
  QString destination_;  ///< of the set whose number format was shown last
  QLabel* state_;
  QPushButton* save_ = nullptr;
};

}  // namespace folvane::transfer
