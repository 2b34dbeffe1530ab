#pragma once

#include "components/originals/RecordOriginals.h"
#include "components/originals/StoreCheck.h"
#include "components/originals/WorkDialog.h"

class QStandardItemModel;
class QTreeView;

namespace folvane::originals {

/// Checks the whole store as soon as it is shown, and lists what it finds. Changes nothing.
class FrmCheckOriginals : public WorkDialog {
 public:
  FrmCheckOriginals(QWidget* parent, RecordOriginals& originals);

 private:
  void MakeList();
  void MakeKeys();
  void Run();
  bool ShowProgress(const QString& step, qint64 done, qint64 total);
  void ShowFindings();
  void Enable() override;
  void Copy();
  void Save();

  RecordOriginals& originals_;
  std::optional<CheckFindings> findings_;
  QStandardItemModel* items_;
  QTreeView* list_;
  QPushButton *run_ = nullptr, *copy_ = nullptr, *save_ = nullptr;
};

}  // namespace folvane::originals
