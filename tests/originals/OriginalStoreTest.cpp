#include <gmock/gmock.h>

#include <folvane/DataError.h>

#include "data/Recordset.h"
#include "originals/OriginalStore.h"
#include "records/DesignedDatabase.h"
#include "shell/SharedState.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

const QString kRead = u"Select Info_Description,Info_Type from Report_Info Where Report_Id = '2002123456789'"_s;

class OriginalStoreTest : public DesignTest {
 protected:
  void SetLocation(const QString& directory, const QString& serverRoot) {
    design_->Insert(u"Report_Info"_s, u"Report_Id,Info_Description,Info_Type"_s,
                    {u"2002123456789"_s, directory, serverRoot});
  }
  void AddOriginal(int record, const QString& id, const QString& filePath) {
    design_->Insert(u"Original_Text"_s, u"ID,Original_Name,Type,RecordID,Size,FileOrder,FilePath"_s,
                    {id, u"正文"_s, u".tif"_s, DesignedDatabase::Key(record), u"1"_s, u"1"_s, filePath});
  }
  static QString OfRecord(int record) { return u" Where RecordID = '"_s + DesignedDatabase::Key(record) + u"'"_s; }
  int Rows() { return design_->Value(u"select count(*) from Original_Text"_s).toInt(); }
  QString Location() { return design_->Value(u"select Info_Description from Report_Info"_s); }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(OriginalStoreTest);

TEST_P(OriginalStoreTest, ADirectoryThatIsNotSetIsDataBesideTheProgramAndIsStored) {
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, program_.Path() + u"\\Data"_s);
  EXPECT_EQ(Location(), program_.Path() + u"\\Data"_s);
  EXPECT_TRUE(QFileInfo(program_.Path(u"Data"_s)).isDir()) << "what is added first has a place to go";
  EXPECT_THAT(log_->Take(), ElementsAre(kRead,
                                        u"Insert Into Report_Info(Report_Id,Info_Description) Values("
                                        "'2002123456789','"_s +
                                            program_.Path() + u"\\Data')"_s));
}

TEST_P(OriginalStoreTest, ABlankDirectoryIsFilledIn) {
  SetLocation(u"  "_s, QString());
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, program_.Path() + u"\\Data"_s);
  EXPECT_THAT(log_->Take(), ElementsAre(kRead, u"Update Report_Info Set Info_Description='"_s + program_.Path() +
                                                   u"\\Data' Where Report_Id = '2002123456789'"_s));
}

TEST_P(OriginalStoreTest, OneTrailingBackslashOfTheDirectoryGoes) {
  SetLocation(u"\\\\server\\files\\\\"_s, QString());
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, u"\\\\server\\files\\"_s) << "a second one stays";
  EXPECT_THAT(log_->Take(), ElementsAre(kRead));
}

TEST_P(OriginalStoreTest, ASharedFileStaysUntilItsLastHolderGoes) {
  InitOriginalStore();
  program_.Write(u"Data/7.tif"_s, "picture");
  design_->AddOriginal(DesignedDatabase::Key(1), u"7"_s, u"正文"_s, 1);
  design_->AddOriginal(DesignedDatabase::Key(2), u"7"_s, u"正文"_s, 1);

  DeleteOriginals(u" Where RecordID = '"_s + DesignedDatabase::Key(1) + u"'"_s);
  EXPECT_TRUE(program_.Has(u"Data/7.tif"_s));
  EXPECT_EQ(design_->Value(u"select count(*) from Original_Text"_s), u"1"_s);

  log_->Take();
  DeleteOriginals(u" Where RecordID = '"_s + DesignedDatabase::Key(2) + u"'"_s);
  EXPECT_FALSE(program_.Has(u"Data/7.tif"_s));
  EXPECT_EQ(design_->Value(u"select count(*) from Original_Text"_s), u"0"_s);
  EXPECT_THAT(log_->Take(),
              ElementsAre(u"Select ID,Type,FilePath,RecordID From Original_Text Where RecordID = '"_s +
                              DesignedDatabase::Key(2) + u"'"_s,
                          u"Select * From Original_Text"_s,
                          u"Delete From Original_Text Where RecordID = '"_s + DesignedDatabase::Key(2) + u"'"_s));
}

TEST_P(OriginalStoreTest, ARecordsFilesGoWithItsRowsAndAMissingOneIsNoMatter) {
  InitOriginalStore();
  program_.Write(u"Data/2002/7.tif"_s, "picture");
  program_.Write(u"Data/8.tif"_s, "another's");
  AddOriginal(1, u"7"_s, u"2002"_s);
  AddOriginal(1, u"9"_s, u"2002"_s);
  AddOriginal(2, u"8"_s, QString());
  EXPECT_EQ(DeleteOriginalsAndTell(OfRecord(1)), QString());
  EXPECT_FALSE(program_.Has(u"Data/2002/7.tif"_s));
  EXPECT_TRUE(program_.Has(u"Data/8.tif"_s));
  EXPECT_EQ(Rows(), 1);
}

TEST_P(OriginalStoreTest, AFileGoesWithTheLastOfThoseThatHoldIt) {
  InitOriginalStore();
  for (const QString& file : {u"7"_s, u"8"_s}) program_.Write(u"Data/%1.tif"_s.arg(file), "picture");
  for (const int record : {1, 2}) AddOriginal(record, u"7"_s, QString());
  for (const int record : {1, 2, 3}) AddOriginal(record, u"8"_s, QString());
  const QString both = u" Where RecordID In ('%1','%2')"_s.arg(DesignedDatabase::Key(1), DesignedDatabase::Key(2));
  EXPECT_EQ(DeleteOriginalsAndTell(both), QString());
  EXPECT_FALSE(program_.Has(u"Data/7.tif"_s)) << "nobody else holds it";
  EXPECT_TRUE(program_.Has(u"Data/8.tif"_s));
  DeleteOriginals(OfRecord(3));
  EXPECT_FALSE(program_.Has(u"Data/8.tif"_s));
}

TEST_P(OriginalStoreTest, AMalformedPlaceIsRefusedBeforeAnythingIsTouched) {
  InitOriginalStore();
  program_.Write(u"Data/7.tif"_s, "picture");
  program_.Write(u"8.tif"_s, "beside the store");
  AddOriginal(1, u"7"_s, QString());
  AddOriginal(1, u"8"_s, u".."_s);
  EXPECT_THROW(DeleteOriginals(OfRecord(1)), DataError);
  EXPECT_TRUE(program_.Has(u"Data/7.tif"_s));
  EXPECT_TRUE(program_.Has(u"8.tif"_s));
  EXPECT_EQ(Rows(), 2);
}

TEST_P(OriginalStoreTest, AFileThatCannotBeDeletedIsToldAndItsRowGoes) {
  InitOriginalStore();
  program_.Write(u"Data/7.tif/inside"_s, "a directory of the file's name");
  program_.Write(u"Data/8.tif"_s, "picture");
  AddOriginal(1, u"7"_s, QString());
  AddOriginal(1, u"8"_s, QString());
  const QString told = DeleteOriginalsAndTell(OfRecord(1));
  EXPECT_TRUE(told.startsWith(u"1 个原文文件未能从存储中删除："_s) && told.contains(u"7.tif"_s)) << told.toStdString();
  EXPECT_FALSE(program_.Has(u"Data/8.tif"_s));
  EXPECT_EQ(Rows(), 0);
}

TEST_P(OriginalStoreTest, AFileThatIsGoneAlreadyIsNothingToTell) {
  InitOriginalStore();
  AddOriginal(1, u"7"_s, QString());
  EXPECT_EQ(DeleteOriginalsAndTell(OfRecord(1)), QString());
  EXPECT_EQ(Rows(), 0);
}

TEST_P(OriginalStoreTest, AStoreThatIsNotThereIsToldAndTheRowsGo) {
  SetLocation(u"\\\\server\\share"_s, QString());
  InitOriginalStore();
  AddOriginal(1, u"7"_s, QString());
  EXPECT_TRUE(DeleteOriginalsAndTell(OfRecord(1)).contains(Shared().OriginalRoot));
  EXPECT_EQ(Rows(), 0);
}

TEST_P(OriginalStoreTest, ADatabaseErrorPassesToTheCallerAndNoFileGoes) {
  InitOriginalStore();
  program_.Write(u"Data/7.tif"_s, "picture");
  AddOriginal(1, u"7"_s, QString());
  log_.reset();
  for (int statement = 1; statement <= 3; ++statement) {
    const LockedStatement locked(*Connected(), statement);
    EXPECT_THROW(DeleteOriginals(OfRecord(1)), DataError);
    EXPECT_TRUE(locked.WasRun());
    EXPECT_TRUE(program_.Has(u"Data/7.tif"_s));
    EXPECT_EQ(Rows(), 1);
  }
}

TEST_P(OriginalStoreTest, OnlyAnotherRecordsRowHoldsAFile) {
  AddOriginal(1, u"7"_s, QString());
  AddOriginal(1, u"7"_s, u"2002"_s);
  AddOriginal(2, u"8'x"_s, QString());
  AddOriginal(3, u"8'x"_s, QString());
  Recordset all;
  all.Open(u"Select * From Original_Text"_s, Connected());
  EXPECT_TRUE(IsOnlyHolder(all, u"7"_s, DesignedDatabase::Key(1)));
  EXPECT_FALSE(IsOnlyHolder(all, u"7"_s, DesignedDatabase::Key(2)));
  EXPECT_FALSE(IsOnlyHolder(all, u"8'x"_s, DesignedDatabase::Key(2)));
  EXPECT_TRUE(IsOnlyHolder(all, u"none"_s, DesignedDatabase::Key(2)));
}

}  // namespace folvane::test
