#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "archiving/TransferFixture.h"
#include "data/DatabaseSession.h"
#include "data/drivers/Driver.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

// Five documents with two originals each, of a user whose rights are limited, into a new volume.
class TransferFaultsTest : public TransferTest {
 protected:
  static constexpr int kDocuments = 5;

  void SetUp() override {
    TransferTest::SetUp();
    AddDocuments(kDocuments);
    for (int number = 1; number <= kDocuments; ++number)
      for (const int order : {1, 2})
        design_->AddOriginal(DesignedDatabase::Key(number), u"%1%2"_s.arg(number).arg(order), u"原文"_s, order);
    AddColumn(u"Wenshu"_s, u"Term varchar(10)"_s);
    AddDictionary(u"Term"_s, u"永久"_s, u"1"_s);
    SetFormat({{u"FondsNo"_s, u"123"_s, u"-"_s, false, 4},
               {u"Term"_s, u"永久"_s, u"-"_s, true, 2},
               {u"ItemNo"_s, QString(), u"-"_s, false, 4}},
              u"ArchNo"_s);
    Shared().UserId = u"7"_s;
    design_->Insert(u"UserPopedomScope"_s, u"UserID,PopTableName,PopCondition"_s,
                    {u"7"_s, u"Fwdj"_s, u"FondsNo = '123'"_s});
    design_->Insert(u"UserPopedomScopeDetails"_s, u"UserId,PopTableName,FieldName"_s,
                    {u"7"_s, u"Fwdj"_s, u"FondsNo"_s});
    design_->Run(u"alter table Anjuan add column Term varchar(10)"_s);
    before_ = Everything();
    log_->Take();
  }

  TransferOrder WithOriginals() const {
    TransferOrder order = Order();
    order.withOriginals = true;
    return order;
  }
  /// Whether the user was told: by a box of the transfer's own, or by the error that reaches its caller.
  bool TransferIsTold() {
    boxes_.Clear();
    try {
      Transfer(kDocuments, WithOriginals());
    } catch (const DataError&) {
      return true;
    }
    return !boxes_.Requests().empty();
  }
  void ExpectNothingKept() {
    EXPECT_FALSE(Connected()->InTransaction());
    EXPECT_EQ(transfer_->SucceedCount(), 0);
    EXPECT_EQ(Everything(), before_);
  }

  QStringList before_;
};
FOLVANE_ON_EACH_DATABASE(TransferFaultsTest);

TEST_P(TransferFaultsTest, NoTransferIsMadePartOfATransactionThatTheHostHasBegunOnItsHandle) {
  if (!OnSqlite()) GTEST_SKIP() << "there a transaction is begun by a setting of the handle";
  Driver& handle = DatabaseSession::Of(*Connected()).NativeDriver();
  handle.Execute({"BEGIN", {}});
  try {
    Transfer(kDocuments, WithOriginals());
    ADD_FAILURE() << "it took part";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
  }
  handle.Execute({"ROLLBACK", {}});
  ExpectNothingKept();
}

TEST_P(TransferFaultsTest, AFaultOfAnyStatementLeavesTheDatabaseAsItWas) {
  int faults = 0;
  for (bool all = false; !all;) {
    SCOPED_TRACE(testing::Message() << "statement " << faults + 1);
    const LockedStatement fault(*Connected(), faults + 1);
    const bool told = TransferIsTold();
    all = !fault.WasRun();
    if (all) break;
    ++faults;
    EXPECT_TRUE(told);
    ExpectNothingKept();
    if (HasFailure()) return;
  }
  // Four before the transaction; of each record three for the rights, two for the number and one for the originals; of
  // the volume eight, the pieces' among them; one that looks for numbers given twice.
  EXPECT_EQ(faults, 4 + kDocuments * 6 + 8 + 1);
  EXPECT_EQ(transfer_->SucceedCount(), kDocuments);
}

// A database that refuses the n-th row of a table.
class RefusedRow {
 public:
  RefusedRow(TestDatabase& database, const QString& event, const QString& table, const QString& condition,
             const QString& refusal)
      : database_(database), table_(table) {
    if (database.Kind() == "SQLite") {
      database.Native(u"create trigger Refusal before "_s + event + u" on "_s + table + u" when "_s + condition +
                      u" begin select raise("_s + refusal + u", 'refused'); end"_s);
      return;
    }
    database.Native(
        u"create or replace function Refuse() returns trigger as $$ begin raise exception 'refused'; end $$ "
        "language plpgsql"_s);
    database.Native(u"create trigger Refusal before "_s + event + u" on "_s + table + u" for each row when ("_s +
                    condition + u") execute function Refuse()"_s);
  }
  ~RefusedRow() {
    database_.Native(database_.Kind() == "SQLite" ? u"drop trigger Refusal"_s : u"drop trigger Refusal on "_s + table_);
  }

 private:
  TestDatabase& database_;
  QString table_;
};

TEST_P(TransferFaultsTest, ARefusedRowLeavesTheDatabaseAsItWas) {
  struct Case {
    QString event, table, condition;
  };
  std::vector<Case> cases;
  for (int number = 1; number <= kDocuments; ++number) {
    cases.push_back({u"insert"_s, u"Wenshu"_s, u"new.ItemNo = %1"_s.arg(number)});
    cases.push_back({u"insert"_s, u"Original_Text"_s, u"new.ID = '%1'"_s.arg(10 * number + 2)});
    cases.push_back({u"update"_s, u"Fwdj"_s, u"new.Amaintitle = '题名%1'"_s.arg(number)});
  }
  cases.push_back({u"insert"_s, u"Anjuan"_s, u"new.FondsNo = '123'"_s});
  for (const Case& each : cases) {
    SCOPED_TRACE((each.table + u": "_s + each.condition).toStdString());
    const RefusedRow refused(Database(), each.event, each.table, each.condition, u"abort"_s);
    EXPECT_TRUE(TransferIsTold());
    ExpectNothingKept();
  }
}

TEST_P(TransferFaultsTest, ATransactionThatTheDatabaseItselfHasTakenBackStaysSo) {
  if (!OnSqlite()) return;  // so ends a full disk there
  for (int number = 1; number <= kDocuments; ++number) {
    const RefusedRow refused(Database(), u"insert"_s, u"Wenshu"_s, u"new.ItemNo = %1"_s.arg(number), u"rollback"_s);
    EXPECT_TRUE(TransferIsTold());
    ExpectNothingKept();
  }
}

TEST_P(TransferFaultsTest, ALostConnectionLeavesTheDatabaseAsItWas) {
  if (OnSqlite()) return;  // which has none to lose
  // Its own alone: other tests use the server at the same time.
  const FetchedRows session = DatabaseSession::Of(*Connected()).FetchNative({"select pg_backend_pid()", {}});
  const QString end = u"select pg_terminate_backend(%1, 5000)"_s.arg(session.rows->At(0, 0).ToVariant().toInt());
  int statement = 0;
  Connected()->OnStatement([&](const QString&) {
    if (++statement == 20) Database().Native(end);
  });
  EXPECT_TRUE(TransferIsTold());
  Connected()->OnStatement({});
  ExpectNothingKept();
}

TEST_P(TransferFaultsTest, AFailedCommitLeavesTheDatabaseAsItWas) {
  if (OnSqlite()) {  // which cannot commit while another reads
    Connected()->OnStatement([this](const QString& statement) {
      if (!statement.startsWith(u"Select ArchiveID From Wenshu"_s)) return;
      Database().Native(u"begin"_s);
      Database().Rows(u"select * from Fwdj"_s);
    });
  } else {
    design_->Run(u"alter table Wenshu add constraint OneItem unique (Term) deferrable initially deferred"_s);
  }
  EXPECT_THROW(Transfer(kDocuments, WithOriginals()), DataError);
  Connected()->OnStatement({});
  if (OnSqlite()) Database().Native(u"rollback"_s);
  ExpectNothingKept();
}

}  // namespace
}  // namespace folvane::test
