#include <gtest/gtest.h>

#include "entry/EntryEnabling.h"
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

/// What is enabled after the toolbar was set and the record shown, as the window does it.
EntryEnabling Shown(const TableGrants& grants, const EntryPosition& at, bool autoSave = false) {
  EntryEnabling enabling(grants);
  enabling.ApplyRights();
  enabling.SetToolbarState(at.state == RecordState::Browse, autoSave);
  enabling.RefreshRecordView(at);
  return enabling;
}

QStringList Enabled(const QStringList& names, const EntryEnabling& enabling, bool keys) {
  QStringList enabled;
  for (const QString& name : names) {
    if ((keys ? enabling.Keys() : enabling.Entries()).value(name, true)) enabled << name;
  }
  return enabled;
}

const QStringList kKeys{u"AddRecord"_s, u"SaveRecord"_s, u"DelRecord"_s, u"CancelRecord"_s, u"MovePrevious"_s,
                        u"MoveNext"_s,  u"CopyAll"_s,    u"FileArea"_s,  u"ReportView"_s,   u"Distribute"_s,
                        u"PassRead"_s,  u"Transact"_s,   u"DoArchive"_s};
const QStringList kEntries{u"AddNewRecord"_s, u"SaveRecord"_s,   u"DelRecord"_s,    u"CancelRecord"_s, u"First_R"_s,
                           u"Previous_R"_s,   u"Next_R"_s,       u"Last_R"_s,       u"mnuCopyAll"_s,   u"AddFile"_s,
                           u"BorrowFile"_s,   u"ReportDesign"_s, u"mnuDistibute"_s, u"mnuPassRead"_s,  u"mnuTransact"_s,
                           u"mnuArchive"_s,   u"Tools"_s,        u"DoRecord"_s,     u"File_Or"_s};

struct Case {
  const char* name;
  TableGrants grants;
  EntryPosition at;
  QStringList keysOff, entriesOff;
};

void PrintTo(const Case& each, std::ostream* out) { *out << each.name; }

class EntryEnablingCases : public testing::TestWithParam<Case> {};

TEST_P(EntryEnablingCases, EnablesAllButThese) {
  const EntryEnabling enabling = Shown(GetParam().grants, GetParam().at);
  QStringList keys = kKeys, entries = kEntries;
  for (const QString& off : GetParam().keysOff) EXPECT_TRUE(keys.removeOne(off)) << off.toStdString();
  for (const QString& off : GetParam().entriesOff) EXPECT_TRUE(entries.removeOne(off)) << off.toStdString();
  EXPECT_EQ(Enabled(kKeys, enabling, true), keys);
  EXPECT_EQ(Enabled(kEntries, enabling, false), entries);
}

const EntryPosition kMiddle{RecordState::Browse, 2, 3};

INSTANTIATE_TEST_SUITE_P(
    All, EntryEnablingCases,
    testing::Values(
        Case{"InTheMiddle", kAll, kMiddle, {u"SaveRecord"_s, u"CancelRecord"_s}, {u"SaveRecord"_s, u"CancelRecord"_s}},
        Case{"AtTheFirst",
             kAll,
             {RecordState::Browse, 1, 2},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"MovePrevious"_s},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"First_R"_s, u"Previous_R"_s}},
        Case{"AtTheLast",
             kAll,
             {RecordState::Browse, 2, 2},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"MoveNext"_s},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"Next_R"_s, u"Last_R"_s}},
        Case{"AtTheOnly",
             kAll,
             {RecordState::Browse, 1, 1},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"MovePrevious"_s, u"MoveNext"_s},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"First_R"_s, u"Previous_R"_s, u"Next_R"_s, u"Last_R"_s}},
        Case{"WithoutRecords",
             kAll,
             {RecordState::Browse, -1, 0},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"DelRecord"_s, u"MovePrevious"_s, u"MoveNext"_s, u"FileArea"_s,
              u"ReportView"_s, u"Distribute"_s, u"PassRead"_s, u"Transact"_s, u"DoArchive"_s},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"DelRecord"_s, u"First_R"_s, u"Previous_R"_s, u"Next_R"_s,
              u"Last_R"_s, u"mnuCopyAll"_s, u"AddFile"_s, u"BorrowFile"_s, u"ReportDesign"_s, u"mnuDistibute"_s,
              u"mnuPassRead"_s, u"mnuTransact"_s, u"mnuArchive"_s}},
        Case{"WhileModifying",
             kAll,
             {RecordState::Modify, 2, 3},
             {u"AddRecord"_s, u"DelRecord"_s, u"MovePrevious"_s, u"MoveNext"_s, u"CopyAll"_s, u"FileArea"_s,
              u"ReportView"_s, u"Distribute"_s, u"PassRead"_s, u"Transact"_s, u"DoArchive"_s},
             {u"AddNewRecord"_s, u"DelRecord"_s, u"First_R"_s, u"Previous_R"_s, u"Next_R"_s, u"Last_R"_s,
              u"mnuCopyAll"_s, u"AddFile"_s, u"BorrowFile"_s, u"ReportDesign"_s, u"mnuDistibute"_s, u"mnuPassRead"_s,
              u"mnuTransact"_s, u"mnuArchive"_s, u"Tools"_s, u"DoRecord"_s, u"File_Or"_s}},
        Case{"WithoutTheRightToEdit",
             Without(&TableGrants::edit),
             kMiddle,
             {u"AddRecord"_s, u"SaveRecord"_s, u"CancelRecord"_s, u"DelRecord"_s, u"Distribute"_s, u"PassRead"_s,
              u"Transact"_s},
             {u"AddNewRecord"_s, u"SaveRecord"_s, u"CancelRecord"_s, u"DelRecord"_s, u"mnuDistibute"_s,
              u"mnuPassRead"_s, u"mnuTransact"_s, u"Tools"_s}},
        Case{"WithoutTheRightToPrint",
             Without(&TableGrants::print),
             kMiddle,
             {u"SaveRecord"_s, u"CancelRecord"_s, u"ReportView"_s},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"ReportDesign"_s}},
        Case{"WithoutTheRightToLookAtFiles",
             Without(&TableGrants::lookFile),
             kMiddle,
             {u"SaveRecord"_s, u"CancelRecord"_s, u"FileArea"_s},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"AddFile"_s, u"BorrowFile"_s}},
        Case{"WithoutAnArchiveTable",
             Without(&TableGrants::hasTarget),
             kMiddle,
             {u"SaveRecord"_s, u"CancelRecord"_s, u"DoArchive"_s},
             {u"SaveRecord"_s, u"CancelRecord"_s, u"mnuArchive"_s}}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(EntryEnabling, AddingStaysEnabledWhileEditingWithAutoSave) {
  const EntryPosition editing{RecordState::Modify, 1, 3};
  EXPECT_TRUE(Shown(kAll, editing, true).Keys().value(u"AddRecord"_s));
  EXPECT_TRUE(Shown(kAll, editing, true).Entries().value(u"AddNewRecord"_s));
  EXPECT_FALSE(Shown(Without(&TableGrants::edit), editing, true).Keys().value(u"AddRecord"_s));
}

TEST(EntryEnabling, SavingIsNeverEnabledWithoutTheRightToEdit) {
  const EntryEnabling enabling = Shown(Without(&TableGrants::edit), {RecordState::Modify, 1, 3});
  EXPECT_FALSE(enabling.Keys().value(u"SaveRecord"_s));
  EXPECT_FALSE(enabling.Entries().value(u"CancelRecord"_s));
}

}  // namespace
}  // namespace folvane::test
