// The record browser over the table that everything is measured on, driven through its controls offscreen.
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <folvane/OdbcConnection.h>
#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "browser/FrmMain.h"
#include "catalogue/Ddl.h"
#include "data/DatabaseSession.h"
#include "shell/SharedState.h"

namespace folvane::bench {

namespace {

using namespace Qt::Literals::StringLiterals;

/// Describes the table to the browser, once for each file: a class with the table, eight of its columns in the list,
/// which stand in the order of the key.
void Describe(folvane::Connection& connection) {
  if (DatabaseSession::Of(connection).Table(u"DynamicWindows"_s)) {
    connection.Execute(u"Update FindCirOrder Set OrderStr = 'ArchiveID Asc'"_s);
    return;
  }
  CreateCatalogue(connection);
  Transaction transaction(connection);
  const auto run = [&](const QString& statement) { connection.Execute(statement); };
  run(u"Insert Into Design_ClassRelation (ClassId, ClassName, Class_Parent) Values (2, '文书', 1)"_s);
  run(u"Insert Into Design_TableRelation (TableName, ChnTableName, ClassID, Table_Parent, RelationField) "
      "Values ('Records', '收文', 2, '', '')"_s);
  int order = 0;
  for (const QString& field : {u"Reference"_s, u"Title"_s, u"SendUnit"_s, u"FileType"_s, u"Secret"_s, u"SignDate"_s,
                               u"Period"_s, u"Keywords"_s}) {
    run(u"Insert Into DynamicWindows (TableName, ChnTableName, TableType, FieldName, ChnFieldName, FieldType, "
        u"FieldLong) "
        "Values ('Records', '收文', 'F', '%1', '%1', '文本型', 40)"_s.arg(field));
    run(u"Insert Into ListViewFormat (TableName, FieldName, ChnFieldName, ColumnWidth, OrderNo) "
        "Values ('Records', '%1', '%1', 1500, %2)"_s.arg(field)
            .arg(++order));
  }
  run(u"Insert Into SimSearch (TableName, DataField, OrderNo) Values ('Records', 'Title', 1)"_s);
  run(u"Insert Into FindCirOrder (TableName, OrderStr, UserID) Values ('Records', 'ArchiveID Asc', '1')"_s);
  transaction.Commit();
}

std::shared_ptr<folvane::Connection> OnSqlite(const Setting& setting) {
  return AdoptSqlite(OpenSqlite(setting.database));
}

std::shared_ptr<folvane::Connection> OnPostgres(const Setting& setting) {
  return AdoptOdbc(ConnectOdbc(SchemaOf(setting.rows).toUtf8()));
}

/// A browser on the screen with its tree open.
class OpenBrowser {
 public:
  explicit OpenBrowser(const std::shared_ptr<folvane::Connection>& connection) {
    Describe(*connection);
    Shared().Connection = connection;
    Shared().UserId = u"1"_s;
    List().viewport()->installEventFilter(&paint_);
    window_.show();
    window_.Start();
    Settle();
    ChooseNode(u"文书"_s);
  }

  QTreeView& List() { return *window_.findChild<QTreeView*>(u"LVData"_s); }
  /// Clicks a node of the tree and waits until the window has shown what follows from it.
  void ChooseNode(const QString& text) {
    QTreeView& tree = *window_.findChild<QTreeView*>(u"TV_File"_s);
    const QModelIndexList found =
        tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) qFatal("the tree has no node %s", qPrintable(text));
    tree.scrollTo(found.first());
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(found.first()).center());
    Settle();
  }
  void ChooseTable(const Setting& setting) {
    ChooseNode(u"收文"_s);
    if (Shared().CurrentRecords.RecordCount() != setting.rows || List().model()->rowCount() == 0)
      qFatal("the browser does not show the records");
  }
  void Command(const QString& entry) {
    window_.findChild<QAction*>(entry)->trigger();
    Settle();
  }
  void AskFor(const QString& field, const QString& relation, const QString& value) {
    window_.findChild<QComboBox*>(u"CboChnFields"_s)->setCurrentText(field);
    window_.findChild<QComboBox*>(u"CboRelation"_s)->setCurrentText(relation);
    window_.findChild<QComboBox*>(u"CboValue"_s)->setCurrentText(value);
    Settle();
  }
  void Search() {
    window_.findChild<QPushButton*>(u"CmdSearch"_s)->click();
    Settle();
  }
  void ClickColumn(int column) {
    QHeaderView& header = *List().header();
    const QPoint at(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, at);
    Settle();
  }

 private:
  /// Until the list has been painted as it is now: once, as on a screen.
  void Settle() {
    QApplication::processEvents();
    if (!std::exchange(paint_.seen, false)) window_.repaint();
    paint_.seen = false;
  }

  struct PaintWatch : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      seen = seen || event->type() == QEvent::Paint;
      return false;
    }
    bool seen = false;
  };
  PaintWatch paint_;
  FrmMain window_;
};

template <auto Connect>
void ChooseTable(const Setting& setting, Meter& meter) {
  OpenBrowser browser(Connect(setting));
  meter.Start();
  browser.ChooseTable(setting);
  meter.Stop();
}

/// Goes to a page, and before that, unmeasured, to others.
void GoToPage(OpenBrowser& browser, const Setting& setting, Meter& meter, const QStringList& ahead,
              const QString& entry) {
  browser.ChooseTable(setting);
  for (const QString& before : ahead) browser.Command(before);
  const qint64 position = Shared().CurrentRecords.AbsolutePosition();
  meter.Start();
  browser.Command(entry);
  meter.Stop();
  if (Shared().CurrentRecords.AbsolutePosition() == position) qFatal("the page was not reached");
}

template <auto Connect>
void GoToLastPage(const Setting& setting, Meter& meter) {
  OpenBrowser browser(Connect(setting));
  GoToPage(browser, setting, meter, {}, u"mnu_Goto6_LPage"_s);
}

template <auto Connect>
void GoToFirstPage(const Setting& setting, Meter& meter) {
  OpenBrowser browser(Connect(setting));
  GoToPage(browser, setting, meter, {u"mnu_Goto6_LPage"_s}, u"mnu_Goto5_FPage"_s);
}

template <auto Connect>
void GoToNextPage(const Setting& setting, Meter& meter) {
  const QString next = u"mnu_Goto3_NPage"_s;
  OpenBrowser browser(Connect(setting));
  GoToPage(browser, setting, meter, {next, next}, next);
}

template <auto Connect>
void SortColumn(const Setting& setting, Meter& meter) {
  OpenBrowser browser(Connect(setting));
  browser.ChooseTable(setting);
  const QString order = Shared().CurrentRecords.Source();
  meter.Start();
  browser.ClickColumn(1);
  meter.Stop();
  if (Shared().CurrentRecords.Source() == order) qFatal("the column was not sorted");
}

const QString kSought = u"00999"_s;

template <auto Connect>
void QuickSearch(const Setting& setting, Meter& meter) {
  OpenBrowser browser(Connect(setting));
  browser.ChooseTable(setting);
  browser.AskFor(u"Title"_s, u"包含"_s, kSought);
  meter.Start();
  browser.Search();
  meter.Stop();
  const qint64 found = Shared().CurrentRecords.RecordCount();
  if (found == 0 || found == setting.rows) qFatal("the search found %lld records", found);
}

void SearchRaw(const Setting& setting, Meter& meter) {
  const QString query = u"SELECT * FROM Records WHERE Title LIKE '%%1%' ORDER BY ArchiveID"_s.arg(kSought);
  StepThrough(setting, query.toUtf8().constData(), meter);
}

/// What SQLite itself takes for the keys in the order of the column.
void SortKeysRaw(const Setting& setting, Meter& meter) {
  StepThrough(setting, "SELECT ArchiveID FROM Records ORDER BY Title", meter);
}

}  // namespace

Cases BrowserCases() {
  return {
      {u"browser-choose"_s, ChooseTable<OnSqlite>},
      {u"browser-choose-odbc"_s, ChooseTable<OnPostgres>},
      {u"browser-last"_s, GoToLastPage<OnSqlite>},
      {u"browser-last-odbc"_s, GoToLastPage<OnPostgres>},
      {u"browser-first"_s, GoToFirstPage<OnSqlite>},
      {u"browser-first-odbc"_s, GoToFirstPage<OnPostgres>},
      {u"browser-next"_s, GoToNextPage<OnSqlite>},
      {u"browser-next-odbc"_s, GoToNextPage<OnPostgres>},
      {u"browser-sort"_s, SortColumn<OnSqlite>},
      {u"browser-sort-odbc"_s, SortColumn<OnPostgres>},
      {u"browser-search"_s, QuickSearch<OnSqlite>},
      {u"browser-search-odbc"_s, QuickSearch<OnPostgres>},
      {u"search-raw"_s, SearchRaw},
      {u"sort-keys-raw"_s, SortKeysRaw},
  };
}

}  // namespace folvane::bench
