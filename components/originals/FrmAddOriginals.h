#pragma once

#include <QTemporaryDir>

#include "components/originals/AddQueue.h"
#include "components/originals/WorkDialog.h"

class QStandardItem;

namespace folvane::originals {

class FileList;

/// Gathers files that shall become originals of a record, has their names edited, and adds them.
class FrmAddOriginals : public WorkDialog {
 public:
  FrmAddOriginals(QWidget* parent, RecordOriginals& originals);

  /// Puts files on the list.
  void Offer(const std::vector<FileToAdd>& files);
  /// Asks for files as soon as the window is shown.
  void ChooseAtOnce();
  /// Adds the files on the list as soon as the window is shown.
  void AddAtOnce();
  /// How many originals were added.
  int Added() const { return queue_.Added(); }

  /// While files are added, ends that; asks before files are left behind.
  void reject() override;

 private:
  void MakeKeys();
  void ShowRow(std::size_t index);
  void Rename(QStandardItem* cell);
  void TellState(const QString& text = {});
  void Enable() override;

  void Choose();
  void Paste();
  void Remove();
  void Add();
  bool ShowStep(std::size_t index);
  void ShowFirstProblem();

  QTemporaryDir images_;  ///< that were pasted
  AddQueue queue_;
  FileList* list_;
  QPushButton *choose_ = nullptr, *paste_ = nullptr, *remove_ = nullptr, *add_ = nullptr;
};

}  // namespace folvane::originals
