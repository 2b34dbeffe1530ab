#include <array>
#include <gtest/gtest.h>

#include "base/TypedValues.h"
#include "catalogue/Ddl.h"
#include "forms/EntryLayout.h"
#include "support/HostDoubles.h"
#include "support/TestDatabase.h"

namespace folvane {

void PrintTo(const ControlId& control, std::ostream* out) { *out << control.type << '/' << control.index; }

namespace test {
namespace {

using namespace Qt::Literals::StringLiterals;

class DesignTest : public OnEachDatabase {
 protected:
  void SetUp() override {
    OnEachDatabase::SetUp();
    Database().Furnish(&CreateCatalogue);
  }

  void AddDictionaryField(const QString& table, const QString& name, const QString& type, const QString& flags) {
    Database().Native(
        u"Insert Into DynamicWindows(TableName,FieldName,ChnFieldName,FieldType,FieldLong,NullFlags,"
        "ControlIndex,AuxiDictDetails,ControlsType,ZJCFlags) Values('%1','%2','%3','%4',30,%5)"_s.arg(
            table, name, u"中文"_s + name, type, flags));
  }
};

class EntryLayoutTest : public DesignTest {
 protected:
  void AddControl(const QString& field, int type, int index, int order) {
    Database().Native(
        u"Insert Into SaveControls(DataSource,DataField,ControlType,ControlIndex,KeyOrder,F_Left,F_Top,"
        "F_Width,F_Height) Values('Lwdj','%1',%2,%3,%4,1200,600,3000,300)"_s.arg(field)
            .arg(type)
            .arg(index)
            .arg(order));
  }
};
FOLVANE_ON_EACH_DATABASE(EntryLayoutTest);

TEST_P(EntryLayoutTest, ComesInTheOrderOfTheCursor) {
  AddDictionaryField(u"Lwdj"_s, u"DocNo"_s, u"文件编号型"_s, u"'','','',0,''"_s);
  AddDictionaryField(u"Lwdj"_s, u"Amaintitle"_s, u"文本型"_s, u"'否','1','密级',0,''"_s);
  AddControl(u"DocNo"_s, ControlKind::F_Organ, 1, 2);
  AddControl(u"Amaintitle"_s, ControlKind::Txt_MLine, 4, 1);

  const EntryLayout layout = ReadEntryLayout(Connected(), u"Lwdj"_s);
  EXPECT_EQ(layout.KeyList, (std::vector<ControlId>{{}, {10, 4}, {8, 1}}));
  EXPECT_EQ(layout.RequiredList, (std::vector<ControlId>{{}, {10, 4}}));
  EXPECT_EQ(layout.FixedLengthList, (std::vector<ControlId>{{}, {10, 4}}));
  ASSERT_EQ(layout.FieldList.size(), 3u);
  EXPECT_EQ(layout.FieldList[0], (CarryField{u"<无>"_s, {}, {}, false}));
  EXPECT_EQ(layout.FieldList[2], (CarryField{u"DocNo"_s, u"文件编号型"_s, {}, false}));

  const LayoutRow& title = layout.rows.at(0);
  EXPECT_EQ(title.dataField, u"Amaintitle"_s);
  EXPECT_EQ(title.caption, u"中文Amaintitle"_s);
  EXPECT_EQ(title.fieldLong, u"30"_s);
  EXPECT_EQ(title.dictionary, u"密级"_s);
  EXPECT_EQ(title.left, 1200);
  EXPECT_EQ(title.top, 600);
  EXPECT_EQ(title.width, 3000);
  EXPECT_EQ(title.height, 300);
}

TEST_P(EntryLayoutTest, LeavesOutControlsThatAreNeverBuiltAndFieldsWithoutADictionaryRow) {
  AddDictionaryField(u"Lwdj"_s, u"A"_s, u"文本型"_s, u"'','','',0,''"_s);
  AddControl(u"A"_s, 3, 1, 1);
  AddControl(u"A"_s, 5, 1, 2);
  AddControl(u"Nowhere"_s, 1, 1, 3);
  AddControl(u"A"_s, 11, 1, 4);
  const EntryLayout layout = ReadEntryLayout(Connected(), u"Lwdj"_s);
  EXPECT_EQ(layout.KeyList, (std::vector<ControlId>{{}, {11, 1}}));
}

TEST_P(EntryLayoutTest, IsEmptyForATableWithoutOne) {
  const EntryLayout layout = ReadEntryLayout(Connected(), u"Lwdj"_s);
  EXPECT_TRUE(layout.rows.empty());
  EXPECT_EQ(layout.KeyList, std::vector<ControlId>{{}});
  EXPECT_EQ(layout.FieldList.size(), 1u);
}

TEST_P(EntryLayoutTest, PutsAControlWithoutAPlaceUnderTheOthers) {
  for (const QString& name : {u"A"_s, u"B"_s, u"C"_s})
    AddDictionaryField(u"Lwdj"_s, name, u"文本型"_s, u"'','','',0,''"_s);
  AddControl(u"A"_s, ControlKind::Txt, 1, 1);
  AddControl(u"B"_s, ControlKind::Txt, 2, 2);
  AddControl(u"C"_s, ControlKind::Txt, 3, 3);
  for (const QString& bad : {u"F_Left=null"_s, u"F_Top=null"_s, u"F_Top=1000000000"_s, u"F_Left=-2000"_s}) {
    Database().Native(u"Update SaveControls Set F_Left=1200,F_Top=600"_s);
    Database().Native(u"Update SaveControls Set "_s + bad + u" Where DataField<>'B'"_s);
    const EntryLayout layout = ReadEntryLayout(Connected(), u"Lwdj"_s);
    ASSERT_EQ(layout.rows.size(), 3u);
    EXPECT_EQ(layout.rows[1].top, 600);
    EXPECT_FALSE(layout.rows[1].isArranged);
    EXPECT_TRUE(layout.rows[0].isArranged) << bad.toStdString();
    EXPECT_GT(layout.rows[0].top, 900);
    EXPECT_GT(layout.rows[2].top, layout.rows[0].top + 300);
    EXPECT_EQ(layout.KeyList, (std::vector<ControlId>{{}, {1, 1}, {1, 2}, {1, 3}}));
  }
}

TEST_P(EntryLayoutTest, GivesAControlWithoutASizeTheUsualOne) {
  AddDictionaryField(u"Lwdj"_s, u"A"_s, u"文本型"_s, u"'','','',0,''"_s);
  AddControl(u"A"_s, ControlKind::Txt, 1, 1);
  for (const QString& bad : {u"F_Width=null"_s, u"F_Width=0"_s, u"F_Width=-3000"_s, u"F_Width=1000000000"_s,
                             u"F_Height=null"_s, u"F_Height=-300"_s, u"F_Height=1000000000"_s}) {
    Database().Native(u"Update SaveControls Set F_Width=3000,F_Height=300"_s);
    Database().Native(u"Update SaveControls Set "_s + bad);
    const LayoutRow row = ReadEntryLayout(Connected(), u"Lwdj"_s).rows.at(0);
    EXPECT_TRUE(row.isArranged) << bad.toStdString();
    EXPECT_EQ((std::array{row.left, row.top, row.width, row.height}), (std::array{1200, 600, 3000, 300}));
  }
}

TEST_P(EntryLayoutTest, WantsNoHeightOfAComboBox) {
  AddDictionaryField(u"Lwdj"_s, u"A"_s, u"文本型"_s, u"'','','',0,''"_s);
  AddControl(u"A"_s, ControlKind::Cmb, 1, 1);
  Database().Native(u"Update SaveControls Set F_Height=null"_s);
  EXPECT_FALSE(ReadEntryLayout(Connected(), u"Lwdj"_s).rows.at(0).isArranged);
}

TEST_P(EntryLayoutTest, ReadsPlacesThatAreKeptAsText) {
  Database().Native(u"Drop Table SaveControls"_s);
  Database().Native(
      u"Create Table SaveControls(DataSource varchar(20),DataField varchar(20),ControlType integer,ControlIndex "
      u"integer,"
      "KeyOrder integer,F_Left varchar(20),F_Top varchar(20),F_Width varchar(20),F_Height varchar(20))"_s);
  AddDictionaryField(u"Lwdj"_s, u"A"_s, u"文本型"_s, u"'','','',0,''"_s);
  Database().Native(u"Insert Into SaveControls Values('Lwdj','A',1,1,1,'1200',' 300 ','3000.0','高')"_s);
  const LayoutRow row = ReadEntryLayout(Connected(), u"Lwdj"_s).rows.at(0);
  EXPECT_EQ((std::array{row.left, row.top, row.width, row.height}), (std::array{1200, 300, 3000, 300}));
  EXPECT_TRUE(row.isArranged);
}

TEST_P(EntryLayoutTest, KeepsTheRowsBeforeOneThatCannotBeRead) {
  for (const QString& name : {u"A"_s, u"B"_s}) AddDictionaryField(u"Lwdj"_s, name, u"文本型"_s, u"'','','',0,''"_s);
  AddControl(u"A"_s, 1, 1, 1);
  AddControl(u"B"_s, 1, 2, 2);
  Database().Native(u"Update SaveControls Set ControlIndex=null Where DataField='B'"_s);
  const EntryLayout layout = ReadEntryLayout(Connected(), u"Lwdj"_s);
  EXPECT_EQ(layout.KeyList, (std::vector<ControlId>{{}, {1, 1}}));
  EXPECT_THROW(std::rethrow_exception(layout.failure), NumberError);
}

TEST_P(EntryLayoutTest, AsksForItAsTheDesignIsAskedEverywhere) {
  QStringList statements;
  Connected()->OnStatement([&](const QString& statement) { statements << statement; });
  ReadEntryLayout(Connected(), u"Lwdj"_s);
  EXPECT_EQ(statements,
            QStringList{u"Select SaveControls.*,DynamicWindows.FieldType,DynamicWindows.ChnFieldName,"
                        "DynamicWindows.FieldLong,DynamicWindows.AuxiDictDetails,DynamicWindows.NullFlags,"
                        "DynamicWindows.ControlIndex As LockFields From SaveControls,DynamicWindows Where "
                        "DataSource='Lwdj' And SaveControls.ControlType <> 3 And SaveControls.ControlType <> 5 And "
                        "Savecontrols.DataSource = DynamicWindows.TableName And SaveControls.DataField = "
                        "DynamicWindows.FieldName Order By SaveControls.KeyOrder"_s});
}

class CarryFieldsTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    Database().Native(
        u"Create Table Volume(ArchiveID varchar(20), FondsNo varchar(10), Pages integer, Note varchar(10))"_s);
    AddDictionaryField(u"Jn"_s, u"FondsNo"_s, u"文本型"_s, u"'','','',1,''"_s);
    AddDictionaryField(u"Jn"_s, u"Pages"_s, u"数值型"_s, u"'','','',1,''"_s);
    AddDictionaryField(u"Jn"_s, u"Note"_s, u"文本型"_s, u"'','','',1,''"_s);
    AddDictionaryField(u"Jn"_s, u"Missing"_s, u"文本型"_s, u"'','','',1,''"_s);
    AddDictionaryField(u"Jn"_s, u"DocNo"_s, u"文件编号型"_s, u"'','','',0,'是'"_s);
  }
  std::vector<CarryField> Load(const ParentRecord& parent) { return LoadCarryFields(Connected(), u"Jn"_s, parent); }
};
FOLVANE_ON_EACH_DATABASE(CarryFieldsTest);

const CarryField kNone{u"<None>"_s, {}, {}, false};
const CarryField kDocNo{u"DocNo"_s, u"文件编号型"_s, {}, false};

TEST_P(CarryFieldsTest, AreThoseOfTheRecordBeforeWithoutAParent) {
  EXPECT_EQ(Load({}), (std::vector<CarryField>{kNone, kDocNo}));
}

TEST_P(CarryFieldsTest, TakeTheValuesOfTheParentRecord) {
  Database().Native(u"Insert Into Volume Values('1','J01',20,null)"_s);
  EXPECT_EQ(Load({u" Volume "_s, u"ArchiveID='1'"_s}),
            (std::vector<CarryField>{kNone,
                                     {u"FondsNo"_s, u"文本型"_s, u"J01"_s, true},
                                     {u"Pages"_s, u"数值型"_s, u"20"_s, true},
                                     {u"Note"_s, u"文本型"_s, {}, true},
                                     kDocNo}));
}

TEST_P(CarryFieldsTest, BeginNumbersWithOneWhereTheParentHasNone) {
  Database().Native(u"Insert Into Volume Values('1',null,null,null)"_s);
  EXPECT_EQ(Load({u"Volume"_s, u"ArchiveID='1'"_s}).at(2), (CarryField{u"Pages"_s, u"数值型"_s, u"1"_s, true}));
}

TEST_P(CarryFieldsTest, StayEmptyWithoutAParentRecord) {
  EXPECT_EQ(Load({u"Volume"_s, u"ArchiveID='1'"_s}).at(2), (CarryField{u"Pages"_s, u"数值型"_s, {}, true}));
}

}  // namespace
}  // namespace test
}  // namespace folvane
