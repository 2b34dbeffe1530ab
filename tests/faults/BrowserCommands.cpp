#include "browser/BrowserTest.h"
#include "data/Recordset.h"
#include "faults/Trial.h"
#include "query/frmfhfind.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Twelve records in the browser, three of which have originals.
class InBrowserWindow : public CommandIn<TwelveRecordsTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    for (const int number : {2, 11, 12})
      design_->AddOriginal(DesignedDatabase::Key(number), QString::number(90 + number), u"正文"_s, 1);
  }
};

class SelectedDeleted : public InBrowserWindow {
 public:
  explicit SelectedDeleted(int count) : count_(count) {}
  void Work(Trial& trial) override {
    InBrowser([&](const Browser& browser) {
      trial.TryFromArm([&] {
        ClickItem(browser.List(), browser.List().model()->index(0, 0));
        if (count_ > 1)
          ClickItem(browser.List(), browser.List().model()->index(count_ - 1, 0), Qt::LeftButton, Qt::ShiftModifier);
        trial.Arm();
        browser.Key(u"Del"_s).trigger();
      });
    });
  }

 private:
  int count_;
};

class QueriedDeleted : public InBrowserWindow {
 public:
  void Work(Trial& trial) override {
    InBrowser([&](const Browser& browser) {
      trial.TryFromArm([&] {
        WithWindow(u"frmfhfind"_s, [&](QWidget& window) {
          static_cast<frmfhfind&>(window).ReturnSql = u"Lwdj.RegID <= '3'"_s;
          trial.Arm();
          window.hide();
        });
        browser.Entry(u"mnu_Tool2_BDel"_s).trigger();
      });
    });
  }
};

class SortedColumn : public InBrowserWindow {
 public:
  void Work(Trial& trial) override {
    InBrowser([&](const Browser& browser) {
      trial.TryFromArm([&] {
        if (browser.List().model()->rowCount() == 0) browser.Key(u"Refresh"_s).trigger();  // as the empty list says
        // A second click would turn the order round, also where the first one could not be kept.
        if (browser.Captions().first().startsWith(u'↑')) browser.ClickColumn(1);
        trial.Arm();
        browser.ClickColumn(0);
      });
    });
  }
};

class FileImported : public InBrowserWindow {
 public:
  void Begin() override {
    InBrowserWindow::Begin();
    design_->AddPlainTable(u"Kjwj"_s, u"科技文件"_s, 2);
    design_->AddRecords(u"Kjwj"_s, 15);
    Recordset records;
    records.Open(u"Select * From Kjwj Order By ArchiveID"_s, Connected());
    records.Save(program_.Path(u"exchange.Dat"_s));
  }
  void Work(Trial& trial) override {
    FileDialogs files;
    for (int times = 0; times < 2; ++times) files.Answer(program_.Path(u"exchange.Dat"_s));
    InBrowser([&](const Browser& browser) { trial.Try([&] { browser.Entry(u"mnu_File2_Open"_s).trigger(); }); });
  }
};

}  // namespace

std::vector<CommandRow> BrowserCommands() {
  return {Row<SelectedDeleted>("delete a record with its originals", Keeps::Steps, 2, 1),
          Row<SelectedDeleted>("delete many records with their originals", Keeps::Steps, 2, 3),
          Row<QueriedDeleted>("delete what a query finds", Keeps::Steps, 2),
          Row<SortedColumn>("sort by a column", Keeps::AllOrNothing, 1),
          Row<FileImported>("import a file of records", Keeps::AllOrNothing, 1)};
}

}  // namespace folvane::test
