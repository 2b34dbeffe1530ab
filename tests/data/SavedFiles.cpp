// Record sets saved to files and opened again.
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <gmock/gmock.h>

#include "base/FileUpdate.h"
#include "data/DataSuite.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class SavedFiles : public DataSuite {
 protected:
  /// Saves a record set and opens the file.
  std::unique_ptr<Recordset> Saved(const Recordset& records) {
    records.Save(Path());
    auto opened = std::make_unique<Recordset>();
    opened->OpenFile(Path());
    return opened;
  }
  QString Path() const { return folder_.filePath(u"records.Dat"_s); }
  QStringList FilesInFolder() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }

  QTemporaryDir folder_;
};
FOLVANE_ON_EACH_DATABASE(SavedFiles);

TEST_P(SavedFiles, HaveTheFieldsAndValuesOfTheRecordSet) {
  const auto records = Open();
  const auto opened = Saved(*records);
  ASSERT_EQ(opened->RecordCount(), 5);
  ASSERT_EQ(opened->Fields().Count(), records->Fields().Count());
  for (; !records->EOF_(); records->MoveNext(), opened->MoveNext()) {
    for (int i = 0; i < records->Fields().Count(); ++i) {
      const Field was = records->Fields().Item(i), is = opened->Fields().Item(i);
      EXPECT_EQ(is.Name(), was.Name());
      EXPECT_EQ(is.Type(), was.Type());
      EXPECT_EQ(is.DefinedSize(), was.DefinedSize());
      EXPECT_EQ(is.Value(), was.Value());
    }
  }
  EXPECT_EQ(opened->PendingCount(), 0);
}

TEST_P(SavedFiles, KeepEveryKindOfValue) {
  Database().Native(
      u"CREATE TABLE kinds (id integer PRIMARY KEY, small smallint, big bigint, amount numeric(12,3), ratio double "
      "precision, share real, flag boolean, day date, moment timestamp, hour time, code char(5), title varchar(60), "
      "wide varchar(300), remark text, content %1)"_s.arg(OnSqlite() ? u"blob"_s : u"bytea"_s));
  Database().Native(
      u"INSERT INTO kinds VALUES (1, -7, 9007199254740993, 12.125, 0.1, 0.1, %1, '2002-03-04', "
      "'2002-03-04 05:06:07.25', '05:06:07', '卷A', '关于', '%2', '%3', %4)"_s.arg(
          OnSqlite() ? u"1"_s : u"true"_s, QString(150, u'档'), QString(5000, u'文'),
          OnSqlite() ? u"x'00ff27'"_s : u"'\\x00ff27'"_s));
  Database().Native(u"INSERT INTO kinds (id) VALUES (2)"_s);
  const auto records = Open(u"Select * From kinds Order By id"_s);
  const auto opened = Saved(*records);
  for (; !records->EOF_(); records->MoveNext(), opened->MoveNext()) {
    for (int i = 0; i < records->Fields().Count(); ++i) {
      const Field was = records->Fields().Item(i), is = opened->Fields().Item(i);
      EXPECT_EQ(is.Type(), was.Type()) << was.Name().toStdString();
      EXPECT_EQ(is.DefinedSize(), was.DefinedSize()) << was.Name().toStdString();
      // A field of fixed length is filled up with blanks.
      const QVariant value = was.Name() == u"code"_s && !was.IsNull() ? QVariant(u"卷A  "_s) : was.Value();
      EXPECT_EQ(is.Value(), value) << was.Name().toStdString();
    }
  }
}

TEST_P(SavedFiles, HoldTheRowsInViewInTheirOrder) {
  const auto records = Open();
  records->SetFilter(u"pages > 5"_s);
  records->SetSort(u"pages Desc, id"_s);
  EXPECT_EQ(Texts(*Saved(*records)), (QStringList{u"A-002"_s, u"a-003"_s, u"A-001"_s}));
}

TEST_P(SavedFiles, KeepChangesThatWait) {
  const auto records = Open();
  StandOn(*records, 1);
  (*records)[u"title"_s].SetValue(u"改过"_s);
  (*records)[u"remark"_s].SetValue({});
  StandOn(*records, 2);
  records->Delete();
  records->AddNew();
  (*records)[u"id"_s].SetValue(6);
  (*records)[u"code"_s].SetValue(u"C-001"_s);
  const auto opened = Saved(*records);

  EXPECT_EQ(Texts(*opened, u"id"_s), (QStringList{u"1"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
  EXPECT_EQ(opened->PendingCount(), 3);
  opened->MoveFirst();
  EXPECT_EQ((*opened)[u"title"_s].Text(), u"改过"_s);
  EXPECT_EQ((*opened)[u"title"_s].OriginalValue(), QVariant(u"关于档案的通知"_s));
  EXPECT_TRUE((*opened)[u"remark"_s].IsNull());
  EXPECT_EQ((*opened)[u"remark"_s].OriginalValue(), QVariant(u"甲"_s));
  EXPECT_EQ((*opened)[u"pages"_s].OriginalValue(), QVariant(10LL));
  opened->MoveLast();
  EXPECT_FALSE((*opened)[u"code"_s].OriginalValue().isValid());
  EXPECT_EQ(records->PendingCount(), 3) << "saving has changed the record set";
}

TEST_P(SavedFiles, KeepFractionsOfASecondOfARowThatWasChanged) {
  Database().Native(u"CREATE TABLE moments (id integer PRIMARY KEY, moment timestamp, remark varchar(20))"_s);
  Database().Native(u"INSERT INTO moments VALUES (1, '2002-03-04 05:06:07.891234', 'a')"_s);
  const auto records = Open(u"Select * From moments"_s);
  (*records)[u"remark"_s].SetValue(u"b"_s);
  Saved(*records);
  const quint32 nanoseconds = qToLittleEndian(quint32(891'234'000));
  EXPECT_TRUE(ReadFile(Path()).contains(QByteArrayView(reinterpret_cast<const char*>(&nanoseconds), 4)));
}

TEST_P(SavedFiles, AreTheSameWhenSavedAgain) {
  const auto records = Open();
  (*records)[u"pages"_s].SetValue(11);
  StandOn(*records, 2);
  records->Delete();
  const auto opened = Saved(*records);
  const QByteArray file = ReadFile(Path());
  Saved(*opened);
  EXPECT_EQ(ReadFile(Path()).toHex(), file.toHex());
}

TEST_P(SavedFiles, HoldRowsAsTheyWereWritten) {
  const auto records = Open();
  (*records)[u"title"_s].SetValue(u"改过"_s);
  records->UpdateBatch();
  const auto opened = Saved(*records);
  EXPECT_EQ((*opened)[u"title"_s].Text(), u"改过"_s);
  EXPECT_EQ(opened->PendingCount(), 0);
}

TEST_P(SavedFiles, HoldNoDeletedRowsBehindAFilter) {
  const auto records = Open();
  StandOn(*records, 2);
  records->Delete();
  records->SetFilter(u"id > 0"_s);
  const auto opened = Saved(*records);
  EXPECT_EQ(opened->RecordCount(), 4);
  EXPECT_EQ(opened->PendingCount(), 0);
}

TEST_P(SavedFiles, HoldANullWhereTheColumnAllowsNone) {
  const auto records = Open();
  (*records)[u"code"_s].SetValue({});
  const auto opened = Saved(*records);
  EXPECT_TRUE((*opened)[u"code"_s].IsNull());
  EXPECT_EQ((*opened)[u"code"_s].OriginalValue(), QVariant(u"A-001"_s));
  EXPECT_EQ((*opened)[u"code"_s].Type(), AdoType::VarChar);
}

TEST_P(SavedFiles, HoldTextsThatTheCodePageLacks) {
  const auto records = Open();
  const QString text = u"一二三\U0001F600"_s;
  (*records)[u"title"_s].SetValue(text);
  const auto opened = Saved(*records);
  EXPECT_EQ((*opened)[u"title"_s].Value(), QVariant(text));
  EXPECT_EQ((*opened)[u"title"_s].Type(), AdoType::VarWChar);
  EXPECT_EQ((*opened)[u"code"_s].Type(), AdoType::VarChar) << "the other columns stay";
}

TEST_P(SavedFiles, HoldValuesThatAreLongerThanTheirColumn) {
  const auto records = Open();
  const QString text(200, u'长');
  (*records)[u"title"_s].SetValue(text);
  const auto opened = Saved(*records);
  EXPECT_EQ((*opened)[u"title"_s].Value(), QVariant(text));
  EXPECT_EQ((*opened)[u"title"_s].DefinedSize(), 400);
}

TEST_P(SavedFiles, HoldWhatIsNoNumberInAColumnOfNumbers) {
  if (!OnSqlite()) return;  // the other database takes none
  Database().Native(u"UPDATE files SET pages = 'many' WHERE id = 2"_s);
  Database().Native(u"UPDATE files SET filed = '下周' WHERE id = 3"_s);
  const auto records = Open();
  const auto opened = Saved(*records);
  EXPECT_EQ(Texts(*opened, u"pages"_s), (QStringList{u"10"_s, u"many"_s, u"3"_s, QString(), u"25"_s}));
  EXPECT_EQ(Texts(*opened, u"filed"_s), Texts(*records, u"filed"_s));
  EXPECT_EQ((*opened)[u"filed"_s].Type(), AdoType::VarWChar);
}

TEST_P(SavedFiles, HoldWholeNumbersThatAreTooLargeForTheirColumn) {
  if (!OnSqlite()) return;
  Database().Native(u"UPDATE files SET pages = 9007199254740993 WHERE id = 2"_s);
  const auto opened = Saved(*Open());
  EXPECT_EQ((*opened)[u"pages"_s].Type(), AdoType::BigInt);
  opened->MoveNext();
  EXPECT_EQ((*opened)[u"pages"_s].Value(), QVariant(9007199254740993LL));
}

TEST_P(SavedFiles, HoldNoRowsOfAnEmptyRecordSet) {
  const auto opened = Saved(*Open(u"Select * From files Where id = 0"_s));
  EXPECT_EQ(opened->RecordCount(), 0);
  EXPECT_EQ(opened->Fields().Count(), 6);
  EXPECT_TRUE(opened->EOF_());
}

TEST_P(SavedFiles, AreNotMadeOfAClosedRecordSet) {
  const DataError error = FailureOf([&] { Recordset().Save(Path()); });
  EXPECT_EQ(error.Kind(), DataErrorKind::Usage);
  EXPECT_TRUE(FilesInFolder().isEmpty());
}

TEST_P(SavedFiles, AppearWholeOrNotAtAll) {
  const auto records = Open();
  records->Save(Path());
  EXPECT_EQ(FilesInFolder(), QStringList{u"records.Dat"_s});
  EXPECT_EQ(FailureOf([&] { records->Save(folder_.filePath(u"nowhere/records.Dat"_s)); }).Kind(), DataErrorKind::File);
  EXPECT_EQ(FailureOf([&] { records->Save(folder_.path()); }).Kind(), DataErrorKind::File);
  EXPECT_EQ(FilesInFolder(), QStringList{u"records.Dat"_s});
}

TEST_P(SavedFiles, TakeThePlaceOfOlderOnes) {
  Saved(*Open());
  const auto opened = Saved(*Open(u"Select id From files Where id = 3"_s));
  EXPECT_EQ(opened->Fields().Count(), 1);
  EXPECT_EQ(FilesInFolder(), QStringList{u"records.Dat"_s});
}

}  // namespace
}  // namespace folvane::test
