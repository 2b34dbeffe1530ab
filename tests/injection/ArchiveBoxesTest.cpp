// Hostile texts in the boxes of the archive window and the windows around it.
#include <optional>

#include "archiving/FrmArchiveFixture.h"
#include "archiving/FrmSearchResultFixture.h"
#include "archiving/TransferFixture.h"
#include "injection/Watched.h"

namespace folvane::test {
namespace {

class ArchiveBoxesTest : public FrmArchiveTest {
 protected:
  void SetUp() override {
    FrmArchiveTest::SetUp();
    canaries_.emplace(Database(), program_);
    design_->AddRecords(u"Lwdj"_s, 2);
    design_->Run(u"update Lwdj set FileStatus='需归档'"_s);
    InWindow([](const ArchiveWindow&) {});  // keeps the orders of the lists
  }
  void TearDown() override {
    canaries_.reset();
    FrmArchiveTest::TearDown();
  }
  /// A box from which a record is archived; the value is found in the year of the archived one.
  Box YearBox(const std::string& name, std::function<QString(const QString&)> enter) {
    return {name, std::move(enter), [this] { return design_->Value(u"select FileYear from Wsda"_s); },
            [this] {
              Database().Native(u"delete from Wsda"_s);
              Database().Native(u"update Lwdj set FileStatus='需归档'"_s);
            }};
  }
  bool WasTold() {
    const QStringList texts = boxes_.Texts();
    boxes_.Clear();
    return !texts.filter(u"不能使用单引号"_s).isEmpty() || !texts.filter(u"操作不成功"_s).isEmpty() ||
           !texts.filter(u"请输入"_s).isEmpty();
  }

  std::optional<Canaries> canaries_;
};
FOLVANE_ON_EACH_DATABASE(ArchiveBoxesTest);

class VolumeTitlesTest : public TransferTest {};
FOLVANE_ON_EACH_DATABASE(VolumeTitlesTest);

class MergeBoxesTest : public FrmSearchResultTest {};
FOLVANE_ON_EACH_DATABASE(MergeBoxesTest);

}  // namespace

TEST_P(ArchiveBoxesTest, AFieldOfTheNumberGoesIntoTheArchiveAsItIsOrIsTold) {
  TryBox(Database(),
         YearBox("panel",
                 [this](const QString& text) {
                   QString typed;
                   InWindow([&](const ArchiveWindow& window) {
                     window.Tick(1);
                     typed = PasteInto(window.Window(), u"Txt(1)"_s, text);
                     window.Ok();
                     ExpectNoMarkup(window.Window(), "archive window");
                   });
                   return typed;
                 }),
         SomeHostileLines(), [this] { return WasTold(); });
  TryBox(Database(),
         YearBox("dialog",
                 [this](const QString& text) {
                   QString typed;
                   InWindow([&](const ArchiveWindow& window) {
                     window.Tick(1);
                     WithWindow(u"FrmArchivePara"_s, [&](QWidget& asked) {
                       typed = PasteInto(asked, u"Txt(1)"_s, text);
                       Click(Find<QWidget>(asked, u"CmdOK"_s));
                       ExpectNoMarkup(asked, "parameters");
                     });
                     window.Entry(u"mnuArchive"_s).trigger();
                   });
                   return typed;
                 }),
         SomeHostileLines(), [this] { return WasTold(); });
}

TEST_P(VolumeTitlesTest, ATitleGoesIntoTheVolumeAsItIs) {
  AddDocuments(1);
  const Box box{"title",
                [this](const QString& text) {
                  volumeTitle_ = text;
                  Transfer(1);
                  return text;
                },
                [this] { return design_->Value(u"select Amaintitle from Anjuan"_s); },
                [this] {
                  for (const QString& table : {u"Wenshu"_s, u"Anjuan"_s}) Database().Native(u"delete from "_s + table);
                  Database().Native(u"update Fwdj set FileStatus='需归档'"_s);
                }};
  TryBox(Database(), box, HostileLines(), [] { return false; });
}

TEST_P(MergeBoxesTest, WhatIsSearchedForFindsNothingElse) {
  const QString told = InWindow([&](QWidget& window) {
    const Box box{"search",
                  [&](const QString& text) {
                    WithWindow(u"frmSimFind"_s, [&](QWidget& query) {
                      PasteInto(query, u"F_Sim(1)"_s, text);
                      Click(Find<QWidget>(query, u"CmdOK"_s));
                      query.close();
                    });
                    Click(Find<QWidget>(window, u"CmdSearch"_s));
                    ExpectNoMarkup(window, "merge");
                    return QString::number(0);
                  },
                  [&] { return QString::number(Loaded(window)); }, [] {}};
    TryBox(Database(), box, SomeHostileLines(), [this] {
      const bool was = !boxes_.Texts().isEmpty();
      boxes_.Clear();
      return was;
    });
  });
}

}  // namespace folvane::test
