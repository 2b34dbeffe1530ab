#include <QSet>

#include <folvane/DataError.h>

#include "archiving/TransferFixture.h"
#include "clerks/Interleaving.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class ClerksArchiving : public TransferTest {
 protected:
  /// Transfers two documents as the current user; the number of those that it was told are archived.
  void Transfer(const QStringList& keys) {
    ArchiveTransfer transfer;
    transfer.askTitle = [] { return u"案卷"_s; };
    int count = 0;
    try {
      transfer.DoFileArch(Order(), keys, true);
      count = transfer.SucceedCount();
    } catch (const DataError&) {
      count = 0;
    }
    succeeded_ += count;
    count > 0 ? ++figures_.kept : ++figures_.told;
  }
  void Interleave(int number, TwoUsers& users) {
    Dice dice{quint64(run_.seed), quint64(number)};
    for (const QString& table : {u"Fwdj"_s, u"Wenshu"_s, u"Anjuan"_s}) design_->Run(u"delete from "_s + table);
    AddDocuments(4);
    succeeded_ = 0;
    const int user = dice.Between(0, 1);
    const auto keysOf = [](int who) {
      return QStringList{DesignedDatabase::Key(2 * who + 1), DesignedDatabase::Key(2 * who + 2)};
    };
    users.AsInterrupted(
        user, dice.Between(1, 45), [&] { Transfer(keysOf(user)); }, [&] { Transfer(keysOf(1 - user)); });
    for (const int who : {0, 1}) EXPECT_FALSE(users.Of(who)->InTransaction());
    ExpectNumbersGivenOnce();
  }
  void ExpectNumbersGivenOnce() {
    EXPECT_EQ(Database().Value(u"select count(*) from Wenshu"_s), QString::number(succeeded_));
    EXPECT_EQ(Database().Value(u"select count(*) from Fwdj where FileStatus='已归档'"_s), QString::number(succeeded_));
    for (const QString& column : {u"ArchNo"_s, u"ItemNo"_s, u"ArchiveID"_s, u"Amaintitle"_s}) {
      QStringList values = Rows(u"select "_s + column + u" from Wenshu"_s);
      EXPECT_EQ(values.removeDuplicates(), 0) << column.toStdString() << " given twice";
    }
    const QString volumes = succeeded_ > 0 ? u"1"_s : u"0"_s;
    EXPECT_EQ(Database().Value(u"select count(*) from Anjuan"_s), volumes) << "volumes";
    if (succeeded_ > 0) {
      EXPECT_EQ(Database().Value(u"select Quantity from Anjuan"_s), QString::number(succeeded_)) << "pages";
    }
  }

  const ClerksRun run_ = ClerksRun::FromEnvironment();
  Figures figures_;
  int succeeded_ = 0;
};
FOLVANE_ON_EACH_DATABASE(ClerksArchiving);

TEST_P(ClerksArchiving, GiveNoArchiveNumberTwice) {
  TwoUsers users(Database());
  for (int number = 1; number <= run_.count && !HasFailure(); ++number) {
    SCOPED_TRACE("FOLVANE_CLERKS_SEED=" + std::to_string(run_.seed) + " interleaving " + std::to_string(number));
    Interleave(number, users);
  }
  figures_.Print("the same volume", GetParam(), run_);
}

}  // namespace
}  // namespace folvane::test
