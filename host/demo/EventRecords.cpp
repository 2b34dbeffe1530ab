#include "host/demo/EventRecords.h"

#include "catalogue/RowWriter.h"
#include "host/demo/Letter.h"
#include "host/demo/RecordKeys.h"
#include "host/demo/WorkCalendar.h"

namespace folvane::demo {
using namespace Qt::Literals::StringLiterals;

void WriteEvents(const RecordContext& around) {
  const WorkCalendar calendar(around.plan.first, around.plan.today);
  Random& random = around.random;
  RecordKeys keys(KeyKind::Event, random);
  RowWriter rows(around.connection, u"Dsj"_s,
                 {u"ArchiveID"_s, u"RegID"_s, u"EventDate"_s, u"Amaintitle"_s, u"ResponsibleBy"_s, u"InputDate"_s,
                  u"SourceDoc"_s, u"Note"_s});
  for (int i = 0; i < around.plan.events; ++i) {
    const QDateTime moment = calendar.At(i, around.plan.events);
    const QString digits = DayDigits(moment.date());
    // Of some events only the month is known.
    const QString day = random.Chance(95) ? digits : digits.left(6) + u"00"_s;
    const QString event = around.words.Fill(random.Pick(around.words.List(u"大事"_s)), moment.date().year(), random);
    rows.Add({keys.At(moment), qlonglong(i + 1), day, event, around.words.Person(random), DayText(moment.date()),
              random.Chance(40) ? QVariant(u"政务信息第%1期"_s.arg(random.Between(1, 99))) : QVariant(),
              random.Chance(20) ? QVariant(u"附照片"_s) : QVariant()});
    around.recordDone();
  }
  rows.Finish();
}

}  // namespace folvane::demo
