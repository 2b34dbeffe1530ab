#pragma once

#include <QStandardItemModel>
#include <QTreeView>
#include <vector>

#include "records/OriginalsOfRecord.h"

namespace folvane {

class ViewHint;

/// The originals of a record: name, type and size; a row's tag is the original's id.
class OriginalsView : public QTreeView {
 public:
  explicit OriginalsView(QWidget* parent = nullptr);

  void Clear();
  void ShowOriginals(const std::vector<OriginalRow>& originals);

 private:
  QStandardItemModel model_;
  ViewHint* hint_;
};

}  // namespace folvane
