#pragma once

#include <QStandardItemModel>
#include <QTreeView>

namespace folvane {

class ViewHint;

/// The originals of a record: name, type and size; a row's tag is the original's id.
class OriginalsView : public QTreeView {
 public:
  explicit OriginalsView(QWidget* parent = nullptr);

  void Clear();
  /// Reads the originals of a record and shows them in their order. @throws DataError
  void ShowOriginalsOf(const QString& recordKey);

 private:
  QStandardItemModel model_;
  ViewHint* hint_;
};

}  // namespace folvane
