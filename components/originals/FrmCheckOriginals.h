#pragma once

#include <QDialog>

#include "components/originals/Pulse.h"
#include "components/originals/RecordOriginals.h"
#include "components/originals/StoreCheck.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QStandardItemModel;
class QTreeView;

namespace folvane::originals {

/// Checks the whole store as soon as it is shown, and lists what it finds. Changes nothing.
class FrmCheckOriginals : public QDialog {
 public:
  FrmCheckOriginals(QWidget* parent, RecordOriginals& originals);

  /// While the check runs, ends that.
  void reject() override;

 private:
  void LayOut();
  void NameControls();
  QWidget* NewKeys();
  void Run();
  bool ShowProgress(const QString& step, qint64 done, qint64 total);
  void ShowFindings();
  void Enable();
  void Copy();
  void Save();

  RecordOriginals& originals_;
  std::optional<CheckFindings> findings_;
  bool isWorking_ = false, isStopped_ = false;
  Pulse pulse_;
  QStandardItemModel* items_;
  QTreeView* list_;
  QLabel* state_;
  QProgressBar* progress_;
  QPushButton *run_ = nullptr, *copy_ = nullptr, *save_ = nullptr, *stop_ = nullptr, *close_ = nullptr;
};

}  // namespace folvane::originals
