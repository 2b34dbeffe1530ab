#pragma once

#include <QDialog>
#include <QPrinter>
#include <memory>
#include <optional>

#include "components/reports/ReportData.h"
#include "components/reports/ReportEngine.h"

class QLabel;
class QPlainTextEdit;
class QPrintPreviewWidget;
class QSplitter;
class QTimer;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace folvane::reports {

/// Edits the template of a report: the text beside what can be put into it, and the pages that it makes.
class ReportDesigner : public QDialog {
 public:
  /// @throws DataError when there are no rows to show as a sample, or the template cannot be read
  explicit ReportDesigner(const ReportRequest& request);

  void reject() override;

 private:
  void LayOut();
  QToolBar* NewToolBar();
  QSplitter* NewParts();
  void FillChoices();

  /// Lays the text out once typing pauses; tells what is wrong with it.
  void ShowPages();
  void Insert(QTreeWidgetItem* choice);
  void TakeDefault();
  /// Whether the text is saved now.
  bool Save();
  /// Whether the window may go, after asking what to do with a text that is not saved.
  bool MayClose();

  ReportRequest request_;
  std::unique_ptr<ReportData> data_;
  QString order_;  ///< that the data was read in
  std::optional<LaidOutReport> report_;
  QString saved_;  ///< the text as it was opened or saved last
  QString error_;  ///< what is wrong with the text, "" for nothing
  QPrinter printer_;
  QTreeWidget* choices_;
  QPlainTextEdit* text_;
  QPrintPreviewWidget* view_;
  QLabel* state_;
  QTimer* pause_;
};

/// Opens the designer over a report. @throws DataError before the window is shown
void DesignReport(const ReportRequest& request);

}  // namespace folvane::reports
