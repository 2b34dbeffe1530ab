#include "host/Program.h"

#include <QEventLoop>
#include <cstdio>

#include "host/LogOnDialog.h"
#include "host/ProgramFolder.h"
#include "host/StartWindow.h"

namespace folvane::host {
namespace {

// The last choices, with what the command line says in place of them.
LogOnChoices FirstChoices(const Options& options) {
  LogOnChoices choices = LastChoices();
  if (!options.database.isEmpty()) choices.file = options.database;
  if (!options.odbc.isEmpty()) choices.odbc = options.odbc;
  if (!options.database.isEmpty() || !options.odbc.isEmpty()) choices.useOdbc = options.database.isEmpty();
  if (!options.user.isEmpty()) choices.user = options.user;
  if (!options.kind.isEmpty()) choices.kind = options.kind;
  return choices;
}

std::unique_ptr<Session> LogOn(const LogOnChoices& choices, int records, bool withoutAsking) {
  LogOnDialog dialog(choices, [records] { return ProvideDemoDatabase(records); });
  if (withoutAsking) dialog.accept();
  if (dialog.result() != QDialog::Accepted) dialog.exec();
  return dialog.TakeSession();
}

// The start window until it is closed; true when another user wants to log on.
bool Work(Session& session) {
  StartWindow window(session, [&session](const Entry& entry) { (session.Library().*entry.open)(); });
  QEventLoop shown;
  bool again = false;
  QObject::connect(&window, &StartWindow::Finished, &shown, [&](bool logOnAgain) {
    again = logOnAgain;
    shown.quit();
  });
  window.show();
  shown.exec();
  return again;
}

}  // namespace

int Run(const Options& options) {
  LogOnChoices choices = FirstChoices(options);
  bool withoutAsking = !options.user.isEmpty() && !(options.database.isEmpty() && options.odbc.isEmpty());
  if (options.makeDemo) {
    try {
      choices.file = ProvideDemoDatabase(options.records);
      choices.useOdbc = false;
    } catch (const std::exception& error) {
      std::fprintf(stderr, "folvane-demo: %s\n", error.what());
      return 1;
    }
    withoutAsking = !options.user.isEmpty();
  }
  while (const auto session = LogOn(choices, options.records, withoutAsking)) {
    if (!Work(*session)) break;
    choices = LastChoices();
    withoutAsking = false;
  }
  return 0;
}

}  // namespace folvane::host
