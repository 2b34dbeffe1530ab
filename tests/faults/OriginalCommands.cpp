#include <QTreeView>

#include <folvane/HostServices.h>

#include "browser/BrowserTest.h"
#include "components/originals/StoreCheck.h"
#include "faults/Trial.h"
#include "originals/OriginalStore.h"
#include "originalswork/WorkFixture.h"

namespace folvane::test {
namespace {

/// The originals of a record in a directory; whatever fails, no row is left without its file.
class InOriginals : public CommandIn<WorkTest> {
 public:
  void End() override {
    const auto findings = originals::CheckStore(*Connected(), *OpenOriginalFiles(Request()),
                                                [](const QString&, qint64, qint64) { return true; });
    EXPECT_TRUE(findings && findings->missingFiles.empty()) << "a row without its file";
    CommandIn::End();
  }

 protected:
  OriginalsRequest RequestOver(Trial& trial, const QString& action = {}) {
    OriginalsRequest request = Request(action);
    request.connection = trial.Connected();
    return request;
  }
};

class OriginalAdded : public InOriginals {
 public:
  void Work(Trial& trial) override {
    OriginalsRequest dropped = RequestOver(trial, u"AddState"_s);
    dropped.files = QStringList{Source(u"一.pdf"_s, "1")};
    WithWindow(u"frmAddOriginals"_s, [&](QWidget& window) {
      const QAbstractItemModel& files = *Find<QTreeView>(window, u"LvFiles"_s).model();
      trial.Try(
          [&] {
            // A file stays where the database could not even tell whether it has the row, and keeps its name taken.
            QDir(StoreRoot()).removeRecursively();
            QDir().mkpath(StoreRoot());
            Click(Find(window, u"CmdAdd"_s));
            if (window.isVisible()) trial.Hear(files.index(0, 3).data().toString());  // what became of the file
          },
          [&] { return files.rowCount() == 1; });
    });
    Services().handleOriginals(dropped);
  }
};

class OriginalManaged : public InOriginals {
 public:
  void Begin() override {
    InOriginals::Begin();
    FixRandom({0.121212, 0.232323, 0.343434, 0.454545});
    for (const QString& name : {u"甲.txt"_s, u"乙.txt"_s}) Added(name);
  }

 protected:
  void InManager(Trial& trial, const QString& key) {
    WithWindow(u"frmOriginals"_s, [&](QWidget& window) {
      auto& list = Find<QTreeView>(window, u"LvOriginals"_s);
      trial.TryFromArm([&] {
        ClickItem(list, list.model()->index(0, 0));
        trial.Arm();
        FindAction(window, u"TlbOriginals"_s, key).trigger();
      });
    });
    Services().handleOriginals(RequestOver(trial));
  }
};

class OriginalDeleted : public OriginalManaged {
 public:
  void Work(Trial& trial) override { InManager(trial, u"CmdDelete"_s); }
};

class OriginalMoved : public OriginalManaged {
 public:
  void Work(Trial& trial) override { InManager(trial, u"CmdDown"_s); }
};

class OriginalDeletedInBrowser : public CommandIn<TwelveRecordsTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    for (const QString& id : {u"91"_s, u"92"_s}) design_->AddOriginal(DesignedDatabase::Key(12), id, u"正文"_s, 1);
  }
  void Work(Trial& trial) override {
    InBrowser([&](const Browser& browser) {
      trial.TryFromArm([&] {
        ClickItem(browser.List(), browser.List().model()->index(0, 0));
        ClickItem(browser.View(u"LVFile"_s), browser.View(u"LVFile"_s).model()->index(0, 0));
        trial.Arm();
        browser.Entry(u"mnu_Pop4_DelFile"_s).trigger();
      });
    });
  }
};

/// The first start of an installation, which has no setting of the store yet.
class StoreSettled : public CommandIn<DesignTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    Shared().DatabaseKind = u"OTHER"_s;
  }
  void Work(Trial& trial) override {
    trial.Try([] { InitOriginalStore(); });
  }
};

}  // namespace

std::vector<CommandRow> OriginalCommands() {
  return {Row<OriginalAdded>("add an original", Keeps::AllOrNothing, 1),
          Row<OriginalDeleted>("delete an original", Keeps::AllOrNothing, 1),
          Row<OriginalMoved>("change the order of originals", Keeps::AllOrNothing, 1),
          Row<OriginalDeletedInBrowser>("delete an original in the browser", Keeps::AllOrNothing, 1),
          Row<StoreSettled>("make the setting of the store", Keeps::AllOrNothing, 1)};
}

}  // namespace folvane::test
