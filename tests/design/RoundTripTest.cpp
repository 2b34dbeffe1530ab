#include <gtest/gtest.h>

#include <folvane/Catalogue.h>
#include <folvane/DataError.h>

#include "design/RandomDesign.h"
#include "support/TestDatabase.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

int Rounds(int usual) {
  bool isNumber = false;
  const int wanted = qEnvironmentVariableIntValue("FOLVANE_DESIGN_ROUNDS", &isNumber);
  return isNumber ? wanted : usual;
}

quint64 Seed() {
  const QByteArray seed = qgetenv("FOLVANE_DESIGN_SEED");
  return seed.isEmpty() ? 20261122 : seed.toULongLong();
}

std::string FirstOf(const std::vector<DesignChange>& changes) {
  return changes.empty() ? "the same" : (changes.front().where + u": "_s + changes.front().what).toStdString();
}

void ApplyTo(Connection& connection, const Design& base, const Design& wanted) {
  const DesignPlan plan = PlanDesign(connection, base, wanted);
  ApplyDesign(connection, plan, std::vector<LossAnswer>(plan.losses.size(), LossAnswer::Lose));
}

class DesignRoundTrip : public OnEachDatabase {};
FOLVANE_ON_EACH_DATABASE(DesignRoundTrip);

TEST_P(DesignRoundTrip, ADesignAppliedToAnEmptyDatabaseIsReadBackAsItIs) {
  for (int round = 0; round < Rounds(OnSqlite() ? 6 : 1); ++round) {
    SCOPED_TRACE("FOLVANE_DESIGN_SEED=" + std::to_string(Seed()) + ", round " + std::to_string(round));
    const std::unique_ptr<TestDatabase> database = TestDatabase::Create(GetParam());
    const std::shared_ptr<Connection> connection = database->Connect();
    Dice dice(Seed(), quint64(round));
    const Design design = RandomDesign(dice);
    ASSERT_EQ(ReadDesign(*connection), Design());
    ASSERT_NO_THROW(ApplyTo(*connection, {}, design));
    const Design read = ReadDesign(*connection);
    ASSERT_EQ(FirstOf(CompareDesigns(design, read)), "the same");
    ASSERT_EQ(read, design);
    ASSERT_TRUE(PlanDesign(*connection, read, design).IsEmpty());
  }
}

TEST_P(DesignRoundTrip, OneDesignAfterTheOtherIsReadBackAsItWasWorkedOn) {
  Database().Furnish(CreateTables);
  Design present;
  int changes = 0, statements = 0;
  const int rounds = Rounds(OnSqlite() ? 25 : 6);
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("FOLVANE_DESIGN_SEED=" + std::to_string(Seed()) + ", round " + std::to_string(round));
    Dice dice(Seed() + 1, quint64(round));
    const Design wanted = WorkedOn(present, dice);
    const DesignPlan plan = PlanDesign(*Connected(), present, wanted);
    ASSERT_NO_THROW(ApplyDesign(*Connected(), plan));
    changes += int(plan.changes.size());
    statements += int(plan.statements.size());
    present = ReadDesign(*Connected());
    ASSERT_EQ(FirstOf(CompareDesigns(wanted, present)), "the same");
    ASSERT_TRUE(PlanDesign(*Connected(), present, wanted).IsEmpty());
  }
  std::printf("%d designs, %d changes, %d statements\n", rounds, changes, statements);
}

}  // namespace
}  // namespace folvane::test
