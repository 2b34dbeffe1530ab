#include <gtest/gtest.h>

#include "records/FilterInWords.h"
#include "records/YearFormula.h"
#include "support/QtPrinting.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

FilterInWords Told(const QString& filter) {
  return InWords(filter, [](const QString& field) {
    if (field.compare(u"Amaintitle"_s, Qt::CaseInsensitive) == 0) return u"题名"_s;
    return field.compare(u"DocNo"_s, Qt::CaseInsensitive) == 0 ? u"文号"_s : QString();
  });
}

QString WordsOf(const QString& filter) { return Told(filter).words; }

}  // namespace

TEST(FilterInWordsTest, NoConditionHasNoWords) { EXPECT_EQ(Told(QString()).kind, QString()); }

TEST(FilterInWordsTest, AYearIsTheYear) {
  const FilterInWords told = Told(SecondLevelFilter(u"CreatedDate"_s, u"2026"_s));
  EXPECT_EQ(told.kind, u"年度"_s);
  EXPECT_EQ(told.words, u"2026"_s);
}

TEST(FilterInWordsTest, ANodeBelowATableIsAGroup) {
  const FilterInWords word = Told(SecondLevelFilter(u"DocNo"_s, u"国办发"_s));
  EXPECT_EQ(word.kind, u"分组"_s);
  EXPECT_EQ(word.words, u"文号 开头为 国办发"_s);
  const FilterInWords title = Told(SecondLevelFilter(u"Amaintitle"_s, u"决定"_s));
  EXPECT_EQ(title.kind, u"分组"_s);
  EXPECT_EQ(title.words, u"题名 等于 决定"_s);
}

TEST(FilterInWordsTest, AConditionOfTheSearchBarIsAQuery) {
  EXPECT_EQ(Told(u"Amaintitle Like '%环保%'"_s).kind, u"查询"_s);
  EXPECT_EQ(WordsOf(u"Amaintitle Like '%环保%'"_s), u"题名 包含 环保"_s);
  EXPECT_EQ(WordsOf(u"Amaintitle Not Like '%[[]1]''%'"_s), u"题名 不包含 [1]'"_s);
  EXPECT_EQ(WordsOf(u"RegID >= '3'"_s), u"RegID 大于等于 3"_s);
  EXPECT_EQ(WordsOf(u"(DocNo = '' Or DocNo Is Null)"_s), u"文号 为空"_s);
  EXPECT_EQ(WordsOf(u"(DocNo <> '' Or DocNo Is Not Null)"_s), u"文号 不为空"_s);
}

TEST(FilterInWordsTest, TermsOfTheQueryWindowsAreJoined) {
  EXPECT_EQ(WordsOf(u"Lwdj.Amaintitle Like '%环保%' And (Lwdj.DocNo BETWEEN '1' And '9')"_s),
            u"题名 包含 环保 与 文号 从 1 到 9"_s);
  EXPECT_EQ(WordsOf(u"Lwdj.DocNo <> '3' or Lwdj.Amaintitle Not Like '%决定%'  "_s),
            u"文号 不等于 3 或 题名 不包含 决定"_s);
  EXPECT_EQ(WordsOf(u"(DocNo >= '1') And Left(CreatedDate,4) = '2001'"_s), u"文号 大于等于 1 与 年度 等于 2001"_s);
}

TEST(FilterInWordsTest, AnythingElseHasNoWords) {
  for (const QString& filter :
       {u"RegID > 3"_s, u"Amaintitle = 'it's'"_s, u"ArchiveID In (Select 1)"_s, u"Amaintitle Like '%a"_s,
        u"(DocNo = '1' Or DocNo Is Null)"_s, u"Left(SentDate,4) = '2001'"_s, u"DocNo = '1')"_s}) {
    EXPECT_EQ(Told(filter).kind, u"查询"_s);
    EXPECT_EQ(WordsOf(filter), QString()) << filter.toStdString();
  }
}

}  // namespace folvane::test
