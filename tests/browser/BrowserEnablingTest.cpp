#include <gtest/gtest.h>

#include "browser/BrowserEnabling.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr TableGrants kAll{true, true, true, true};

TableGrants Without(bool TableGrants::*right) {
  TableGrants grants = kAll;
  grants.*right = false;
  return grants;
}

BrowserView At(qint64 position, qint64 count, const TableGrants& grants = kAll) {
  return {true, grants, false, false, count > 0, position > 0, position, count};
}

BrowserView WithParent() {
  BrowserView view = At(1, 1);
  view.hasParentTable = true;
  return view;
}

BrowserView Refused() {
  BrowserView view = At(0, 0);
  view.refused = true;
  return view;
}

/// The names of those that are on, in one order; a key with "!" before its name.
QStringList Enabled(const BrowserEnabling& enabling) {
  QStringList names;
  for (auto entry = enabling.entries.begin(); entry != enabling.entries.end(); ++entry) {
    if (entry.value()) names << entry.key();
  }
  for (auto key = enabling.keys.begin(); key != enabling.keys.end(); ++key) {
    if (key.value()) names << u'!' + key.key();
  }
  names.sort();
  return names;
}

const QStringList kOfTable{u"mnu_File5_Save"_s, u"mnu_Tool3_Sort"_s, u"mnu_Tool4_HSearch"_s, u"mnu_Tool5_LSearch"_s,
                           u"mnu_Goto"_s,       u"!Search"_s,        u"!Refresh"_s};
const QStringList kPrinting{u"mnu_Report"_s};
const QStringList kEditing{u"mnu_File2_Open"_s, u"mnu_Tool2_BDel"_s};
const QStringList kArchiving{u"Archive(1)"_s};
const QStringList kEditingRecords{u"mnu_File1_Add"_s, u"mnu_Tool1_BUpdate"_s, u"!NEW"_s};
const QStringList kEditingRow{
    u"mnu_File4_Property"_s, u"mnu_File3_Del"_s, u"mnu_Manager"_s, u"!Mod"_s, u"!Del"_s, u"!Archive"_s};
const QStringList kLooking{u"!LookFiles"_s};
const QStringList kToNumber{u"mnu_Goto4_Location"_s, u"mnu_Goto4A_Location"_s};
const QStringList kBack{u"mnu_Goto5_FPage"_s, u"mnu_Goto2_PPage"_s, u"!PrePage"_s};
const QStringList kForward{u"mnu_Goto3_NPage"_s, u"mnu_Goto6_LPage"_s, u"!NextPage"_s};

const QStringList kOfEditor = kOfTable + kPrinting + kEditing + kEditingRecords + kArchiving;
const QStringList kOfEditorOnRow = kOfEditor + kEditingRow + kLooking;

struct Case {
  const char* name;
  BrowserView view;
  QStringList enabled;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.name; }

class BrowserEnablingCases : public testing::TestWithParam<Case> {};

TEST_P(BrowserEnablingCases, EnablesJustThese) {
  QStringList expected = GetParam().enabled;
  expected.sort();
  EXPECT_EQ(Enabled(BrowserEnabling(GetParam().view)), expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, BrowserEnablingCases,
    testing::Values(
        Case{"NoTable", {}, {}}, Case{"NoTableWhateverElse", {false, kAll, true, true, true, true, 2, 3}, {}},
        Case{"NoRecords", At(0, 0), kOfEditor}, Case{"OneRecord", At(1, 1), kOfEditorOnRow},
        Case{"TheFirst", At(1, 3), kOfEditorOnRow + kToNumber + kForward},
        Case{"OneBetween", At(2, 3), kOfEditorOnRow + kToNumber + kBack + kForward},
        Case{"TheLast", At(3, 3), kOfEditorOnRow + kToNumber + kBack}, Case{"NoRowSelected", At(0, 3), kOfEditorOnRow},
        Case{"ARecordThatIsGone", {true, kAll, false, false, true, true, -3, 3}, kOfEditorOnRow + kToNumber + kForward},
        Case{"UnderAParentTable", WithParent(), kOfEditorOnRow + QStringList{u"mnu_Goto1_UClass"_s}},
        Case{"RecordsThatTheDatabaseRefused", Refused(), kOfTable + kPrinting + kEditing + kArchiving},
        Case{"WithoutTheRightToEdit", At(1, 1, Without(&TableGrants::edit)), kOfTable + kPrinting + kLooking},
        Case{"WithoutTheRightToPrint", At(0, 0, Without(&TableGrants::print)),
             kOfTable + kEditing + kEditingRecords + kArchiving},
        Case{"WithoutTheRightToLookAtFiles", At(1, 1, Without(&TableGrants::lookFile)), kOfEditor + kEditingRow},
        Case{"WithoutAnArchiveTable", At(0, 0, Without(&TableGrants::hasTarget)),
             kOfTable + kPrinting + kEditing + kEditingRecords}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(BrowserEnabling, SaysNothingOfTheMovesWithoutATable) {
  const BrowserEnabling enabling({});
  for (const QString& entry : {u"mnu_Goto1_UClass"_s, u"mnu_Goto3_NPage"_s, u"mnu_Goto4_Location"_s}) {
    EXPECT_FALSE(enabling.entries.contains(entry)) << entry.toStdString();
  }
  EXPECT_FALSE(enabling.entries.value(u"mnu_Goto"_s, true)) << "their menu is off";
}

}  // namespace
}  // namespace folvane::test
