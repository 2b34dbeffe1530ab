#pragma once

#include <QStandardItemModel>
#include <QStringList>
#include <QTreeView>
#include <functional>

namespace folvane {

class ViewHint;

/// The originals of a record: name, type and size; a row's tag is the original's id. Files can be dropped on it.
class OriginalsView : public QTreeView {
 public:
  explicit OriginalsView(QWidget* parent = nullptr);

  void Clear();
  /// Reads the originals of a record and shows them in their order; the current one stays it. @throws DataError
  void ShowOriginalsOf(const QString& recordKey);

  int Count() const { return model_.rowCount(); }
  /// The id of the current original, "" when there is none.
  QString CurrentId() const;
  void ChooseFirst() { setCurrentIndex(model_.index(0, 0)); }
  void RemoveCurrent() { model_.removeRow(currentIndex().row()); }

  /// What a double click and the Enter key run.
  void OnOpen(std::function<void()> handler) { open_ = std::move(handler); }
  /// What takes the paths of the files that were dropped.
  void OnDrop(std::function<void(const QStringList& files)> handler) { drop_ = std::move(handler); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  std::function<void()> open_;
  std::function<void(const QStringList&)> drop_;
  QStandardItemModel model_;
  ViewHint* hint_;
};

}  // namespace folvane
