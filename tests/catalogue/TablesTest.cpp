#include <QRegularExpression>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "catalogue/Catalogue.h"
#include "catalogue/Ddl.h"
#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "support/TestDatabase.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

class Tables : public OnEachDatabase {};
FOLVANE_ON_EACH_DATABASE(Tables);

QString ColumnList(const Table& table) {
  QStringList names;
  for (const Column& column : table.columns) names << column.name;
  return names.join(u","_s);
}

// A literal that fills a column of the type, of which a Chinese character takes two bytes.
QString Sample(const Column& column) {
  switch (column.type) {
    case ColumnType::Integer:
      return u"7"_s;
    case ColumnType::Date:
      return u"'2024-03-15'"_s;
    case ColumnType::Text:
      return u"'%1'"_s.arg(u"文"_s.repeated(column.length / 2) + u"a"_s.repeated(column.length % 2));
    default:
      return u"'文字'"_s;
  }
}

QStringList SampleList(const Table& table) {
  QStringList samples;
  for (const Column& column : table.columns) samples << Sample(column);
  return samples;
}

TEST_P(Tables, EachIsMadeAndEachOfItsColumnsTakesAValueOfItsFullLength) {
  CreateCatalogue(*Connected());
  for (const Table& table : CatalogueTables()) {
    const QStringList samples = SampleList(table);
    Connected()->Execute(u"Insert Into %1(%2) Values(%3)"_s.arg(table.name, ColumnList(table), samples.join(u","_s)));
    const QStringList stored = Database().Rows(u"select %1 from %2"_s.arg(ColumnList(table), table.name)).at(0);
    for (qsizetype i = 0; i < samples.size(); ++i)
      EXPECT_EQ(stored[i], QString(samples[i]).remove(u'\'')) << qPrintable(table.name + u'.' + table.columns[i].name);
  }
}

TEST_P(Tables, TheDataLayerFindsTheKeyOfATableThatIsWrittenThroughARecordSet) {
  CreateCatalogue(*Connected());
  for (const char* name : {"Distribute_File", "PassRead_File", "Transact_File", "Curr_Flow", "Curr_FlowNode"}) {
    const TableInfo* table = DatabaseSession::Of(*Connected()).Table(QLatin1String(name));
    ASSERT_NE(table, nullptr) << name;
    EXPECT_EQ(qsizetype(table->key.size()), FindCatalogueTable(QLatin1String(name))->key.size()) << name;
  }
}

TEST_P(Tables, OriginalsAreCopiedByPlaceFromRecordToRecord) {
  CreateCatalogue(*Connected());
  Connected()->Execute(
      u"Insert Into Original_Text(ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath) "
      "Values('1','正文','.txt','a',12,3,'2024')"_s);
  Connected()->Execute(
      u"Insert Into Original_Text Select ID,Original_Name+'<合并件>',Type,'b',Size,4,FilePath "
      "From Original_Text Where RecordID = 'a'"_s);
  EXPECT_EQ(Database().Rows(u"select * from Original_Text where RecordID = 'b'"_s).at(0),
            (QStringList{u"1"_s, u"正文<合并件>"_s, u".txt"_s, u"b"_s, u"12"_s, u"4"_s, u"2024"_s}));
}

TEST_P(Tables, TheTenthConditionStandsBehindTheNinthAndDeletingOneRenumbersTheRest) {
  CreateCatalogue(*Connected());
  for (int i = 10; i >= 1; --i)
    Connected()->Execute(u"Insert Into FindCirSave(OrderNo,TableName,CompValue) Values('%1','Lwdj','v%1')"_s.arg(i));
  Connected()->Execute(u"Delete From FindCirSave Where OrderNo='2'"_s);
  Connected()->Execute(u"Update FindCirSave Set OrderNo=OrderNo-1 Where OrderNo>'2'"_s);

  Recordset rows;
  rows.Open(u"Select * From FindCirSave Where TableName='Lwdj' Order By OrderNo"_s, Connected());
  QStringList order;
  for (; !rows.EOF_(); rows.MoveNext()) order << rows[u"OrderNo"_s].Text() + u":"_s + rows[u"CompValue"_s].Text();
  EXPECT_EQ(order.join(u' '), u"1:v1 2:v3 3:v4 4:v5 5:v6 6:v7 7:v8 8:v9 9:v10"_s);
}

TEST_P(Tables, TheSerialOfAFlowLineCountsOnPastNine) {
  CreateCatalogue(*Connected());
  for (const char* serial : {"9", "10", "2"})
    Connected()->Execute(u"Insert Into PassRead_Details (File_ID,Register_ID,Is_Back) Values ('%1','h','否')"_s.arg(
        QLatin1String(serial)));
  Recordset serials;
  serials.Open(u"Select File_ID From PassRead_Details where Register_ID='h' Order By File_ID DESC"_s, Connected());
  EXPECT_EQ(serials[u"File_ID"_s].Text(), u"10"_s);
}

TEST_P(Tables, PartsOfAnArchiveNumberComeBackInTheOrderOfTheirEntry) {
  CreateCatalogue(*Connected());
  for (const char* field : {"Z", "A", "M"})
    Connected()->Execute(
        u"Insert Into ArchiveNo_Format(TableName,FieldName) Values('Gdwj','%1')"_s.arg(QLatin1String(field)));
  Recordset parts;
  parts.Open(u"Select * from ArchiveNo_Format Where TableName='Gdwj'"_s, Connected());
  QString order;
  for (; !parts.EOF_(); parts.MoveNext()) order += parts[u"FieldName"_s].Text();
  EXPECT_EQ(order, u"ZAM"_s);
}

TEST_P(Tables, ABusinessTableIsMadeWithItsKeyItsDatesAndItsIndexes) {
  const Table letters = BusinessTable(
      u"Letters"_s,
      {{u"RegID"_s, ColumnType::Integer}, {u"FileDate"_s, ColumnType::Date}, {u"Scan"_s, ColumnType::Blob}},
      {{u"RegID"_s}});
  CreateTable(*Connected(), letters);
  Connected()->Execute(u"Insert Into Letters(ArchiveID,RegID,FileDate) Values('20240315101010000001',5,null)"_s);

  Recordset records;
  records.Open(u"Select * From Letters"_s, Connected());
  EXPECT_TRUE(records[u"FileDate"_s].IsNull());
  records[u"FileDate"_s].SetValue(u"2024-03-15"_s);
  records.UpdateBatch(AffectKind::Current);
  EXPECT_EQ(Database().Value(u"select FileDate from Letters where RegID = 5"_s), u"2024-03-15"_s);
  EXPECT_THROW(Connected()->Execute(u"Insert Into Letters(ArchiveID) Values('20240315101010000001')"_s), DataError);
}

TEST_P(Tables, ADroppedTableCanBeMadeAnewAndDroppingAMissingOneIsNoError) {
  const Table letters = BusinessTable(u"Letters"_s, {});
  CreateTable(*Connected(), letters);
  DropTable(*Connected(), letters.name);
  DropTable(*Connected(), letters.name);
  CreateTable(*Connected(), letters);
  EXPECT_EQ(Database().Value(u"select count(*) from Letters"_s), u"0"_s);
}

TEST(CatalogueDdl, NoSqliteColumnIsDeclaredInAWayThatTurnsTextIntoNumbers) {
  const QRegularExpression columns(u"[(,] ?(\\w+) ([a-z]+)"_s);
  for (const Table& table : CatalogueTables()) {
    const QString statement = CreateStatements(WordsOf(DialectKind::Sqlite), table).at(0);
    const QString body = statement.mid(statement.indexOf(u'(')).section(u", PRIMARY KEY"_s, 0, 0);
    qsizetype found = 0;
    for (auto match = columns.globalMatch(body); match.hasNext(); ++found) {
      const QString type = match.next().captured(2);
      EXPECT_TRUE((QStringList{u"varchar"_s, u"text"_s, u"integer"_s, u"blob"_s}).contains(type)) << qPrintable(body);
    }
    EXPECT_EQ(found, qsizetype(table.columns.size())) << qPrintable(body);
  }
}

TEST(CatalogueDdl, TablesOfAServerWithItsOwnToolsAreNotMadeHere) {
  EXPECT_THROW(CreateStatements(WordsOf(DialectKind::TransactSql), BusinessTable(u"Letters"_s, {})), DataError);
}

}  // namespace
}  // namespace folvane::test
