// The window of circulation over as many sheets as the table has rows, and a report of all rows as a PDF file.
#include <QApplication>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTimer>

#include <folvane/ReportRequest.h>
#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "catalogue/Ddl.h"
#include "components/reports/ReportEngine.h"
#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "flows/FlowWindow.h"
#include "shell/SharedState.h"

namespace folvane::bench {
namespace {
using namespace Qt::Literals::StringLiterals;

/// A sheet for each record, once for each file; all on their routes, so that closing the window writes none back.
std::shared_ptr<folvane::Connection> WithSheets(const Setting& setting) {
  const std::shared_ptr<folvane::Connection> connection = AdoptSqlite(OpenSqlite(setting.database));
  if (!DatabaseSession::Of(*connection).Table(u"PassRead_File"_s)) CreateCatalogue(*connection);
  Recordset count;
  count.Open(u"Select Count(*) From PassRead_File"_s, connection);
  if (count.Fields().Item(0).Text() == u"0"_s)
    connection->Execute(
        u"Insert Into PassRead_File (Register_ID, File_ID, File_Table, PassRead_ID, PassRead_Status, MainTitle) "
        "Select ArchiveID, ArchiveID, 'Records', ArchiveID, '传阅中', Title From Records"_s);
  Shared().Connection = connection;
  Shared().UserId = u"1"_s;
  return connection;
}

void OpenSheets(const Setting& setting, Meter& meter) {
  const std::shared_ptr<folvane::Connection> connection = WithSheets(setting);
  QTimer::singleShot(0, [&meter] {
    QWidget* window = QApplication::activeModalWidget();
    if (!window) qFatal("the window did not open");
    window->repaint();
    meter.Stop();
    window->close();
  });
  meter.Start();
  ShowCirculation();
}

void SheetsRaw(const Setting& setting, Meter& meter) {
  WithSheets(setting);
  ReadAllRaw(setting, "SELECT * FROM PassRead_File", meter);
}

void ReportToPdf(const Setting& setting, Meter& meter) {
  ReportRequest request;
  request.connection = WithSheets(setting);
  request.mainTable = u"PassRead_File"_s;
  request.reportId = u"none"_s;
  const QTemporaryDir folder;
  meter.Start();
  const reports::LaidOutReport report = reports::LayOutReport(request);
  report.pages.WritePdf(folder.filePath(u"report.pdf"_s), report.title);
  meter.Stop();
}

/// The same texts as one table of a rich text, which Qt itself lays out and cuts into pages.
void TableToPdf(const Setting& setting, Meter& meter) {
  const std::shared_ptr<folvane::Connection> connection = WithSheets(setting);
  const QTemporaryDir folder;
  meter.Start();
  Recordset sheets;
  sheets.Open(u"Select * From PassRead_File"_s, connection);
  QString html = u"<table border=1>"_s;
  for (; !sheets.EOF_(); sheets.MoveNext()) {
    html += u"<tr>"_s;
    for (int field = 0; field < sheets.Fields().Count(); ++field)
      html += u"<td>"_s + sheets.Fields().Item(field).Text().toHtmlEscaped() + u"</td>"_s;
    html += u"</tr>"_s;
  }
  QTextDocument document;
  document.setHtml(html + u"</table>"_s);
  QPdfWriter writer(folder.filePath(u"table.pdf"_s));
  document.print(&writer);
  meter.Stop();
}

}  // namespace

Cases FlowCases() {
  return {{u"flow-open"_s, OpenSheets},
          {u"flow-raw"_s, SheetsRaw},
          {u"report-pdf"_s, ReportToPdf},
          {u"table-pdf"_s, TableToPdf}};
}

}  // namespace folvane::bench
