// folvane-make-demo: makes the demo database in a SQLite file or behind an ODBC connection.

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>
#include <stdexcept>

#include <folvane/OdbcConnection.h>

#include "host/demo/DemoDatabase.h"
#include "host/demo/OdbcHandle.h"

namespace {
using namespace Qt::Literals::StringLiterals;
using folvane::demo::DemoOptions;

void ShowProgress(int done, int total) {
  std::fprintf(stderr, "\r%d / %d", done, total);
  if (done == total) std::fputc('\n', stderr);
}

void Make(const QCommandLineParser& arguments) {
  DemoOptions options;
  options.progress = ShowProgress;
  options.replace = arguments.isSet(u"force"_s);
  options.storeDirectory = arguments.value(u"store"_s);
  bool isNumber = true, isSeed = true;
  if (arguments.isSet(u"records"_s)) options.records = arguments.value(u"records"_s).toInt(&isNumber);
  if (arguments.isSet(u"seed"_s)) options.seed = arguments.value(u"seed"_s).toULongLong(&isSeed);
  if (arguments.isSet(u"today"_s)) options.today = QDate::fromString(arguments.value(u"today"_s), Qt::ISODate);
  if (!isNumber || !isSeed || !options.today.isValid())
    throw std::invalid_argument("--records and --seed are numbers, --today is YYYY-MM-DD");

  if (arguments.isSet(u"sqlite"_s)) {
    folvane::demo::MakeDemoFile(arguments.value(u"sqlite"_s), options);
  } else {
    const folvane::demo::OdbcHandle handle(arguments.value(u"odbc"_s));
    if (!handle.Connected())
      throw std::runtime_error(folvane::demo::Diagnosis(SQL_HANDLE_DBC, handle.Get()).toStdString());
    folvane::demo::MakeDemoDatabase(*folvane::AdoptOdbc(handle.Get()), options);
  }
  if (arguments.isSet(u"profile-dir"_s)) folvane::demo::WriteDemoProfiles(arguments.value(u"profile-dir"_s));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QCommandLineParser arguments;
  arguments.setApplicationDescription(u"Makes a demo database with the documents of an invented records office."_s);
  arguments.addHelpOption();
  arguments.addOptions({
      {u"sqlite"_s, u"SQLite file to make."_s, u"path"_s},
      {u"odbc"_s, u"ODBC connection string of an empty PostgreSQL database."_s, u"string"_s},
      {u"records"_s, u"Records over all tables, 100 to 1000000 (2000)."_s, u"number"_s},
      {u"seed"_s, u"The same seed and day make the same database (1)."_s, u"number"_s},
      {u"today"_s, u"The day on which the data ends (today)."_s, u"YYYY-MM-DD"_s},
      {u"store"_s, u"Directory for the originals (Data beside the SQLite file)."_s, u"directory"_s},
      {u"profile-dir"_s, u"Directory to write YearFormula.Ini to."_s, u"directory"_s},
      {u"force"_s, u"Replace what is there."_s},
  });
  arguments.process(application);
  if (arguments.isSet(u"sqlite"_s) == arguments.isSet(u"odbc"_s)) {
    std::fputs("folvane-make-demo: give either --sqlite or --odbc\n", stderr);
    return 2;
  }
  try {
    Make(arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "folvane-make-demo: %s\n", error.what());
    return 1;
  }
  return 0;
}
