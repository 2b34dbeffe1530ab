#include <gmock/gmock.h>

#include "bulk/FindReplace.h"
#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

const auto kGoOn = [](qint64, qint64) { return true; };

/// A table Lwdj of a title and a unit, and the records of it in the shared record set.
class FindReplaceTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddTable(u"Lwdj"_s, u"来文登记"_s, 2,
                      {{u"Amaintitle"_s, u"题名"_s, u"文本型"_s}, {u"Unit"_s, u"单位"_s, u"文本型"_s}});
    search_ = std::make_unique<FindReplace>(Connected(), u"Lwdj"_s);
  }

  /// Adds a record per title with the unit "局" and its number.
  Recordset& WithTitles(const QStringList& titles) {
    for (int at = 0; at < titles.size(); ++at) {
      design_->Insert(u"Lwdj"_s, u"ArchiveID,Amaintitle,Unit"_s,
                      {DesignedDatabase::Key(at + 1), titles[at], u"局%1"_s.arg(at + 1)});
    }
    Shared().CurrentRecords.Open(u"Select * From Lwdj Order By ArchiveID"_s, Connected());
    log_->Take();
    return Shared().CurrentRecords;
  }
  QStringList Rows() {
    QStringList rows;
    for (const QStringList& row : Database().Rows(u"select Amaintitle,Unit from Lwdj order by ArchiveID"_s))
      rows << row.join(u'|');
    return rows;
  }
  bool HitIs(const SearchTerms& terms) {
    bool found = false;
    search_->SetTerms(terms);
    search_->FindInRecord(Shared().CurrentRecords, false, found);
    return found;
  }
  /// The position of the next hit, 0 when there is none.
  qint64 Next(const SearchTerms& terms, SearchWay way) {
    search_->SetTerms(terms);
    return search_->FindNext(Shared().CurrentRecords, way, kGoOn) ? Shared().CurrentRecords.AbsolutePosition() : 0;
  }
  qint64 ReplaceAll(const SearchTerms& terms, SearchWay way = SearchWay::All) {
    search_->SetTerms(terms);
    return search_->ReplaceAll(Shared().CurrentRecords, way, kGoOn);
  }

  static SearchTerms In(const QString& caption, const QString& find, const QString& replace = {}) {
    return {find, replace, false, caption, true};
  }
  static SearchTerms Whole(const QString& find) { return {find, {}, true, {}, false}; }

  std::unique_ptr<FindReplace> search_;
};

FOLVANE_ON_EACH_DATABASE(FindReplaceTest);

// What is a hit.

TEST_P(FindReplaceTest, WholeWordsHitOnlyWhatStandsBetweenStars) {
  WithTitles({u"abc"_s, u"*abc*"_s});
  EXPECT_FALSE(HitIs(Whole(u"abc"_s)));
  Shared().CurrentRecords.MoveNext();
  EXPECT_TRUE(HitIs(Whole(u"abc"_s)));
  EXPECT_FALSE(HitIs(Whole(u"ABC"_s)));
}

TEST_P(FindReplaceTest, ALikeMatchHitsAnywhereAndTheWholeFieldIsOverwritten) {
  WithTitles({u"xaby"_s});
  EXPECT_TRUE(HitIs({u"ab"_s}));
  EXPECT_FALSE(HitIs({u"AB"_s}));
  EXPECT_EQ(ReplaceAll(In(u"题名"_s, u"ab"_s, u"Z"_s)), 1);
  EXPECT_EQ(Rows(), QStringList{u"Z|局1"_s});
}

TEST_P(FindReplaceTest, ThePatternsSignsAreInForce) {
  WithTitles({u"文件2002号"_s});
  for (const QString& find : {u"文?2"_s, u"####"_s, u"[一-龥]件"_s, u"文*号"_s, QString()}) EXPECT_TRUE(HitIs({find}));
  EXPECT_FALSE(HitIs({u"#####"_s}));
}

TEST_P(FindReplaceTest, AllFieldsNeverTestTheFirstField) {
  WithTitles({u"a"_s});
  EXPECT_FALSE(HitIs({DesignedDatabase::Key(1)}));
  EXPECT_TRUE(HitIs({u"局1"_s}));
}

TEST_P(FindReplaceTest, OneFieldIsTheOneOfTheCaption) {
  WithTitles({u"a"_s});
  log_->Take();
  EXPECT_TRUE(HitIs(In(u"单位"_s, u"局"_s)));
  EXPECT_EQ(log_->Take().front(),
            u"Select FieldName from DynamicWindows Where ChnFieldName='单位' And TableName='Lwdj'"_s);
  EXPECT_FALSE(HitIs(In(u"题名"_s, u"局"_s)));
}

TEST_P(FindReplaceTest, NullsAreNoHits) {
  WithTitles({u"<null>"_s});
  EXPECT_FALSE(HitIs(In(u"题名"_s, {})));
}

TEST_P(FindReplaceTest, ACaptionWithoutAFieldAndATextThatIsNoPatternHaveNoHits) {
  WithTitles({u"a[b"_s});
  EXPECT_FALSE(HitIs(In(u"没有"_s, u"a"_s)));
  EXPECT_FALSE(HitIs(In({}, u"a"_s)));
  EXPECT_FALSE(HitIs(In(u"it's"_s, u"a"_s)));
  EXPECT_FALSE(HitIs({u"a[b"_s}));
  EXPECT_TRUE(HitIs({u"a[[]b"_s}));
}

// The control of a hit.

TEST_P(FindReplaceTest, TheControlOfTheHitFieldIsLookedUp) {
  WithTitles({u"a"_s});
  log_->Take();
  HitIs({u"局"_s});
  EXPECT_EQ(search_->HitControl(), (ControlId{1, 2}));
  EXPECT_THAT(log_->Take().last().toLower(),
              u"select controltype,controlindex from savecontrols where datafield='unit' and datasource='lwdj'"_s);
}

TEST_P(FindReplaceTest, AHitInAFieldWithoutAControlKeepsThatOfTheLastLookUp) {
  WithTitles({u"a"_s});
  design_->Run(u"delete from SaveControls where DataField = 'Unit'"_s);
  HitIs({u"a"_s});
  EXPECT_EQ(search_->HitControl(), (ControlId{1, 1}));
  EXPECT_TRUE(HitIs(In(u"单位"_s, u"局"_s)));
  EXPECT_EQ(search_->HitControl(), (ControlId{1, 1}));
}

// The ways.

TEST_P(FindReplaceTest, TheCurrentRowIsTestedFirstSoASecondSearchStopsAtTheSameRow) {
  Recordset& records = WithTitles({u"x"_s, u"a"_s, u"x"_s, u"a"_s});
  for (const SearchWay way : {SearchWay::Down, SearchWay::Down, SearchWay::Up, SearchWay::All})
    EXPECT_EQ(Next(In(u"题名"_s, u"a"_s), way), 2);
  records.MoveNext();
  EXPECT_EQ(Next(In(u"题名"_s, u"a"_s), SearchWay::Down), 4);
  EXPECT_EQ(records.AbsolutePosition(), 4);
  records.MovePrevious();
  EXPECT_EQ(Next(In(u"题名"_s, u"a"_s), SearchWay::Up), 2);
  records.MoveLast();
  EXPECT_EQ(Next(In(u"题名"_s, u"a"_s), SearchWay::All), 2);
}

TEST_P(FindReplaceTest, WithoutAHitThePositionStays) {
  Recordset& records = WithTitles({u"x"_s, u"x"_s, u"x"_s});
  records.SetAbsolutePosition(2);
  for (const SearchWay way : {SearchWay::All, SearchWay::Up, SearchWay::Down}) {
    EXPECT_EQ(Next({u"a"_s}, way), 0);
    EXPECT_EQ(records.AbsolutePosition(), 2);
  }
}

TEST_P(FindReplaceTest, AnEmptyListHasNoHits) {
  WithTitles({});
  for (const SearchWay way : {SearchWay::All, SearchWay::Up, SearchWay::Down}) {
    EXPECT_EQ(Next({u""_s}, way), 0);
    EXPECT_EQ(ReplaceAll({u""_s, u"b"_s}, way), 0);
  }
}

TEST_P(FindReplaceTest, AStopReturnsToWhereTheSearchBegan) {
  Recordset& records = WithTitles({u"x"_s, u"x"_s, u"a"_s});
  records.SetAbsolutePosition(2);
  search_->SetTerms({u"a"_s});
  EXPECT_FALSE(search_->FindNext(records, SearchWay::All, [](qint64 done, qint64) { return done < 2; }));
  EXPECT_EQ(records.AbsolutePosition(), 2);
}

// Replacing.

TEST_P(FindReplaceTest, AllHitsInARowAreOverwrittenByKeyInTheTableAndNotInTheRecordSet) {
  Recordset& records = WithTitles({u"局"_s});
  bool found = false;
  search_->SetTerms({u"局"_s, u"处[1]"_s});
  search_->FindInRecord(records, true, found);
  EXPECT_TRUE(found);
  EXPECT_EQ(Rows(), QStringList{u"处[1]|处[1]"_s});
  EXPECT_EQ(records[u"Unit"_s].Text(), u"局1"_s);
  QStringList statements = log_->Take();
  for (QString& statement : statements) statement = statement.toLower();
  EXPECT_THAT(statements, ElementsAre(u"update lwdj set amaintitle='处[1]' where archiveid='00000000000000000001'"_s,
                                      u"update lwdj set unit='处[1]' where archiveid='00000000000000000001'"_s));
}

TEST_P(FindReplaceTest, ReplaceAllGoesToTheEndOfItsWayAndStaysWhereItIs) {
  for (const auto& [way, rows] : {std::pair(SearchWay::All, QStringList{u"b"_s, u"b"_s, u"b"_s}),
                                  {SearchWay::Up, {u"b"_s, u"b"_s, u"a"_s}},
                                  {SearchWay::Down, {u"a"_s, u"b"_s, u"b"_s}}}) {
    if (Shared().CurrentRecords.IsOpen()) Shared().CurrentRecords.Close();
    design_->Run(u"delete from Lwdj"_s);
    Recordset& records = WithTitles({u"a"_s, u"a"_s, u"a"_s});
    records.SetAbsolutePosition(2);
    EXPECT_EQ(ReplaceAll(In(u"题名"_s, u"a"_s, u"b"_s), way), rows.count(u"b"_s));
    EXPECT_EQ(records.AbsolutePosition(), 2);
    for (int at = 0; at < 3; ++at) EXPECT_EQ(Rows()[at].section(u'|', 0, 0), rows[at]);
  }
}

TEST_P(FindReplaceTest, AQuoteInTheReplacementBreaksTheStatementsQuietly) {
  WithTitles({u"a"_s, u"a"_s});
  EXPECT_EQ(ReplaceAll(In(u"题名"_s, u"a"_s, u"it's"_s)), 0);
  EXPECT_EQ(Rows(), (QStringList{u"a|局1"_s, u"a|局2"_s}));
  EXPECT_EQ(search_->Refused().count, 2);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(FindReplaceTest, ARowThatTheDatabaseRefusesDoesNotTakeBackTheOthers) {
  design_->Run(u"create unique index OneUnit on Lwdj (Unit)"_s);
  WithTitles({u"a"_s, u"a"_s, u"a"_s});
  EXPECT_EQ(ReplaceAll(In(u"单位"_s, u"局"_s, u"处"_s)), 1);
  EXPECT_EQ(Rows(), (QStringList{u"a|处"_s, u"a|局2"_s, u"a|局3"_s}));
  EXPECT_EQ(search_->Refused().count, 2);
  EXPECT_THAT(search_->Refused().reason.toStdString(), testing::HasSubstr("单位"));
  search_->SetTerms({});
  EXPECT_EQ(search_->Refused().count, 0);
}

TEST_P(FindReplaceTest, ReplacesWithinTheHostsTransaction) {
  WithTitles({u"a"_s});
  {
    const Transaction hosts(*Connected());
    EXPECT_EQ(ReplaceAll(In(u"题名"_s, u"a"_s, u"b"_s)), 1);
  }
  EXPECT_EQ(Rows(), QStringList{u"a|局1"_s});
}

TEST_P(FindReplaceTest, ReplacesEveryHitOfMoreThanAPortion) {
  QStringList titles;
  for (int at = 0; at < 1101; ++at) titles << (at % 2 == 0 ? u"a"_s : u"x"_s);
  WithTitles(titles);
  EXPECT_EQ(ReplaceAll(In(u"题名"_s, u"a"_s, u"b"_s)), 551);
  EXPECT_EQ(Database().Value(u"select count(*) from Lwdj where Amaintitle = 'b'"_s), u"551"_s);
}

TEST_P(FindReplaceTest, WhatSomeoneDeletedMeanwhileIsNotCountedAsReplaced) {
  WithTitles({u"a"_s, u"a"_s, u"a"_s});
  design_->Run(u"delete from Lwdj where ArchiveID = '"_s + DesignedDatabase::Key(2) + u"'"_s);
  EXPECT_EQ(ReplaceAll(In(u"题名"_s, u"a"_s, u"b"_s)), 2);
  EXPECT_EQ(search_->Refused().count, 1);
  EXPECT_EQ(search_->Refused().reason, u"该记录已被其他用户删除。"_s);
  EXPECT_EQ(Rows(), (QStringList{u"b|局1"_s, u"b|局3"_s}));
}

TEST_P(FindReplaceTest, ACountBesideItDoesNotBeginItAgain) {
  Recordset& records = WithTitles({u"a"_s, u"a"_s, u"x"_s});
  search_->SetTerms(In(u"题名"_s, u"a"_s, u"b"_s));
  int portions = 0;
  const qint64 replaced = search_->ReplaceAll(records, SearchWay::All, [&](qint64, qint64) {
    HitCount hits;
    hits.Begin(records, RecordSearch(In(u"题名"_s, u"a"_s), u"Amaintitle"_s), SearchWay::All);
    while (hits.GoOn(records)) continue;
    return ++portions < 5;
  });
  EXPECT_EQ(replaced, 2);
  EXPECT_EQ(portions, 1);
}

// The number of hits.

TEST_P(FindReplaceTest, TheHitsOfAWayAreCountedAPortionAtATimeWithoutMoving) {
  QStringList titles;
  for (int at = 0; at < 2500; ++at) titles << (at % 2 == 0 ? u"a"_s : u"x"_s);
  Recordset& records = WithTitles(titles);
  records.SetAbsolutePosition(2001);
  HitCount hits;
  hits.Begin(records, RecordSearch(In(u"题名"_s, u"a"_s), u"Amaintitle"_s), SearchWay::All);
  EXPECT_TRUE(hits.GoOn(records));
  EXPECT_EQ(hits.Count(), 500);
  while (hits.GoOn(records)) EXPECT_EQ(records.AbsolutePosition(), 2001);
  EXPECT_EQ(hits.Count(), 1250);
  hits.Begin(records, RecordSearch(In(u"题名"_s, u"a"_s), u"Amaintitle"_s), SearchWay::Down);
  EXPECT_FALSE(hits.GoOn(records));
  EXPECT_EQ(hits.Count(), 250);
}

TEST_P(FindReplaceTest, NothingIsCountedWhileARecordIsEdited) {
  Recordset& records = WithTitles({u"a"_s});
  records[u"Amaintitle"_s].SetValue(u"b"_s);
  HitCount hits;
  hits.Begin(records, RecordSearch({u"b"_s}, {}), SearchWay::All);
  EXPECT_FALSE(hits.GoOn(records));
  EXPECT_EQ(records.EditMode(), EditModeKind::InProgress);
}

}  // namespace
}  // namespace folvane::test
