#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <random>
#include <stdexcept>

#include "faults/Trial.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// A database as it is found after the power has gone.
class FoundDatabase {
 public:
  explicit FoundDatabase(const QString& path) {
    if (sqlite3_open(path.toUtf8().constData(), &handle_) != SQLITE_OK) throw std::runtime_error("cannot be opened");
  }
  ~FoundDatabase() { sqlite3_close(handle_); }
  FoundDatabase(const FoundDatabase&) = delete;
  FoundDatabase& operator=(const FoundDatabase&) = delete;

  std::vector<QStringList> Rows(const QString& sql) {
    std::vector<QStringList> rows;
    const auto take = [](void* all, int count, char** values, char**) {
      QStringList row;
      for (int column = 0; column < count; ++column)
        row << (values[column] ? QString::fromUtf8(values[column]) : u"<null>"_s);
      static_cast<std::vector<QStringList>*>(all)->push_back(row);
      return 0;
    };
    if (sqlite3_exec(handle_, sql.toUtf8().constData(), take, &rows, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(handle_));
    return rows;
  }

 private:
  sqlite3* handle_ = nullptr;
};

/// Every command on SQLite, with the power gone at one of its writes.
class PowerLossTest : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override { Disk::Get().Use(true); }
  void TearDown() override { Disk::Get().Use(false); }

  /// What is wrong with what is found, "" for nothing: it has to be whole, and as some finished statement left it.
  static std::string FlawOf(const DiskImage& image, const CleanRun& clean) {
    Disk::Get().Empty();
    Disk::Get().Put(image);
    const auto database =
        std::find_if(image.begin(), image.end(), [](const auto& file) { return file.first.endsWith(u".db"_s); });
    try {
      FoundDatabase found(database->first);
      if (const auto rows = found.Rows(u"pragma integrity_check"_s); rows.front().front() != u"ok"_s)
        return rows.front().front().toStdString();
      const Contents contents = ContentsOf("SQLite", [&](const QString& sql) { return found.Rows(sql); });
      if (contents == clean.before) return {};
      const bool isKnown = std::find(clean.lasting.begin(), clean.lasting.end(), contents) != clean.lasting.end();
      return isKnown ? std::string() : Difference(clean.before, contents).toStdString();
    } catch (const std::exception& error) {
      return error.what();
    }
  }
};
INSTANTIATE_TEST_SUITE_P(On, PowerLossTest, testing::Values("SQLite"),
                         [](const testing::TestParamInfo<std::string>& database) { return database.param; });

TEST_P(PowerLossTest, EveryCommandIsFoundAsBeforeOrAsAfterEachOfItsLastingStatements) {
  const bool all = qEnvironmentVariableIsSet("FOLVANE_SOAK");
  const unsigned seed = 20260702;
  std::minstd_rand random(seed);
  std::size_t commands = 0, steps = 0, losses = 0;
  for (const CommandRow& row : AllCommands()) {
    QCoreApplication::processEvents();  // the watch over windows that nobody drives counts the time since
    const CleanRun clean = Trial(row).Clean(true);
    ++commands;
    steps += Disk::Get().Steps();
    const std::size_t stride = all ? 1 : std::max<std::size_t>(1, Disk::Get().Steps() / 5);
    for (std::size_t at = all ? 0 : random() % stride; at <= Disk::Get().Steps(); at += stride) {
      for (int time = 0; time < (all ? 20 : 2); ++time) {
        ++losses;
        const std::string flaw = FlawOf(Disk::Get().AfterPowerLoss(at, random), clean);
        ASSERT_EQ(flaw, "") << row.name << ": after " << at << " steps of the disk, seed " << seed;
      }
    }
  }
  std::printf(
      "power losses on SQLite: %zu commands, %zu steps of the disk, %zu losses, none that left anything else than "
      "the state before a statement or after it\n",
      commands, steps, losses);
}

TEST_P(PowerLossTest, ADiskThatDoesNotSyncIsFoundOut) {
  std::minstd_rand random(20260703);
  const CommandRow row = EntryCommands().front();
  const CleanRun clean = Trial(row).Clean(true);
  int flaws = 0;
  for (std::size_t at = 0; at <= Disk::Get().Steps(); ++at)
    for (int time = 0; time < 10; ++time)
      flaws += !FlawOf(Disk::Get().AfterPowerLoss(at, random, false), clean).empty();
  EXPECT_GT(flaws, 0);
}

}  // namespace
}  // namespace folvane::test
