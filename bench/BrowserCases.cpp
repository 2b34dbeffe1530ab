// The record browser over the table that everything is measured on, driven through its controls offscreen.
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

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

/// A browser on the screen with its tree open.
class OpenBrowser {
 public:
  explicit OpenBrowser(const Setting& setting) {
    const std::shared_ptr<folvane::Connection> connection = AdoptSqlite(OpenSqlite(setting.database));
    Describe(*connection);
    Shared().Connection = connection;
    Shared().UserId = u"1"_s;
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
  void Settle() {
    QApplication::processEvents();
    window_.repaint();
  }
  FrmMain window_;
};

void ChooseTable(const Setting& setting, Meter& meter) {
  OpenBrowser browser(setting);
  meter.Start();
  browser.ChooseTable(setting);
  meter.Stop();
}

void GoToLastPage(const Setting& setting, Meter& meter) {
  OpenBrowser browser(setting);
  browser.ChooseTable(setting);
  meter.Start();
  browser.Command(u"mnu_Goto6_LPage"_s);
  meter.Stop();
  if (Shared().CurrentRecords.AbsolutePosition() < setting.rows - 100) qFatal("the last page was not reached");
}

void SortColumn(const Setting& setting, Meter& meter) {
  OpenBrowser browser(setting);
  browser.ChooseTable(setting);
  const QString order = Shared().CurrentRecords.Source();
  meter.Start();
  browser.ClickColumn(1);
  meter.Stop();
  if (Shared().CurrentRecords.Source() == order) qFatal("the column was not sorted");
}

const QString kSought = u"00999"_s;

void QuickSearch(const Setting& setting, Meter& meter) {
  OpenBrowser browser(setting);
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
  ReadAllRaw(setting, query.toUtf8().constData(), meter);
}

/// What SQLite itself takes for the rows of the sorted column.
void SortRaw(const Setting& setting, Meter& meter) {
  ReadAllRaw(setting, "SELECT * FROM Records ORDER BY Title", meter);
}

}  // namespace

Cases BrowserCases() {
  return {
      {u"browser-choose"_s, ChooseTable}, {u"browser-last"_s, GoToLastPage}, {u"browser-sort"_s, SortColumn},
      {u"browser-search"_s, QuickSearch}, {u"search-raw"_s, SearchRaw},      {u"sort-raw"_s, SortRaw},
  };
}

}  // namespace folvane::bench
