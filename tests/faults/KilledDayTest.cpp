#include <QDir>
#include <csignal>
#include <cstdio>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

#include <folvane/FtpConnection.h>
#include <folvane/OriginalFiles.h>

#include "faults/DayOfWork.h"
#include "shell/SharedState.h"
#include "support/FtpServer.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// A day of work in a process that is killed again and again, over a SQLite file.
class KilledDayTest : public TransferTest {
 protected:
  void SetUp() override {
    TransferTest::SetUp();
    AddColumn(u"Fwdj"_s, u"RegID integer"_s);
    QDir().mkpath(program_.Path(u"Data"_s));
    program_.Write(u"in/page.txt"_s, QByteArray(20'000, 'x'));
    Services().now = [] { return QDateTime::currentDateTime(); };
    store_.databaseKind = u"OTHER"_s;
    store_.storeRoot = program_.Path(u"Data"_s);
  }

  void PutOriginalsOnServer() {
    server_.emplace();
    MakeFolder();
    store_.databaseKind = u"SQL SERVER"_s;
    store_.storeRoot = u"docs"_s;
  }
  OriginalsRequest Store() const {
    OriginalsRequest store = store_;
    if (server_) store.ftp = std::make_shared<FtpConnection>(server_->Login());
    return store;
  }

  /// Kills as often as is asked for, and looks at what is found each time.
  void KillAndLook() {
    const int kills = qEnvironmentVariableIsSet("FOLVANE_SOAK") ? qEnvironmentVariableIntValue("FOLVANE_SOAK") : 5;
    const unsigned seed =
        qEnvironmentVariableIsSet("FOLVANE_SEED") ? unsigned(qEnvironmentVariableIntValue("FOLVANE_SEED")) : 20260704;
    std::minstd_rand random(seed);
    for (int kill = 1; kill <= kills; ++kill) {
      SCOPED_TRACE(testing::Message() << "kill " << kill << ", seed " << seed);
      KeepKeysApart(kill);
      WorkAndKill(random() % 4, random() % 15'000, unsigned(random()));
      if (HasFatalFailure()) return;
      Look();
      if (HasFailure()) return;
      if (letters_ > kMostLetters) ClearAway();
    }
    EXPECT_GT(archivedInAll_ + archived_, 0) << "nothing was archived before the kills";
    EXPECT_GT(originalsInAll_ + originals_, 0) << "no original was added before the kills";
    std::printf(
        "killed with originals %s: %d kills, %d letters, %d archived, %d rows of originals, %d files without a "
        "row, nothing half-done\n",
        server_ ? "on a server" : "in a directory", kills, lettersInAll_ + letters_, archivedInAll_ + archived_,
        originalsInAll_ + originals_, strayInAll_ + stray_);
  }

 private:
  static constexpr int kMostLetters = 400;

  /// Twenty processes in a second, each of which begins its keys anywhere, would meet now and then. Here each begins
  /// behind the one before.
  static void KeepKeysApart(int kill) {
    Services().random = [number = kill * 1000]() mutable { return (number++ % 1'000'000 + 0.5) / 1'000'000; };
  }
  /// @param begun is written to whenever a letter is begun
  [[noreturn]] void Work(unsigned seed, int begun) {
    Services().messageBox = [](const MessageRequest& box) { return box.text.contains(u"查看"_s) ? 2 : 1; };
    const auto connection = Database().Connect();
    Shared().Connection = connection;
    DayOfWork day(connection, Store(), program_.Path(u"in/page.txt"_s), seed);
    for (;;) {
      if (write(begun, "!", 1) != 1) _exit(1);
      day.DoSome();
    }
  }
  /// Kills a process so many letters and microseconds after it has begun.
  void WorkAndKill(unsigned letters, unsigned microseconds, unsigned seed) {
    int begun[2];
    ASSERT_EQ(pipe(begun), 0);
    const pid_t child = fork();
    if (child == 0) {
      try {
        Work(seed, begun[1]);
      } catch (const std::exception& error) {
        std::fprintf(stderr, "the work ended: %s\n", error.what());
        _exit(1);
      }
    }
    close(begun[1]);
    char sign = 0;
    for (unsigned letter = 0; letter <= letters; ++letter) EXPECT_EQ(read(begun[0], &sign, 1), 1);
    usleep(useconds_t(microseconds));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    close(begun[0]);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the work ended by itself";
  }

  int Count(const QString& sql) { return Database().Value(u"select count(*) from "_s + sql).toInt(); }
  void Look() {
    EXPECT_EQ(Database().Value(u"pragma integrity_check"_s), u"ok"_s);
    EXPECT_EQ(Count(u"(select 1 from Fwdj group by RegID having count(*) > 1)"_s), 0) << "a number given twice";
    EXPECT_EQ(Count(u"(select 1 from Wenshu group by ArchNo having count(*) > 1)"_s), 0) << "a number given twice";
    EXPECT_EQ(Count(u"(select 1 from PassRead_File group by File_ID having count(*) > 1)"_s), 0) << "sent around twice";
    EXPECT_EQ(Count(u"PassRead_File where File_ID not in (select ArchiveID from Fwdj)"_s), 0);
    LookAtArchive();
    const auto findings = originals::CheckStore(*Connected(), *OpenOriginalFiles(Request()),
                                                [](const QString&, qint64, qint64) { return true; });
    ASSERT_TRUE(findings);
    EXPECT_EQ(findings->missingFiles.size(), 0u) << findings->Text().toStdString();
    letters_ = Count(u"Fwdj"_s);
    archived_ = Count(u"Wenshu"_s);
    originals_ = int(findings->rows);
    stray_ = int(findings->unknownFiles.size()) - (server_ ? 1 : 0);
  }
  void LookAtArchive() {
    const QString copies = u"(select count(*) from Wenshu w where w.Amaintitle = f.Amaintitle)"_s;
    EXPECT_EQ(Count(u"Fwdj f where %1 <> (FileStatus = '已归档')"_s.arg(copies)), 0) << "half of a transfer";
    EXPECT_EQ(Count(u"Wenshu where Amaintitle not in (select Amaintitle from Fwdj)"_s), 0);
    const QString held = u"(select count(*) from Original_Text where RecordID = %1.ArchiveID)"_s;
    EXPECT_EQ(Count(u"Fwdj f join Wenshu w on w.Amaintitle = f.Amaintitle where %1 <> %2"_s.arg(held.arg(u"f"_s),
                                                                                                held.arg(u"w"_s))),
              0)
        << "archived without its originals";
    EXPECT_EQ(Count(u"Anjuan"_s), Count(u"Wenshu"_s) > 0 ? 1 : 0) << "the volume";
  }
  /// A store that was never used has no folder on the server.
  void MakeFolder() { server_->Write(u"docs/readme.txt"_s, "no original"); }
  OriginalsRequest Request() {
    OriginalsRequest request = Store();
    request.connection = Connected();
    return request;
  }
  void ClearAway() {
    lettersInAll_ += std::exchange(letters_, 0);
    archivedInAll_ += std::exchange(archived_, 0);
    originalsInAll_ += std::exchange(originals_, 0);
    strayInAll_ += std::exchange(stray_, 0);
    for (const QString& table : {u"Fwdj"_s, u"Wenshu"_s, u"Anjuan"_s, u"PassRead_File"_s, u"Original_Text"_s})
      design_->Run(u"delete from "_s + table);
    if (server_) {
      server_->Reset();
      return MakeFolder();
    }
    QDir(store_.storeRoot).removeRecursively();
    QDir().mkpath(store_.storeRoot);
  }

  std::optional<FtpServer> server_;
  OriginalsRequest store_;
  int letters_ = 0, archived_ = 0, originals_ = 0, stray_ = 0;
  int lettersInAll_ = 0, archivedInAll_ = 0, originalsInAll_ = 0, strayInAll_ = 0;
};
INSTANTIATE_TEST_SUITE_P(On, KilledDayTest, testing::Values("SQLite"),
                         [](const testing::TestParamInfo<std::string>& database) { return database.param; });

TEST_P(KilledDayTest, LeavesNothingHalfDoneWithOriginalsInADirectory) { KillAndLook(); }

TEST_P(KilledDayTest, LeavesNothingHalfDoneWithOriginalsOnAServer) {
  PutOriginalsOnServer();
  KillAndLook();
}

}  // namespace
}  // namespace folvane::test
