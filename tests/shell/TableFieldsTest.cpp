#include <QComboBox>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "SharedDatabase.h"
#include "data/Recordset.h"
#include "shell/TableFields.h"

namespace folvane {
namespace {

using namespace Qt::Literals::StringLiterals;

class TableFields : public test::SharedDatabase {};
FOLVANE_ON_EACH_DATABASE(TableFields);

TEST_P(TableFields, TableHasFieldAsksOnlyWhetherTheStatementIsAccepted) {
  EXPECT_TRUE(TableHasField(u"Fwdj"_s, u"NoSuchField"_s));
  EXPECT_EQ(Statements(), QStringList{u"select fieldname='NoSuchField' from DynamicWindows where tablename='Fwdj'"_s});
  EXPECT_FALSE(TableHasField(u"Fw'dj"_s, u"Field"_s));
}

TEST_P(TableFields, TableHasFieldIsFalseWithoutAConnection) {
  Shared().Connection = nullptr;
  EXPECT_FALSE(TableHasField(u"Fwdj"_s, u"DocNo"_s));
}

TEST_P(TableFields, FieldExistsKnowsTheFieldsOfAnOpenRecordSet) {
  Recordset records;
  EXPECT_FALSE(FieldExists(records, u"UserName"_s));
  records.Open(u"Select UserName From UserPopedom"_s, Connected());
  EXPECT_TRUE(FieldExists(records, u"USERNAME"_s));
  EXPECT_FALSE(FieldExists(records, u"UserID"_s));
}

TEST_P(TableFields, GetChnFieldNameIsEmptyForAnUnknownField) {
  Run({u"Insert Into DynamicWindows Values ('Fwdj', 'DocNo', '文件编号', '文件编号型', 40)"_s});
  EXPECT_EQ(GetChnFieldName(u"Fwdj"_s, u"DocNo"_s), u"文件编号"_s);
  EXPECT_EQ(GetChnFieldName(u"Fwdj"_s, u"CREATEDDATE"_s), QString());
  EXPECT_EQ(Statements().first(),
            u"Select ChnFieldName from DynamicWindows Where TableName='Fwdj' and FieldName='DocNo'"_s);
}

class ErrorTexts : public test::SharedDatabase {
 protected:
  void SetUp() override {
    SharedDatabase::SetUp();
    Run({u"Insert Into DynamicWindows Values ('Fwdj', 'DocNo', '文件编号', '文件编号型', 40)"_s});
  }
  /// A refusal over the column of that name.
  static DataError Refusal(const QString& column, DataErrorKind kind = DataErrorKind::TooLong) {
    return DataError(kind, u"字段“%1”的值“%1”太长。"_s.arg(column)).About(column);
  }
};
FOLVANE_ON_EACH_DATABASE(ErrorTexts);

TEST_P(ErrorTexts, ARefusedValueIsToldWithTheCaptionOfItsColumn) {
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"docno"_s)), u"字段“文件编号”的值“docno”太长。"_s);
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"DocNo"_s, DataErrorKind::Constraint)),
            u"字段“文件编号”的值“DocNo”太长。"_s);
}

TEST_P(ErrorTexts, AColumnWithoutACaptionKeepsItsName) {
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"RegID"_s)), u"字段“RegID”的值“RegID”太长。"_s);
  EXPECT_EQ(ErrorTextFor(u"Swdj"_s, Refusal(u"DocNo"_s)), u"字段“DocNo”的值“DocNo”太长。"_s);
}

TEST_P(ErrorTexts, AnErrorOfAnotherKindIsToldAsItIsWithoutALookUp) {
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"DocNo"_s, DataErrorKind::Conversion)), u"字段“DocNo”的值“DocNo”太长。"_s);
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, std::runtime_error("broken")), u"broken"_s);
  EXPECT_EQ(Statements(), QStringList());
}

TEST_P(ErrorTexts, NoErrorEscapesFromTheLookUp) {
  EXPECT_EQ(ErrorTextFor(u"no ' table"_s, Refusal(u"DocNo"_s)), u"字段“DocNo”的值“DocNo”太长。"_s);
  Shared().Connection = nullptr;
  EXPECT_EQ(ErrorTextFor(u"Fwdj"_s, Refusal(u"DocNo"_s)), u"字段“DocNo”的值“DocNo”太长。"_s);
}

TEST_P(TableFields, FillSearchFieldsAddsToFourParallelListsInTheirOrder) {
  Run({u"Insert Into DynamicWindows Values ('Fwdj', 'DocNo', '文件编号', '文件编号型', 40)"_s,
       u"Insert Into DynamicWindows Values ('Fwdj', 'MainTitle', '文件题名', '文本型', 80)"_s,
       u"Insert Into DynamicWindows Values ('Swdj', 'DocNo', '来文编号', '文本型', 40)"_s,
       u"Insert Into SimSearch Values ('Fwdj', 'DocNo', Null, 2)"_s,
       u"Insert Into SimSearch Values ('Fwdj', 'MainTitle', '@a@', 1)"_s});
  QComboBox fields, captions, types, values;
  FillSearchFields(u"Fwdj"_s, fields, captions, types, values);
  EXPECT_EQ(test::Entries(fields), (QStringList{u"MainTitle"_s, u"DocNo"_s}));
  EXPECT_EQ(test::Entries(captions), (QStringList{u"文件题名"_s, u"文件编号"_s}));
  EXPECT_EQ(test::Entries(types), (QStringList{u"文本型"_s, u"文件编号型"_s}));
  EXPECT_EQ(test::Entries(values), (QStringList{u"@a@"_s, QString()}));
  EXPECT_EQ(
      Statements(),
      QStringList{
          u"Select DynamicWindows.FieldName,DynamicWindows.ChnFieldName,DynamicWindows.FieldType,SimSearch.FieldValue "
          "From DynamicWindows,SimSearch Where DynamicWindows.TableName=SimSearch.TableName And "
          "DynamicWindows.FieldName =SimSearch.DataField And DynamicWindows.TableName = 'Fwdj' Order By "
          "SimSearch.OrderNo"_s});
}

}  // namespace
}  // namespace folvane
