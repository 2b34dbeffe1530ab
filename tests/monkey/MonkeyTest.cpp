#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <cstdio>
#include <malloc.h>
#include <unistd.h>

#include <folvane/ClsFolvane.h>
#include <folvane/DataError.h>
#include <folvane/Design.h>
#include <folvane/Designer.h>

#include "host/demo/DemoDatabase.h"
#include "monkey/Cage.h"
#include "monkey/DesignRows.h"
#include "monkey/Monkey.h"
#include "shell/SharedState.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kQuickEvents = 5000;
// What the process may hold more at the end than after a fifth of the events, in megabytes: the records and originals
// that were added meanwhile, and the caches of the toolkit.
constexpr int kGrowth = 96;

qint64 MegabytesHeld() {
  malloc_trim(0);
  QFile file(u"/proc/self/statm"_s);
  if (!file.open(QIODevice::ReadOnly)) return -1;
  return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / (1 << 20);
}

int RunningPrograms() {
  int count = 0;
  for (const QString& thread : QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile children(u"/proc/self/task/%1/children"_s.arg(thread));
    if (children.open(QIODevice::ReadOnly)) count += int(children.readAll().split(' ').size()) - 1;
  }
  return count;
}

int NumberFrom(const char* variable, int otherwise) {
  bool isNumber = false;
  const int number = qEnvironmentVariableIntValue(variable, &isNumber);
  return isNumber ? number : otherwise;
}

/// A records office with all its windows, and a monkey.
class MonkeyTest : public testing::Test {
 protected:
  void SetUp() override {
    demo::DemoOptions options;
    options.records = 600;
    options.today = QDate(2026, 11, 20);
    options.storeDirectory = cage_.Directory().Path(u"Data"_s);
    demo::MakeDemoDatabase(*connection_, options);
    demo::WriteDemoProfiles(cage_.Directory().Path());
    demo::WriteDemoReports(cage_.Directory().Path());
    folvane_.Connection(connection_);
  }
  void TearDown() override {
    if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
    Shared().Connection.reset();
  }

  /// One of the six windows, for one of the demo's users.
  void OpenAny(quint64 chance) {
    static const std::vector<void (ClsFolvane::*)()> entries{
        &ClsFolvane::FileOpen,     &ClsFolvane::FileOpen,     &ClsFolvane::FileArchive, &ClsFolvane::DistributeFile,
        &ClsFolvane::PassReadFile, &ClsFolvane::TransactFile, &ClsFolvane::HastenFile};
    folvane_.GetUser(QString::number(chance % 10 < 7 ? 1 : chance % 10 - 5));
    try {
      (folvane_.*entries[chance / 10 % entries.size()])();
    } catch (const DataError&) {
      ++refused_;
    }
  }

  const int seed_ = NumberFrom("FOLVANE_MONKEY_SEED", 1), events_ = NumberFrom("FOLVANE_MONKEY_EVENTS", kQuickEvents);
  Cage cage_{quint64(seed_)};
  const std::unique_ptr<TestDatabase> database_ = TestDatabase::Create("SQLite");
  const std::shared_ptr<Connection> connection_ = database_->Connect();
  ClsFolvane folvane_;
  int refused_ = 0;
};

// What it applies is another design than before, but one that can be read, checked and worked with.
TEST_F(MonkeyTest, LeavesADesignThatHoldsTogether) {
  const DrivenByTest byMonkey;
  const int events = NumberFrom("FOLVANE_MONKEY_EVENTS", kQuickEvents / 3);
  Monkey monkey(quint64(seed_), events, [&](int) { cage_.NextStep(); });
  monkey.Run([](quint64) { ShowDesigner(); });
  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(database_->Value(u"PRAGMA integrity_check"_s), u"ok"_s);
  const Design design = ReadDesign(*connection_);
  for (const DesignFinding& finding : CheckDesign(design, connection_.get()))
    EXPECT_NE(finding.kind, u"column-missing"_s) << (finding.where + finding.what).toStdString();
  EXPECT_EQ(ParseDesign(DesignText(design)), design);
  std::printf("monkey: seed %d, %d events in the designer, longest event %d ms (%s)\n", seed_, monkey.Steps(),
              monkey.Times().Longest(), monkey.Times().LongestEvent().constData());
}

TEST_F(MonkeyTest, DoesNoHarmInAnyWindow) {
  std::printf("monkey: FOLVANE_MONKEY_SEED=%d FOLVANE_MONKEY_EVENTS=%d\n", seed_, events_);
  const QStringList before = UntouchableRows(*database_);
  qint64 early = 0;
  QElapsedTimer clock;
  clock.start();
  const DrivenByTest byMonkey;
  Monkey monkey(quint64(seed_), events_, [&](int step) {
    cage_.NextStep();
    if (step == events_ / 5) early = MegabytesHeld();
  });
  monkey.Run([this](quint64 chance) { OpenAny(chance); });
  const qint64 late = MegabytesHeld();

  EXPECT_FALSE(connection_->InTransaction());
  EXPECT_EQ(UntouchableRows(*database_), before);
  EXPECT_EQ(database_->Value(u"PRAGMA integrity_check"_s), u"ok"_s);
  EXPECT_EQ(RunningPrograms(), 0);
  EXPECT_LE(late - early, NumberFrom("FOLVANE_MONKEY_GROWTH", kGrowth))
      << "megabytes held more than after a fifth of the events";
  QStringList visits;
  for (auto visit = monkey.Visits().begin(); visit != monkey.Visits().end(); ++visit)
    visits << QString::fromUtf8(visit.key()) + u' ' + QString::number(visit.value());
  std::printf(
      "monkey: seed %d, %d events in %lld s in %d windows (%s), %d boxes, %d file dialogs, %d documents not opened, "
      "%d dialogs of the toolkit cancelled, %d entries refused, longest event %d ms (%s), %lld MB after a fifth, %lld "
      "MB at "
      "the end\n",
      seed_, monkey.Steps(), clock.elapsed() / 1000, int(visits.size()), qPrintable(visits.join(u", "_s)),
      cage_.Boxes(), cage_.Dialogs(), cage_.Opened(), monkey.Cancelled(), refused_, monkey.Times().Longest(),
      monkey.Times().LongestEvent().constData(), early, late);
}

}  // namespace
}  // namespace folvane::test
