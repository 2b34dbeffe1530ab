#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QTabWidget>

#include "archiving/FrmArchiveFixture.h"

// The settings on their way through the archive window, into an archive.
namespace folvane::test {
namespace {

class ArchiveSettingsTest : public FrmArchiveTest {};
FOLVANE_ON_EACH_DATABASE(ArchiveSettingsTest);

TEST_P(ArchiveSettingsTest, WhatIsSetUpIsArchivedAtOnceUnderTheNumberOfTheExample) {
  AddDocuments(2, u"Fwdj"_s);
  QString example;
  WindowSteps steps = [&](QWidget& settings) {
    WithWindow(u"FrmTransferSet"_s, [](QWidget& dialog) {
      for (const auto& [name, table] :
           {std::pair{u"CmbSource"_s, u"Fwdj"_s}, std::pair{u"CmbDestination"_s, u"Wsda"_s}}) {
        auto& choice = Find<QComboBox>(dialog, name);
        choice.setCurrentIndex(choice.findData(table));
      }
      Press(dialog, Qt::Key_Return);
    });
    Press(Find(settings, u"LvSets"_s), Qt::Key_Insert);
    WaitUntil([&] { return settings.isActiveWindow(); });
    Press(settings, Qt::Key_G, Qt::ControlModifier);
    Find<QTabWidget>(settings, u"TabSettings"_s).setCurrentIndex(1);
    example = TextIn(settings, u"LblExample"_s);
    Press(settings, Qt::Key_S, Qt::ControlModifier);
  };
  InWindow(
      [&](const ArchiveWindow& window) {
        EXPECT_FALSE(window.CanTransfer());
        WithWindow(u"FrmTransferSettings"_s, steps);
        window.Entry(u"mnuArcSet"_s).trigger();
        EXPECT_TRUE(window.CanTransfer());
        window.Tick(1);
        GiveYear(window);
        window.Ok();
      },
      u"Fwdj"_s);
  EXPECT_EQ(example, u"2002-0001"_s);
  EXPECT_EQ(Archived(), QStringList({u"题名2 "_s + example}));
}

}  // namespace
}  // namespace folvane::test
