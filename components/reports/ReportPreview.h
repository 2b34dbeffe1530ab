#pragma once

#include <QDialog>
#include <QPrinter>

#include "components/reports/ReportEngine.h"

class QAction;
class QLabel;
class QPrintPreviewWidget;
class QToolBar;

namespace folvane::reports {

/// Shows the pages of a report, prints them, and saves them as a PDF file.
class ReportPreview : public QDialog {
 public:
  ReportPreview(const ReportRequest& request, LaidOutReport report);

 private:
  void LayOut();
  QToolBar* NewToolBar();
  void ShowPages();
  void TellPage();

  void Print();
  void SavePdf();
  void SetUpPage();
  void Design();
  void GoTo(int page);
  void GoToFirst();
  void GoToPrevious();
  void GoToNext();
  void GoToLast();
  void ZoomIn();
  void ZoomOut();
  void FitWidth();
  void FitPage();

  ReportRequest request_;
  LaidOutReport report_;
  QPrinter printer_;
  QPrintPreviewWidget* view_;
  QLabel* page_;
  QAction *first_ = nullptr, *previous_ = nullptr, *next_ = nullptr, *last_ = nullptr;
};

}  // namespace folvane::reports
