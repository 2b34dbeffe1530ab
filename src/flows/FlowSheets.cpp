#include "flows/FlowSheets.h"

#include <algorithm>

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "base/Surroundings.h"
#include "base/TypedValues.h"
#include "data/OneTransaction.h"
#include "data/Recordset.h"
#include "flows/PassedErrors.h"
#include "flows/SheetChanges.h"
#include "flows/Undisturbed.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kGreatestSerial = 32767;
const QString kNotAsRead = u"其他用户刚刚更改或删除了它。"_s;

QString DateOr(const QString& date, const QString& null) { return date.isEmpty() ? null : UnescapedLiteral(date); }

qint64 Execute(const QString& statement) { return SharedConnection()->Execute(statement); }

void Open(Recordset& records, const QString& statement) {
  if (records.IsOpen()) records.Close();
  records.Open(statement, SharedConnection());
}

QString ChangedSentence(const QString& changes) {
  return changes.isEmpty() ? changes : u"其他用户刚刚作了更改（%1）。"_s.arg(changes);
}

[[noreturn]] void RefuseSerial(const QString& serial) {
  throw DataError(DataErrorKind::Conversion,
                  u"无法计算下一个序号：已有的序号“%1”不是 %2 以下的整数。"_s.arg(serial).arg(kGreatestSerial));
}

int SerialIn(const QString& text) {
  const std::optional<double> number = ReadNumber(text);
  if (!number || qAbs(*number) > kGreatestSerial) RefuseSerial(text);
  return ToInteger(text);
}

}  // namespace

void FlowSheets::OpenHeads(const QString& statement) {
  Open(heads_, statement);
  heads_.SetSort(flow_.sort);
}

void FlowSheets::LoadFiles(const QString& archiveId) {
  OpenHeads(u"select * from "_s + flow_.headSource);
  if (HasHeads() && !archiveId.isEmpty()) heads_.Find(u"File_ID = '"_s + EscapeSql(archiveId) + u'\'');
  if (HasHeads() && !IsOnHead()) heads_.MoveFirst();
  OpenDetails();
}

void FlowSheets::Narrow(const QString& condition) {
  OpenHeads(u"Select * from "_s + flow_.headTable + u" Where "_s + condition);
  OpenDetails();
}

QString FlowSheets::HastenCondition() const {
  return flow_.isHandling ? u" and Is_Hasten='"_s + hasten_ + u'\'' : QString();
}

void FlowSheets::OpenDetails() {
  if (!IsOnHead()) {
    if (details_.IsOpen()) details_.Close();
    return;
  }
  Open(details_,
       u"select * from "_s + flow_.detailSource + u" where Register_ID='"_s + Key() + u'\'' + HastenCondition());
}

// Lines always belong to the head that is shown.
void FlowSheets::RequeryHeads() {
  const qint64 position = heads_.AbsolutePosition();
  const QString key = IsOnHead() ? Key() : QString();
  heads_.Requery();
  if (HasHeads()) heads_.Find(u"Register_ID = '"_s + EscapeSql(key) + u'\'');
  if (IsOnHead()) return;
  if (HasHeads()) heads_.SetAbsolutePosition(std::clamp<qint64>(position, 1, heads_.RecordCount()));
  OpenDetails();
}

void FlowSheets::RequeryDetails(const QString& serial) {
  if (!details_.IsOpen()) return OpenDetails();
  const qint64 position = details_.AbsolutePosition();
  details_.Requery();
  if (serial.isEmpty() || details_.RecordCount() == 0) return;
  details_.Find(u"File_ID = '"_s + EscapeSql(serial) + u'\'');
  if (!IsOnDetail()) details_.SetAbsolutePosition(std::clamp<qint64>(position, 1, details_.RecordCount()));
}

bool FlowSheets::IsIdle() const {
  const QString status = Head(flow_.statusColumn);
  return status == flow_.idle || status == flow_.ended;
}

QString FlowSheets::NextDetailSerial() const {
  Recordset serials;
  Open(serials, u"Select File_ID From "_s + flow_.detailTable + u" where Register_ID='"_s + Key() +
                    u"' Order By File_ID DESC"_s);
  if (serials.EOF_()) return u"1"_s;
  int greatest = SerialIn(serials[u"File_ID"_s].Text());
  // A column of texts puts 9 before 10.
  for (serials.MoveNext(); !serials.EOF_(); serials.MoveNext()) {
    const QString serial = serials[u"File_ID"_s].Text();
    if (IsNumeric(serial)) greatest = std::max(greatest, ToInteger(serial));
  }
  if (greatest >= kGreatestSerial) RefuseSerial(QString::number(greatest));
  return QString::number(greatest + 1);
}

bool FlowSheets::IsSerialTaken(const QString& serial) const {
  Recordset same;
  Open(same, u"Select File_ID From "_s + flow_.detailSource + u" where File_ID="_s + UnescapedLiteral(serial) +
                 u" and Register_ID='"_s + Key() + u'\'');
  return !same.EOF_();
}

void FlowSheets::InsertDetail(const DetailValues& values) {
  QString columns = u"File_ID,Register_ID,Lead_Unit,"_s + flow_.detailDate;
  QString texts = UnescapedLiteral(values.serial) + u',' + UnescapedLiteral(Key()) + u',' +
                  UnescapedLiteral(values.unit) + u',' + DateOr(values.date, u"null"_s);
  const auto add = [&](const QString& column, const QString& text) {
    columns += u',' + column;
    texts += u',' + text;
  };
  if (flow_.hasQuantities) add(u"Quantity"_s, values.quantity);
  if (flow_.isHandling) add(u"Transact_Mode"_s, UnescapedLiteral(values.mode));
  add(u"Is_Back"_s, UnescapedLiteral(values.isBack));
  add(u"Back_Date"_s, DateOr(values.backDate, u"null"_s));
  add(u"Real_BackDate"_s, DateOr(values.realBackDate, u"null"_s));
  if (flow_.hasQuantities) add(u"Back_Quantity"_s, values.backQuantity);
  if (flow_.isHandling) {
    add(u"Transact_Result"_s, UnescapedLiteral(values.result));
    add(u"Is_Hasten"_s, UnescapedLiteral(hasten_));
  }
  Execute(u"Insert Into "_s + flow_.detailSource + u" ("_s + columns + u") Values ("_s + texts + u')');
}

void FlowSheets::InsertRouteDetail(const QString& members) {
  const QString hastenColumn = flow_.isHandling ? u",Is_Hasten"_s : QString();
  const QString hastenText = flow_.isHandling ? u",'"_s + hasten_ + u'\'' : QString();
  Execute(u"Insert Into "_s + flow_.detailTable + u" (File_ID,Register_ID,Lead_Unit,"_s + flow_.detailDate +
          u",Is_Back"_s + hastenColumn + u") Values ('"_s + NextDetailSerial() + u"','"_s + Key() + u"',"_s +
          UnescapedLiteral(members) + u",'"_s + Today().toString(u"yyyy-M-d"_s) + u"','否'"_s + hastenText + u')');
}

DetailValues FlowSheets::ReadDetail() const {
  DetailValues values{Detail(u"File_ID"_s), Detail(u"Lead_Unit"_s), Detail(flow_.detailDate),   {}, {},
                      Detail(u"Is_Back"_s), Detail(u"Back_Date"_s), Detail(u"Real_BackDate"_s), {}, {}};
  if (flow_.hasQuantities) {
    values.quantity = Detail(u"Quantity"_s);
    values.backQuantity = Detail(u"Back_Quantity"_s);
  }
  if (flow_.isHandling) {
    values.mode = Detail(u"Transact_Mode"_s);
    values.result = Detail(u"Transact_Result"_s);
  }
  return values;
}

SaveOutcome FlowSheets::UpdateDetail(const DetailValues& values, DetailValues& shown) {
  return Undisturbed([&]() -> SaveOutcome {
    if (IsGone(details_)) return {SaveOutcome::Gone, {}};
    if (const DetailValues now = ReadDetail(); now != shown) {
      const QString changes = ChangesInWords(flow_, shown, now);
      shown = now;
      return {SaveOutcome::Changed, changes};
    }
    QString statement = u"Update "_s + flow_.detailSource + u" set File_ID="_s + UnescapedLiteral(values.serial) +
                        u",Lead_Unit="_s + UnescapedLiteral(values.unit) + u',' + flow_.detailDate +
                        (values.date.isEmpty() ? u"=Null"_s : u"= "_s + UnescapedLiteral(values.date));
    if (flow_.hasQuantities) statement += u",Quantity="_s + values.quantity;
    if (flow_.isHandling) statement += u",Transact_Mode="_s + UnescapedLiteral(values.mode);
    statement += u",Is_Back="_s + UnescapedLiteral(values.isBack) + u",Back_Date="_s +
                 DateOr(values.backDate, u"null"_s) + u",Real_BackDate="_s + DateOr(values.realBackDate, u"null"_s);
    if (flow_.hasQuantities) statement += u",Back_Quantity="_s + values.backQuantity;
    if (flow_.isHandling) statement += u",Transact_Result="_s + UnescapedLiteral(values.result);
    const qint64 written = Execute(statement + u" where Register_ID='"_s + Key() + u"' and File_ID='"_s +
                                   EscapeSql(shown.serial) + u'\'' + HastenCondition());
    return {written == 0 ? SaveOutcome::Gone : SaveOutcome::Written, {}};
  });
}

void FlowSheets::TakeAddedDetail() {
  RequeryDetails();
  if (details_.RecordCount() > 0 && !Reminds()) WriteHead({{flow_.statusColumn, flow_.done}});
}

HeadValues FlowSheets::ReadHead() const {
  return {Head(flow_.idColumn), Head(flow_.statusColumn), flow_.HasRange() ? Head(flow_.rangeColumn) : QString(),
          Head(u"File_Unit"_s), Head(u"Note"_s)};
}

SaveOutcome FlowSheets::UpdateHead(const HeadValues& values, HeadValues& shown) {
  return Undisturbed([&]() -> SaveOutcome {
    if (IsGone(heads_)) return {SaveOutcome::Gone, {}};
    if (const HeadValues now = ReadHead(); now != shown) {
      const QString changes = ChangesInWords(flow_, shown, now);
      shown = now;
      return {SaveOutcome::Changed, changes};
    }
    QStringList assignments;
    for (const auto& [column, value] : flow_.headUpdate) assignments << column + UnescapedLiteral(values.*value);
    const qint64 written = Execute(u"Update "_s + flow_.headTable + u" set "_s + assignments.join(u',') +
                                   u" where Register_ID='"_s + Key() + u'\'');
    return {written == 0 ? SaveOutcome::Gone : SaveOutcome::Written, {}};
  });
}

QString FlowSheets::TakeDetailChanges() {
  const DetailValues before = ReadDetail();
  return IsGone(details_) ? kNotAsRead : ChangedSentence(ChangesInWords(flow_, before, ReadDetail()));
}

QString FlowSheets::TakeHeadChanges() {
  const HeadValues before = ReadHead();
  return IsGone(heads_) ? kNotAsRead : ChangedSentence(ChangesInWords(flow_, before, ReadHead()));
}

void FlowSheets::WriteHead(const std::vector<std::pair<QString, QString>>& values) {
  try {
    for (const auto& [field, text] : values) heads_[field].SetValue(text);
    heads_.UpdateBatch(AffectKind::Current);
    heads_.UpdateBatch(AffectKind::AllChapters);
  } catch (const std::exception&) {
    heads_.CancelBatch();
    IgnoreErrors([&] { ResyncHead(); });
    throw;
  }
}

void FlowSheets::WriteTogether(const std::function<void()>& work) {
  const std::vector<QVariant> before = heads_.OriginalValues();
  try {
    InOneTransaction(*SharedConnection(), work);
  } catch (const std::exception&) {
    if (!IgnoreErrors([&] { ResyncHead(); })) heads_.TakeForStored(before);
    throw;
  }
}

// Many sheets are written quickly together; where one cannot be written, each is tried by itself.
QString FlowSheets::WriteBack() {
  PassedErrors passed;
  passed.Try([&] {
    if (!HasHeads() || !IsOnHead()) return;
    const qint64 position = heads_.AbsolutePosition();
    const bool together = IgnoreErrors([&] {
      InOneTransaction(*SharedConnection(), [&] { WriteStatesBack([&](const QString& text) { Execute(text); }); });
    });
    if (together) return;
    heads_.SetAbsolutePosition(position);
    WriteStatesBack([&](const QString& text) { passed.Try([&] { Execute(text); }); });
  });
  return passed.Text();
}

void FlowSheets::WriteStatesBack(const std::function<void(const QString&)>& write) {
  for (; !heads_.EOF_(); heads_.MoveNext()) {
    const QString status = Head(flow_.statusColumn);
    if (status != flow_.done && status != flow_.idle) continue;
    write(u"Update "_s + Head(u"File_Table"_s) + u" Set "_s + flow_.recordColumn + u" = '"_s + status +
          u"' Where ArchiveId = '"_s + EscapeSql(Head(u"File_ID"_s)) + u'\'');
  }
}

}  // namespace folvane
