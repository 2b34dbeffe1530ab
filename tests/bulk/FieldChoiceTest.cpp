#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "bulk/FieldChoice.h"
#include "records/DesignedDatabase.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

class FieldChoiceTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddTable(u"Lwdj"_s, u"来文登记"_s, 2, {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s}});
  }

  int records_ = 0;
};

FOLVANE_ON_EACH_DATABASE(FieldChoiceTest);

TEST_P(FieldChoiceTest, AnArchiveNumberFieldTheNumberItselfAndABarredFieldCannotBeChosen) {
  design_->AddTable(u"Gd"_s, u"归档"_s, 2,
                    {{u"ArchNo"_s, u"档号"_s, u"文本型"_s},
                     {u"Fonds"_s, u"全宗号"_s, u"文本型"_s},
                     {u"Secret"_s, u"密级"_s, u"文本型"_s},
                     {u"Title"_s, u"题名"_s, u"文本型"_s}});
  design_->Insert(u"ArchiveNo_Format"_s, u"TableName,FieldName,FieldChn"_s, {u"Gd"_s, u"Fonds"_s, u"全宗号"_s});
  design_->Insert(u"UserPopedomScopeDetails"_s, u"UserId,PopTableName,FieldName"_s, {u"7"_s, u"Gd"_s, u"Secret"_s});
  design_->Insert(u"UserPopedomScopeDetails"_s, u"UserId,PopTableName,FieldName"_s, {u"8"_s, u"Gd"_s, u"Title"_s});
  log_->Take();
  EXPECT_EQ(ReplaceableCaptions(u"Gd"_s, u"7"_s), QStringList{u"题名"_s});
  EXPECT_THAT(log_->Take(),
              ElementsAre(u"Select ChnFieldName from DynamicWindows Where TableName='Gd'"_s,
                          u"Select FieldChn From ArchiveNo_Format Where TableName = 'Gd'"_s,
                          u"Select FieldName From UserPopedomScopeDetails Where UserId = '7' And PopTableName = 'Gd'"_s,
                          u"Select ChnFieldName from DynamicWindows Where TableName='Gd' and FieldName='Secret'"_s));
}

TEST_P(FieldChoiceTest, ACaptionWithoutAFieldIsAClearError) {
  EXPECT_EQ(FieldOfCaption(u"Lwdj"_s, u"题名"_s), u"Amaintitle"_s);
  try {
    FieldOfCaption(u"Lwdj"_s, u"it's"_s);
    ADD_FAILURE() << "accepted";
  } catch (const DataError& error) {
    EXPECT_EQ(error.Message(), u"表“Lwdj”中没有名为“it's”的字段。"_s);
  }
}

TEST_P(FieldChoiceTest, TheValuesOfAFieldAreOfferedOnceEach) {
  for (const QString& title : {u"b"_s, u"a"_s, u"b"_s})
    design_->Insert(u"Lwdj"_s, u"ArchiveID,Amaintitle"_s, {DesignedDatabase::Key(++records_), title});
  design_->Insert(u"Lwdj"_s, u"ArchiveID"_s, {DesignedDatabase::Key(++records_)});
  log_->Take();
  QStringList values = ValuesOfField(u"Lwdj"_s, u"Amaintitle"_s);
  values.sort();
  EXPECT_EQ(values, (QStringList{u"a"_s, u"b"_s}));
  EXPECT_THAT(log_->Take(), ElementsAre(u"Select Distinct(Amaintitle) From Lwdj"_s));
}

}  // namespace
}  // namespace folvane::test
