#pragma once

#include <memory>
#include <vector>

#include <folvane/Connection.h>
#include <folvane/Design.h>

#include "widgets/RecordListView.h"

class QStandardItemModel;

namespace folvane {
class ViewHint;
}

namespace folvane::designer {

/// The list of a table as it looks, with the first of the records that the database holds. Columns are sized and moved
/// in its header.
class LiveList : public RecordListView {
  Q_OBJECT

 public:
  explicit LiveList(QWidget* parent);

  /// @param table null for none
  void Show(const Design::Table* table, const std::shared_ptr<Connection>& connection);

 Q_SIGNALS:
  /// The user has sized or moved columns: the list as it is wanted now.
  void Arranged(const std::vector<Design::ListColumn>& columns);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowColumns();
  /// Puts the records into the rows. @return why there are none, "" where there are some
  QString FillFrom(const QString& table, const std::shared_ptr<Connection>& connection);
  void TellArranged();

  QStandardItemModel* rows_;
  ViewHint* hint_;
  std::vector<Design::ListColumn> columns_;
};

}  // namespace folvane::designer
