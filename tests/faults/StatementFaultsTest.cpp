#include <cstdio>
#include <numeric>
#include <random>

#include "faults/Trial.h"

extern "C" void __asan_init() __attribute__((weak));

namespace folvane::test {
namespace {

/// Whether everything is tried, or as much as fits between two builds.
bool IsLong() { return qEnvironmentVariableIsSet("FOLVANE_SOAK"); }

/// Whether the program is linked with the sanitizers. There a try takes three times as long, and the twin tries all.
bool IsSanitized() { return __asan_init; }

/// What each lasting statement of a command changes.
std::string StepsOf(const CleanRun& clean) {
  std::string steps;
  const Contents* before = &clean.before;
  for (const Contents& after : clean.lasting) {
    steps += "step:\n" + Difference(*before, after).toStdString() + "\n";
    before = &after;
  }
  return steps;
}

/// Every command with a fault at its statements, one at a time.
class StatementFaultsTest : public testing::TestWithParam<std::string> {
 protected:
  /// The figures of a sweep.
  struct Figures {
    int commands = 0, statements = 0, faults = 0;
    std::map<Outcome, int> outcomes;
  };

  void SetUp() override { Disk::Get().Use(true); }
  void TearDown() override { Disk::Get().Use(false); }
  /// Has the statements of a command fail in a way, as many as are to be tried.
  void Sweep(const CommandRow& row, const CleanRun& clean, FaultKind kind, int most) {
    std::vector<int> places(static_cast<std::size_t>(clean.statements));
    std::iota(places.begin(), places.end(), 1);
    if (int(places.size()) > most) {
      std::shuffle(places.begin(), places.end(), random_);
      places.resize(std::size_t(most));
    }
    for (const int place : places) {
      const Fault fault{kind, place, kind == FaultKind::Interrupted ? 1 << random_() % 7 : 1};
      SCOPED_TRACE(testing::Message() << row.name << ": " << NameOf(kind) << " at statement " << place << " of "
                                      << clean.statements << ", depth " << fault.depth);
      ++figures_.faults;
      const int failures = Failures();
      ++figures_.outcomes[Trial(row).WithFault(clean, fault)];
      if (Failures() > failures) return;
    }
  }
  void Tell() const {
    const auto count = [this](Outcome outcome) {
      const auto found = figures_.outcomes.find(outcome);
      return found == figures_.outcomes.end() ? 0 : found->second;
    };
    std::printf(
        "faults on %s: %d commands, %d statements, %d faults: %d left all as before, %d a part as documented, "
        "%d came after the change, %d met nothing\n",
        GetParam().c_str(), figures_.commands, figures_.statements, figures_.faults, count(Outcome::Before),
        count(Outcome::Between), count(Outcome::After), count(Outcome::NotMet));
  }

  std::minstd_rand random_{20260701};
  Figures figures_;
};
INSTANTIATE_TEST_SUITE_P(Each, StatementFaultsTest, testing::Values("SQLite", "PostgreSQL"),
                         [](const testing::TestParamInfo<std::string>& database) { return database.param; });

TEST_P(StatementFaultsTest, ACommandInWhichAStatementFailsLeavesWhatItPromises) {
  const QByteArray only = qgetenv("FOLVANE_COMMAND");
  for (const CommandRow& row : AllCommands()) {
    if (row.name.find(only.toStdString()) == std::string::npos) continue;
    SCOPED_TRACE(row.name);
    const int failures = Failures();
    const CleanRun clean = Trial(row).Clean();
    EXPECT_EQ(int(clean.lasting.size()), row.lasting) << StepsOf(clean);
    if (Failures() > failures) continue;
    ++figures_.commands;
    figures_.statements += clean.statements;
    for (const FaultKind kind : FaultsOf(GetParam())) {
      if (IsSanitized() && !IsLong() && (int(kind) + figures_.commands) % 2 != 0) continue;
      const bool all = IsLong() || (!IsSanitized() && GetParam() == "SQLite" && kind == FaultKind::Refused);
      Sweep(row, clean, kind, all ? clean.statements : 1);
    }
  }
  Tell();
}

}  // namespace
}  // namespace folvane::test
