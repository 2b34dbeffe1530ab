#include <folvane/DataError.h>

#include "EntryFixture.h"
#include "base/TypedValues.h"
#include "entry/NewRecord.h"

namespace folvane::test {
namespace {

class NewRecordTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    layout_.rows = {Row(ControlKind::DTP, u"FileDate"_s), Row(ControlKind::Cmb, u"filestatus"_s)};
  }
  static LayoutRow Row(int controlType, const QString& field) {
    LayoutRow row;
    row.control = {controlType, 1};
    row.dataField = field;
    return row;
  }
  /// The text of a field after a record was filled with one value.
  QString Filled(const CarryField& value, bool copyAll = false) {
    Recordset& records = OpenRecords();
    AddRecord(records, layout_);
    FillNewRecord(records, layout_, {{{}, value}, copyAll, false, rule_});
    return records[value.FieldName].Text();
  }
  void AddOne() {
    Run(u"insert into Lwdj (ArchiveID,RegID,Amaintitle,DocNo,Pages,FileDate) values "
        "('1',7,'题名','国发〔2002〕第009号',3,'2002-01-02')"_s);
  }

  EntryLayout layout_;
  RegIdRule rule_{u"Lwdj"_s, RegFormula::None, {}, {}, true};
};

TEST_P(NewRecordTest, BeginsWithAKeyAndTodayInEveryDatePicker) {
  Recordset& records = OpenRecords();
  AddRecord(records, layout_);
  EXPECT_TRUE(records[u"ArchiveID"_s].Text().startsWith(u"20020304101112"_s));
  EXPECT_EQ(records[u"ArchiveID"_s].Text().size(), 20);
  EXPECT_EQ(records[u"FileDate"_s].Text(), u"2002-03-04"_s);
  EXPECT_TRUE(records[u"CreatedDate"_s].IsNull());
}

TEST_P(NewRecordTest, TakesCarriedValuesThatAreNotEmpty) {
  EXPECT_EQ(Filled({u"Amaintitle"_s, u"文本型"_s, u"题名"_s, false}), u"题名"_s);
  EXPECT_EQ(Filled({u"FileDate"_s, u"时间型"_s, QString(), false}), u"2002-03-04"_s);
}

TEST_P(NewRecordTest, CutsATextToItsColumnAtWholeCharacters) {
  EXPECT_EQ(Filled({u"FondsNo"_s, u"文本型"_s, u"A全宗号"_s, false}), u"A全"_s);
}

TEST_P(NewRecordTest, LeavesNumbersAndDatesUncut) {
  EXPECT_EQ(Filled({u"Pages"_s, u"数值型"_s, u"1234567"_s, false}), u"1234567"_s);
  EXPECT_EQ(Filled({u"Pages"_s, u"数字型"_s, u"1234567"_s, false}), u"1234567"_s);
  EXPECT_EQ(Filled({u"FileDate"_s, u"日期型"_s, u"2002-01-02"_s, false}), u"2002-01-02"_s);
}

TEST_P(NewRecordTest, LeavesRegIdToTheRuleThatComputesIt) {
  const CarryField regId{u"RegId"_s, u"数值型"_s, u"30"_s, false};
  EXPECT_EQ(Filled(regId), u"30"_s);
  rule_.formula = RegFormula::AutoNumber;
  EXPECT_EQ(Filled(regId), u"30"_s);
  rule_.formula = RegFormula::BrowserCondition;
  EXPECT_EQ(Filled(regId), u"1"_s);
}

TEST_P(NewRecordTest, ComputesTheNumberFromCarriedValues) {
  rule_.formula = RegFormula::DocNo;
  Recordset& records = OpenRecords();
  AddRecord(records, layout_);
  const std::vector<CarryField> values{{}, {u"DocNo"_s, u"文本型"_s, u"〔2002〕17号"_s, false}};
  FillNewRecord(records, layout_, {values, false, false, rule_});
  EXPECT_EQ(records[u"RegID"_s].Text(), u"17"_s);
}

TEST_P(NewRecordTest, CountsUpWhatACopyTakesOver) {
  EXPECT_EQ(Filled({u"DocNo"_s, u"文件编号型"_s, u"国发〔2002〕第009号"_s, false}, true), u"国发〔2002〕第010号"_s);
  EXPECT_EQ(Filled({u"Pages"_s, u"自动编号"_s, u"12"_s, false}, true), u"13"_s);
  EXPECT_EQ(Filled({u"Pages"_s, u"数值型"_s, u"12"_s, false}, true), u"12"_s);
}

TEST_P(NewRecordTest, CountsUpANumberWithAFractionAndRefusesWhatIsNone) {
  EXPECT_EQ(Filled({u"DocNo"_s, u"自动编号"_s, u"1.5"_s, false}, true), u"2.5"_s);
  EXPECT_THROW(Filled({u"DocNo"_s, u"自动编号"_s, u"甲"_s, false}, true), NumberError);
}

TEST_P(NewRecordTest, TakesCarriedValuesAsTheyAreOtherwise) {
  EXPECT_EQ(Filled({u"Pages"_s, u"自动编号"_s, u"12"_s, false}), u"12"_s);
}

TEST_P(NewRecordTest, IsToBeArchivedWhereTheStatusIsACombo) {
  Recordset& records = OpenRecords();
  AddRecord(records, layout_);
  FillNewRecord(records, layout_, {{{}}, false, true, rule_});
  EXPECT_EQ(records[u"FileStatus"_s].Text(), u"需归档"_s);
}

TEST_P(NewRecordTest, HasNoStatusWhereThatIsAnotherControl) {
  layout_.rows = {Row(ControlKind::Txt, u"FileStatus"_s)};
  Recordset& records = OpenRecords();
  AddRecord(records, layout_);
  FillNewRecord(records, layout_, {{{}}, false, true, rule_});
  EXPECT_TRUE(records[u"FileStatus"_s].IsNull());
}

TEST_P(NewRecordTest, HasNoStatusWhereTheOnlyComboIsOfAnotherField) {
  layout_.rows = {Row(ControlKind::Cmb, u"DocNo"_s)};
  Recordset& records = OpenRecords();
  AddRecord(records, layout_);
  FillNewRecord(records, layout_, {{{}}, false, true, rule_});
  EXPECT_TRUE(records[u"FileStatus"_s].IsNull());
  EXPECT_TRUE(records[u"DocNo"_s].IsNull());
}

TEST_P(NewRecordTest, GathersNothingWithoutARecord) {
  std::vector<CarryField> fields{{u"<无>"_s, {}, {}, false}, {u"Pages"_s, u"自动编号"_s, u"4"_s, false}};
  GatherAll(fields, OpenRecords(), u"Lwdj"_s);
  EXPECT_EQ(fields[1].Value, u"4"_s);
  EXPECT_TRUE(TakeStatements().isEmpty());
}

TEST_P(NewRecordTest, CarriesFromTheCurrentRecord) {
  AddOne();
  std::vector<CarryField> carried{{u"<None>"_s, {}, {}, false},
                                  {u"Amaintitle"_s, u"文本型"_s, u"old"_s, false},
                                  {u"DocNo"_s, u"文件编号型"_s, u"old"_s, false},
                                  {u"RegID"_s, u"自动编号"_s, u"old"_s, false},
                                  {u"CreatedDate"_s, u"文本型"_s, u"old"_s, false},
                                  {u"FondsNo"_s, u"数值型"_s, u"old"_s, false},
                                  {u"FileStatus"_s, u"文本型"_s, u"fixed"_s, true}};
  RefreshCarried(carried, OpenRecords(), u"Lwdj"_s);
  EXPECT_EQ(carried[1].Value, u"题名"_s);
  EXPECT_EQ(carried[2].Value, u"国发〔2002〕第010号"_s);
  EXPECT_EQ(carried[3].Value, u"8"_s);
  EXPECT_EQ(carried[4].Value, QString());
  EXPECT_EQ(carried[5].Value, u"1"_s);
  EXPECT_EQ(carried[6].Value, u"fixed"_s);
  EXPECT_EQ(TakeStatements(), QStringList{u"Select Max(RegID) From Lwdj"_s});
}

TEST_P(NewRecordTest, CarriesNothingNewWithoutARecord) {
  std::vector<CarryField> carried{{u"<None>"_s, {}, {}, false}, {u"Amaintitle"_s, u"文本型"_s, u"old"_s, false}};
  RefreshCarried(carried, OpenRecords(), u"Lwdj"_s);
  EXPECT_EQ(carried[1].Value, u"old"_s);
}

TEST_P(NewRecordTest, GathersAllOfARecord) {
  AddOne();
  Run(u"insert into Lwdj (ArchiveID,Pages) values ('2',40)"_s);
  std::vector<CarryField> fields{{u"<无>"_s, {}, {}, false},
                                 {u"FileDate"_s, u"日期型"_s, {}, false},
                                 {u"Pages"_s, u"自动编号"_s, {}, false},
                                 {u"RegID"_s, u"数值型"_s, {}, false},
                                 {u"FondsNo"_s, u"文本型"_s, u"of an earlier record"_s, false}};
  GatherAll(fields, OpenRecords(), u"Lwdj"_s);
  EXPECT_EQ(fields[1].Value, u"2002-01-02"_s);
  EXPECT_EQ(fields[2].Value, u"40"_s);
  EXPECT_EQ(fields[3].Value, u"7"_s);
  EXPECT_EQ(fields[4].Value, QString());
}

FOLVANE_ON_EACH_DATABASE(NewRecordTest);

}  // namespace
}  // namespace folvane::test
