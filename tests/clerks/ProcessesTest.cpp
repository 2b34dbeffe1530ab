// Two workstations at the same moment: processes with connections of their own, where one really waits for the other.
#include <QSet>
#include <chrono>
#include <cstdio>
#include <thread>

#include <folvane/DataError.h>

#include "archiving/TransferFixture.h"
#include "data/DatabaseSession.h"
#include "entry/RecordLifecycle.h"
#include "flows/FlowFixture.h"
#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/Processes.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

constexpr int kStations = 2;

/// A connection that waits for the other station's.
std::shared_ptr<Connection> ConnectPatiently(TestDatabase& database) {
  std::shared_ptr<Connection> connection = database.Connect();
  if (database.Kind() == "SQLite") DatabaseSession::Of(*connection).FetchNative({"PRAGMA busy_timeout = 5000", {}});
  return connection;
}

/// Runs a work once for each workstation, over its own connection, and gives the sum of the numbers that they answer.
int AtEachStation(TestDatabase& database, const std::function<int(int station)>& work) {
  std::vector<std::function<QByteArray()>> works;
  for (int station = 0; station < kStations; ++station)
    works.emplace_back([&database, &work, station] {
      Shared().Connection = ConnectPatiently(database);
      return QByteArray::number(work(station));
    });
  int sum = 0;
  for (const QByteArray& answer : AtOnce(works)) sum += answer.toInt();
  return sum;
}

class StationsArchiving : public TransferTest {
 protected:
  static constexpr int kTransfers = 8, kAll = kStations * kTransfers;

  void SetUp() override {
    TransferTest::SetUp();
    for (int number = 1; number <= kAll; ++number)
      AddDocument(number, u"题名%1"_s.arg(number), u"2002-01-01"_s, u"1"_s);
  }
  /// Takes its time over the look at the numbers before the commit: a second station would find the same.
  static void BeSlow() {
    Shared().Connection->OnStatement([](const QString& statement) {
      if (statement.startsWith(u"Select ArchiveID From Wenshu"_s)) std::this_thread::sleep_for(20ms);
    });
  }
  /// Transfers a document as often as it takes; answers how often it was told that it could not be done.
  int Transfer(int number) const {
    for (int told = 0; told < 100; ++told) {
      ArchiveTransfer transfer;
      transfer.askTitle = [] { return u"案卷"_s; };
      try {
        transfer.DoFileArch(Order(), {DesignedDatabase::Key(number)}, true);
      } catch (const DataError&) {
        continue;
      }
      if (transfer.SucceedCount() == 1) return told;
    }
    ADD_FAILURE() << "document " << number << " could not be archived";
    return 0;
  }
  void ArchiveAll(const char* how) {
    const int told = AtEachStation(Database(), [&](int station) {
      BeSlow();
      int refused = 0;
      for (int count = 0; count < kTransfers; ++count) refused += Transfer(station * kTransfers + count + 1);
      return refused;
    });
    QStringList numbers = Rows(u"select ArchNo from Wenshu"_s), items = Rows(u"select ItemNo from Wenshu"_s);
    EXPECT_EQ(numbers.size(), kAll);
    EXPECT_EQ(numbers.removeDuplicates(), 0);
    EXPECT_EQ(items.removeDuplicates(), 0);
    std::printf("stations: %d transfers %s on %s, %d tried again\n", kAll, how, GetParam().c_str(), told);
  }
};
FOLVANE_ON_EACH_DATABASE(StationsArchiving);

TEST_P(StationsArchiving, GiveNoArchiveNumberTwiceInOneVolume) {
  ArchiveAll("into one volume");
  EXPECT_EQ(Rows(u"select Quantity from Anjuan"_s), QStringList{QString::number(kAll)});
}

// Nothing else that both write has one of them wait for the other.
TEST_P(StationsArchiving, GiveNoArchiveNumberTwiceWithoutVolumes) {
  design_->Run(u"update Design_TableRelation set Table_Parent = '' where TableName = 'Wenshu'"_s);
  ArchiveAll("without a volume");
  EXPECT_EQ(Rows(u"select Quantity from Anjuan"_s), QStringList());
}

class StationsRegistering : public FlowTest {
 protected:
  static constexpr int kRecords = 20;

  /// Adds a record as the entry window does, which takes another key where the database has one like it. Answers how
  /// often it did.
  static int Add(const QString& title) {
    Recordset records;
    records.Open(u"Select * From Lwdj Where 1 = 2"_s, Shared().Connection);
    RecordLifecycle lifecycle(records, {}, 0);
    lifecycle.StartNewRecord(false);
    records[u"Amaintitle"_s].SetValue(title);
    for (int taken = 0; taken < 1000; ++taken) {
      try {
        lifecycle.Write();
        return taken;
      } catch (const DataError& error) {
        if (!error.IsDuplicate() || error.Column().toUpper() != u"ARCHIVEID") throw;
        lifecycle.TakeNewKey();
      }
    }
    throw std::runtime_error("no key was free");
  }
};
FOLVANE_ON_EACH_DATABASE(StationsRegistering);

// Keys of the same second that differ in their last digits only, of which there are hardly more than records.
TEST_P(StationsRegistering, KeepEachRecordWhereTheyDrawTheSameKeys) {
  design_->Run(u"delete from Lwdj"_s);
  FixClock({QDate(2002, 3, 4), QTime(5, 6, 7)});
  std::vector<double> numbers;
  for (int number = 0; number < kStations * kRecords + 10; ++number) numbers.push_back((number + 0.5) / 1e6);
  const int taken = AtEachStation(Database(), [&](int station) {
    FixRandom(numbers);
    int again = 0;
    for (int count = 0; count < kRecords; ++count) again += Add(u"站%1第%2件"_s.arg(station).arg(count));
    return again;
  });
  EXPECT_GE(taken, kRecords) << "both draw the same numbers";
  QSet<QString> titles;
  for (const QStringList& row : Database().Rows(u"select Amaintitle from Lwdj"_s)) titles << row[0];
  EXPECT_EQ(titles.size(), kStations * kRecords);
  EXPECT_EQ(design_->Value(u"select count(*) from Lwdj"_s), QString::number(kStations * kRecords));
}

}  // namespace
}  // namespace folvane::test
