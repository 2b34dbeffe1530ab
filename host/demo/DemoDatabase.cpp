#include "host/demo/DemoDatabase.h"

#include <QDir>
#include <stdexcept>

#include "catalogue/Catalogue.h"
#include "catalogue/Ddl.h"
#include "catalogue/RowWriter.h"
#include "host/demo/ClerkTraces.h"
#include "host/demo/DemoDesign.h"
#include "host/demo/EventRecords.h"
#include "host/demo/IncomingRecords.h"
#include "host/demo/OutgoingRecords.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

// Where the originals lie, and that it is the demo database, which wants no passwords.
void WriteSettings(Connection& connection, const QString& directory) {
  RowWriter settings(connection, u"Report_Info"_s, {u"Report_Id"_s, u"Info_Type"_s, u"Info_Description"_s, u"note"_s});
  settings.Add({u"demo"_s, QString(), QString(), QString()});
  if (!directory.isEmpty())
    settings.Add({u"2002123456789"_s, QString(), QDir::toNativeSeparators(directory), QString()});
  settings.Finish();
}

void WriteRecords(Connection& connection, const DemoOptions& options, const Design& design, const QString& store) {
  constexpr int kRecordsToReport = 10'000;
  const Plan plan = Plan::For(options.records, options.today);
  const Words words(design);
  Random random(options.seed);
  Originals originals(connection, store, plan.first, random);
  FlowSheets sheets(connection, words, plan.today, random);
  int done = 0;
  const auto recordDone = [&] {
    if (options.progress && ++done % kRecordsToReport == 0) options.progress(done, options.records);
  };
  const RecordContext around{connection, plan, words, random, originals, sheets, recordDone};
  VolumeRecords volumes(connection, plan, words, random, originals);
  IncomingRecords(around, volumes).Write();
  volumes.Finish();
  SingleRecords singles(around);
  OutgoingRecords(around, singles).Write();
  singles.Finish();
  WriteEvents(around);
  originals.Finish();
  sheets.Finish();
}

}  // namespace

void MakeDemoDatabase(Connection& connection, const DemoOptions& options) {
  if (options.records < Plan::kFewest || options.records > Plan::kMost)
    throw std::invalid_argument("the demo has 100 to 1000000 records");
  const QString store = options.storeDirectory.isEmpty() ? QString() : QDir(options.storeDirectory).absolutePath();
  const Design design = DemoDesign();
  Transaction transaction(connection);
  if (options.replace) {
    for (const Table& table : CatalogueTables()) DropTable(connection, table.name);
    DropTables(connection, design);
  }
  CreateCatalogue(connection);
  MakeTables(connection, design);
  WriteClerkTraces(connection, design);
  WriteSettings(connection, store);
  WriteRecords(connection, options, design, store);
  MakeIndexes(connection);
  transaction.Commit();
  if (options.progress) options.progress(options.records, options.records);
}

}  // namespace folvane::demo
