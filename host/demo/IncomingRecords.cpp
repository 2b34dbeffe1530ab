#include "host/demo/IncomingRecords.h"

#include <algorithm>

#include "host/demo/Selection.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kColumns{
    u"ArchiveID"_s,     u"RegID"_s,       u"CreatedDate"_s,   u"DocNo"_s,      u"FileDate"_s, u"Amaintitle"_s,
    u"ResponsibleBy"_s, u"FileNo"_s,      u"SecurityClass"_s, u"Urgency"_s,    u"DocType"_s,  u"FondsNo"_s,
    u"Quantity"_s,      u"PageCount"_s,   u"Department"_s,    u"LimitDate"_s,  u"Opinion"_s,  u"DisPenseState"_s,
    u"ReadState"_s,     u"HandleState"_s, u"FinishDate"_s,    u"FileStatus"_s, u"Carrier"_s,  u"Note"_s};

// Sheets and files of their own have only the newest documents.
constexpr int kWithSheets = 1500, kWithFiles = 400;

}  // namespace

IncomingRecords::IncomingRecords(const RecordContext& around, VolumeRecords& volumes)
    : around_(around),
      volumes_(volumes),
      calendar_(around.plan.first, around.plan.today),
      keys_(KeyKind::Incoming, around.random),
      rows_(around.connection, u"Lwdj"_s, kColumns) {}

void IncomingRecords::Write() {
  for (int year = around_.plan.first.year(); year <= around_.plan.today.year(); ++year) {
    WriteYear(year, int(calendar_.CountBefore(year, around_.plan.incoming)),
              int(calendar_.CountBefore(year + 1, around_.plan.incoming)));
  }
  rows_.Finish();
}

void IncomingRecords::WriteYear(int year, int begin, int end) {
  year_ = year;
  regId_ = 0;
  lastNumbers_.clear();
  Selection archived(volumes_.OpenYear(year), end - begin, around_.random);
  const int total = around_.plan.incoming;
  for (int i = begin; i < end; ++i) {
    const Letter letter = NewLetter(calendar_.At(i, total));
    ++regId_;
    const bool intoVolume = archived.Next();
    Add(letter, StatusOf(year, intoVolume), i >= total - std::min(total / 3, kWithSheets));
    const auto originals = around_.originals.Attach(letter, i >= total - kWithFiles);
    around_.recordDone();
    if (!intoVolume) continue;
    volumes_.Take(letter, originals);
    around_.recordDone();
  }
}

Letter IncomingRecords::NewLetter(const QDateTime& registered) {
  Random& random = around_.random;
  const Words& words = around_.words;
  const auto& senders = words.Senders();
  const Sender& sender = senders[size_t(random.Below(int(senders.size())))];
  Letter letter;
  letter.registered = registered;
  letter.key = keys_.At(registered);
  letter.written = registered.date().addDays(-random.Between(1, 14));
  letter.author = sender.name;
  letter.kind = random.Pick(sender.documents);
  letter.title = words.Title(sender.name, letter.kind, letter.written.year(), random);
  if (!random.Chance(3)) letter.docNo = NextDocNo(sender, letter.written.year());
  if (random.Chance(30)) letter.security = random.Pick(words.List(u"密级"_s).mid(1, random.Chance(95) ? 2 : 4));
  letter.department = random.Pick(words.List(u"承办科室"_s));
  letter.copies = random.Between(1, 5);
  letter.pages = random.Chance(5) ? 0 : random.Between(1, random.Chance(80) ? 8 : 60);
  if (random.Chance(12)) letter.note = random.Pick(words.List(u"备注"_s));
  return letter;
}

QString IncomingRecords::NextDocNo(const Sender& sender, int year) {
  const QString word = around_.random.Pick(sender.words);
  int& last = lastNumbers_[word + QString::number(year)];
  last += around_.random.Between(1, 3);
  return u"%1〔%2〕%3号"_s.arg(word).arg(year).arg(last);
}

QString IncomingRecords::StatusOf(int year, bool archived) {
  if (archived) return u"已归档"_s;
  if (volumes_.IsClosed(year)) return u"不归档"_s;
  return around_.random.Chance(85) ? u"需归档"_s : around_.random.Chance(70) ? u"不归档"_s : QString();
}

void IncomingRecords::Add(const Letter& letter, const QString& fileStatus, bool recent) {
  Random& random = around_.random;
  const Words& words = around_.words;
  const QDate day = letter.registered.date();
  const QString urgency = random.Chance(30) ? random.Pick(words.List(u"缓急"_s)) : QString();
  const FlowStates states = recent ? around_.sheets.ForIncoming(letter, regId_) : around_.sheets.LongDone();
  const QDate finished = day.addDays(random.Between(1, 20));
  const bool done = states.handle == u"已处理"_s && finished <= around_.plan.today;
  const bool mustAnswer = !urgency.isEmpty() || letter.kind == u"请示"_s;
  rows_.Add(
      {letter.key, qlonglong(regId_), DayText(day),
       // Nothing at all and an empty text both occur where a document has no number.
       letter.docNo.isEmpty() && random.Chance(30) ? QVariant(u""_s) : TextOrNull(letter.docNo),
       random.Chance(2) ? QVariant() : QVariant(DayText(letter.written)), letter.title, letter.author,
       u"青收〔%1〕%2号"_s.arg(year_).arg(regId_), TextOrNull(letter.security), TextOrNull(urgency), letter.kind,
       u"0188"_s, qlonglong(letter.copies), letter.pages == 0 ? QVariant() : QVariant(qlonglong(letter.pages)),
       letter.department, mustAnswer ? QVariant(DayText(day.addDays(random.Between(3, 20)))) : QVariant(),
       random.Chance(55) ? QVariant(words.Fill(random.Pick(words.List(u"处理意见"_s)), year_, random)) : QVariant(),
       states.dispense, states.read, states.handle, done ? QVariant(DayDigits(finished)) : QVariant(),
       TextOrNull(fileStatus),
       random.Chance(90) ? QVariant(random.Pick(words.List(u"载体"_s).mid(0, 2))) : QVariant(u""_s),
       TextOrNull(letter.note)});
}

}  // namespace folvane::demo
