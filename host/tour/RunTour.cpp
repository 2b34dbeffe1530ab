#include "host/tour/RunTour.h"

#include <QHash>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>

#include <folvane/HostServices.h>

#include "host/Program.h"
#include "host/ProgramFolder.h"
#include "host/demo/DemoDatabase.h"
#include "host/tour/Tour.h"
#include "host/tour/Walk.h"

namespace folvane::host {
namespace {

// A registry that is gone with the tour.
class TourRegistry : public RegistryStore {
 public:
  QString Read(const QString& key, const QString& name) const override { return texts_.value(KeyOf(key, name)); }
  void Write(const QString& key, const QString& name, const QString& text) override { texts_[KeyOf(key, name)] = text; }

 private:
  static QString KeyOf(const QString& key, const QString& name) { return (key + u'\\' + name).toLower(); }
  QHash<QString, QString> texts_;
};

}  // namespace

int RunTour(const Options& options) {
  const QTemporaryDir home;
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
  Services().programDirectory = home.path();
  Services().registry = std::make_shared<TourRegistry>();
  // One day for the demo's documents and for "this year".
  Services().now = [] { return QDateTime(QDate(2026, 6, 18), QTime(9, 30)); };

  Options program = options;
  program.tour.clear();
  if (options.database.isEmpty() && options.odbc.isEmpty())
    program.database = ProvideDemoDatabase(options.records);
  else
    demo::WriteDemoProfiles(home.path());

  Tour tour(options.tour);
  PlanWalk(tour);
  tour.Start();
  const int code = Run(program);
  if (!tour.Completed()) {
    std::fprintf(stdout, "The tour did not come to its end.\n");
    return code ? code : 1;
  }
  return code;
}

}  // namespace folvane::host
