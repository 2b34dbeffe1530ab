#include <gtest/gtest.h>

#include <folvane/HostServices.h>

#include "shell/RegistryValues.h"
#include "support/HostDoubles.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(RegistryValues, AMissingKeyOrValueIsEmpty) {
  EXPECT_EQ(QueryValue(kLocalMachine, kMainFlags, u"FolvaneDefault"_s), QString());
}

TEST(RegistryValues, LieUnderRootAndPath) {
  SaveValue(kLocalMachine, kMainFlags, u"UseSpecialSign"_s, u"True"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kMainFlags, u"usespecialsign"_s), u"True"_s);
  EXPECT_EQ(Services().registry->Read(u"HKEY_LOCAL_MACHINE\\Software\\Norvex\\MainFlags"_s, u"UseSpecialSign"_s),
            u"True"_s);
}

TEST(RegistryValues, AreKeptInTheNationalCodePage) {
  SaveValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s, u"全宗ñ1"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s), u"全宗?1"_s);
}

TEST(RegistryValues, AreCutAtTheFirstNul) {
  Services().registry->Write(u"HKEY_LOCAL_MACHINE\\Software\\Norvex\\FondsSet"_s, u"CurrFondsNo"_s, u"12\0003"_s);
  EXPECT_EQ(QueryValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s), u"12"_s);
}

}  // namespace
}  // namespace folvane
