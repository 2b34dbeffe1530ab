#include "archiving/FrmArchiveFixture.h"
#include "archiving/FrmSearchResultFixture.h"
#include "archiving/TransferFixture.h"
#include "entry/EntryArchiveFixture.h"
#include "faults/Trial.h"

namespace folvane::test {
namespace {

class RecordsArchived : public CommandIn<FrmArchiveTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    AddDocuments(3);
    for (const int number : {1, 2})
      design_->AddOriginal(DesignedDatabase::Key(number), QString::number(number), u"正文"_s, 1);
  }
  void Work(Trial& trial) override {
    InWindow([&](const ArchiveWindow& window) {
      window.Tick(1);
      window.Tick(3);
      Click(window.Box(u"Check2"_s));
      GiveYear(window);
      trial.Try([&] { window.Ok(); }, [&] { return window.IsTicked(1) && window.Text(u"Txt(1)"_s) == u"2002"_s; });
    });
  }
};

/// Documents with originals that go into a new volume.
class VolumeArchived : public CommandIn<TransferTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    AddDocuments(2);
    for (const int number : {1, 2})
      design_->AddOriginal(DesignedDatabase::Key(number), QString::number(number), u"原文"_s, 1);
    AddColumn(u"Wenshu"_s, u"Term varchar(10)"_s);
    AddColumn(u"Anjuan"_s, u"Term varchar(10)"_s);
    AddDictionary(u"Term"_s, u"永久"_s, u"1"_s);
    SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, false, 4},
               {u"Term"_s, u"永久"_s, u"-"_s, true, 2},
               {u"ItemNo"_s, QString(), u"-"_s, false, 4}},
              u"ArchNo"_s);
  }
  void End() override {
    transfer_.reset();
    CommandIn::End();
  }
  void Work(Trial& trial) override {
    TransferOrder order = Order();
    order.withOriginals = true;
    trial.Try([&] { Transfer(2, order); });
  }
};

/// The record in the entry window, which marks it in its own record set.
class CurrentArchived : public CommandIn<EntryArchiveTest> {
 public:
  void Work(Trial& trial) override {
    InWindow([&](const Input& input) { trial.TryFromArm([&] { GiveYearAndArchive(input, [&] { trial.Arm(); }); }); });
  }
};

class RecordsMerged : public CommandIn<FrmSearchResultTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    design_->Run(u"update Lwdj set Note='旧'"_s);
    AddOriginal(2, 1);
    AddOriginal(3, 1);
  }
  void Work(Trial& trial) override {
    InWindow([&](QWidget& window) {
      SearchByCondition(window, u"RegID < 4"_s);
      for (const int row : {1, 2}) Tick(window, row);
      trial.Try(
          [&] {
            Ok(window);
            trial.Hear(static_cast<FrmSearchResult&>(window).Outcome);
          },
          [&] { return IsTicked(window, 1); });
    });
  }
};

}  // namespace

std::vector<CommandRow> ArchiveCommands() {
  return {Row<RecordsArchived>("archive records with their originals", Keeps::AllOrNothing, 1),
          Row<VolumeArchived>("archive records into a new volume", Keeps::AllOrNothing, 1),
          Row<CurrentArchived>("archive the record of the entry window", Keeps::AllOrNothing, 1),
          Row<RecordsMerged>("merge records", Keeps::EachRow, 6)};
}

}  // namespace folvane::test
