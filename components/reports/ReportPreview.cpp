#include "components/reports/ReportPreview.h"

#include <QAction>
#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QScreen>
#include <QToolBar>
#include <QVBoxLayout>

#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/ToolKeys.h"
#include "components/reports/PageSetup.h"
#include "components/reports/PageSetupDialog.h"
#include "components/reports/PageView.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

constexpr int kInformation = 64;

// A title as the name of a file.
QString FileName(QString title) {
  static const QString forbidden = u"/\\:*?\"<>|"_s;
  for (QChar& letter : title)
    if (forbidden.contains(letter) || letter < u' ') letter = u'_';
  return title + u".pdf"_s;
}

}  // namespace

ReportPreview::ReportPreview(const ReportRequest& request, LaidOutReport report)
    : QDialog(QApplication::activeWindow()),
      request_(request),
      report_(std::move(report)),
      printer_(QPrinter::HighResolution),
      view_(NewPageView(printer_, this)),
      page_(new QLabel(this)) {
  setObjectName(u"ReportPreview"_s);
  setWindowTitle(report_.title);
  setWindowIcon(Icon(u"print"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LayOut();
  connect(view_, &QPrintPreviewWidget::paintRequested, this,
          [this](QPrinter* printer) { Guarded([&] { report_.pages.Print(*printer); }); });
  connect(view_, &QPrintPreviewWidget::previewChanged, this, &ReportPreview::TellPage);
  printer_.setPageLayout(report_.pages.Layout());
  view_->fitToWidth();
}

void ReportPreview::LayOut() {
  view_->setObjectName(u"View"_s);
  page_->setObjectName(u"LblPage"_s);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(NewToolBar());
  column->addWidget(view_, 1);
  const QFontMetrics metrics(font());
  resize(QSize(metrics.averageCharWidth() * 150, metrics.lineSpacing() * 55)
             .boundedTo(screen()->availableSize() - QSize(40, 60)));
}

QToolBar* ReportPreview::NewToolBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbPreview"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](const ToolKey& key, void (ReportPreview::*handler)()) {
    return AddKey(*bar, key, [this, handler] { (this->*handler)(); });
  };
  add({u"CmdPrint"_s, u"print"_s, u"打印"_s, u"打印报表"_s, QKeySequence::Print}, &ReportPreview::Print);
  add({u"CmdPdf"_s, u"save"_s, u"导出 PDF"_s, u"将报表保存为 PDF 文件"_s, QKeySequence::Save}, &ReportPreview::SavePdf);
  add({u"CmdPageSetup"_s, u"table"_s, u"页面设置"_s, u"设置纸张、方向和页边距"_s, {}}, &ReportPreview::SetUpPage);
  add({u"CmdDesign"_s, u"mod"_s, u"设计"_s, u"修改报表的模板"_s, {}}, &ReportPreview::Design)
      ->setVisible(bool(Services().designReport));
  bar->addSeparator();
  first_ = add({u"CmdFirst"_s, u"firstpage"_s, {}, u"首页"_s, QKeySequence(Qt::CTRL | Qt::Key_Home)},
               &ReportPreview::GoToFirst);
  previous_ = add({u"CmdPrevious"_s, u"prepage"_s, {}, u"上一页"_s, QKeySequence(Qt::CTRL | Qt::Key_PageUp)},
                  &ReportPreview::GoToPrevious);
  bar->addWidget(page_);
  next_ = add({u"CmdNext"_s, u"nextpage"_s, {}, u"下一页"_s, QKeySequence(Qt::CTRL | Qt::Key_PageDown)},
              &ReportPreview::GoToNext);
  last_ =
      add({u"CmdLast"_s, u"lastpage"_s, {}, u"末页"_s, QKeySequence(Qt::CTRL | Qt::Key_End)}, &ReportPreview::GoToLast);
  bar->addSeparator();
  add({u"CmdZoomIn"_s, {}, u"放大"_s, u"放大显示"_s, QKeySequence::ZoomIn}, &ReportPreview::ZoomIn);
  add({u"CmdZoomOut"_s, {}, u"缩小"_s, u"缩小显示"_s, QKeySequence::ZoomOut}, &ReportPreview::ZoomOut);
  add({u"CmdFitWidth"_s, {}, u"页宽"_s, u"按页宽显示"_s, {}}, &ReportPreview::FitWidth);
  add({u"CmdFitPage"_s, {}, u"整页"_s, u"显示整页"_s, {}}, &ReportPreview::FitPage);
  return bar;
}

void ReportPreview::ShowPages() {
  printer_.setPageLayout(report_.pages.Layout());
  view_->updatePreview();
}

void ReportPreview::TellPage() {
  const int page = view_->currentPage(), pages = view_->pageCount();
  page_->setText(u" 第 %1 页，共 %2 页 "_s.arg(page).arg(pages));
  for (QAction* back : {first_, previous_}) back->setEnabled(page > 1);
  for (QAction* forward : {next_, last_}) forward->setEnabled(page < pages);
}

void ReportPreview::Print() {
  QPrintDialog dialog(&printer_, this);
  dialog.setOptions(QPrintDialog::PrintPageRange | QPrintDialog::PrintToFile);
  dialog.setMinMax(1, std::max(view_->pageCount(), 1));
  if (dialog.exec() != QDialog::Accepted) return;
  report_.pages.Print(printer_);
  printer_.setFromTo(0, 0);
  printer_.setPrintRange(QPrinter::AllPages);
}

void ReportPreview::SavePdf() {
  const QString path = AskForPath(u"导出 PDF"_s, QDir::home().filePath(FileName(report_.title)), u"PDF 文件|*.pdf"_s);
  if (path.isEmpty()) return;
  report_.pages.WritePdf(path, report_.title);
  Tell(u"报表已保存为 %1。"_s.arg(QDir::toNativeSeparators(path)), kInformation);
}

void ReportPreview::SetUpPage() {
  PageSetupDialog dialog(report_.pages.Layout(), this);
  if (dialog.exec() != QDialog::Accepted) return;
  report_.pages.SetLayout(dialog.Layout());
  KeepPageLayout(request_.reportId, dialog.Layout());
  ShowPages();
}

void ReportPreview::Design() {
  Services().designReport(request_);
  report_ = LayOutReport(request_);
  setWindowTitle(report_.title);
  ShowPages();
}

void ReportPreview::GoTo(int page) {
  view_->setCurrentPage(page);
  TellPage();
}

void ReportPreview::GoToFirst() { GoTo(1); }
void ReportPreview::GoToPrevious() { GoTo(view_->currentPage() - 1); }
void ReportPreview::GoToNext() { GoTo(view_->currentPage() + 1); }
void ReportPreview::GoToLast() { GoTo(view_->pageCount()); }
void ReportPreview::ZoomIn() { view_->zoomIn(); }
void ReportPreview::ZoomOut() { view_->zoomOut(); }
void ReportPreview::FitWidth() { view_->fitToWidth(); }
void ReportPreview::FitPage() { view_->fitInView(); }

}  // namespace folvane::reports
