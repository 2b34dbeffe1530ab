#include <gtest/gtest.h>
#include <tuple>

#include "data/DataSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class Searches : public DataSuite {
 protected:
  void SetUp() override {
    DataSuite::SetUp();
    records_ = Open();
  }
  QStringList Filtered(const char* criteria) {
    records_->SetFilter(QString::fromUtf8(criteria));
    return Ids();
  }
  QStringList Sorted(const char* order) {
    records_->SetSort(QString::fromUtf8(order));
    return Ids();
  }
  QStringList Ids() { return Texts(*records_, u"id"_s); }
  static QStringList Of(const char* ids) { return QString::fromLatin1(ids).split(u' '); }
  /// The number of the file that a search ends on, "EOF" or "BOF".
  QString Found(const char* criterion, qint64 skip = 0, SearchDirection direction = SearchDirection::Forward) {
    records_->Find(QString::fromUtf8(criterion), skip, direction);
    if (records_->EOF_()) return u"EOF"_s;
    return records_->BOF() ? u"BOF"_s : (*records_)[u"id"_s].Text();
  }
  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(Searches);

TEST_P(Searches, AFindStartsAtTheCurrentRow) {
  EXPECT_EQ(Found("pages = 25"), u"2"_s);
  EXPECT_EQ(Found("pages = 25"), u"2"_s);
  EXPECT_EQ(Found("pages = 25", 1), u"5"_s);
  EXPECT_EQ(Found("pages = 25", 1), u"EOF"_s);
}

TEST_P(Searches, AFindBackwardsEndsBeforeTheFirstRow) {
  records_->MoveLast();
  EXPECT_EQ(Found("pages = 25", 1, SearchDirection::Backward), u"2"_s);
  EXPECT_EQ(Found("pages = 25", 1, SearchDirection::Backward), u"BOF"_s);
}

TEST_P(Searches, AFindForAKeyStandsOnItsRow) {
  EXPECT_EQ(Found("code = 'B-002'"), u"4"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("code = 'b-002'"), u"4"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("code = 'nothing'"), u"EOF"_s);
}

TEST_P(Searches, AFindComparesChineseQuotesNumbersAndDates) {
  EXPECT_EQ(Found("title Like '%报表%'"), u"4"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("remark = 'it''s'"), u"4"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("pages < 10"), u"3"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("filed > #2002-06-01#"), u"5"_s);
}

TEST_P(Searches, AFindSeesWhatWasTypedAndNotYetWritten) {
  StandOn(*records_, 3);
  (*records_)[u"code"_s].SetValue(u"NEW"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("code = 'NEW'"), u"3"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("code = 'B-001'"), u"EOF"_s);
}

TEST_P(Searches, AFindKeepsWithinFilterAndSort) {
  records_->SetFilter(u"pages = 25"_s);
  records_->SetSort(u"id Desc"_s);
  EXPECT_EQ(Found("id < 9"), u"5"_s);
  EXPECT_EQ(Found("id < 9", 1), u"2"_s);
  records_->MoveFirst();
  EXPECT_EQ(Found("code = 'B-001'"), u"EOF"_s);
}

TEST_P(Searches, AFindForAnEqualValueStandsOnTheNearestHitInTheOrderShown) {
  for (const auto& [order, first, second] : {std::tuple("id Asc", "2", "5"), std::tuple("id Desc", "5", "2")}) {
    records_->SetSort(QLatin1String(order));
    EXPECT_EQ(Found("pages = 25"), QLatin1String(first)) << order;
    EXPECT_EQ(Found("pages = 25", 1), QLatin1String(second)) << order;
    records_->MoveLast();
    EXPECT_EQ(Found("pages = 25", 0, SearchDirection::Backward), QLatin1String(second)) << order;
    EXPECT_EQ(Found("pages = 25", 1, SearchDirection::Backward), QLatin1String(first)) << order;
  }
}

TEST_P(Searches, ATextThatIsNoNumberIsNotComparedWithANumber) {
  EXPECT_EQ(FailureOf([&] { Found("pages = 'ten'"); }).Kind(), DataErrorKind::Conversion);
  EXPECT_EQ(FailureOf([&] { Filtered("pages > 'ten'"); }).Kind(), DataErrorKind::Conversion);
  EXPECT_EQ(records_->Filter(), QString());
  EXPECT_EQ(Filtered("pages > '10'"), Of("2 5"));
}

TEST_P(Searches, ATextInAColumnOfNumbersIsNoNumber) {
  if (!OnSqlite()) GTEST_SKIP() << "only SQLite keeps a text in a column of numbers";
  Meanwhile(u"UPDATE files SET pages = 'none' WHERE id = 3"_s);
  records_ = Open();
  EXPECT_EQ(Found("pages = 0"), u"EOF"_s);
  EXPECT_EQ(Filtered("pages < 5"), QStringList());
  EXPECT_EQ(Filtered("pages < 15"), Of("1"));
}

TEST_P(Searches, AFindTakesOneConditionOnly) {
  EXPECT_EQ(FailureOf([&] { Found("pages = 25 And id = 2"); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(records_->AbsolutePosition(), 1);
}

TEST_P(Searches, AFilterOfBracketsWithoutEndIsRefused) {
  const auto refusal = [&](const QString& text) { return FailureOf([&] { records_->SetFilter(text); }).Kind(); };
  EXPECT_EQ(refusal(QString(100'000, u'(') + u"pages < 15"_s), DataErrorKind::Usage);
  EXPECT_EQ(refusal(QStringList(40, u"(pages = 1 Or pages = 2)"_s).join(u" And "_s)), DataErrorKind::Usage);
  records_->SetFilter(QString(150, u'(') + u"pages < 15"_s + QString(150, u')'));
  EXPECT_EQ(Ids(), Of("1 3"));
}

TEST_P(Searches, AFilterComparesByEverySign) {
  EXPECT_EQ(Filtered("pages = 25"), Of("2 5"));
  EXPECT_EQ(Filtered("pages <> 25"), Of("1 3"));
  EXPECT_EQ(Filtered("pages >= 10"), Of("1 2 5"));
  EXPECT_EQ(Filtered("pages > 10"), Of("2 5"));
  EXPECT_EQ(Filtered("pages <= 10"), Of("1 3"));
  EXPECT_EQ(Filtered("pages < 10"), Of("3"));
}

TEST_P(Searches, AFilterComparesTextWithoutRegardToCase) {
  EXPECT_EQ(Filtered("code = 'A-003'"), Of("5"));
  EXPECT_EQ(Filtered("code >= 'A-002' And code < 'b-002'"), Of("2 3 5"));
}

TEST_P(Searches, AFilterWithLikeTakesStarAndPercent) {
  EXPECT_EQ(Filtered("code Like 'A*'"), Of("1 2 5"));
  EXPECT_EQ(Filtered("code Like 'a-%'"), Of("1 2 5"));
  EXPECT_EQ(Filtered("title Like '%报表%'"), Of("4"));
  EXPECT_EQ(Filtered("code Like '*2'"), Of("2 4"));
}

TEST_P(Searches, AFilterJoinsConditionsByAndAndOr) {
  EXPECT_EQ(Filtered("code Like 'A%' And pages = 25"), Of("2 5"));
  EXPECT_EQ(Filtered("id = 1 Or id = 4"), Of("1 4"));
  EXPECT_EQ(Filtered("(id = 1 And pages = 10) Or (id = 2 And pages = 25)"), Of("1 2"));
}

TEST_P(Searches, AFilterKnowsNullQuotesAndDates) {
  EXPECT_EQ(Filtered("pages = Null"), Of("4"));
  EXPECT_EQ(Filtered("pages <> Null"), Of("1 2 3 5"));
  EXPECT_EQ(Filtered("remark = ''"), Of("3"));
  EXPECT_EQ(Filtered("remark = 'it''s'"), Of("4"));
  EXPECT_EQ(Filtered("filed >= #2002-03-04# And filed <= #2002-03-05#"), Of("1 2"));
  EXPECT_EQ(Filtered("filed = '2002-03-04'"), Of("1"));
}

TEST_P(Searches, AStarInAFilterTriesEveryPlaceForWhatFollows) {
  const QString all = Filtered("code Like '*'").join(u' ');
  EXPECT_EQ(Filtered("code Like '*-0*1'"), Of("1 3"));
  EXPECT_EQ(Filtered("code Like '*-*0*'").join(u' '), all);
  // "-0" is there, "1" is there, yet not one behind the other.
  EXPECT_EQ(Filtered("code Like '*-01'"), QStringList());
}

TEST_P(Searches, AFilterStandsOnTheFirstRowItShows) {
  records_->MoveLast();
  records_->SetFilter(u"code Like 'B*'"_s);
  EXPECT_EQ(records_->RecordCount(), 2);
  EXPECT_EQ(records_->AbsolutePosition(), 1);
  EXPECT_EQ((*records_)[u"code"_s].Text(), u"B-001"_s);
  EXPECT_EQ(records_->Filter(), u"code Like 'B*'"_s);
}

TEST_P(Searches, AFilterThatMeetsNothingShowsAnEmptyRecordSet) {
  records_->SetFilter(u"id = 99"_s);
  EXPECT_EQ(records_->RecordCount(), 0);
  EXPECT_TRUE(records_->BOF() && records_->EOF_());
  records_->SetFilter(QString());
  EXPECT_EQ(records_->RecordCount(), 5);
  EXPECT_EQ(records_->AbsolutePosition(), 1);
}

TEST_P(Searches, AFilterThatCannotBeReadLeavesTheOldOne) {
  records_->SetFilter(u"pages = 25"_s);
  for (const char* wrong : {"nothing = 1", "pages =", "pages = 25 And", "= 3", "pages = 'x", "(pages = 1"})
    EXPECT_EQ(FailureOf([&] { records_->SetFilter(QString::fromUtf8(wrong)); }).Kind(), DataErrorKind::Usage) << wrong;
  EXPECT_EQ(records_->Filter(), u"pages = 25"_s);
  EXPECT_EQ(Ids(), Of("2 5"));
}

TEST_P(Searches, ASortOrdersByNumbersTextsAndDates) {
  EXPECT_EQ(Sorted("pages Desc, id Desc"), Of("5 2 1 3 4"));
  EXPECT_EQ(Sorted("code"), Of("1 2 5 3 4"));
  EXPECT_EQ(Sorted("code Desc"), Of("4 3 5 2 1"));
  EXPECT_EQ(Sorted("filed Asc"), Of("3 4 1 2 5"));
  EXPECT_EQ(Sorted(""), Of("1 2 3 4 5"));
}

TEST_P(Searches, ASortPutsNullBeforeEverythingAndKeepsTheOrderOfEquals) {
  EXPECT_EQ(Sorted("pages"), Of("4 3 1 2 5"));
  EXPECT_EQ(Sorted("remark").first(), u"2"_s);
}

TEST_P(Searches, ASortAndAFilterHoldTogether) {
  records_->SetFilter(u"code Like 'A%'"_s);
  EXPECT_EQ(Sorted("id Desc"), Of("5 2 1"));
  records_->SetFilter(QString());
  EXPECT_EQ(Ids(), Of("5 4 3 2 1"));
}

TEST_P(Searches, ASortByAFieldThatIsNotThereIsRefusedAndTheOrderStays) {
  records_->SetSort(u"id Desc"_s);
  EXPECT_EQ(FailureOf([&] { records_->SetSort(u"nothing"_s); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(records_->Sort(), u"id Desc"_s);
  EXPECT_EQ(Ids(), Of("5 4 3 2 1"));
}

}  // namespace

}  // namespace folvane::test
