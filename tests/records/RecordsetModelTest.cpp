#include "records/DesignedDatabase.h"
#include "records/RecordsetModel.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class RecordsetModelTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    design_->AddRecords(u"Lwdj"_s, 3);
  }
  const std::vector<GridColumn> columns_{
      {u"ArchiveID"_s, u"ID"_s}, {u"amaintitle"_s, u"题名"_s, 20}, {u"Nowhere"_s, u"没有"_s, 5}};
  Recordset records_;
  RecordsetModel model_{records_, columns_};
};

FOLVANE_ON_EACH_DATABASE(RecordsetModelTest);

TEST_P(RecordsetModelTest, ShowsTheRowsUnderFilterAndSortWithoutMoving) {
  records_.Open(u"Select * From Lwdj Order By ArchiveID"_s, Connected());
  records_.SetSort(u"ArchiveID Desc"_s);
  records_.SetAbsolutePosition(2);
  model_.Reset();
  ASSERT_EQ(model_.rowCount(), 3);
  EXPECT_EQ(model_.index(0, 1).data().toString(), u"题名3"_s);
  EXPECT_EQ(model_.index(2, 1).data().toString(), u"题名1"_s);
  EXPECT_EQ(model_.index(0, 0).data().toString(), DesignedDatabase::Key(3)) << "the first field of all";
  EXPECT_EQ(records_.AbsolutePosition(), 2);
  records_.SetFilter(u"RegID = 2"_s);
  model_.Reset();
  EXPECT_EQ(model_.rowCount(), 1);
}

TEST_P(RecordsetModelTest, NamesItsColumnsAndLeavesUnknownFieldsEmpty) {
  records_.Open(u"Select * From Lwdj"_s, Connected());
  model_.Reset();
  EXPECT_EQ(model_.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), u"题名"_s);
  EXPECT_EQ(model_.headerData(1, Qt::Horizontal, Qt::UserRole).toString(), u"amaintitle"_s);
  EXPECT_EQ(model_.index(0, 2).data().toString(), QString());
  EXPECT_EQ(model_.FieldColumn(u"Nowhere"_s), 2);
  EXPECT_EQ(model_.FieldColumn(u"RegID"_s), -1);
}

TEST_P(RecordsetModelTest, WithoutAnOpenRecordSetItHasNoRows) {
  model_.Reset();
  EXPECT_EQ(model_.rowCount(), 0);
  records_.Open(u"Select * From Lwdj"_s, Connected());
  model_.Reset();
  records_.Close();
  EXPECT_EQ(model_.rowCount(), 0);  // also before it is told
  EXPECT_FALSE(model_.data(model_.index(0, 1), Qt::DisplayRole).isValid());
}

}  // namespace
}  // namespace folvane::test
