// Large tables whose rows go, or whose database goes, between two looks.
#include <QTemporaryDir>

#include "data/KeysetSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;

class KeysetsMeanwhile : public KeysetSuite {
 protected:
  void SetUp() override {
    KeysetSuite::SetUp();
    records_ = Open();
  }
  QString Text(const QString& field) { return (*records_)[field].Text(); }
  DataErrorKind KindOf(const std::function<void()>& work) { return FailureOf(work).Kind(); }

  std::unique_ptr<Recordset> records_;
};
FOLVANE_ON_EACH_DATABASE(KeysetsMeanwhile);

TEST_P(KeysetsMeanwhile, ARowThatIsGoneStandsAsDeletedInItsPlace) {
  Meanwhile(u"DELETE FROM papers WHERE id = 500"_s);
  records_->SetAbsolutePosition(500);
  EXPECT_EQ(Text(u"id"_s), u"500"_s);
  EXPECT_EQ(Text(u"title"_s), QString());
  EXPECT_EQ(records_->EditMode(), EditModeKind::Delete);
  EXPECT_EQ(records_->RecordCount(), kPapers);
  EXPECT_EQ(records_->AbsolutePosition(), 500);
  records_->SetAbsolutePosition(501);
  EXPECT_EQ(Text(u"title"_s), u"文件 501"_s);
  EXPECT_EQ(records_->EditMode(), EditModeKind::None);
}

TEST_P(KeysetsMeanwhile, NothingTakesARowThatIsGoneForOneThatIsThere) {
  Meanwhile(u"DELETE FROM papers WHERE id = 500"_s);
  records_->Find(u"id = 500"_s);
  ASSERT_EQ(records_->AbsolutePosition(), 500);
  EXPECT_EQ(FailureOf([&] { records_->Bookmark(); }).Message(), u"该记录已被其他用户删除。"_s);
  EXPECT_EQ(KindOf([&] { (*records_)[u"note"_s].SetValue(u"mine"_s); }), DataErrorKind::Conflict);
  EXPECT_EQ(KindOf([&] { records_->Delete(); }), DataErrorKind::Conflict);
  EXPECT_EQ(KindOf([&] { records_->Resync(); }), DataErrorKind::Conflict);
  EXPECT_EQ(records_->PendingCount(), 0);
  EXPECT_EQ(Database().Value(u"SELECT count(*) FROM papers"_s), u"999"_s);
}

// A search that found nothing would leave a command to take the first row for it.
TEST_P(KeysetsMeanwhile, ASearchByKeyFindsARowThatIsKnownToBeGone) {
  Meanwhile(u"DELETE FROM papers WHERE id = 500"_s);
  records_->SetAbsolutePosition(500);
  EXPECT_EQ(Text(u"title"_s), QString());
  for (const int id : {900, 100, 700, 500}) {
    records_->MoveFirst();
    records_->Find(u"id = %1"_s.arg(id));
    EXPECT_EQ(records_->AbsolutePosition(), id);
    Text(u"title"_s);
  }
  EXPECT_EQ(records_->EditMode(), EditModeKind::Delete);
}

TEST_P(KeysetsMeanwhile, StepsPassOverRowsThatAreGone) {
  Meanwhile(u"DELETE FROM papers WHERE id BETWEEN 200 AND 399 OR id > 990"_s);
  records_->SetAbsolutePosition(199);
  records_->MoveNext();
  EXPECT_EQ(records_->AbsolutePosition(), 400);
  records_->MovePrevious();
  EXPECT_EQ(Text(u"id"_s), u"199"_s);
  records_->MoveLast();
  EXPECT_EQ(Text(u"id"_s), u"990"_s);
  records_->MoveNext();
  EXPECT_TRUE(records_->EOF_());
  EXPECT_EQ(Texts(*records_, u"id"_s).size(), 790);
}

TEST_P(KeysetsMeanwhile, NothingIsLeftToStandOnWhereAllRowsAreGone) {
  records_->SetSort(u"id Desc"_s);
  Meanwhile(u"DELETE FROM papers WHERE id > 64"_s);
  records_->MoveFirst();
  EXPECT_EQ(Text(u"id"_s), u"64"_s);
  records_->MovePrevious();
  EXPECT_TRUE(records_->BOF());
}

TEST_P(KeysetsMeanwhile, AMoveByANumberLandsOnItsRowEvenWhereThatIsGone) {
  Meanwhile(u"DELETE FROM papers WHERE id = 500"_s);
  records_->Move(499, MoveFrom::First);
  EXPECT_EQ(records_->AbsolutePosition(), 500);
  EXPECT_EQ(KindOf([&] { records_->Bookmark(); }), DataErrorKind::Conflict);
}

TEST_P(KeysetsMeanwhile, FiltersAndSortsLeaveOutRowsThatAreGone) {
  Meanwhile(u"DELETE FROM papers WHERE id = 500"_s);
  records_->SetFilter(u"year = 2000"_s);
  EXPECT_EQ(records_->RecordCount(), 99);
  records_->SetFilter({});
  EXPECT_EQ(records_->RecordCount(), 999);
  records_->SetSort(u"title"_s);
  EXPECT_EQ(records_->RecordCount(), 999);
  records_->SetSort({});
  records_->SetFilter(u"id = 500"_s);
  EXPECT_EQ(records_->RecordCount(), 0);
}

TEST_P(KeysetsMeanwhile, ARowThatTheConditionLeavesOutByNowIsStillThere) {
  const auto records = Open(u"Select * From papers Where year = 2004 Order By id"_s);
  Meanwhile(u"UPDATE papers SET year = 1999 WHERE id = 904"_s);
  records->SetFilter(u"note = 'n904' Or note = 'n984'"_s);
  EXPECT_EQ(Texts(*records, u"year"_s), (QStringList{u"1999"_s, u"2004"_s}));
}

TEST_P(KeysetsMeanwhile, AFileHasTheRowsThatAreLeft) {
  Meanwhile(u"DELETE FROM papers WHERE id = 500"_s);
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"papers.Dat"_s);
  records_->Save(path);
  Recordset saved;
  saved.OpenFile(path);
  EXPECT_EQ(saved.RecordCount(), 999);
  saved.SetAbsolutePosition(500);
  EXPECT_EQ(saved[u"note"_s].Text(), u"n501"_s);
}

TEST_P(KeysetsMeanwhile, ARowThatWasReadStaysThoughItGoes) {
  records_->SetAbsolutePosition(500);
  EXPECT_EQ(Text(u"note"_s), u"n500"_s);
  Meanwhile(u"DELETE FROM papers WHERE id = 500"_s);
  records_->SetAbsolutePosition(1);
  records_->SetAbsolutePosition(500);
  EXPECT_EQ(Text(u"note"_s), u"n500"_s);
  (*records_)[u"note"_s].SetValue(u"mine"_s);
  EXPECT_EQ(KindOf([&] { records_->UpdateBatch(); }), DataErrorKind::Conflict);
}

TEST_P(KeysetsMeanwhile, AnErrorBetweenTwoPagesLeavesThePositionAndTheNextTryGoesOn) {
  records_->SetAbsolutePosition(1);
  for (int i = 1; i < 64; ++i) records_->MoveNext();
  Meanwhile(u"ALTER TABLE papers RENAME TO elsewhere"_s);
  EXPECT_EQ(KindOf([&] { records_->MoveNext(); }), DataErrorKind::Statement);
  EXPECT_EQ(records_->AbsolutePosition(), 64);
  EXPECT_EQ(Text(u"note"_s), u"n64"_s);
  EXPECT_EQ(KindOf([&] { records_->SetFilter(u"year = 2004"_s); }), DataErrorKind::Statement);
  EXPECT_EQ(records_->Filter(), QString());
  EXPECT_EQ(records_->RecordCount(), kPapers);
  Meanwhile(u"ALTER TABLE elsewhere RENAME TO papers"_s);
  records_->MoveNext();
  EXPECT_EQ(Text(u"note"_s), u"n65"_s);
}

TEST_P(KeysetsMeanwhile, ALostDatabaseIsToldAndWhatWasReadIsKept) {
  records_->SetAbsolutePosition(40);
  TakeDatabaseAway();
  EXPECT_EQ(Text(u"note"_s), u"n40"_s);
  records_->SetAbsolutePosition(700);
  EXPECT_EQ(KindOf([&] { Text(u"note"_s); }), DataErrorKind::Lost);
  EXPECT_EQ(KindOf([&] { (*records_)[u"note"_s].SetValue(u"mine"_s); }), DataErrorKind::Lost);
  EXPECT_EQ(records_->TextAt(800, 4), QString());
  EXPECT_EQ(records_->TextAt(40, 4), u"n40"_s);
  EXPECT_EQ(records_->RecordCount(), kPapers);
  EXPECT_EQ(records_->PendingCount(), 0);
}

}  // namespace

}  // namespace folvane::test
