#include <gtest/gtest.h>

#include "base/CodePage.h"
#include "records/YearFormula.h"
#include "support/HostDoubles.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

TEST(YearFormulaTest, AMissingFileIsWrittenWithItsComments) {
  const TempProgramDirectory program;
  EXPECT_EQ(ReadYearFormula(u"Lwdj"_s), u"0"_s);
  EXPECT_EQ(FromCodePage(program.Read(u"YearFormula.Ini"_s)),
            u"#--------------------------------------------------------------\r\n# 自定义字段显示数据\r\n"
            "#要求：表中含有该字段,字段名用英文名！\r\n\r\n[YearFormula]\r\nLwdj=0\r\n"_s);
}

TEST(YearFormulaTest, ATableTheFileDoesNotKnowIsAdded) {
  const TempProgramDirectory program;
  program.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=DocNo\r\n");
  EXPECT_EQ(ReadYearFormula(u"Fwdj"_s), u"0"_s);
  EXPECT_EQ(ReadYearFormula(u"Lwdj"_s), u"DocNo"_s);
  EXPECT_EQ(program.Read(u"YearFormula.Ini"_s), "[YearFormula]\r\nLwdj=DocNo\r\nFwdj=0\r\n");
}

TEST(YearFormulaTest, AFieldNameIsCutAtNineteenCharacters) {
  const TempProgramDirectory program;
  program.Write(u"YearFormula.Ini"_s, "[YearFormula]\r\nLwdj=ABCDEFGHIJKLMNOPQRSTUVWXYZ\r\n");
  EXPECT_EQ(ReadYearFormula(u"Lwdj"_s), u"ABCDEFGHIJKLMNOPQRS"_s);
}

TEST(SecondLevelTest, TheFieldSaysHowItsNodesLimitTheList) {
  EXPECT_EQ(SecondLevelFilter(u"createddate"_s, u"2001"_s), u"Left(CreatedDate,4) = '2001'"_s);
  EXPECT_EQ(SecondLevelFilter(u"DocNo"_s, u"国办"_s), u"DOCNO like '国办%'"_s);
  EXPECT_EQ(SecondLevelFilter(u"FileStatus"_s, u"已归档"_s), u"FileStatus ='已归档'"_s);
}

TEST(SecondLevelTest, TheFieldSaysWhereTheNodesComeFrom) {
  EXPECT_EQ(SecondLevelStatement(u"Lwdj"_s, u"CreatedDate"_s),
            u"select DISTINCT left(Createddate,4)  from Lwdj order by 1 desc"_s);
  EXPECT_EQ(SecondLevelStatement(u"Lwdj"_s, u"DOCNO"_s),
            u"select DISTINCT name from AssistantDicKey where DicID=(select Dicid from AssistantDictionary where "
            "name='机关代字')"_s);
  EXPECT_EQ(SecondLevelStatement(u"Lwdj"_s, u"FileStatus"_s),
            u"select DISTINCT FileStatus  from Lwdj order by 1 desc"_s);
}

}  // namespace folvane::test
