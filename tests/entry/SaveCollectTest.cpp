#include <folvane/ClsSaveCollect.h>

#include "RecordRoad.h"
#include "shell/Messages.h"

namespace folvane::test {
namespace {

/// The proofing rules as a host applies them to the open entry form.
class SaveCollectTest : public RecordRoad {
 protected:
  void SetUp() override {
    RecordRoad::SetUp();
    AddRecords(1);
    DesignTitle();
  }
  void AddRule(const QString& relation, const QString& value) {
    Run(u"insert into SaveCollect (TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,"
        "Relation,CollectValue) values ('Lwdj',0,'Amaintitle',1,1,'题名','%1','%2')"_s.arg(relation, value));
  }
  static bool Fails() {
    bool failed = true;
    ClsSaveCollect().SaveCollect(u"Lwdj"_s, {}, failed);
    return failed;
  }
};

TEST_P(SaveCollectTest, TellsOfABrokenRule) {
  AddRule(u"等于"_s, u"丙"_s);
  InWindow([&](const Input& input) {
    EXPECT_TRUE(Fails());
    ASSERT_EQ(boxes_.Requests().size(), 1u);
    EXPECT_EQ(boxes_.Last().title, u"校对提示"_s);
    EXPECT_EQ(boxes_.Last().flags, MessageFlag::Information);
    EXPECT_EQ(input.Text(u"Txt(1)"_s), u"题名1"_s);
    input.Retype(u"Txt(1)"_s, u"丙"_s);
    EXPECT_FALSE(Fails());
    input.Form().CancelEdit();
  });
}

TEST_P(SaveCollectTest, ClearsTheTextInTheControlAndTheRecord) {
  AddRule(u"小于"_s, u"10"_s);
  InWindow([&](const Input& input) {
    EXPECT_TRUE(Fails());
    EXPECT_EQ(input.Text(u"Txt(1)"_s), QString());
    EXPECT_EQ(Shared().CurrentRecords[u"Amaintitle"_s].Text(), QString());
  });
}

TEST_P(SaveCollectTest, ClearsNoOtherFieldThanTheControlShows) {
  AddRule(u"不能是"_s, u"数字"_s);
  Run(u"update SaveCollect set FieldName = 'DocNo', ChnFieldName = '文号'"_s);
  Run(u"update Lwdj set Amaintitle = '2002', DocNo = '国发〔2002〕17号'"_s);
  InWindow([&](const Input& input) {
    EXPECT_TRUE(Fails());
    EXPECT_EQ(input.Text(u"Txt(1)"_s), QString());
    EXPECT_EQ(Shared().CurrentRecords[u"DocNo"_s].Text(), u"国发〔2002〕17号"_s);
    input.Form().CancelEdit();
  });
}

TEST_P(SaveCollectTest, ReadsTheRulesAndPassesWithoutAnOpenForm) {
  AddRule(u"等于"_s, u"丙"_s);
  TakeStatements();
  EXPECT_FALSE(Fails());
  EXPECT_EQ(TakeStatements().size(), 1);
}

FOLVANE_ON_EACH_DATABASE(SaveCollectTest);

}  // namespace
}  // namespace folvane::test
