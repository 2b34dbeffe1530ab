// A target of libFuzzer: any text is filled as the template of a report over a small table. What its values hold stays
// text.
#include <cstdlib>
#include <sqlite3.h>

#include <folvane/DataError.h>
#include <folvane/SqliteConnection.h>

#include "components/reports/Markers.h"
#include "components/reports/PageSetup.h"
#include "components/reports/ReportData.h"
#include "components/reports/TemplateFile.h"
#include "components/reports/TemplateFiller.h"

namespace {

using namespace folvane;
using namespace Qt::Literals::StringLiterals;

constexpr char kHostile[] = "<script src=x>{{#ROWS}}{{Title}}";

std::shared_ptr<Connection> Database() {
  static sqlite3* handle = nullptr;  // as long as the program
  sqlite3_open(":memory:", &handle);
  sqlite3_exec(handle,
               "CREATE TABLE DynamicWindows (TableName text,FieldName text,ChnFieldName text,FieldLong integer,"
               "FieldType text,ChnTableName text);CREATE TABLE ListViewFormat (TableName text,FieldName text,"
               "ChnFieldName text,ColumnWidth integer,OrderNo integer);CREATE TABLE Report_Index (Report_ID text,"
               "Report_Name text);CREATE TABLE Files (ArchiveID text PRIMARY KEY,RegID integer,Title text,Year text);",
               nullptr, nullptr, nullptr);
  for (const char* row :
       {"'1',1,'<script src=x>{{#ROWS}}{{Title}}','2002'", "'2',2,NULL,'2002'", "'3',3,'a\nb','2003'"})
    sqlite3_exec(handle, (QByteArray("INSERT INTO Files VALUES (") + row + ')').constData(), nullptr, nullptr, nullptr);
  return AdoptSqlite(handle);
}

const reports::ReportData& Data() {
  static const reports::ReportData data = [] {
    ReportRequest request;
    request.connection = Database();
    request.mainTable = request.secondTable = u"Files"_s;
    request.selection = u"RegID>0"_s;
    return reports::ReportData(request, u"RegID Asc"_s);
  }();
  return data;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
  try {
    reports::ReadPageLayout(reports::MetaOf(text, u"page"_s));
  } catch (const DataError&) {
    // no page set up
  }
  try {
    reports::MarkersOf(text);
    const QString html = reports::FillTemplate(text, Data());
    if (!text.contains("<script"_L1) && html.contains(QLatin1String(kHostile))) std::abort();
  } catch (const DataError&) {
    // a marker that is broken or not known
  }
  return 0;
}
