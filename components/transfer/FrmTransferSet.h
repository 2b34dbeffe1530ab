#pragma once

#include <QDialog>
#include <optional>

#include "components/transfer/TransferSettings.h"

class QComboBox;

namespace folvane::transfer {

/// Asks for the source and the destination of a set, and adds or changes it.
class FrmTransferSet : public QDialog {
 public:
  /// @param set that is changed; none for a new one
  FrmTransferSet(QWidget* parent, TransferSettings& settings, std::optional<std::size_t> set);

  void accept() override;

 private:
  QComboBox* NewChoice(const QString& name, const QString& caption, bool ofSources);
  void LayOut();
  void Choose(QComboBox& choice, const QString& table);

  TransferSettings& settings_;
  std::optional<std::size_t> set_;
  QComboBox *source_, *destination_;
};

}  // namespace folvane::transfer
