#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "base/CodePage.h"
#include "base/ProfileFile.h"
#include "host/demo/DemoDatabase.h"
#include "host/demo/Plan.h"
#include "host/demo/RecordKeys.h"
#include "host/demo/Selection.h"
#include "host/demo/StoreFiles.h"
#include "host/demo/WorkCalendar.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;
using demo::Plan;

TEST(DemoPlan, AddsUpAndArchivesNoMoreThanThereIsWheneverTheDemoIsMade) {
  for (const int records : {100, 101, 2000, 99'999, 1'000'000}) {
    for (const QDate today : {QDate(2026, 1, 1), QDate(2026, 6, 30), QDate(2027, 12, 31)}) {
      const Plan plan = Plan::For(records, today);
      EXPECT_EQ(plan.incoming + plan.outgoing + plan.items + plan.volumes + plan.singles + plan.events, records);
      const demo::WorkCalendar calendar(plan.first, today);
      for (const demo::ArchivedYear& year : plan.archived) {
        const auto candidates = [&](int count) {
          return calendar.CountBefore(year.year + 1, count) - calendar.CountBefore(year.year, count);
        };
        EXPECT_LE(year.items, candidates(plan.incoming)) << records << ' ' << year.year;
        EXPECT_LE(year.singles, candidates(plan.outgoing)) << records << ' ' << year.year;
        EXPECT_LE(year.volumes, year.items);
      }
    }
  }
}

TEST(DemoCalendar, KeepsOfficeHoursAndTheOrderOfThings) {
  const demo::WorkCalendar calendar(QDate(2024, 1, 4), QDate(2026, 3, 31));
  constexpr int kThings = 1000;
  QDateTime before;
  for (int i = 0; i < kThings; ++i) {
    const QDateTime moment = calendar.At(i, kThings);
    EXPECT_LT(moment.date().dayOfWeek(), Qt::Saturday);
    EXPECT_GE(moment.time(), QTime(8, 30));
    EXPECT_LT(moment.time(), QTime(17, 30));
    EXPECT_TRUE(i == 0 || before <= moment);
    before = moment;
  }
}

TEST(DemoCalendar, KnowsWhereAYearBegins) {
  const demo::WorkCalendar calendar(QDate(2024, 1, 4), QDate(2026, 3, 31));
  for (const int things : {7, 100, 5000}) {
    for (const int year : {2024, 2025, 2026, 2027}) {
      int before = 0;
      for (int i = 0; i < things; ++i) before += calendar.At(i, things).date().year() < year;
      EXPECT_EQ(calendar.CountBefore(year, things), before) << things << ' ' << year;
    }
  }
}

TEST(DemoKeys, OfOneSecondAreAllDifferentAndTellTheirKindApart) {
  demo::Random random(1);
  demo::RecordKeys incoming(demo::KeyKind::Incoming, random), outgoing(demo::KeyKind::Outgoing, random);
  const QDateTime moment(QDate(2024, 3, 15), QTime(9, 5, 7), Qt::UTC);
  QSet<QString> keys;
  for (int i = 0; i < 2000; ++i) keys << incoming.At(moment) << outgoing.At(moment);
  EXPECT_EQ(keys.size(), 4000);
  for (const QString& key : keys) EXPECT_TRUE(key.size() == 20 && key.startsWith(u"20240315090507"_s));
}

TEST(DemoSelection, PicksExactlyAsManyAsWanted) {
  demo::Random random(1);
  demo::Selection selection(30, 100, random);
  int picked = 0;
  for (int i = 0; i < 100; ++i) picked += selection.Next();
  EXPECT_EQ(picked, 30);
}

TEST(DemoFiles, AreWhatTheirEndingsSay) {
  demo::Letter letter;
  letter.registered = QDateTime(QDate(2024, 3, 15), QTime(9, 0), Qt::UTC);
  letter.title = u"关于做好防汛工作的通知"_s;
  EXPECT_TRUE(QString::fromUtf8(demo::TextFile(letter)).contains(letter.title));
  EXPECT_TRUE(demo::ScanFile(letter).startsWith("\x89PNG"));
  const QByteArray pdf = demo::PdfFile(letter);
  const qsizetype table = pdf.mid(pdf.lastIndexOf("startxref") + 10).split('\n').front().toLongLong();
  EXPECT_TRUE(pdf.startsWith("%PDF-1.4") && pdf.mid(table).startsWith("xref\n0 8\n"));
  for (int object = 1; object <= 7; ++object) {
    const qsizetype offset = pdf.mid(table).split('\n')[object + 2].left(10).toLongLong();
    EXPECT_TRUE(pdf.mid(offset).startsWith(QByteArray::number(object) + " 0 obj")) << object;
  }
}

class DemoFile : public testing::Test {
 protected:
  DemoFile() { options_.records = 100; }
  QString Path(const QString& name) const { return directory_.path() + u'/' + name; }
  static QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  demo::DemoOptions options_;

 private:
  QTemporaryDir directory_;
};

TEST_F(DemoFile, HasItsOriginalsBesideIt) {
  demo::MakeDemoFile(Path(u"演示.db"_s), options_);
  EXPECT_TRUE(Content(Path(u"演示.db"_s)).startsWith("SQLite format 3"));
  EXPECT_FALSE(QDir(Path(u"Data"_s)).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
}

TEST_F(DemoFile, IsReplacedOnlyWhenTold) {
  demo::MakeDemoFile(Path(u"a.db"_s), options_);
  const QByteArray first = Content(Path(u"a.db"_s));
  options_.seed = 2;
  EXPECT_THROW(demo::MakeDemoFile(Path(u"a.db"_s), options_), std::exception);
  EXPECT_EQ(Content(Path(u"a.db"_s)), first);
  options_.replace = true;
  demo::MakeDemoFile(Path(u"a.db"_s), options_);
  EXPECT_NE(Content(Path(u"a.db"_s)), first);
}

TEST_F(DemoFile, ThatCannotBeFinishedLeavesNothingAndKeepsWhatWasThere) {
  demo::MakeDemoFile(Path(u"a.db"_s), options_);
  const QByteArray first = Content(Path(u"a.db"_s));
  options_.replace = true;
  options_.storeDirectory = Path(u"a.db"_s);  // a file where a directory is needed
  EXPECT_THROW(demo::MakeDemoFile(Path(u"a.db"_s), options_), std::exception);
  EXPECT_EQ(Content(Path(u"a.db"_s)), first);
  EXPECT_FALSE(QFile::exists(Path(u"a.db.new"_s)));
}

TEST_F(DemoFile, RefusesANumberOfRecordsThatMakesNoDemo) {
  for (const int records : {-1, 99, 1'000'001}) {
    options_.records = records;
    EXPECT_THROW(demo::MakeDemoFile(Path(u"a.db"_s), options_), std::invalid_argument);
  }
}

TEST_F(DemoFile, ComesWithTheFieldsThatTheTreeBrowsesBy) {
  demo::WriteDemoProfiles(Path(u""_s));
  EXPECT_EQ(Content(Path(u"YearFormula.Ini"_s)),
            ToCodePage(u"#--------------------------------------------------------------\r\n"
                       "# 自定义字段显示数据\r\n"
                       "#要求：表中含有该字段,字段名用英文名！\r\n"
                       "\r\n"
                       "[YearFormula]\r\n"
                       "Lwdj=CreatedDate\r\n"
                       "Fwdj=DocNo\r\n"
                       "Hyjy=CreatedDate\r\n"
                       "Htdj=CreatedDate\r\n"
                       "Gdwj=FileYear\r\n"
                       "Wsda_Aj=FileYear\r\n"
                       "Zpda=FileYear\r\n"_s));
}

TEST_F(DemoFile, CountsTheDocumentsOfAYear) {
  demo::WriteDemoProfiles(Path(u""_s));
  const ProfileFile rules(Path(u"RegIDFormula.Ini"_s));
  EXPECT_EQ(rules.Read(u"RegFormula"_s, u"Lwdj"_s, u"0"_s), u"2"_s);
  EXPECT_EQ(rules.Read(u"RegFormula"_s, u"Fwdj"_s, u"0"_s), u"2"_s);
}

TEST_F(DemoFile, ComesWithTheTemplatesOfReportsAndLeavesThoseThatAreThere) {
  QDir(Path(u""_s)).mkpath(u"Reports"_s);
  QFile own(Path(u"Reports/1001.html"_s));
  ASSERT_TRUE(own.open(QFile::WriteOnly) && own.write("own") == 3);
  own.close();
  demo::WriteDemoReports(Path(u""_s));
  demo::WriteDemoReports(Path(u""_s));
  EXPECT_EQ(Content(Path(u"Reports/1001.html"_s)), "own");
  EXPECT_TRUE(Content(Path(u"Reports/2201.html"_s)).contains("{{#LINES}}"));
  EXPECT_TRUE(QFileInfo(Path(u"Reports/2201.html"_s)).isWritable());
}

TEST_F(DemoFile, TellsThatTemplatesCannotBeWritten) {
  QFile inTheWay(Path(u"Reports"_s));
  ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
  EXPECT_THROW(demo::WriteDemoReports(Path(u""_s)), std::runtime_error);
}

}  // namespace
}  // namespace folvane::test
