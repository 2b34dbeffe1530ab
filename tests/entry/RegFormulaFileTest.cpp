#include "EntryFixture.h"
#include "base/CodePage.h"
#include "base/TypedValues.h"
#include "entry/RegFormulaFile.h"
#include "support/FullDisk.h"

namespace folvane::test {
namespace {

class RegFormulaFileTest : public EntryTest {
 protected:
  int Load(const QString& table = u"Lwdj"_s) { return LoadRegFormula(table, OpenRecords()); }
  TempProgramDirectory program_;
};

TEST_P(RegFormulaFileTest, IsWrittenByteForByteWhenItIsMissing) {
  EXPECT_EQ(Load(), 0);
  const QByteArray line = '#' + QByteArray(62, '-') + "\r\n";
  const auto text = [](const QString& lines) { return ToCodePage(QString(lines).replace(u'\n', u"\r\n"_s)); };
  const QString numeric = u"#      RegID字段的数据类型必须为数值型或自动编号类型\n"_s;
  const QString created =
      u"#要求：必须有CreatedDate字段，且数据类型必须为文本型（长度小于15）或者档案日期型\n"_s + numeric;
  const QString file = u"#要求：必须有FileDate字段，且数据类型必须为日期型\n"_s + numeric;
  EXPECT_EQ(program_.Read(u"RegIDFormula.Ini"_s),
            line + text(u"# RegID Formula Rule1 自动编号\n#要求：RegID字段的数据类型必须为数值型或自动编号类型\n"_s) +
                line + text(u"# RegID Formula Rule2 按文件时间累加\n"_s + created) + line +
                text(u"# RegID Formula Rule3 按文件编号计算\n"
                     "#要求：必须有DocNo字段，且数据类型必须为文本型或者机关代字型\n"_s +
                     numeric) +
                line + text(u"# RegID Formula Rule4 按文件时间配合权限计算\n"_s + created) + line +
                text(u"# RegID Formula Rule5 按登记日期计算\n"_s + file) + line +
                text(u"# RegID Formula Rule6 按登记日期配合权限计算\n"_s + file) + line +
                text(u"# RegID Formula Rule7 按Main窗口的查询条件计算\n"
                     "#要求：RegID字段的数据类型必须为数值型或自动编号类型\n\n[RegFormula]\nLwdj=0\n"_s));
}

TEST_P(RegFormulaFileTest, GivesTheRuleOfATable) {
  program_.Write(u"RegIDFormula.Ini"_s, "[RegFormula]\r\nLwdj=7\r\n");
  EXPECT_EQ(Load(), 7);
}

TEST_P(RegFormulaFileTest, IsReadThroughABufferOfFiveCharacters) {
  program_.Write(u"RegIDFormula.Ini"_s, "[RegFormula]\r\nLwdj=00027\r\n");
  EXPECT_EQ(Load(), 2);
}

TEST_P(RegFormulaFileTest, GetsAMissingTableAtOnce) {
  program_.Write(u"RegIDFormula.Ini"_s, "# mine\r\n[RegFormula]\r\nFwdj=2\r\n");
  EXPECT_EQ(Load(), 0);
  EXPECT_EQ(program_.Read(u"RegIDFormula.Ini"_s), "# mine\r\n[RegFormula]\r\nFwdj=2\r\nLwdj=0\r\n");
}

TEST_P(RegFormulaFileTest, IsNotLookedAtWithoutARegIdField) {
  Recordset records;
  records.Open(u"Select ArchiveID From Lwdj"_s, Connected());
  EXPECT_EQ(LoadRegFormula(u"Lwdj"_s, records), 0);
  EXPECT_FALSE(program_.Has(u"RegIDFormula.Ini"_s));
}

TEST_P(RegFormulaFileTest, RefusesARuleThatIsNoNumber) {
  program_.Write(u"RegIDFormula.Ini"_s, "[RegFormula]\r\nLwdj=two\r\n");
  EXPECT_THROW(Load(), NumberError);
}

// A full disk, or a directory that may only be read: the rule is none, and the records can be worked on.
TEST_P(RegFormulaFileTest, ThatCannotBeWrittenKeepsNobodyFromHisRecords) {
  const QString directory = Services().programDirectory;
  program_.Write(u"file"_s, {});
  Services().programDirectory = program_.Path(u"file"_s);  // nothing can be made below a file
  EXPECT_EQ(Load(), 0);
  EXPECT_EQ(program_.Read(u"file"_s), QByteArray());
  Services().programDirectory = directory;
  EXPECT_EQ(Load(), 0);
  EXPECT_TRUE(program_.Has(u"RegIDFormula.Ini"_s)) << "as soon as it can be written";
}

TEST_P(RegFormulaFileTest, ThatCannotTakeAnotherTableStaysWhole) {
  const QByteArray rules = "# mine\r\n[RegFormula]\r\nFwdj=2\r\n" + QByteArray(5000, '#') + "\r\n";
  program_.Write(u"RegIDFormula.Ini"_s, rules);
  {
    const FullDisk full(1000);
    EXPECT_EQ(Load(u"Fwdj"_s), 2);
    EXPECT_EQ(Load(), 0);
  }
  EXPECT_EQ(program_.Read(u"RegIDFormula.Ini"_s), rules);
}

FOLVANE_ON_EACH_DATABASE(RegFormulaFileTest);

}  // namespace
}  // namespace folvane::test
