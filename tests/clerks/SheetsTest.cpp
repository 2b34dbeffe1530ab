#include <QMap>

#include <folvane/DataError.h>

#include "clerks/Interleaving.h"
#include "flows/FlowFixture.h"
#include "flows/FlowSheets.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// What the sheet must hold after the writes that were acknowledged: its unit, and the units of its lines.
struct SheetModel {
  QString unit;
  QMap<QString, QString> lines;
};

/// One of two who work on the same sheet.
class SheetClerk {
 public:
  /// @param isThere tells whether the database has the line of that serial
  SheetClerk(const Flow& flow, SheetModel& model, Figures& figures, Dice& dice,
             std::function<bool(const QString& serial)> isThere)
      : sheets_(flow), model_(model), figures_(figures), dice_(dice), isThere_(std::move(isThere)) {}

  /// Opens the sheet and its dialog, or gives what was entered there to the database. What the database refuses the
  /// user is told.
  void Go(const QString& word) {
    try {
      isOpen_ ? Enter(word) : Open();
    } catch (const DataError&) {
      ++figures_.told;
    }
    isOpen_ = !isOpen_;
  }

 private:
  void Open() {
    sheets_.LoadFiles({});
    head_ = sheets_.ReadHead();
    hasLine_ = sheets_.IsOnDetail();
    if (!hasLine_) return;
    sheets_.GoToDetail(dice_.Between(1, int(sheets_.Details().RecordCount())));
    line_ = sheets_.ReadDetail();
  }
  void Enter(const QString& word) {
    const int kind = dice_.Between(1, 4);
    if (kind == 1) return ChangeHead(word);
    if (kind == 2 || !hasLine_) return AddLine(word);
    kind == 3 ? ChangeLine(word) : DeleteLine();
  }
  void ChangeHead(const QString& word) {
    const HeadValues read = head_;
    HeadValues values = head_;
    values.unit = word;
    if (sheets_.UpdateHead(values, head_).kind != SaveOutcome::Written) return void(++figures_.told);
    EXPECT_EQ(model_.unit, read.unit) << "what was overwritten had not been read";
    model_.unit = word;
    ++figures_.kept;
  }
  void AddLine(const QString& word) {
    DetailValues values{sheets_.NextDetailSerial(), word, {}, u"1"_s, {}, u"否"_s, {}, {}, u"0"_s, {}};
    if (sheets_.IsSerialTaken(values.serial)) return void(++figures_.told);
    sheets_.InsertDetail(values);
    EXPECT_FALSE(model_.lines.contains(values.serial)) << "the same serial twice";
    model_.lines[values.serial] = word;
    ++figures_.kept;
  }
  void ChangeLine(const QString& word) {
    const DetailValues read = line_;
    DetailValues values = line_;
    values.unit = word;
    if (sheets_.UpdateDetail(values, line_).kind != SaveOutcome::Written) return void(++figures_.told);
    EXPECT_EQ(model_.lines.value(read.serial, u"<gone>"_s), read.unit) << "what was overwritten had not been read";
    if (model_.lines.contains(read.serial)) model_.lines[read.serial] = word;
    ++figures_.kept;
  }
  // Of several statements: only one of them takes the line, so that nobody is let in between them. What failed may be
  // that one or one behind it.
  void DeleteLine() {
    Shared().Connection->OnStatement({});
    const QString serial = line_.serial;
    const bool isUnread = model_.lines.value(serial, line_.unit) != line_.unit;
    const bool isTold = !sheets_.DeleteDetail().isEmpty();
    if (isTold) ++figures_.told;
    if (isTold && isThere_(serial)) return;
    if (isUnread) ++figures_.deletedUnread;
    model_.lines.remove(serial);
    ++figures_.kept;
  }

  FlowSheets sheets_;
  SheetModel& model_;
  Figures& figures_;
  Dice& dice_;
  std::function<bool(const QString&)> isThere_;
  HeadValues head_;
  DetailValues line_;
  bool isOpen_ = false, hasLine_ = false;
};

class ClerksSheets : public FlowTest {
 protected:
  void Interleave(int number, TwoUsers& users) {
    Dice dice{quint64(run_.seed), quint64(number)};
    const Flow& flow = dice.OneIn(2) ? Distribution() : Circulation();
    design_->Run(u"delete from "_s + flow.headTable);
    design_->Run(u"delete from "_s + flow.detailTable);
    AddHead(flow, {K(1), K(2), flow.idle});
    design_->Run(u"update %1 set File_Unit = '单位'"_s.arg(flow.headTable));
    AddDetail(flow, K(1), 1, u"一处"_s);
    SheetModel model{u"单位"_s, {{u"1"_s, u"一处"_s}}};
    const auto isThere = [&](const QString& serial) {
      return !Database().Rows(u"select 1 from %1 where File_ID='%2'"_s.arg(flow.detailTable, serial)).empty();
    };
    SheetClerk clerks[]{{flow, model, figures_, dice, isThere}, {flow, model, figures_, dice, isThere}};
    for (int step = 1; step <= 12; ++step) {
      const int user = dice.Between(0, 1);
      const auto go = [&](int who) { clerks[who].Go(u"单位%1%2"_s.arg(who).arg(step)); };
      users.AsInterrupted(
          user, dice.Between(1, 6), [&] { go(user); }, [&] { go(1 - user); });
    }
    EXPECT_EQ(HeadText(flow, K(1), u"File_Unit"_s), model.unit);
    QMap<QString, QString> lines;
    for (const QStringList& row : Database().Rows(u"select File_ID,Lead_Unit from "_s + flow.detailTable))
      lines[row[0]] = row[1];
    EXPECT_EQ(lines, model.lines);
  }

  const ClerksRun run_ = ClerksRun::FromEnvironment();
  Figures figures_;
};
FOLVANE_ON_EACH_DATABASE(ClerksSheets);

TEST_P(ClerksSheets, LoseNoChangeOfASheetUnseen) {
  TwoUsers users(Database());
  for (int number = 1; number <= run_.count && !HasFailure(); ++number) {
    SCOPED_TRACE("FOLVANE_CLERKS_SEED=" + std::to_string(run_.seed) + " interleaving " + std::to_string(number));
    Interleave(number, users);
  }
  figures_.Print("the same sheet", GetParam(), run_);
}

}  // namespace
}  // namespace folvane::test
