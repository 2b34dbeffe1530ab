#include "RecordRoad.h"

namespace folvane::test {
namespace {

/// Records deleted, copied whole, and begun with what others hold.
class DeleteAndCopyTest : public RecordRoad {};

TEST_P(DeleteAndCopyTest, DeletesARecordWithItsOriginals) {
  AddRecords(3);
  DesignTitle();
  Run(u"insert into Original_Text (ID,RecordID) values ('a','%1'),('b','%2')"_s.arg(Key(2), Key(3)));
  InWindow(
      [&](const Input& input) {
        boxes_.Answer(7).Answer(6);
        input.Do(u"DelRecord"_s);
        EXPECT_EQ(Count(), u"3"_s);
        input.Key(u"DelRecord"_s).trigger();
        EXPECT_EQ(boxes_.Last().text, u"确实要删除当前的记录及相关原文吗？"_s);
        EXPECT_EQ(boxes_.Last().flags, 68);
        EXPECT_EQ(boxes_.Last().title, input.Window().windowTitle());
        EXPECT_EQ(Value(u"select count(*) from Original_Text"_s), u"1"_s);
        EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s);
        EXPECT_EQ(input.Position(), u"当前记录：第1条/共2条"_s);
      },
      false, 2);
}

TEST_P(DeleteAndCopyTest, DeletesNoRecordThatIsBeingChanged) {
  AddRecords(1);
  DesignTitle();
  InWindow([&](const Input& input) {
    input.Retype(u"Txt(1)"_s, u"新"_s);
    input.Do(u"DelRecord"_s);
    EXPECT_TRUE(input.KeyOn(u"SaveRecord"_s)) << "the toolbar has gone over to it at once";
    input.Do(u"CancelRecord"_s);
  });
  EXPECT_TRUE(boxes_.Requests().empty());
  EXPECT_EQ(Count(), u"1"_s);
}

TEST_P(DeleteAndCopyTest, HasNoRecordAfterTheLastIsDeleted) {
  AddRecords(1);
  DesignTitle();
  InWindow([&](const Input& input) {
    boxes_.Answer(6);
    input.Do(u"DelRecord"_s);
    EXPECT_EQ(input.Position(), u"当前无记录"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), QString());
    input.Do(u"AddNewRecord"_s);
    input.Retype(u"Txt(1)"_s, u"新"_s);
    input.Do(u"SaveRecord"_s);
    EXPECT_EQ(Count(), u"1"_s);
  });
}

TEST_P(DeleteAndCopyTest, CopiesAWholeRecordIntoTheNext) {
  AddRecords(1);
  DesignTitle();
  Design({u"RegID"_s, u"登记号"_s, ControlKind::Txt, 0, u"自动编号"_s});
  InWindow([&](const Input& input) {
    input.Key(u"CopyAll"_s).trigger();
    EXPECT_TRUE(input.Entry(u"mnuCopyAll"_s).isChecked());
    EXPECT_TRUE(input.Key(u"CopyAll"_s).isChecked());
    input.Do(u"AddNewRecord"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"2"_s);
    input.Do(u"SaveRecord"_s);
    EXPECT_TRUE(input.Key(u"CopyAll"_s).isChecked());
    input.Do(u"First_R"_s);
    EXPECT_FALSE(input.Key(u"CopyAll"_s).isChecked());
    EXPECT_FALSE(input.Entry(u"mnuCopyAll"_s).isChecked());
  });
}

TEST_P(DeleteAndCopyTest, CountsOnWithEachCopy) {
  AddRecords(1);
  Run(u"update Lwdj set DocNo = '国发〔2002〕17号'"_s);
  Design({u"RegID"_s, u"登记号"_s, ControlKind::Txt, 0, u"自动编号"_s});
  Design({u"DocNo"_s, u"文号"_s, ControlKind::F_Organ, 0, u"文件编号型"_s, 50});
  InWindow([&](const Input& input) {
    input.Key(u"CopyAll"_s).trigger();
    for (const auto& [regId, docNo] : {std::pair(u"2"_s, u"国发〔2002〕18号"_s), {u"3"_s, u"国发〔2002〕19号"_s}}) {
      input.Do(u"AddNewRecord"_s);
      EXPECT_EQ(input.Text(u"Txt(1)"_s), regId);
      EXPECT_EQ(input.Text(u"F_Organ(1)"_s), docNo);
      input.Do(u"SaveRecord"_s);
    }
    input.Do(u"AddNewRecord"_s);
    input.Do(u"CancelRecord"_s);
    input.Do(u"AddNewRecord"_s);
    EXPECT_EQ(input.Text(u"F_Organ(1)"_s), u"国发〔2002〕20号"_s) << "none is left out by one that was taken back";
    input.Form().CancelEdit();
  });
}

TEST_P(DeleteAndCopyTest, CopiesNothingWithoutARecord) {
  DesignTitle();
  InWindow([](const Input& input) {
    input.Key(u"CopyAll"_s).trigger();
    EXPECT_FALSE(input.Key(u"CopyAll"_s).isChecked());
  });
}

TEST_P(DeleteAndCopyTest, CarriesFieldsIntoANewRecordFromTheParentAndTheRecordBefore) {
  CreateTable(*Connected(), BusinessTable(u"Aj"_s, {{u"FondsNo"_s, ColumnType::Text, 4}}));
  Run(u"insert into Aj (ArchiveID,FondsNo) values ('P','J001')"_s);
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s, ControlKind::Txt, 0, u"文本型"_s, 50, false, false, true});
  Design({u"FondsNo"_s, u"全宗"_s, ControlKind::Txt, 0, u"文本型"_s, 4, false, false, false, true});
  Flag(u"AutoFileStatus"_s, true);
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb});
  Right(Parameter::Parent, u"Aj"_s);
  parameters_.SetTag(u"ArchiveID = 'P'"_s);
  InWindow([](const Input& input) {
    input.Do(u"AddNewRecord"_s);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s);
    EXPECT_EQ(input.Text(u"Txt(2)"_s), u"J001"_s);
    EXPECT_EQ(input.Text(u"Cmb(1)"_s), u"需归档"_s);
    input.Do(u"CancelRecord"_s);
  });
}

FOLVANE_ON_EACH_DATABASE(DeleteAndCopyTest);

}  // namespace
}  // namespace folvane::test
