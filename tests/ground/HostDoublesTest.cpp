#include <gtest/gtest-spi.h>

#include "support/HostDoubles.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

TEST(HostDoublesTest, AMessageBoxThatNobodyExpectsIsAFailure) {
  EXPECT_NONFATAL_FAILURE(Services().messageBox({u"surprise"_s, 0, {}}), "surprise");
}

TEST(HostDoublesTest, MessageBoxesAreRememberedAndAnsweredInTurn) {
  MessageBoxes boxes;
  boxes.Answer(6).Answer(2);
  EXPECT_EQ(Services().messageBox({u"delete?"_s, 4 + 32, {}}), 6);
  EXPECT_EQ(Services().messageBox({u"go on?"_s, 1, {}}), 2);
  EXPECT_EQ(Services().messageBox({u"again?"_s, 4, {}}), 7) << "without an answer left the careful button is pressed";
  EXPECT_EQ(boxes.Texts(), (QStringList{u"delete?"_s, u"go on?"_s, u"again?"_s}));
}

TEST(HostDoublesTest, FileDialogsCancelWhenNoAnswerIsLeft) {
  FileDialogs dialogs;
  dialogs.Answer(u"/a.txt"_s);
  EXPECT_EQ(Services().fileDialog({true, u"save"_s, {}, {}}), u"/a.txt"_s);
  EXPECT_EQ(Services().fileDialog({true, u"save"_s, {}, {}}), QString());
}

TEST(HostDoublesTest, TheRegistryComparesKeysWithoutRegardToCase) {
  Services().registry->Write(u"HKEY_CURRENT_USER\\A"_s, u"Name"_s, u"text"_s);
  EXPECT_EQ(Services().registry->Read(u"hkey_current_user\\a"_s, u"NAME"_s), u"text"_s);
}

TEST(HostDoublesTest, EveryTestBeginsWithAnEmptyRegistry) {
  EXPECT_EQ(Services().registry->Read(u"HKEY_CURRENT_USER\\A"_s, u"Name"_s), QString());
}

TEST(HostDoublesTest, TheClockStandsAndTheNumbersRepeat) {
  const QDateTime noon(QDate(2003, 7, 15), QTime(12, 0));
  FixClock(noon);
  FixRandom({0.25, 0.5});
  EXPECT_EQ(Services().now(), noon);
  EXPECT_EQ(Services().random(), 0.25);
  EXPECT_EQ(Services().random(), 0.5);
  EXPECT_EQ(Services().random(), 0.25);
}

}  // namespace folvane::test
