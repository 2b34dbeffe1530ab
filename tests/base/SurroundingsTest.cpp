#include <QCoreApplication>
#include <gtest/gtest.h>
#include <stdexcept>

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

TEST(IgnoreErrors, AnswersWhetherTheStepWentThrough) {
  EXPECT_TRUE(IgnoreErrors([] {}));
  EXPECT_FALSE(IgnoreErrors([] { throw std::runtime_error("failed"); }));
}

}  // namespace
}  // namespace folvane
