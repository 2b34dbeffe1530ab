// Large tables, whose rows are read when they are looked at.
#include <gmock/gmock.h>

#include "data/KeysetSuite.h"

namespace folvane::test {

namespace {
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

class Keysets : public KeysetSuite {
 protected:
  /// The text of a field in the row at a position.
  static QString At(Recordset& records, qint64 position, const QString& field) {
    records.SetAbsolutePosition(position);
    return records[field].Text();
  }
};
FOLVANE_ON_EACH_DATABASE(Keysets);

TEST_P(Keysets, GiveTheRowsAndColumnsThatAWholeReadingGives) {
  const auto records = Open(u"Select * From papers Where year <> 2005 Order By year Desc, id"_s);
  RowReading::Border() = {kPapers, kPapers};
  const auto whole = Open(records->Source());
  DatabaseSession::Of(*Connected()).RefreshSchema();
  RowReading::Border() = {0, 0};
  ASSERT_EQ(records->RecordCount(), 900);
  ASSERT_EQ(whole->RecordCount(), 900);
  for (int i = 0; i < whole->Fields().Count(); ++i) {
    EXPECT_EQ(records->Fields().Item(i).Name(), whole->Fields().Item(i).Name());
    EXPECT_EQ(records->Fields().Item(i).Type(), whole->Fields().Item(i).Type());
    EXPECT_EQ(records->Fields().Item(i).DefinedSize(), whole->Fields().Item(i).DefinedSize());
    EXPECT_EQ(Texts(*records, whole->Fields().Item(i).Name()), Texts(*whole, whole->Fields().Item(i).Name()));
  }
}

TEST_P(Keysets, ReadARowWhenItIsLookedAtForTheFirstTime) {
  const auto records = Open();
  Meanwhile(u"UPDATE papers SET note = 'changed'"_s);
  EXPECT_EQ(At(*records, 1, u"note"_s), u"n1"_s);
  EXPECT_EQ(At(*records, 500, u"note"_s), u"changed"_s);
}

TEST_P(Keysets, KeepARowAsItWasWhenItWasReadHoweverFarTheyMoved) {
  const auto records = Open();
  EXPECT_EQ(At(*records, 500, u"note"_s), u"n500"_s);
  Meanwhile(u"UPDATE papers SET note = 'changed'"_s);
  EXPECT_EQ(At(*records, 1000, u"note"_s), u"changed"_s);
  EXPECT_EQ(At(*records, 500, u"note"_s), u"n500"_s);
}

TEST_P(Keysets, ShowRowsThatWereAddedMeanwhileWithTheNextRequery) {
  const auto records = Open();
  Meanwhile(u"INSERT INTO papers (id, number) VALUES (1001, 'new')"_s);
  EXPECT_EQ(records->RecordCount(), kPapers);
  records->Requery();
  EXPECT_EQ(records->RecordCount(), kPapers + 1);
  EXPECT_EQ(At(*records, 1001, u"number"_s), u"new"_s);
}

TEST_P(Keysets, TellTheObserverTheStatementAndNothingElse) {
  QStringList told;
  Connected()->OnStatement([&](const QString& statement) { told << statement; });
  const auto records = Open();
  EXPECT_EQ(Texts(*records, u"note"_s).size(), kPapers);
  records->SetFilter(u"title Like '*7' And year = 2007"_s);
  records->SetSort(u"note Desc"_s);
  records->Find(u"note = 'n17'"_s);
  EXPECT_EQ((*records)[u"id"_s].Text(), u"17"_s);
  Connected()->OnStatement({});
  EXPECT_THAT(told, ElementsAre(u"Select * From papers Order By id"_s));
}

TEST_P(Keysets, FindAKeyWithoutTheDatabase) {
  const auto records = Open();
  Meanwhile(u"DROP TABLE papers"_s);
  records->Find(u"id = 900"_s);
  EXPECT_EQ(records->AbsolutePosition(), 900);
  EXPECT_EQ((*records)[u"id"_s].Text(), u"900"_s);
  records->Find(u"id = 12"_s, 0, SearchDirection::Backward);
  EXPECT_EQ(records->AbsolutePosition(), 12);
  records->Find(u"id = 5000"_s);
  EXPECT_TRUE(records->EOF_());
}

TEST_P(Keysets, FindAValueInAColumn) {
  const auto records = Open();
  records->Find(u"note = 'N731'"_s);
  EXPECT_EQ(records->AbsolutePosition(), 731);
  records->Find(u"title Like '*99'"_s);
  EXPECT_EQ(records->AbsolutePosition(), 799);
  records->Find(u"title Like '*99'"_s, 1, SearchDirection::Backward);
  EXPECT_EQ(records->AbsolutePosition(), 699);
  records->Find(u"year > 2009"_s);
  EXPECT_TRUE(records->EOF_());
}

TEST_P(Keysets, FindTheNearestInAnotherOrder) {
  const auto records = Open();
  records->SetSort(u"year Desc, id"_s);
  records->Find(u"year = 2004"_s);
  EXPECT_EQ((*records)[u"id"_s].Text(), u"4"_s);
  records->Find(u"title Like '文件 90*'"_s);
  EXPECT_EQ((*records)[u"id"_s].Text(), u"904"_s);
}

TEST_P(Keysets, FilterByColumnsAndShowTheRowsInOrder) {
  const auto records = Open();
  records->SetFilter(u"year = 2003 And title Like '*3'"_s);
  EXPECT_EQ(records->RecordCount(), 100);
  EXPECT_EQ(Texts(*records, u"id"_s).mid(0, 3), (QStringList{u"3"_s, u"13"_s, u"23"_s}));
  records->SetFilter(u"number = 'P0815'"_s);
  EXPECT_EQ(Texts(*records, u"note"_s), QStringList{u"n815"_s});
  records->SetFilter({});
  EXPECT_EQ(records->RecordCount(), kPapers);
}

TEST_P(Keysets, FilterByWhatIsWaitingToBeWritten) {
  const auto records = Open();
  records->SetAbsolutePosition(700);
  (*records)[u"title"_s].SetValue(u"改过"_s);
  records->AddNew();
  (*records)[u"id"_s].SetValue(2000);
  (*records)[u"title"_s].SetValue(u"改过"_s);
  records->Update();
  records->SetFilter(u"title = '改过'"_s);
  EXPECT_EQ(Texts(*records, u"id"_s), (QStringList{u"700"_s, u"2000"_s}));
  records->SetSort(u"id Desc"_s);
  EXPECT_EQ(Texts(*records, u"id"_s), (QStringList{u"2000"_s, u"700"_s}));
}

TEST_P(Keysets, SortByColumnsThatWereNotReadBefore) {
  const auto records = Open();
  records->SetSort(u"year Desc, title"_s);
  EXPECT_EQ(At(*records, 1, u"title"_s), u"文件 109"_s);
  EXPECT_EQ(At(*records, 1000, u"title"_s), u"文件 990"_s);
  EXPECT_EQ(Texts(*records, u"id"_s).size(), kPapers);
}

TEST_P(Keysets, WriteChangesOfRowsFarApart) {
  const auto records = Open();
  for (const int position : {3, 500, 997}) {
    records->SetAbsolutePosition(position);
    (*records)[u"note"_s].SetValue(u"mine"_s);
  }
  records->SetAbsolutePosition(600);
  records->Delete();
  records->UpdateBatch();
  EXPECT_EQ(Stored(500, u"note"_s), u"mine"_s);
  EXPECT_EQ(Stored(997, u"note"_s), u"mine"_s);
  EXPECT_EQ(Stored(600, u"note"_s), u"<no row>"_s);
  EXPECT_EQ(records->PendingCount(), 0);
}

TEST_P(Keysets, TakeTheValuesThatWereLookedAtForTheConflict) {
  const auto records = Open();
  records->SetAbsolutePosition(500);
  (*records)[u"note"_s].SetValue(u"mine"_s);
  Meanwhile(u"UPDATE papers SET note = 'theirs' WHERE id = 500"_s);
  EXPECT_EQ(FailureOf([&] { records->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
  EXPECT_EQ(Stored(500, u"note"_s), u"theirs"_s);
  EXPECT_EQ((*records)[u"note"_s].Text(), u"mine"_s);
  records->CancelBatch();
  EXPECT_EQ((*records)[u"note"_s].Text(), u"n500"_s);
}

TEST_P(Keysets, TakeWhatAWalkHasWrittenForWhatWasRead) {
  const auto records = Open();
  for (; !records->EOF_(); records->MoveNext()) {
    (*records)[u"note"_s].SetValue(u"mine "_s + (*records)[u"id"_s].Text());
    records->Update();
    if (records->PendingCount() == 100) records->UpdateBatch();
  }
  EXPECT_EQ(Database().Value(u"SELECT count(*) FROM papers WHERE note = 'mine ' || id"_s), u"1000"_s);
  EXPECT_EQ(At(*records, 500, u"note"_s), u"mine 500"_s);
  EXPECT_EQ((*records)[u"note"_s].OriginalValue().toString(), u"mine 500"_s);
  records->Find(u"note = 'mine 900'"_s);
  EXPECT_EQ(records->AbsolutePosition(), 900);
  Meanwhile(u"UPDATE papers SET note = 'theirs' WHERE id = 900"_s);
  (*records)[u"note"_s].SetValue(u"mine again"_s);
  EXPECT_EQ(FailureOf([&] { records->UpdateBatch(); }).Kind(), DataErrorKind::Conflict);
}

TEST_P(Keysets, KnowARowByTheKeyThatItWasGiven) {
  const auto records = Open();
  records->SetAbsolutePosition(500);
  (*records)[u"id"_s].SetValue(5000);
  records->UpdateBatch();
  EXPECT_EQ((*records)[u"id"_s].Text(), u"5000"_s);
  records->MoveFirst();
  records->Find(u"id = 5000"_s);
  EXPECT_EQ(records->AbsolutePosition(), 500);
  (*records)[u"note"_s].SetValue(u"mine"_s);
  records->UpdateBatch();
  EXPECT_EQ(Stored(5000, u"note"_s), u"mine"_s);
}

TEST_P(Keysets, HaveKeysOfSeveralColumns) {
  Meanwhile(u"CREATE TABLE lines (sheet varchar(10), line integer, words varchar(20), PRIMARY KEY (sheet, line))"_s);
  Meanwhile(u"INSERT INTO lines SELECT number, 1, 'a' || id FROM papers"_s);
  Meanwhile(u"INSERT INTO lines SELECT number, 2, 'b' || id FROM papers"_s);
  const auto records = Open(u"Select * From lines Order By sheet, line Desc"_s);
  ASSERT_EQ(records->RecordCount(), 2 * kPapers);
  EXPECT_EQ(At(*records, 1801, u"words"_s), u"b901"_s);
  EXPECT_EQ(At(*records, 1802, u"words"_s), u"a901"_s);
  records->SetFilter(u"words = 'b17' Or words = 'a950'"_s);
  EXPECT_EQ(Texts(*records, u"words"_s), (QStringList{u"b17"_s, u"a950"_s}));
}

TEST_P(Keysets, HaveKeysThatDifferInCaseAndBlanksOnly) {
  Meanwhile(u"CREATE TABLE names (name varchar(20) PRIMARY KEY, words varchar(20))"_s);
  Meanwhile(u"INSERT INTO names VALUES ('a', '1'), ('A', '2'), ('a ', '3'), ('卷 ''一''', '4'), ('', '5')"_s);
  const auto records = Open(u"Select * From names Order By words"_s);
  EXPECT_EQ(Texts(*records, u"words"_s).join(u' '), u"1 2 3 4 5"_s);
  Meanwhile(u"DELETE FROM names WHERE words > '2'"_s);
  const auto alike = Open(u"Select * From names Order By words"_s);
  EXPECT_EQ(Texts(*alike, u"words"_s).join(u' '), u"1 2"_s) << "nothing but the case parts them";
}

TEST_P(Keysets, LeaveOtherStatementsToBeReadWhole) {
  Meanwhile(u"CREATE TABLE loose (id integer, note text)"_s);
  Meanwhile(u"INSERT INTO loose SELECT id, note FROM papers"_s);
  for (const QString& source :
       {u"Select id, note From papers Order By id"_s, u"Select * From papers p Order By id"_s,
        u"Select * From papers Order By 1"_s, u"Select * From loose Order By id"_s,
        u"Select Top 1000 * From papers Order By id"_s, u"Select Distinct * From papers Order By id"_s,
        u"Select * From papers Union Select * From papers Order By id"_s,
        u"Select a.* From papers a, papers b Where a.id = b.id Order By a.id"_s}) {
    const auto records = Open(source);
    Meanwhile(u"UPDATE papers SET note = 'changed'"_s);
    Meanwhile(u"UPDATE loose SET note = 'changed'"_s);
    EXPECT_EQ(At(*records, 500, u"note"_s), u"n500"_s) << qPrintable(source);
    Meanwhile(u"UPDATE papers SET note = 'n' || id"_s);
    Meanwhile(u"UPDATE loose SET note = 'n' || id"_s);
  }
}

TEST_P(Keysets, LeaveTablesWhoseKeyIsNoExactValueToBeReadWhole) {
  for (const QString& type : {u"double precision"_s, u"numeric(9,2)"_s, u"date"_s}) {
    const QString key = type == u"date" ? u"'2001-01-' || substr('0' || id, length('0' || id) - 1)"_s : u"id + 0.5"_s;
    Meanwhile(u"CREATE TABLE rough (id %1 PRIMARY KEY, note text)"_s.arg(type));
    Meanwhile(u"INSERT INTO rough SELECT %1, note FROM papers WHERE id < 29"_s.arg(
        OnSqlite() ? key : u"CAST(%1 AS %2)"_s.arg(key, type)));
    const auto records = Open(u"Select * From rough Order By id"_s);
    Meanwhile(u"UPDATE rough SET note = 'changed'"_s);
    EXPECT_EQ(At(*records, 20, u"note"_s), u"n20"_s) << qPrintable(type);
    Meanwhile(u"DROP TABLE rough"_s);
  }
}

TEST_P(Keysets, LeaveSmallTablesAndSmallResultsToBeReadWhole) {
  RowReading::Border() = {500, 150};
  const auto few = Open(u"Select * From papers Where year = 2004"_s);
  const auto many = Open(u"Select * From papers Where year < 2004"_s);
  RowReading::Border() = {kPapers, 0};
  DatabaseSession::Of(*Connected()).RefreshSchema();
  const auto small = Open();
  Meanwhile(u"UPDATE papers SET note = 'changed'"_s);
  EXPECT_EQ(At(*few, 99, u"note"_s), u"n984"_s);
  EXPECT_EQ(At(*many, 399, u"note"_s), u"changed"_s);
  EXPECT_EQ(At(*small, 900, u"note"_s), u"n900"_s);
}

TEST_P(Keysets, NoticeThatASmallTableHasGrown) {
  RowReading::Border() = {kPapers, 0};
  Open();
  Meanwhile(u"INSERT INTO papers (id, note) VALUES (1001, 'n1001')"_s);
  Open();
  const auto records = Open();
  Meanwhile(u"UPDATE papers SET note = 'changed'"_s);
  EXPECT_EQ(At(*records, 900, u"note"_s), u"changed"_s);
}

TEST_P(Keysets, AreEmptyWhereTheStatementIs) {
  const auto records = Open(u"Select * From papers Where year = 1900 Order By id"_s);
  EXPECT_EQ(records->RecordCount(), 0);
  EXPECT_EQ(records->Fields().Count(), 5);
  EXPECT_TRUE(records->BOF());
}

}  // namespace

}  // namespace folvane::test
