#include <QFile>
#include <QTreeView>

#include <folvane/Catalogue.h>
#include <folvane/ClsFolvane.h>

#include "shell/SharedState.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"
#include "support/WindowDriver.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

// The statements of the page's blocks of SQL.
QStringList ExampleStatements() {
  QFile file(QLatin1String(DOCS) + u"/design-tables.md"_s);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QStringList statements;
  const QStringList blocks = QString::fromUtf8(file.readAll()).split(u"```sql\n"_s).mid(1);
  for (const QString& block : blocks) statements += block.section(u"```"_s, 0, 0).split(u";\n"_s, Qt::SkipEmptyParts);
  return statements;
}

class FirstTableTest : public test::OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    CreateTables(*Connected());
    for (const QString& statement : ExampleStatements()) Database().Native(statement);
    test::FixClock(QDateTime(QDate(2026, 6, 18), QTime(9, 30)));
    folvane_.Connection(Connected());
    folvane_.GetUser(u"12"_s);
  }
  void TearDown() override {
    Shared().Connection = nullptr;
    for (QString* text : {&Shared().UserId, &Shared().UserName}) text->clear();
  }

  const test::TempProgramDirectory directory_;
  ClsFolvane folvane_;
};
FOLVANE_ON_EACH_DATABASE(FirstTableTest);

TEST_P(FirstTableTest, OfThePageShowsItsRecordsUnderItsCaptions) {
  Database().Native(u"insert into Lwdj values('20260618093000000001', 1, '2026-06-18', '防汛通知', '水利局')"_s);
  QStringList headers, values;
  test::WithWindow(u"FrmMain"_s, [&](QWidget& window) {
    const QAbstractItemModel& list = *test::Find<QTreeView>(window, u"LVData"_s).model();
    for (int column = 1; column < list.columnCount(); ++column) {
      headers << list.headerData(column, Qt::Horizontal).toString();
      values << list.index(0, column).data().toString();
    }
  });
  folvane_.FileOpen();
  EXPECT_EQ(headers.mid(0, 3), (QStringList{u"收文日期"_s, u"题名"_s, u"来文单位"_s}));
  EXPECT_EQ(values.mid(0, 3), (QStringList{u"2026-06-18"_s, u"防汛通知"_s, u"水利局"_s}));
}

TEST_P(FirstTableTest, OfThePageTakesARecordInItsEntryForm) {
  test::WithWindow(u"FrmMain"_s, [](QWidget& browser) {
    test::WithWindow(u"FrmInput"_s, [](QWidget& form) {
      EXPECT_EQ(test::TextIn(form, u"DTP(1)"_s), u"2026-06-18"_s);
      test::Retype(test::Find(form, u"Txt_MLine(1)"_s), u"防汛通知"_s);
      QAction& save = test::FindAction(form, u"TlbCool"_s, u"SaveRecord"_s);
      if (test::WaitUntil([&] { return save.isEnabled(); })) save.trigger();
    });
    test::FindAction(browser, u"tlb"_s, u"NEW"_s).trigger();
  });
  folvane_.FileOpen();
  EXPECT_EQ(Database().Value(u"select Amaintitle from Lwdj"_s), u"防汛通知"_s);
}

}  // namespace
}  // namespace folvane
