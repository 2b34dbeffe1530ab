// folvane-bench [NAME]                       measures everything, or what begins with the name, and prints the table
// folvane-bench --drawing FILE               draws what a table costs until its first page stands, over its rows, as
// SVG folvane-bench --case NAME ROWS DATABASE    measures one case in this process: milliseconds and MiB; the SQLite
// file
//                                            is made where there is none
#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <folvane/HostServices.h>

#include "bench/Cases.h"
#include "bench/Comparison.h"
#include "bench/Drawing.h"
#include "bench/SampleTable.h"

namespace {

using namespace folvane::bench;
using namespace Qt::Literals::StringLiterals;

int MeasureHere(const QString& name, const Setting& setting) {
  Cases cases = ReadingCases();
  cases.merge(WritingCases());
  cases.merge(PostgresCases());
  cases.merge(BrowserCases());
  cases.merge(EntryCases());
  cases.merge(BulkCases());
  cases.merge(FlowCases());
  cases.merge(OriginalsCases());
  cases.merge(ArchiveCases());
  cases.merge(ExchangeCases());
  cases.merge(FileCases());
  const auto found = cases.find(name);
  if (found == cases.end()) qFatal("there is no case %s", qPrintable(name));
  if (!QFile::exists(setting.database)) MakeSqliteTable(setting.database, setting.rows);
  Meter meter;
  found->second(setting, meter);
  QTextStream(stdout) << meter.Result().milliseconds << ' ' << meter.Result().mebibytes << Qt::endl;
  return 0;
}

/// A process of its own for each measurement, so that memory starts from the same place.
Sample MeasureApart(const QString& name, qint64 rows, const QString& database) {
  QProcess child;
  child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  child.start(QCoreApplication::applicationFilePath(), {u"--case"_s, name, QString::number(rows), database});
  if (!child.waitForFinished(-1) || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
    qFatal("the case %s failed", qPrintable(name));
  const QByteArrayList figures = child.readAllStandardOutput().trimmed().split(' ');
  return {figures.value(0).toDouble(), figures.value(1).toDouble()};
}

/// Measures cases over tables that it makes as they are needed.
class Measuring {
 public:
  Measuring() {
    for (const char* place : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"}) qputenv(place, folder_.path().toUtf8());
  }

  Sample operator()(const QString& name, qint64 rows) const {
    const QString database = folder_.filePath(u"%1.db"_s.arg(rows));
    if (!QFile::exists(database)) {
      MakeSqliteTable(database, rows);
      if (qEnvironmentVariableIsSet("FOLVANE_TEST_PG")) MakePostgresTable(rows);
    }
    return MeasureApart(name, rows, database);
  }

 private:
  QTemporaryDir folder_;
};

int MeasureAll(const QString& start, const Measuring& measure) {
  std::vector<Comparison> wanted = Comparisons();
  std::erase_if(wanted, [&](const Comparison& each) { return !each.subject.startsWith(start); });
  if (wanted.empty()) qFatal("nothing is measured that begins with %s", qPrintable(start));
  QTextStream out(stdout);
  for (const Comparison& comparison : wanted) Compare(comparison, std::cref(measure), out);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "default.warning=false");
  const QApplication application(argc, argv);
  folvane::Services().messageBox = [](const folvane::MessageRequest& asked) -> int {
    qFatal("a message box: %s", qPrintable(asked.text));
  };
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() == 5 && arguments[1] == u"--case"_s)
    return MeasureHere(arguments[2], {arguments[3].toLongLong(), arguments[4]});
  const Measuring measure;
  if (arguments.size() == 3 && arguments[1] == u"--drawing"_s) return DrawGrowth(arguments[2], std::cref(measure));
  return MeasureAll(arguments.value(1), measure);
}
