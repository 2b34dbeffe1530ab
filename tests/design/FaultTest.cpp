#include <cstdio>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "data/DatabaseSession.h"
#include "data/RowStore.h"
#include "design/SmallDesign.h"
#include "faults/Fault.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

// Something of everything that is written: tables, columns and rows of each kind.
Design MuchChanged(Design design) {
  Design::Table& letters = TableOf(design, u"Lwdj"_s);
  FieldOf(design, u"Lwdj"_s, u"Amaintitle"_s).length = 300;
  std::erase_if(letters.fields, [](const auto& field) { return field.name == u"SecurityClass"; });
  letters.fields.push_back({u"Note"_s, u"备注"_s, u"文本型"_s, 200, {}});
  Design::Table added = TableOf(design, u"Gdwj"_s);
  added.name = u"Wsda"_s;
  design.tables.push_back(added);
  std::swap(TableOf(design, u"Gdwj"_s).numberParts[0], TableOf(design, u"Gdwj"_s).numberParts[1]);
  design.classes.push_back({4, u"照片"_s, 1});
  design.dictionaries[0].entries.pop_back();
  design.users[1].rights.clear();
  PutInOrder(design);
  return design;
}

/// Designs are applied while one statement after the other fails.
class DesignFaultTest : public WithSmallDesign {
 protected:
  void SetUp() override {
    Disk::Get().Use(true);
    WithSmallDesign::SetUp();
    Database().Native(u"insert into Lwdj(ArchiveID, SecurityClass) values('1', '秘密')"_s);
    Database().Native(u"create index BySecurity on Lwdj(SecurityClass)"_s);
  }
  void TearDown() override { Disk::Get().Use(false); }

  // All tables with their columns and indexes, and the design.
  std::pair<Design, std::vector<QStringList>> Everything() {
    const QString schema =
        OnSqlite() ? u"select name, sql from sqlite_schema order by name"_s
                   : u"select table_name, column_name, data_type, coalesce(character_maximum_length, 0) from "
                     "information_schema.columns where table_schema = current_schema() order by 1, 2"_s;
    return {Read(), Database().Rows(schema)};
  }
  // Answers whether the fault was met.
  bool ApplyWith(const DesignPlan& plan, const Fault& fault) {
    FaultyConnection faulty(Database(), Disk::Get());
    faulty.Arm(fault);
    bool isRefused = false;
    try {
      ApplyDesign(*faulty.Get(), plan, std::vector<LossAnswer>(plan.losses.size(), LossAnswer::Lose));
    } catch (const DataError&) {
      isRefused = true;
    }
    EXPECT_EQ(isRefused, faulty.HasFailed()) << faulty.Met();
    faulty.Disarm();
    if (fault.kind == FaultKind::Ended) return isRefused;
    faulty.ExpectAtRest();
    if (OnSqlite()) {
      DatabaseSession& session = DatabaseSession::Of(*faulty.Get());
      EXPECT_EQ(session.FetchNative({"PRAGMA writable_schema", {}}).rows->At(0, 0).ToVariant().toInt(), 0);
    }
    return isRefused;
  }
};
FOLVANE_ON_EACH_DATABASE(DesignFaultTest);

TEST_P(DesignFaultTest, AStatementThatFailsLeavesEverythingAsItWas) {
  const DesignPlan plan = PlanDesign(*Connected(), Read(), MuchChanged(Read()));
  ASSERT_EQ(plan.losses.size(), 1u);
  const bool isLong = qEnvironmentVariableIsSet("FOLVANE_SOAK");
  const std::vector<FaultKind> kinds =
      OnSqlite() ? std::vector{FaultKind::Refused, FaultKind::Interrupted, FaultKind::Full, FaultKind::CommitRefused}
                 : std::vector{FaultKind::Refused, FaultKind::Ended};
  int faults = 0;
  for (const FaultKind kind : kinds) {
    const int step = isLong ? 1 : OnSqlite() ? 5 : 61;
    for (int statement = 1 + int(kind) % step;; statement += step) {
      SCOPED_TRACE(NameOf(kind) + " at statement " + std::to_string(statement));
      const auto before = Everything();
      if (!ApplyWith(plan, {kind, statement})) break;
      ++faults;
      ASSERT_EQ(Everything(), before);
      ASSERT_EQ(Database().Value(u"select SecurityClass from Lwdj"_s), u"秘密"_s);
    }
    ASSERT_TRUE(CompareDesigns(Read(), plan.wanted).empty());
    Apply([](Design& design) { design = SmallDesign(); });
    Database().Native(u"update Lwdj set SecurityClass = '秘密'"_s);
  }
  std::printf("%d faults on %s\n", faults, GetParam().c_str());
}

}  // namespace
}  // namespace folvane::test
