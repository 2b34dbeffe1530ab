#pragma once

#include <QDialog>
#include <QTemporaryDir>

#include "components/originals/RecordOriginals.h"
#include "components/originals/ThumbnailReader.h"

class QAction;
class QLabel;
class QStandardItem;
class QToolBar;

namespace folvane {
struct ToolKey;
}

namespace folvane::originals {

class FileList;

/// Shows the originals of a record with what can be done with them.
class FrmOriginals : public QDialog {
 public:
  FrmOriginals(QWidget* parent, RecordOriginals& originals);

  void reject() override;

 private:
  using Handler = void (FrmOriginals::*)();

  void LayOut();
  void SetUpList();
  QToolBar* NewToolBar();
  QAction* NewKey(QToolBar& bar, const ToolKey& key, Handler handler);
  /// Runs what the user asked for, one at a time; the thumbnails wait meanwhile. A name that is being typed is stored
  /// first. What was asked for of rows that are not there any more after that is let go.
  void Do(const std::function<void()>& work);
  void NoteName(const QStandardItem& cell);
  /// @return whether the rows are the same as before
  bool StoreNames();

  /// Reads the originals and selects some of them.
  void Load(const QStringList& selected = {});
  void ShowRow(const Original& original);
  void ShowThumbnail(const QString& id, const QIcon& thumbnail);
  /// Those that have been read, by the originals' ids.
  QHash<QString, QIcon> Thumbnails() const;
  void Enable();
  void TellCount();
  std::vector<Original> Selected() const;
  QStringList SelectedIds() const;

  void Add();
  void Paste();
  void Offer(const std::vector<FileToAdd>& files);
  void Scan();
  void View();
  void Export();
  void EditName();
  void Rename(const QString& id, const QString& name);
  void Delete();
  void MoveUp();
  void MoveDown();
  void MoveRows(const std::vector<int>& rows, int before);
  void Check();
  void Refresh();

  RecordOriginals& originals_;
  std::vector<Original> shown_;
  QTemporaryDir images_;           ///< that were pasted
  QHash<QString, QString> names_;  ///< that were typed and are not stored yet, by the originals' ids
  bool isBusy_ = false;
  ThumbnailReader thumbnails_;
  FileList* list_;
  QLabel* state_;
  QAction *view_ = nullptr, *export_ = nullptr, *rename_ = nullptr, *delete_ = nullptr, *up_ = nullptr,
          *down_ = nullptr;
};

}  // namespace folvane::originals
