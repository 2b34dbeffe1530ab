#include "host/tour/ExchangeWork.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <folvane/HostServices.h>

#include "host/demo/DemoDatabase.h"
#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kOkAnswer = 1;
constexpr int kSecondRecords = 300;

QString ExchangeFile() { return Services().programDirectory + u"/Data/来文.Dat"_s; }
QString SecondDatabase() { return Services().programDirectory + u"/second/demo.db"_s; }

// Native dialogs take no input from a program.
void AnswerFileDialog(bool save) {
  Services().fileDialog = [save](const FileRequest& request) {
    Expect(request.save == save, u"the other dialog"_s);
    Expect(QDir(request.directory).exists(), u"no folder “%1”"_s.arg(request.directory));
    Services().fileDialog = {};
    return ExchangeFile();
  };
}

void MakeSecondDatabase() {
  QDir().mkpath(QFileInfo(SecondDatabase()).path());
  demo::DemoOptions options;
  options.records = kSecondRecords;
  options.seed = 2;
  options.today = Services().now().date();
  demo::MakeDemoFile(SecondDatabase(), options);
}

void UseFile(const QString& path) {
  In<QRadioButton>(kLogOn, u"OptFile"_s).setChecked(true);
  auto& file = In<QLineEdit>(kLogOn, u"TxtFile"_s);
  hands::Retype(file, path);
  Q_EMIT file.editingFinished();
}

// What the log-on window offered before the second database.
struct FirstChoice {
  QString file;
  bool isOdbc = false;
};

FirstChoice& First() {
  static FirstChoice choice;
  return choice;
}

}  // namespace

void PlanSaving(Tour& tour) {
  tour.Step(u"save the documents in view to a file"_s, OnTop(kBrowser), [] {
    AnswerFileDialog(true);
    ChooseEntry(kBrowser, u"mnu_File5_Save"_s);
  });
  tour.Step(
      u"the file is there"_s, [] { return AnswerKey(kOkAnswer) != nullptr; },
      [&tour] {
        tour.Picture(*AnswerKey(kOkAnswer)->window(), u"saved-file"_s);
        Expect(QFileInfo(ExchangeFile()).size() > 0, ExchangeFile());
        hands::Click(*AnswerKey(kOkAnswer));
      });
  tour.Step(u"go on in the browser"_s, OnTop(kBrowser), [] { Window(kBrowser).activateWindow(); });
}

void PlanSecondDatabase(Tour& tour) {
  tour.Step(u"choose a second database"_s, Shown(kLogOn), [] {
    First() = {In<QLineEdit>(kLogOn, u"TxtFile"_s).text(), In<QRadioButton>(kLogOn, u"OptOdbc"_s).isChecked()};
    MakeSecondDatabase();
    UseFile(SecondDatabase());
  });
}

void PlanFirstDatabase(Tour& tour) {
  tour.Step(u"go back to the first database"_s, Shown(kLogOn), [] {
    UseFile(First().file);
    if (First().isOdbc) In<QRadioButton>(kLogOn, u"OptOdbc"_s).setChecked(true);
  });
}

void PlanTaking(Tour& tour) {
  const auto before = std::make_shared<int>(0);
  tour.Step(u"take the file in"_s, Shown(kBrowser), [before] {
    Refresh();
    *before = PositionAndCount().second;
    AnswerFileDialog(false);
    ChooseEntry(kBrowser, u"mnu_File2_Open"_s);
  });
  tour.Step(
      u"its documents were taken"_s, [] { return AnswerKey(kOkAnswer) != nullptr; },
      [&tour] {
        tour.Picture(*AnswerKey(kOkAnswer)->window(), u"taken-file"_s);
        hands::Click(*AnswerKey(kOkAnswer));
      });
  tour.Step(u"they stand in the list"_s, OnTop(kBrowser), [&tour, before] {
    Expect(PositionAndCount().second > *before, Position());
    tour.Picture(Window(kBrowser), u"taken"_s);
    Window(kBrowser).activateWindow();
  });
}

}  // namespace folvane::host
