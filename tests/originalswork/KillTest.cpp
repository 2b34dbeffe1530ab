#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

#include "components/originals/StoreCheck.h"
#include "originalswork/WorkFixture.h"

namespace folvane::test {
namespace {
using namespace originals;

constexpr int kKills = 25;

class KillTest : public WorkTest {
 protected:
  /// What the process does that will be killed: adds originals and deletes some of them, for ever.
  /// @param begun is written to when that has begun
  [[noreturn]] void AddAndDelete(const QString& path, unsigned seed, int begun) {
    std::minstd_rand random(seed);
    const auto connection = Database().Connect();
    Shared().Connection = connection;
    OriginalsRequest request = Request();
    request.connection = connection;
    RecordOriginals originals(request);
    originals.Read();  // what is read of the tables once
    if (write(begun, "!", 1) != 1) _exit(1);
    for (;;) {
      originals.Add(FileToAdd::At(path));
      const std::vector<Original> all = originals.Read();
      if (all.size() > 3) originals.Delete(all[random() % all.size()]);
    }
  }
  /// Lets a process work for so long and kills it.
  void WorkAndKill(const QString& path, int microseconds, unsigned seed) {
    int begun[2];
    ASSERT_EQ(pipe(begun), 0);
    const pid_t child = fork();
    if (child == 0) {
      try {
        AddAndDelete(path, seed, begun[1]);
      } catch (...) {
        _exit(1);
      }
    }
    close(begun[1]);
    char sign = 0;
    EXPECT_EQ(read(begun[0], &sign, 1), 1);
    close(begun[0]);
    usleep(useconds_t(microseconds));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the work ended by itself";
  }
};
FOLVANE_ON_EACH_DATABASE(KillTest);

TEST_P(KillTest, NoRowEverStandsWithoutItsFile) {
  const auto store = OpenOriginalFiles(Request());
  const QString path = Source(u"page.txt"_s, QByteArray(200'000, 'x'));
  Services().now = [] { return QDateTime::currentDateTime(); };
  std::minstd_rand random(20260301);
  qsizetype rows = 0;
  for (int round = 0; round < kKills; ++round) {
    WorkAndKill(path, int(random() % 60'000), unsigned(round));
    if (HasFatalFailure()) return;
    const auto findings = CheckStore(*Connected(), *store, [](const QString&, qint64, qint64) { return true; });
    ASSERT_TRUE(findings);
    ASSERT_EQ(findings->missingFiles.size(), 0u) << findings->Text().toStdString();
    rows = findings->rows;
  }
  EXPECT_GT(rows, 0) << "nothing was done before the kills";
  for (const Original& original : Originals().Read()) ASSERT_EQ(Content(original).size(), 200'000);
}

}  // namespace
}  // namespace folvane::test
