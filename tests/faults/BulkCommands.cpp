#include "bulk/FrmBactchUpdate.h"
#include "bulk/ReplaceWindowFixture.h"
#include "faults/Trial.h"
#include "records/DesignedDatabase.h"
#include "shell/LoadedWindow.h"

namespace folvane::test {
namespace {

/// The dialog of the batch update over five titles, two of which are empty.
class InBatchUpdate : public CommandIn<DesignTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    parameters_.Add(u"Lwdj"_s);
    parameters_.Select(1);
    int number = 0;
    for (const QString& title : {u"甲"_s, u"<null>"_s, u"甲乙"_s, QString(), u"乙甲"_s}) {
      ++number;
      design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle"_s,
                      {DesignedDatabase::Key(number), QString::number(number), title});
    }
  }

 protected:
  void Replace(Trial& trial, const QString& found) {
    Shared().CurrentRecords.Open(u"Select * From Lwdj Order By ArchiveID"_s, trial.Connected());
    const LoadedWindow<FrmBactchUpdate> window;
    window->TableName = u"Lwdj"_s;
    window->vsPos = 1;
    window->Parameters = &parameters_;
    WithWindow(u"FrmBactchUpdate"_s, [&](QWidget& shown) {
      auto& field = Find<QComboBox>(shown, u"Cbo_Field"_s);
      field.setFocus();
      for (int step = 0; step < 2; ++step) Press(field, Qt::Key_Down);
      if (!found.isEmpty()) Type(Find<QWidget>(shown, u"Cbo_Find"_s), found);
      Type(Find<QWidget>(shown, u"TxtValue"_s), u"丙"_s);
      trial.Try([&] { Click(Find<QWidget>(shown, u"CmdOK"_s)); },
                [&] { return TextIn(shown, u"TxtValue"_s) == u"丙"_s; });
    });
    window->Open();
  }

 private:
  TableParameters parameters_;
};

class EmptyFieldsFilled : public InBatchUpdate {
 public:
  void Work(Trial& trial) override { Replace(trial, {}); }
};

class ValuesReplacedByWalk : public InBatchUpdate {
 public:
  void Work(Trial& trial) override { Replace(trial, u"甲"_s); }
};

class InReplaceWindow : public CommandIn<ReplaceWindowTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    AddRecords(4);
  }

 protected:
  void Replace(Trial& trial, const QString& key) {
    WithReplace([&](const Input&, const Replacing& replacing) {
      replacing.Enter(u"CboFindTxt"_s, u"题名"_s);
      replacing.Enter(u"CboRelaceTxt"_s, u"标题"_s);
      trial.Try([&] { replacing.Do(key); }, [&] { return TextIn(replacing.Window(), u"CboRelaceTxt"_s) == u"标题"_s; });
    });
  }
};

class HitReplaced : public InReplaceWindow {
 public:
  void Work(Trial& trial) override { Replace(trial, u"CmdReplace"_s); }
};

class AllHitsReplaced : public InReplaceWindow {
 public:
  void Work(Trial& trial) override { Replace(trial, u"CmdReplaceAll"_s); }
};

}  // namespace

std::vector<CommandRow> BulkCommands() {
  return {Row<EmptyFieldsFilled>("fill empty fields", Keeps::Steps, 2),
          Row<ValuesReplacedByWalk>("replace in the listed records", Keeps::EachRow, 1),
          Row<HitReplaced>("replace a hit", Keeps::AllOrNothing, 1),
          Row<AllHitsReplaced>("replace all hits", Keeps::EachRow, 1)};
}

}  // namespace folvane::test
