#include "host/demo/SingleRecords.h"

#include <algorithm>

#include "host/demo/ArchiveNumbers.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kItemsToBox = 20;
constexpr int kDigits = 4;  ///< of items and boxes

}  // namespace

SingleRecords::SingleRecords(const RecordContext& around)
    : around_(around),
      keys_(KeyKind::SingleItem, around.random),
      rows_(around.connection, u"Gdwj"_s,
            {u"ArchiveID"_s,     u"FondsNo"_s, u"CategoryCode"_s,  u"FileYear"_s,   u"AecNo"_s,
             u"Retention"_s,     u"ItemNo"_s,  u"ArchiveNo"_s,     u"Amaintitle"_s, u"DocNo"_s,
             u"DocType"_s,       u"Version"_s, u"ResponsibleBy"_s, u"FileDate"_s,   u"RegisterDate"_s,
             u"SecurityClass"_s, u"Carrier"_s, u"PageCount"_s,     u"BoxNo"_s,      u"Note"_s}) {}

int SingleRecords::OpenYear(int year) {
  year_ = {};
  for (const ArchivedYear& archived : around_.plan.archived)
    if (archived.year == year) year_ = archived;
  taken_ = 0;
  lastItems_.clear();
  spring_.emplace(QDate(year + 1, 3, 1), QDate(year + 1, 6, 30));
  return year_.singles;
}

void SingleRecords::Take(const Letter& letter, const QString& entityClass, const std::vector<StoredFile>& originals) {
  const QDateTime moment = spring_->At(taken_++, year_.singles);
  const QString retention = around_.random.Pick(around_.words.List(u"保管期限"_s));
  const QString fixed = NumberBeginning(around_.words, year_.year, retention) + u'-' + entityClass;
  const int item = ++lastItems_[fixed];
  const QString key = keys_.At(moment);
  rows_.Add({key,
             kFonds,
             kCategory,
             QString::number(year_.year),
             entityClass,
             retention,
             qlonglong(item),
             fixed + u'-' + Padded(item, kDigits),
             letter.title,
             letter.docNo,
             letter.kind,
             u"正本"_s,
             letter.author,
             DayText(letter.written),
             DayText(letter.registered.date()),
             TextOrNull(letter.security),
             u"纸质"_s,
             qlonglong(std::max(1, letter.pages)),
             Padded((item - 1) / kItemsToBox + 1, kDigits),
             TextOrNull(letter.note)});
  around_.originals.Share(key, originals);
}

}  // namespace folvane::demo
