#include "records/DesignedDatabase.h"

#include <folvane/DataError.h>

#include "catalogue/Ddl.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

QString Quoted(const QString& value) {
  return value == u"<null>"_s ? u"null"_s : u"'"_s + QString(value).replace(u'\'', u"''"_s) + u"'"_s;
}

}  // namespace

DesignedDatabase::DesignedDatabase(TestDatabase& database) : database_(database) { database.Furnish(&CreateCatalogue); }

void DesignedDatabase::Insert(const QString& table, const QString& columns, const QStringList& values) {
  QStringList quoted;
  for (const QString& value : values) quoted << Quoted(value);
  Run(u"insert into "_s + table + u" ("_s + columns + u") values ("_s + quoted.join(u',') + u")"_s);
}

void DesignedDatabase::AddClass(int id, const QString& name, int parent) {
  Insert(u"Design_ClassRelation"_s, u"ClassId,ClassName,Class_Parent"_s,
         {QString::number(id), name, QString::number(parent)});
}

void DesignedDatabase::AddTable(const QString& table, const QString& caption, int classId,
                                const std::vector<DesignedField>& fields, const QString& parent,
                                const QString& relation) {
  Insert(u"Design_TableRelation"_s, u"TableName,ChnTableName,ClassID,Table_Parent,RelationField"_s,
         {table, caption, QString::number(classId), parent, relation});
  QString columns = u"ArchiveID varchar(20) primary key"_s;
  int order = 0;
  for (const DesignedField& field : fields) {
    columns += u", "_s + field.name + (field.type == u"数值型"_s ? u" integer"_s : u" varchar(200)"_s);
    Insert(u"DynamicWindows"_s, u"TableName,ChnTableName,TableType,FieldName,ChnFieldName,FieldType"_s,
           {table, caption, u"F"_s, field.name, field.caption, field.type});
    Insert(u"ListViewFormat"_s, u"TableName,FieldName,ChnFieldName,ColumnWidth,OrderNo"_s,
           {table, field.name, field.caption, u"1500"_s, QString::number(++order)});
    const QString number = QString::number(order);
    Insert(u"SaveControls"_s, u"DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,F_Width,F_Height"_s,
           {table, field.name, u"1"_s, number, number, u"1500"_s, QString::number(order * 450), u"3000"_s, u"300"_s});
  }
  Run(u"create table "_s + table + u" ("_s + columns + u")"_s);
}

void DesignedDatabase::AddPlainTable(const QString& table, const QString& caption, int classId, bool withDate) {
  std::vector<DesignedField> fields{{u"RegID"_s, u"登记号"_s, u"数值型"_s}, {u"Amaintitle"_s, u"题名"_s, u"文本型"_s}};
  if (withDate) fields.push_back({u"CreatedDate"_s, u"登记日期"_s, u"档案日期型"_s});
  AddTable(table, caption, classId, fields);
}

void DesignedDatabase::AddRecords(const QString& table, int count) {
  QStringList rows;
  for (int number = 1; number <= count; ++number) {
    rows << u"('%1',%2,'题名%2')"_s.arg(Key(number)).arg(number);
  }
  Run(u"insert into "_s + table + u" (ArchiveID,RegID,Amaintitle) values "_s + rows.join(u','));
}

void DesignedDatabase::AddOriginal(const QString& recordKey, const QString& id, const QString& name, int order) {
  Insert(u"Original_Text"_s, u"ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath"_s,
         {id, name, u".tif"_s, recordKey, u"1024"_s, QString::number(order), QString()});
}

void DesignedDatabase::DropKey(const QString& table) {
  Run(u"create table Unkeyed as select * from "_s + table);
  Run(u"drop table "_s + table);
  Run(u"alter table Unkeyed rename to "_s + table);
}

StatementLog::StatementLog(Connection& connection) : connection_(connection) {
  connection_.OnStatement([this](const QString& statement) { statements_ << statement; });
}

StatementLog::~StatementLog() { connection_.OnStatement({}); }

QStringList StatementLog::Take() { return std::exchange(statements_, {}); }

LockedStatement::LockedStatement(Connection& connection, int number) : connection_(connection), left_(number) {
  connection_.OnStatement([this](const QString& statement) {
    if (--left_ == 0) throw DataError(DataErrorKind::Locked, u"表被其他用户锁定"_s, statement, u"5"_s);
  });
}

LockedStatement::~LockedStatement() { connection_.OnStatement({}); }

void DesignTest::SetUp() {
  OnEachDatabase::SetUp();
  design_ = std::make_unique<DesignedDatabase>(Database());
  FixClock(QDateTime(QDate(2002, 3, 4), QTime(10, 0)));
  Shared().Connection = Connected();
  Shared().UserId = u"1"_s;
  Shared().UserName = u"管理员"_s;
  Shared().DatabaseKind = u"OTHER"_s;
  log_ = std::make_unique<StatementLog>(*Connected());
}

void DesignTest::TearDown() {
  log_.reset();
  if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
  Shared().Connection.reset();
}

}  // namespace folvane::test
