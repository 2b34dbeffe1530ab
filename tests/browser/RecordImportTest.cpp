#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include <folvane/DataError.h>

#include "browser/RecordImport.h"
#include "records/DesignedDatabase.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// A table Lwdj with one record "1", and files saved from another table.
class RecordImportTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->Run(
        u"create table Lwdj (ArchiveID varchar(20) primary key, Amaintitle varchar(20), Responsibleby varchar(10), "
        "CreatedDate varchar(10), SignDate date, Pages integer, Note varchar(5))"_s);
    design_->Run(u"insert into Lwdj (ArchiveID,Amaintitle) values ('1','旧')"_s);
    records_.Open(u"Select * From Lwdj Order By ArchiveID"_s, Connected());
    log_->Take();
  }
  /// Saves a table of these columns with rows of values as SQL writes them. @return the path of the file
  QString FileOf(const QString& columns, const QStringList& rows) {
    design_->Run(u"create table Other ("_s + columns + u')');
    for (const QString& row : rows) design_->Run(u"insert into Other values ("_s + row + u')');
    Recordset saved;
    saved.Open(u"Select * From Other"_s, Database().Connect());
    saved.Save(Path());
    design_->Run(u"drop table Other"_s);
    return Path();
  }
  QString TitlesFile(const QStringList& rows) {
    return FileOf(u"ArchiveID varchar(20), Amaintitle varchar(60)"_s, rows);
  }
  QString Path() const { return program_.Path(u"exchange.Dat"_s); }
  std::optional<qint64> Import(const QString& path) {
    return RecordImport(u"Lwdj"_s, records_).Run(path, [](qint64, qint64) { return true; });
  }
  /// The columns of the imported records.
  QStringList Imported(const QString& columns) {
    QStringList rows;
    for (const QStringList& row :
         Database().Rows(u"select "_s + columns + u" from Lwdj where ArchiveID<>'1' order by ArchiveID"_s))
      rows << row.join(u'|');
    return rows;
  }
  /// Why an import is refused. Nothing of it is kept then, and the records stand where they stood.
  QString Refusal(const QString& path) {
    const qint64 position = records_.AbsolutePosition(), count = records_.RecordCount();
    QString reason = u"<none>"_s;
    try {
      Import(path);
    } catch (const DataError& error) {
      reason = error.Message();
    }
    EXPECT_EQ(records_.PendingCount(), 0);
    EXPECT_EQ(records_.EditMode(), EditModeKind::None);
    EXPECT_EQ(records_.RecordCount(), count);
    EXPECT_EQ(records_.AbsolutePosition(), position);
    EXPECT_EQ(Imported(u"ArchiveID"_s), QStringList());
    EXPECT_FALSE(Connected()->InTransaction());
    return reason;
  }

  Recordset records_;
};

FOLVANE_ON_EACH_DATABASE(RecordImportTest);

TEST_P(RecordImportTest, AddsWhatTheTableLacksAndLeavesWhatItHas) {
  EXPECT_EQ(Import(TitlesFile({u"'1','新'"_s, u"'2','题名2'"_s, u"'3','题名3'"_s})), 2);
  EXPECT_EQ(Imported(u"ArchiveID,Amaintitle"_s), QStringList({u"2|题名2"_s, u"3|题名3"_s}));
  EXPECT_EQ(design_->Value(u"select Amaintitle from Lwdj where ArchiveID='1'"_s), u"旧"_s);
  EXPECT_EQ(records_.PendingCount(), 0);
  EXPECT_EQ(records_.RecordCount(), 3);
}

TEST_P(RecordImportTest, AsksForEachKeyByThisStatement) {
  const QString file = TitlesFile({u"'1','新'"_s, u"'a''b','题名'"_s});
  log_->Take();
  EXPECT_EQ(Import(file), 1);
  EXPECT_EQ(log_->Take(), QStringList({u"Select * From Lwdj Where ArchiveID = '1'"_s,
                                       u"Select * From Lwdj Where ArchiveID = 'a''b'"_s}));
  EXPECT_EQ(Imported(u"ArchiveID"_s), QStringList{u"a'b"_s});
  EXPECT_EQ(Import(file), 0);
}

TEST_P(RecordImportTest, AFileOfTheSameTableAddsNothing) {
  records_.Save(Path());
  EXPECT_EQ(Import(Path()), 0);
  EXPECT_EQ(records_.AbsolutePosition(), 1);
}

TEST_P(RecordImportTest, ATextIsCutToWholeCharacters) {
  EXPECT_EQ(Import(FileOf(
                u"ArchiveID varchar(20), Amaintitle varchar(60), Note varchar(60)"_s,
                {u"'2','"_s + QString(11, u'题') + u"','甲乙丙'"_s, u"'3','"_s + QString(10, u'题') + u"','abcde'"_s})),
            2);
  EXPECT_EQ(Imported(u"Amaintitle,Note"_s),
            QStringList({QString(10, u'题') + u"|甲乙"_s, QString(10, u'题') + u"|abcde"_s}));
}

TEST_P(RecordImportTest, SharedNamesAndTheTwoOldOnesAreTakenAndAllElseIsDropped) {
  EXPECT_EQ(
      Import(FileOf(u"Foreign1 varchar(20), REPONSIBLEBY varchar(60), createdate varchar(60), archiveid varchar(20), "
                    "amaintitle varchar(20)"_s,
                    {u"'x','办公室与秘书处','2002-03-04 10:20','2','题名'"_s})),
      1);
  EXPECT_EQ(Imported(u"ArchiveID,Amaintitle,Responsibleby,CreatedDate"_s),
            QStringList{u"2|题名|办公室与秘|2002-03-04"_s});
}

TEST_P(RecordImportTest, AnOldNameThatTheTableItselfHasIsItsOwn) {
  records_.Close();
  design_->Run(u"alter table Lwdj add column CreateDate varchar(10)"_s);
  const auto connection = Database().Connect();
  records_.Open(u"Select * From Lwdj"_s, connection);
  Import(FileOf(u"ArchiveID varchar(20), CreateDate varchar(10)"_s, {u"'2','2001'"_s}));
  EXPECT_EQ(Imported(u"CreateDate,CreatedDate"_s), QStringList{u"2001|<null>"_s});
}

TEST_P(RecordImportTest, AnOldNameWhoseNewOneTheTableLacksIsDropped) {
  records_.Close();
  design_->Run(u"alter table Lwdj drop column Responsibleby"_s);
  records_.Open(u"Select * From Lwdj"_s, Database().Connect());
  EXPECT_EQ(Import(FileOf(u"ArchiveID varchar(20), Reponsibleby varchar(10)"_s, {u"'2','甲'"_s})), 1);
}

TEST_P(RecordImportTest, ADateBecomesTextOfOneFormWhereTheFieldIsText) {
  EXPECT_EQ(Import(FileOf(u"ArchiveID varchar(20), CreatedDate date, Amaintitle timestamp"_s,
                          {u"'2','2002-03-04','2002-05-06 10:20:30'"_s})),
            1);
  EXPECT_EQ(Imported(u"CreatedDate,Amaintitle"_s), QStringList{u"2002-03-04|2002-05-06"_s});
}

TEST_P(RecordImportTest, ATextBecomesADateWhereTheFieldIsOne) {
  EXPECT_EQ(Import(FileOf(u"ArchiveID varchar(20), SignDate varchar(20)"_s,
                          {u"'2','2002/3/4'"_s, u"'3','2002年3月4日'"_s, u"'4',''"_s, u"'5',null"_s})),
            4);
  EXPECT_EQ(Imported(u"SignDate"_s), QStringList({u"2002-03-04"_s, u"2002-03-04"_s, u"<null>"_s, u"<null>"_s}));
}

TEST_P(RecordImportTest, NumbersGoByTheirValueAndFitTextToo) {
  EXPECT_EQ(Import(FileOf(u"ArchiveID varchar(20), Pages varchar(10), Amaintitle integer, Note double precision"_s,
                          {u"'2','12',7,1.5"_s, u"'3','',null,123456"_s})),
            2);
  EXPECT_EQ(Imported(u"Pages,Amaintitle,Note"_s), QStringList({u"12|7|1.5"_s, u"<null>|<null>|12345"_s}));
}

TEST_P(RecordImportTest, AValueThatItsFieldDoesNotTakeRefusesTheFileAndNamesTheRecord) {
  records_.MoveLast();
  const QString pages = u"ArchiveID varchar(20), Pages varchar(10)"_s;
  EXPECT_EQ(
      Refusal(FileOf(pages, {u"'2','1'"_s, u"'3','12页'"_s})),
      u"文件中的第 2 条记录：“12页”不能作为字段“%1”的值：该字段要求数字。"_s.arg(records_.Fields().Item(5).Name()));
  EXPECT_TRUE(Refusal(FileOf(u"ArchiveID varchar(20), SignDate varchar(10)"_s, {u"'2','某日'"_s}))
                  .startsWith(u"文件中的第 1 条记录：“某日”不能作为字段"_s));
  EXPECT_TRUE(
      Refusal(FileOf(u"ArchiveID varchar(20), Pages date"_s, {u"'2','2002-03-04'"_s})).contains(u"该字段要求数字"_s));
  EXPECT_TRUE(Refusal(FileOf(u"ArchiveID varchar(20), Note date"_s, {u"'2','2002-03-04'"_s})).contains(u"太长"_s))
      << "a date is not cut";
}

TEST_P(RecordImportTest, AKeyTwiceInTheFileIsAddedOnce) {
  EXPECT_EQ(Import(TitlesFile({u"'a','先'"_s, u"'A ','后'"_s, u"'2','题名'"_s})), 2);
  EXPECT_EQ(Imported(u"Amaintitle"_s).size(), 2);
  EXPECT_TRUE(Imported(u"Amaintitle"_s).contains(u"先"_s));
}

TEST_P(RecordImportTest, KeysCompareAsTheDatabaseComparesThem) {
  design_->Run(u"insert into Lwdj (ArchiveID) values ('ab')"_s);
  EXPECT_EQ(Import(TitlesFile({u"'AB ','题名'"_s})), 0);
}

TEST_P(RecordImportTest, ARecordWithoutKeyRefusesTheFile) {
  EXPECT_EQ(Refusal(TitlesFile({u"'2','题名'"_s, u"null,'题名'"_s})),
            u"文件中的第 2 条记录：字段“ArchiveID”没有值。"_s);
  EXPECT_EQ(Refusal(TitlesFile({u"' ','题名'"_s})), u"文件中的第 1 条记录：字段“ArchiveID”没有值。"_s);
}

TEST_P(RecordImportTest, AFileWithoutKeysIsRefused) {
  log_->Take();
  EXPECT_EQ(Refusal(FileOf(u"Amaintitle varchar(20)"_s, {u"'题名'"_s})), u"文件中没有字段“ArchiveID”，不能导入。"_s);
  EXPECT_EQ(log_->Take(), QStringList());
}

TEST_P(RecordImportTest, AForeignABrokenAHierarchicalAndAMissingFileAreRefused) {
  program_.Write(u"foreign.Dat"_s, "ArchiveID,Amaintitle\n2,x\n");
  EXPECT_NE(Refusal(program_.Path(u"foreign.Dat"_s)), u"<none>"_s);
  QFile file(TitlesFile({u"'2','题名2'"_s, u"'3','题名3'"_s}));
  ASSERT_TRUE(file.resize(file.size() - 20));
  EXPECT_NE(Refusal(Path()), u"<none>"_s);
  EXPECT_NE(Refusal(program_.Path(u"missing.Dat"_s)), u"<none>"_s);
  const QString reason = Refusal(QStringLiteral(PERSISTED_SAMPLES "/customer_lines_compute_shape.adtg"));
  EXPECT_TRUE(reason.contains(u"子记录集"_s)) << reason.toStdString();
}

TEST_P(RecordImportTest, ARefusedRowTakesAllBack) {
  design_->Run(u"create unique index OneTitle on Lwdj (Amaintitle)"_s);
  EXPECT_NE(Refusal(TitlesFile({u"'2','题名'"_s, u"'3','旧'"_s})), u"<none>"_s);
}

TEST_P(RecordImportTest, AFailedLookUpTakesAllBack) {
  const QString file = TitlesFile({u"'2','题名'"_s, u"'3','题名'"_s});
  log_.reset();
  const LockedStatement locked(*Connected(), 2);
  EXPECT_TRUE(Refusal(file).startsWith(u"文件中的第 2 条记录："_s));
}

TEST_P(RecordImportTest, TellsItsProgressAndIsEndedByIt) {
  const QString file = TitlesFile({u"'2','题名'"_s, u"'3','题名'"_s});
  for (const qint64 end : {0, 1, 2}) {
    std::vector<qint64> told;
    EXPECT_EQ(RecordImport(u"Lwdj"_s, records_)
                  .Run(file,
                       [&](qint64 done, qint64 total) {
                         EXPECT_EQ(total, 2);
                         told.push_back(done);
                         return done < end;
                       }),
              std::nullopt);
    EXPECT_EQ(told.size(), std::size_t(end + 1));
    EXPECT_EQ(records_.PendingCount(), 0);
    EXPECT_EQ(records_.RecordCount(), 1);
    EXPECT_EQ(records_.AbsolutePosition(), 1);
  }
  EXPECT_EQ(Imported(u"ArchiveID"_s), QStringList());
}

TEST_P(RecordImportTest, ClosedRecordsAreAnErrorAndNothingElse) {
  const QString file = TitlesFile({u"'2','题名'"_s});
  records_.Close();
  EXPECT_THROW(Import(file), DataError);
}

}  // namespace
}  // namespace folvane::test
