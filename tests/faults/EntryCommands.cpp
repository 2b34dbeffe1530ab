#include <QListWidget>

#include "entry/FrmKeyOrder.h"
#include "entry/InputFixture.h"
#include "entry/KeyOrderFixture.h"
#include "faults/Trial.h"

namespace folvane::test {
namespace {

/// Records of Lwdj in the entry window, with a title and a number.
class InEntryWindow : public CommandIn<InputTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    AddRecords(3);
    Design({u"Amaintitle"_s, u"题名"_s});
    Design({u"DocNo"_s, u"文号"_s});
    Run(u"insert into Original_Text (ID,RecordID) values ('a','%1')"_s.arg(Key(2)));
  }

 protected:
  static void SaveTitle(Trial& trial, const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新题"_s);
    trial.Try([&] { input.Form().SaveData(); }, [&] { return input.Text(u"Txt(1)"_s) == u"新题"_s; });
    input.Form().CancelEdit();
  }
};

class ChangedRecord : public InEntryWindow {
 public:
  void Work(Trial& trial) override {
    InWindow([&](const Input& input) { SaveTitle(trial, input); });
  }
};

class NewlyEnteredRecord : public InEntryWindow {
 public:
  void Work(Trial& trial) override {
    InWindow([&](const Input& input) { SaveTitle(trial, input); }, true);
  }
};

class DeletedRecord : public InEntryWindow {
 public:
  void Work(Trial& trial) override {
    InWindow([&](const Input& input) { trial.Try([&] { input.Do(u"DelRecord"_s); }); }, false, 2);
  }
};

/// Words typed into two combo boxes, which go into their dictionaries as the window is closed.
class NewWords : public InEntryWindow {
 public:
  void Begin() override {
    InEntryWindow::Begin();
    Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb, 0, u"文本型"_s, 20, false, false, false, false, u"状态"_s});
    Run(u"insert into AssistantDictionary (DicID,Name) values ('d1','状态')"_s);
  }
  void Work(Trial& trial) override {
    InWindow([&](const Input& input) {
      input.Retype(u"Cmb(1)"_s, u"待办"_s);
      input.Form().SaveData();
      trial.Try([&] { input.Window().close(); });
    });
  }
};

class KeyOrderWindow : public CommandIn<KeyOrderFixture> {
 public:
  void Work(Trial& trial) override {
    FrmKeyOrder window;
    window.CurrTable = u"Lwdj"_s;
    WithWindow(u"FrmKeyOrder"_s, [&](QWidget& shown) {
      auto& list = Find<QListWidget>(shown, u"LstFieldList"_s);
      ClickItem(list, list.model()->index(2, 0));
      for (int step = 0; step < 2; ++step) Click(Find<QWidget>(shown, u"ImgUp"_s));
      trial.Try([&] { Click(Find<QWidget>(shown, u"CmdOK"_s)); }, [&] { return list.item(0)->text() == u"题名"_s; });
    });
    window.Open();
  }
};

}  // namespace

std::vector<CommandRow> EntryCommands() {
  return {Row<ChangedRecord>("save a changed record", Keeps::AllOrNothing, 1),
          Row<NewlyEnteredRecord>("save a new record", Keeps::AllOrNothing, 1),
          Row<DeletedRecord>("delete the record of the entry window", Keeps::Steps, 2),
          Row<NewWords>("add words to dictionaries", Keeps::AllOrNothing, 1),
          Row<KeyOrderWindow>("change the order of the keyboard", Keeps::AllOrNothing, 1)};
}

}  // namespace folvane::test
