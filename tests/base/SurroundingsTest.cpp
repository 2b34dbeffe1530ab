#include <QCoreApplication>
#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

#include "base/IgnoreErrors.h"
#include "base/Surroundings.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(ProgramDirectory, IsTheApplicationsUnlessTheHostSaysOtherwise) {
  EXPECT_EQ(ProgramDirectory(), QCoreApplication::applicationDirPath());
  Services().programDirectory = u"/srv/archive"_s;
  EXPECT_EQ(ProgramDirectory(), u"/srv/archive"_s);
  EXPECT_EQ(ProgramFile(u"RegIDFormula.Ini"_s), u"/srv/archive/RegIDFormula.Ini"_s);
}

TEST(ProgramDirectory, AFileIsNamedAsItIsSpeltOnTheDisk) {
  const test::TempProgramDirectory directory;
  directory.Write(u"HELP.CHM"_s, "x");
  EXPECT_EQ(ProgramFile(u"help.chm"_s), directory.Path(u"HELP.CHM"_s));
}

TEST(ProgramDirectory, OfTwoSpellingsTheExactOneIsTaken) {
  const test::TempProgramDirectory directory;
  directory.Write(u"HELP.CHM"_s, "x");
  directory.Write(u"help.chm"_s, "x");
  EXPECT_EQ(ProgramFile(u"help.chm"_s), directory.Path(u"help.chm"_s));
}

TEST(Clock, TellsTheTimeOfTheZone) {
  const bool hadZone = qEnvironmentVariableIsSet("TZ");
  const QByteArray zone = qgetenv("TZ");
  qputenv("TZ", "CST-8");
  std::thread([] {  // each thread asks for the zone by itself
    const QDateTime now = Services().now();
    EXPECT_EQ(now.date(), now.toUTC().addSecs(8 * 3600).date());
    EXPECT_EQ(now.time(), now.toUTC().addSecs(8 * 3600).time());
    EXPECT_LT(std::abs(now.secsTo(QDateTime::currentDateTimeUtc())), 60);
  })
      .join();
  hadZone ? qputenv("TZ", zone) : qunsetenv("TZ");
}

TEST(IgnoreErrors, AnswersWhetherTheStepWentThrough) {
  EXPECT_TRUE(IgnoreErrors([] {}));
  EXPECT_FALSE(IgnoreErrors([] { throw std::runtime_error("failed"); }));
}

}  // namespace
}  // namespace folvane
