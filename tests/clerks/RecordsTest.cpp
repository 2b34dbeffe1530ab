#include <QMap>

#include <folvane/DataError.h>

#include "clerks/Interleaving.h"
#include "entry/RecordLifecycle.h"
#include "flows/FlowFixture.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kFields{u"Amaintitle"_s, u"DocNo"_s};

/// What the record must hold after the writes that were acknowledged.
struct RecordModel {
  bool isThere = true;
  QMap<QString, QString> values;
};

/// One of two who have the same record in their entry forms.
class RecordClerk {
 public:
  RecordClerk(std::shared_ptr<Connection> connection, RecordModel& model, Figures& figures, Dice& dice)
      : connection_(std::move(connection)), model_(model), figures_(figures), dice_(dice) {}

  /// Reads the record, changes or deletes it, and writes: a third of that at each call.
  void Go(const QString& word) {
    if (phase_ == 0) Read();
    if (phase_ == 1) Change(word);
    if (phase_ == 2) End();
    phase_ = (phase_ + 1) % 3;
  }

 private:
  void Read() {
    lifecycle_.reset();
    if (records_.IsOpen()) records_.Close();
    records_.Open(u"Select * From Lwdj"_s, connection_);
    lifecycle_ = std::make_unique<RecordLifecycle>(records_, LifecycleStart{}, 1);
    deletes_ = dice_.OneIn(6);
  }
  void Change(const QString& word) {
    changed_.clear();
    if (!lifecycle_->HasRow() || deletes_) return;
    changed_ = dice_.OneIn(3) ? kFields : QStringList{dice_.AnyOf(kFields)};
    lifecycle_->NoteChange();
    for (const QString& field : changed_) records_[field].SetValue(word);
  }
  void End() {
    if (!lifecycle_->HasRow()) return;
    deletes_ ? Delete() : Write();
  }
  void Delete() {
    QMap<QString, QString> read;
    for (const QString& field : kFields) read[field] = records_[field].Text();
    try {
      lifecycle_->Delete();
    } catch (const DataError&) {
      ++figures_.told;
      return;
    }
    EXPECT_TRUE(model_.isThere) << "deleted twice";
    // A deletion goes by the key alone: what someone else has changed meanwhile goes with it, and is only counted here.
    if (model_.values != read) ++figures_.deletedUnread;
    model_.isThere = false;
    ++figures_.kept;
  }
  // Who is told of the other's changes goes on over them, or gives up.
  void Write() {
    for (int attempt = 0; attempt < 3; ++attempt) {
      QMap<QString, QString> read;
      for (const QString& field : changed_) read[field] = records_[field].OriginalValue().toString();
      if (TryToWrite()) return Keep(read);
      ++figures_.told;
      if (dice_.OneIn(3) || !CanGoOn()) break;
    }
    lifecycle_->Cancel();
  }
  bool TryToWrite() {
    try {
      lifecycle_->Write();
      return true;
    } catch (const DataError&) {
      return false;
    }
  }
  bool CanGoOn() {
    try {
      return lifecycle_->TakeTheirs() != RecordLifecycle::Theirs::Deleted;
    } catch (const DataError&) {
      return false;
    }
  }
  void Keep(const QMap<QString, QString>& read) {
    EXPECT_TRUE(model_.isThere) << "a record that was gone";
    for (const QString& field : changed_) {
      EXPECT_EQ(model_.values[field], read[field]) << "what was overwritten had not been read";
      model_.values[field] = records_[field].Text();
    }
    ++figures_.kept;
  }

  std::shared_ptr<Connection> connection_;
  RecordModel& model_;
  Figures& figures_;
  Dice& dice_;
  Recordset records_;
  std::unique_ptr<RecordLifecycle> lifecycle_;
  QStringList changed_;
  bool deletes_ = false;
  int phase_ = 0;
};

class ClerksRecords : public FlowTest {
 protected:
  void Interleave(int number, TwoUsers& users) {
    Dice dice{quint64(run_.seed), quint64(number)};
    design_->Run(u"delete from Lwdj"_s);
    AddRecord(K(1), u"题名"_s);
    design_->Run(u"update Lwdj set DocNo = '文号'"_s);
    RecordModel model{true, {{kFields[0], u"题名"_s}, {kFields[1], u"文号"_s}}};
    RecordClerk clerks[]{{users.Of(0), model, figures_, dice}, {users.Of(1), model, figures_, dice}};
    for (int step = 1; step <= 18; ++step) {
      const int user = dice.Between(0, 1);
      // No word comes twice: a value that is entered as it stands is no change.
      const auto go = [&](int who) { clerks[who].Go(u"字%1'%2"_s.arg(who).arg(step)); };
      users.AsInterrupted(
          user, dice.Between(1, 4), [&] { go(user); }, [&] { go(1 - user); });
    }
    EXPECT_EQ(design_->Value(u"select count(*) from Lwdj"_s), model.isThere ? u"1"_s : u"0"_s);
    for (const QString& field : model.isThere ? kFields : QStringList())
      EXPECT_EQ(design_->Value(u"select "_s + field + u" from Lwdj"_s), model.values[field]);
  }

  const ClerksRun run_ = ClerksRun::FromEnvironment();
  Figures figures_;
};
FOLVANE_ON_EACH_DATABASE(ClerksRecords);

TEST_P(ClerksRecords, LoseNoChangeOfARecordUnseen) {
  TwoUsers users(Database());
  for (int number = 1; number <= run_.count && !HasFailure(); ++number) {
    SCOPED_TRACE("FOLVANE_CLERKS_SEED=" + std::to_string(run_.seed) + " interleaving " + std::to_string(number));
    Interleave(number, users);
  }
  figures_.Print("the same record", GetParam(), run_);
}

}  // namespace
}  // namespace folvane::test
