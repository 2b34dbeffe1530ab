// The entry window over a wide table, and a save with proofing rules over the table that everything is measured on;
// against bare boxes of Qt and bare statements of SQLite that show, look up and write the same.
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <sqlite3.h>

#include <folvane/HostServices.h>
#include <folvane/SqliteConnection.h>

#include "bench/Cases.h"
#include "bench/SampleTable.h"
#include "catalogue/Ddl.h"
#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "entry/FrmInput.h"
#include "shell/DefaultInstance.h"
#include "shell/SharedState.h"

namespace folvane::bench {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int kFields = 40, kRules = 6;
constexpr int kFieldHeight = 300, kRowHeight = 400;  // twips

void Run(sqlite3* database, const QString& statement) {
  Check(sqlite3_exec(database, statement.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK, database);
}

/// A file of its own with the wide table, keyed by ArchiveID.
sqlite3* WideTable(const Setting& setting) {
  const QString path = setting.database + u".wide"_s;
  QFile::remove(path);
  sqlite3* database = OpenSqlite(path);
  QStringList columns{u"ArchiveID varchar(20) not null primary key"_s}, values{u"'2003' || (100000000 + value)"_s};
  for (int i = 1; i <= kFields; ++i) {
    columns << u"Field%1 varchar(60)"_s.arg(i);
    values << u"'第' || value || '号文件的第%1项'"_s.arg(i);
  }
  Run(database, u"CREATE TABLE Records ("_s + columns.join(u',') + u')');
  Run(database,
      u"WITH RECURSIVE n(value) AS (SELECT 1 UNION ALL SELECT value + 1 FROM n WHERE value < %1) "
      "INSERT INTO Records SELECT %2 FROM n"_s.arg(setting.rows)
          .arg(values.join(u',')));
  return database;
}

/// Designs a form of text boxes in two columns, in place of what other cases have designed.
void DesignForm(Connection& connection, const QStringList& fields) {
  if (!DatabaseSession::Of(connection).Table(u"DynamicWindows"_s)) CreateCatalogue(connection);
  Transaction transaction(connection);
  connection.Execute(u"Delete From DynamicWindows"_s);
  for (int i = 0; i < fields.size(); ++i) {
    connection.Execute(
        u"Insert Into DynamicWindows (TableName, ChnTableName, TableType, FieldName, ChnFieldName, FieldType, "
        u"FieldLong) Values ('Records', '收文', 'F', '%1', '%1', '文本型', 60)"_s.arg(fields[i]));
    connection.Execute(
        u"Insert Into SaveControls (DataSource, DataField, ControlType, ControlIndex, KeyOrder, F_Left, "
        u"F_Top, F_Width, F_Height) Values ('Records', '%1', 1, %2, %2, %3, %4, 3000, %5)"_s.arg(fields[i])
            .arg(i + 1)
            .arg(i % 2 == 0 ? 1200 : 5600)
            .arg(i / 2 * kRowHeight)
            .arg(kFieldHeight));
  }
  transaction.Commit();
}

/// The entry window as the browser opens it, over all rows of the table.
class Entry {
 public:
  Entry(const Setting& setting, sqlite3* database, const QStringList& fields) {
    Services().programDirectory = QFileInfo(setting.database).path();
    Shared().Connection = AdoptSqlite(database);
    Shared().UserId = u"1"_s;
    DesignForm(*Shared().Connection, fields);
    Shared().CurrentRecords.Open(u"Select * From Records Order By ArchiveID"_s, Shared().Connection);
    parameters_.Select(parameters_.Add(u"Records"_s));
    parameters_.Set(1, Parameter::Edit, u"1"_s);
  }
  ~Entry() { DefaultInstance<FrmInput>::Unload(); }

  /// Opens the window, does the work in it and closes it.
  void Open(const std::function<void(FrmInput&)>& work) {
    auto& window = DefaultInstance<FrmInput>::Get();
    window.CurrTable = u"Records"_s;
    window.AddOnOpen = u"0"_s;
    window.Context = {u"收文"_s, &parameters_, [](const QString&) {}, {}};
    QTimer::singleShot(0, &window, [&] {
      QApplication::processEvents();
      work(window);
      window.close();
    });
    window.Open();
  }

 private:
  TableParameters parameters_;
};

QStringList WideFields() {
  QStringList fields;
  for (int i = 1; i <= kFields; ++i) fields << u"Field%1"_s.arg(i);
  return fields;
}

void OpenForm(const Setting& setting, Meter& meter) {
  Entry entry(setting, WideTable(setting), WideFields());
  meter.Start();
  entry.Open([&](FrmInput&) { meter.Stop(); });
}

void MoveThrough(const Setting& setting, Meter& meter) {
  Entry entry(setting, WideTable(setting), WideFields());
  entry.Open([&](FrmInput& window) {
    auto* next = window.findChild<QAction*>(u"MoveNext"_s);
    meter.Start();
    for (qint64 i = 1; i < setting.rows; ++i) {
      next->trigger();
      QApplication::processEvents();  // paints what has changed
    }
    meter.Stop();
    const QString shown = window.findChild<QWidget*>(u"Txt(1)"_s)->property("text").toString();
    if (shown != u"第%1号文件的第1项"_s.arg(setting.rows)) qFatal("the form shows %s", qPrintable(shown));
  });
}

/// As many plain boxes with labels at the same places.
class BareForm {
 public:
  BareForm() {
    for (int i = 0; i < kFields; ++i) {
      const QPoint at(i % 2 == 0 ? 80 : 380, 40 + i / 2 * 27);
      auto* label = new QLabel(u"Field%1"_s.arg(i + 1), &window_);
      label->move(at - QPoint(70, 0));
      boxes_.push_back(new QLineEdit(&window_));
      boxes_.back()->setGeometry(at.x(), at.y(), 200, 24);
    }
    window_.resize(690, 620);
  }
  void Show() {
    window_.show();
    QApplication::processEvents();
  }
  void Fill(sqlite3_stmt* row) {
    for (int i = 0; i < kFields; ++i)
      boxes_[std::size_t(i)]->setText(
          QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(row, i + 1))));
    QApplication::processEvents();
  }

 private:
  QWidget window_;
  std::vector<QLineEdit*> boxes_;
};

void OpenFormRaw(const Setting&, Meter& meter) {
  meter.Start();
  BareForm form;
  form.Show();
  meter.Stop();
}

void MoveThroughRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = WideTable(setting);
  BareForm form;
  form.Show();
  sqlite3_stmt* rows = nullptr;
  Check(sqlite3_prepare_v2(database, "SELECT * FROM Records ORDER BY ArchiveID", -1, &rows, nullptr), SQLITE_OK,
        database);
  meter.Start();
  while (sqlite3_step(rows) == SQLITE_ROW) form.Fill(rows);
  meter.Stop();
  sqlite3_finalize(rows);
}

/// Two values may not stand twice in the table, four may not have a certain text.
void AddRules(Connection& connection) {
  const QStringList rules[kRules]{
      {u"Reference"_s, u"1"_s, u"不能是"_s, u"重复值"_s}, {u"Title"_s, u"2"_s, u"不能是"_s, u"重复值"_s},
      {u"SendUnit"_s, u"3"_s, u"不等于"_s, u"无"_s},      {u"FileType"_s, u"4"_s, u"不等于"_s, u"无"_s},
      {u"SignDate"_s, u"5"_s, u"不等于"_s, u"无"_s},      {u"Keywords"_s, u"6"_s, u"不等于"_s, u"无"_s}};
  for (int i = 0; i < kRules; ++i)
    connection.Execute(
        u"Insert Into SaveCollect (TableName, CenterControlIndex, FieldName, ControlIndex, ControlType, "
        u"ChnFieldName, Relation, CollectValue) Values ('Records', %1, '%2', %3, 1, '%2', '%4', '%5')"_s.arg(
            QString::number(i), rules[i][0], rules[i][1], rules[i][2], rules[i][3]));
}

const QString kReference = u"国办发〔2003〕999号"_s, kTitle = u"关于测量的通知"_s;

void Save(const Setting& setting, Meter& meter) {
  Entry entry(setting, OpenCopy(setting.database),
              {u"Reference"_s, u"Title"_s, u"SendUnit"_s, u"FileType"_s, u"SignDate"_s, u"Keywords"_s});
  AddRules(*Shared().Connection);
  entry.Open([&](FrmInput& window) {
    for (const auto& [name, text] : {std::pair(u"Txt(1)"_s, kReference), std::pair(u"Txt(2)"_s, kTitle)}) {
      auto* box = window.findChild<QLineEdit*>(name);
      box->selectAll();
      QTest::sendKeyEvent(QTest::Click, box, Qt::Key_unknown, text, {});
    }
    meter.Start();
    if (!window.SaveData()) qFatal("the record was not saved");
    meter.Stop();
  });
  Recordset written;
  written.Open(u"Select Title From Records Where Reference = '%1'"_s.arg(kReference), Shared().Connection);
  if (written.RecordCount() != 1) qFatal("the record was not written");
}

/// The two look-ups and the update that no save with these rules can do without.
void SaveRaw(const Setting& setting, Meter& meter) {
  sqlite3* database = OpenCopy(setting.database);
  meter.Start();
  for (const QString& condition : {u"Reference = '%1'"_s.arg(kReference), u"Title = '%1'"_s.arg(kTitle)})
    Run(database, u"SELECT ArchiveID FROM Records WHERE %1 COLLATE NOCASE"_s.arg(condition));
  Run(database,
      u"UPDATE Records SET Reference = '%1', Title = '%2' WHERE ArchiveID = '2003100000000'"_s.arg(kReference, kTitle));
  meter.Stop();
}

}  // namespace

Cases EntryCases() {
  return {
      {u"entry-open"_s, OpenForm}, {u"entry-open-raw"_s, OpenFormRaw},    {u"entry-move"_s, MoveThrough},
      {u"entry-save"_s, Save},     {u"entry-move-raw"_s, MoveThroughRaw}, {u"entry-save-raw"_s, SaveRaw},
  };
}

}  // namespace folvane::bench
