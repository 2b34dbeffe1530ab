#pragma once

#include <QProcess>
#include <memory>
#include <string>

#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "components/reports/ReportEngine.h"
#include "host/demo/DemoDatabase.h"
#include "support/HostDoubles.h"
#include "support/OneOnEachDatabase.h"
#include "support/TestDatabase.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// The words of a PDF file as its text is stored, without white space.
inline QString TextOfPdf(const QString& path) {
  QProcess reader;
  reader.start(u"pdftotext"_s, {u"-raw"_s, u"-enc"_s, u"UTF-8"_s, path, u"-"_s});
  reader.waitForFinished();
  EXPECT_EQ(reader.exitCode(), 0) << "pdftotext, of poppler-utils";
  return QString::fromUtf8(reader.readAllStandardOutput()).remove(u' ').remove(u'\n').remove(u'\f');
}

/// A demo of 600 records that ends on 20 November 2026, one on each database for all cases, which leave it as it was; a
/// folder of the test's own for templates; the clock stands on that day.
class EngineTest : public testing::TestWithParam<std::string> {
 protected:
  struct Demo {
    std::unique_ptr<TestDatabase> database;
    std::shared_ptr<folvane::Connection> connection;

    explicit Demo(const std::string& kind) : database(TestDatabase::Create(kind)), connection(database->Connect()) {
      demo::DemoOptions options;
      options.records = 600;
      options.today = QDate(2026, 11, 20);
      demo::MakeDemoDatabase(*connection, options);
    }
  };

  void SetUp() override {
    demo_ = &OneOnEachDatabase<Demo>::Of(GetParam());
    FixClock(QDateTime(QDate(2026, 11, 20), QTime(9, 30)));
  }

  const std::shared_ptr<folvane::Connection>& Connected() const { return demo_->connection; }
  TestDatabase& Database() const { return *demo_->database; }
  ResultSet Select(const QString& statement) const { return {*Connected(), statement}; }
  QString First(const QString& statement) const { return Select(statement).Text(0, 0); }

  ReportRequest Request(const QString& table, const QString& selection, const QString& id = u"none"_s) const {
    ReportRequest request;
    request.connection = Connected();
    request.mainTable = request.secondTable = table;
    request.reportId = id;
    request.selection = selection;
    request.userName = u"王明"_s;
    return request;
  }
  void WriteTemplate(const QString& id, const QString& text) {
    program_.Write(u"Reports/"_s + id + u".html"_s, text.toUtf8());
  }
  /// The words of the report's PDF file.
  QString Printed(const ReportRequest& request) {
    const QString path = program_.Path(u"report.pdf"_s);
    reports::LayOutReport(request).pages.WritePdf(path, u"report"_s);
    return TextOfPdf(path);
  }
  /// The text of the error that a report ends with, "" without one.
  static QString Refusal(const ReportRequest& request) {
    try {
      reports::LayOutReport(request);
    } catch (const DataError& error) {
      return error.Message();
    }
    return {};
  }

  TempProgramDirectory program_;

 private:
  Demo* demo_ = nullptr;
};

}  // namespace folvane::test
