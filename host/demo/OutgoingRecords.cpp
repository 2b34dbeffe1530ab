#include "host/demo/OutgoingRecords.h"

#include <algorithm>

#include "host/demo/Selection.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kOutgoingColumns{
    u"ArchiveID"_s,  u"RegID"_s,         u"CreatedDate"_s, u"DocNo"_s,       u"FileDate"_s,      u"Amaintitle"_s,
    u"MainSend"_s,   u"ResponsibleBy"_s, u"CopySend"_s,    u"DocType"_s,     u"SecurityClass"_s, u"Urgency"_s,
    u"Department"_s, u"Drafter"_s,       u"Signer"_s,      u"Phone"_s,       u"FondsNo"_s,       u"Quantity"_s,
    u"PageCount"_s,  u"DisPenseState"_s, u"ReadState"_s,   u"HandleState"_s, u"FileStatus"_s,    u"Note"_s};
constexpr int kOutgoingWithSheets = 500, kOutgoingWithFiles = 150;

// Which word a kind of document is numbered under.
const QHash<QString, QStringList> kWords{{u"通知"_s, {u"青政发"_s, u"青政办发"_s}},
                                         {u"通报"_s, {u"青政办发"_s}},
                                         {u"意见"_s, {u"青政发"_s}},
                                         {u"决定"_s, {u"青政发"_s}},
                                         {u"批复"_s, {u"青政复"_s}},
                                         {u"函"_s, {u"青政函"_s, u"青政办函"_s}},
                                         {u"请示"_s, {u"青政报"_s}},
                                         {u"报告"_s, {u"青政报"_s}}};

// Requests and reports go up, answers down to one county, everything else to many.
QStringList ReceiversOf(const QString& kind, const QStringList& all) {
  QStringList up, one, many;
  for (const QString& receiver : all)
    (receiver.startsWith(u"东岭省"_s) ? up : receiver.endsWith(u"人民政府"_s) ? one : many) << receiver;
  if (kind == u"请示"_s || kind == u"报告"_s) return up;
  return kind == u"批复"_s || kind == u"函"_s ? one : many;
}

}  // namespace

OutgoingRecords::OutgoingRecords(const RecordContext& around, SingleRecords& singles)
    : around_(around),
      singles_(singles),
      calendar_(around.plan.first, around.plan.today),
      keys_(KeyKind::Outgoing, around.random),
      rows_(around.connection, u"Fwdj"_s, kOutgoingColumns) {}

void OutgoingRecords::Write() {
  for (int year = around_.plan.first.year(); year <= around_.plan.today.year(); ++year) {
    WriteYear(year, int(calendar_.CountBefore(year, around_.plan.outgoing)),
              int(calendar_.CountBefore(year + 1, around_.plan.outgoing)));
  }
  rows_.Finish();
}

void OutgoingRecords::WriteYear(int year, int begin, int end) {
  static const QStringList classes{u"XZ"_s, u"XZ"_s, u"YW"_s, u"DQ"_s, u"CW"_s};
  lastNumbers_.clear();
  Selection archived(singles_.OpenYear(year), end - begin, around_.random);
  const int total = around_.plan.outgoing;
  for (int i = begin; i < end; ++i) {
    const Letter letter = NewLetter(calendar_.At(i, total));
    const bool kept = archived.Next();
    const QString entityClass = around_.random.Pick(classes);
    Add(letter, StatusOf(year, kept), i >= total - std::min(total / 3, kOutgoingWithSheets));
    const auto originals = around_.originals.Attach(letter, i >= total - kOutgoingWithFiles);
    around_.recordDone();
    if (!kept) continue;
    singles_.Take(letter, entityClass, originals);
    around_.recordDone();
  }
}

Letter OutgoingRecords::NewLetter(const QDateTime& registered) {
  Random& random = around_.random;
  const Words& words = around_.words;
  Letter letter;
  letter.outgoing = true;
  letter.registered = registered;
  letter.key = keys_.At(registered);
  letter.written = registered.date().addDays(-random.Between(0, 2));
  letter.kind = random.Pick({u"通知"_s, u"通知"_s, u"通知"_s, u"批复"_s, u"函"_s, u"函"_s, u"请示"_s, u"报告"_s,
                             u"意见"_s, u"通报"_s, u"决定"_s});
  const QString word = random.Pick(kWords[letter.kind]);
  letter.author = words.List(u"责任者"_s)[word.contains(u"办"_s) ? 1 : 0];
  letter.title = words.Title(letter.author, letter.kind, registered.date().year(), random);
  regId_ = ++lastNumbers_[word];
  letter.docNo = u"%1〔%2〕%3号"_s.arg(word).arg(registered.date().year()).arg(regId_);
  if (random.Chance(15)) letter.security = random.Pick(words.List(u"密级"_s).mid(1, 2));
  letter.department = random.Pick(words.List(u"承办科室"_s));
  letter.copies = random.Between(5, 80);
  letter.pages = random.Between(1, 20);
  if (random.Chance(8)) letter.note = random.Pick(words.List(u"备注"_s));
  return letter;
}

QString OutgoingRecords::StatusOf(int year, bool archived) {
  if (archived) return u"已归档"_s;
  if (year <= around_.plan.archived.back().year) return u"不归档"_s;
  return around_.random.Chance(90) ? u"需归档"_s : QString();
}

void OutgoingRecords::Add(const Letter& letter, const QString& fileStatus, bool recent) {
  Random& random = around_.random;
  const Words& words = around_.words;
  const QString dispensed = recent ? around_.sheets.ForOutgoing(letter, regId_) : around_.sheets.LongDone().dispense;
  const auto some = [&](int percent, const QString& text) {
    return random.Chance(percent) ? QVariant(text) : QVariant();
  };
  rows_.Add({letter.key,
             qlonglong(regId_),
             DayText(letter.registered.date()),
             letter.docNo,
             DayText(letter.written),
             letter.title,
             random.Pick(ReceiversOf(letter.kind, words.List(u"主送机关"_s))),
             letter.author,
             some(40, u"市委办公室，市人大常委会办公室，市政协办公室"_s),
             letter.kind,
             TextOrNull(letter.security),
             some(25, random.Pick(words.List(u"缓急"_s))),
             letter.department,
             words.Person(random),
             random.Pick(words.List(u"签发人"_s)),
             QString::asprintf("0700-%08d", 86'000'000 + random.Below(1'000'000)),
             u"0188"_s,
             qlonglong(letter.copies),
             qlonglong(letter.pages),
             dispensed,
             u"未传阅"_s,
             u"未处理"_s,
             TextOrNull(fileStatus),
             TextOrNull(letter.note)});
}

}  // namespace folvane::demo
