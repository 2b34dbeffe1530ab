#pragma once

#include <QDialog>
#include <QString>

class QListView;
class QStringListModel;

namespace folvane {

/// Chooses a report of a group.
class frmReportList : public QDialog {
 public:
  frmReportList();

  QString gsReturnName;     ///< out: the report chosen; "" when the user left without one
  QString gsReportGroupId;  ///< in: the group
  QString gsReportId;       ///< the caller's; only kept
  QString giReportType;     ///< out: the type of the group's reports

  /// Reads the reports of the group and shows the window modally. @throws DataError
  void Open();

 private:
  void FillReportNames();
  void Choose();

  QListView* view_;
  QStringListModel* names_;
};

}  // namespace folvane
