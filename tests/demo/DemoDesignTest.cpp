#include <gmock/gmock.h>

#include <folvane/Design.h>

#include "base/CodePage.h"
#include "demo/DemoFixture.h"
#include "host/demo/TextLists.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class DemoDesign : public DemoTest {};
FOLVANE_ON_EACH_DATABASE(DemoDesign);

TEST_P(DemoDesign, HasNothingThatTheCheckWarnsOf) {
  QStringList warnings;
  for (const DesignFinding& finding : CheckDesign(ReadDesign(*Connected()), Connected().get())) {
    if (finding.weight != DesignFinding::Weight::Note) warnings << finding.where + u'：' + finding.what;
  }
  EXPECT_THAT(warnings, testing::IsEmpty());
}

TEST(DemoDesignFile, StandsAsAnExportWouldWriteIt) {
  const QByteArray text = demo::ReadData(u"demo.yaml"_s);
  EXPECT_EQ(DesignText(ParseDesign(text)), text);
}

TEST_P(DemoDesign, NamesOnlyTablesAndFieldsThatAreThere) {
  const QStringList statements{
      u"Select TableName,FieldName From DynamicWindows"_s,
      u"Select TableName,FieldName From ListViewFormat"_s,
      u"Select TableName,DataField From SimSearch"_s,
      u"Select DataSource,DataField From SaveControls Where ControlType <> 3"_s,
      u"Select TableName,FieldName From SaveCollect"_s,
      u"Select TableName,CompField From FindCirSave"_s,
      u"Select TableName,FieldName From ArchiveNo_Format"_s,
      u"Select TableName,StoreField From ArchiveNo_Format"_s,
      u"Select PopTableName,FieldName From UserPopedomScopeDetails"_s,
      u"Select SourceTbl,SourceField From DataTransfer_Ini,DataTransfer_Details Where RecId = IniRecId"_s,
      u"Select DesTbl,DesField From DataTransfer_Ini,DataTransfer_Details Where RecId = IniRecId"_s,
      u"Select Table_Parent,RelationField From Design_TableRelation Where Table_Parent <> ''"_s,
      u"Select TableName,RelationField From Design_TableRelation Where Table_Parent <> ''"_s};
  for (const QString& statement : statements) {
    const auto rows = Select(statement);
    EXPECT_FALSE(rows.empty()) << qPrintable(statement);
    for (const QStringList& row : rows)
      EXPECT_TRUE(HasField(row[0], row[1])) << qPrintable(statement + u": "_s + row.join(u'.'));
  }
}

TEST_P(DemoDesign, TellsEachFieldOnceUnderACaptionOfItsOwn) {
  for (const QString& table : kBusinessTables) {
    const QString of = u" From DynamicWindows Where TableName = '"_s + table + u"'"_s;
    QStringList captions = Column(u"Select ChnFieldName"_s + of);
    QStringList fields = Column(u"Select FieldName"_s + of);
    EXPECT_EQ(captions.removeDuplicates(), 0) << qPrintable(table);
    EXPECT_EQ(fields.removeDuplicates(), 0) << qPrintable(table);
    EXPECT_EQ(fields.size() + 1, qsizetype(DatabaseSession::Of(*Connected()).Table(table)->columns.size()))
        << "all columns but the key: " << qPrintable(table);
  }
}

TEST_P(DemoDesign, PutsNoTwoControlsOfAFormUnderOneNameOrOnOnePlace) {
  for (const QString& table : kBusinessTables) {
    QStringList names, places;
    for (const QStringList& row :
         Select(u"Select ControlType,ControlIndex,F_Left,F_Top From SaveControls Where DataSource = '"_s + table +
                u"' And ControlType <> 3"_s)) {
      names << row[0] + u'/' + row[1];
      places << row[2] + u'/' + row[3];
    }
    EXPECT_EQ(names.removeDuplicates(), 0) << qPrintable(table);
    EXPECT_EQ(places.removeDuplicates(), 0) << qPrintable(table);
  }
}

TEST_P(DemoDesign, NamesOnlyDictionariesThatHaveEntries) {
  QStringList names = Column(u"Select Distinct(AuxiDictDetails) From DynamicWindows Where AuxiDictDetails <> ''"_s);
  names << u"机关代字"_s << u"传阅情况"_s << u"分发情况"_s << u"处理情况"_s << u"分发单位"_s << u"审阅单位/领导"_s;
  for (const QString& name : names) {
    EXPECT_GT(
        Count(u"AssistantDicKey Where DicID in (Select DicId from AssistantDictionary where Name='"_s + name + u"')"_s),
        0)
        << qPrintable(name);
  }
}

TEST_P(DemoDesign, ShowsEveryKindOfControlAndOfField) {
  QStringList controls = Column(u"Select Distinct(ControlType) From SaveControls"_s);
  std::sort(controls.begin(), controls.end(), [](const QString& a, const QString& b) { return a.toInt() < b.toInt(); });
  EXPECT_EQ(controls.join(u' '), u"1 2 3 4 6 7 8 9 10"_s);
  const QStringList types = Column(u"Select Distinct(FieldType) From DynamicWindows"_s);
  for (const QString& type : {u"数值型"_s, u"自动编号"_s, u"数字型"_s, u"时间型"_s, u"日期型"_s, u"档案日期型"_s,
                              u"档案日期"_s, u"文本型"_s, u"文件编号型"_s, u"机关代字型"_s})
    EXPECT_TRUE(types.contains(type)) << qPrintable(type);
}

TEST_P(DemoDesign, CountsTheInputsOfTheSimpleQueryWithinTheirKind) {
  for (const QString& table : kBusinessTables) {
    QHash<QString, int> counts;
    for (const QStringList& row :
         Select(u"Select CtlType,CtlIndex From SimSearch Where TableName = '"_s + table + u"' Order By OrderNo"_s))
      EXPECT_EQ(row[1].toInt(), ++counts[row[0]]) << qPrintable(table);
  }
}

TEST_P(DemoDesign, TiesEachProofingRuleToTheControlOfItsField) {
  for (const QStringList& row : Select(u"Select TableName,FieldName,ControlIndex,ControlType From SaveCollect"_s)) {
    EXPECT_EQ(Select(u"Select Controlindex,ControlType From SaveControls Where DataSource='"_s + row[0] +
                     u"' And DataField='"_s + row[1] + u"' And ControlType <> '3'"_s)
                  .at(0),
              row.mid(2))
        << qPrintable(row.join(u' '));
  }
}

TEST_P(DemoDesign, HangsEveryTableUnderAClassWithoutSubclasses) {
  for (const QString& id : Column(u"Select ClassId From Design_TableRelation"_s)) {
    EXPECT_EQ(Count(u"Design_ClassRelation Where ClassId = "_s + id), 1);
    EXPECT_EQ(Count(u"Design_ClassRelation Where Class_Parent = "_s + id), 0) << "its tables would never be listed";
  }
  EXPECT_GE(Count(u"Design_ClassRelation Where Class_Parent = 1"_s), 3);
}

TEST_P(DemoDesign, SaysFileArchiveAndNothingOfTheKindOfATable) {
  EXPECT_EQ(Column(u"Select DISTINCT tablename From DynamicWindows where tabletype='F' Order By tablename"_s),
            (QStringList{u"Fwdj"_s, u"Lwdj"_s}));
  EXPECT_EQ(Column(u"Select DISTINCT tablename From DynamicWindows where tabletype='A' Order By tablename"_s).size(),
            2);
  EXPECT_EQ(Column(u"Select DISTINCT tablename From DynamicWindows where tabletype='' Order By tablename"_s),
            (QStringList{u"Dsj"_s, u"Gdwj"_s}));
}

TEST_P(DemoDesign, TakesEveryValueThatTheDemoHoldsWithinItsLength) {
  for (const QString& table : kBusinessTables) {
    QHash<QString, int> lengths;
    for (const QStringList& row :
         Select(u"Select FieldName,FieldLong From DynamicWindows Where TableName = '"_s + table + u"'"_s))
      lengths[row[0].toLower()] = row[1].toInt();
    Recordset records;
    records.Open(u"Select * From "_s + table, Connected());
    for (; !records.EOF_(); records.MoveNext()) {
      for (int i = 0; i < records.Fields().Count(); ++i) {
        const Field field = records.Fields().Item(i);
        const int limit = lengths.value(field.Name().toLower(), 20);
        EXPECT_LE(ByteLength(field.Text()), limit) << qPrintable(field.Name() + u": "_s + field.Text());
        EXPECT_TRUE(FitsCodePage(field.Text())) << qPrintable(field.Text());
      }
    }
  }
}

}  // namespace
}  // namespace folvane::test
