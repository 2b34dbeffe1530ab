#include <gmock/gmock.h>

#include "originals/OriginalFiles.h"
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
  QString Location() { return design_->Value(u"select Info_Description from Report_Info"_s); }
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(OriginalStoreTest);

TEST_P(OriginalStoreTest, ADirectoryThatIsNotSetIsDataBesideTheProgramAndIsStored) {
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, program_.Path() + u"\\Data"_s);
  EXPECT_EQ(Location(), program_.Path() + u"\\Data"_s);
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

TEST_P(OriginalStoreTest, TheServerRootIsTakenAsItStandsOrMadeEmpty) {
  Shared().DatabaseKind = u"SQL SERVER"_s;
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, QString());
  EXPECT_THAT(log_->Take(),
              ElementsAre(kRead, u"Insert Into Report_Info(Report_Id,Info_Type) Values('2002123456789','')"_s));
  design_->Run(u"update Report_Info set Info_Type = 'archive'"_s);
  Shared().DatabaseKind = u"SYSBASE"_s;
  InitOriginalStore();
  EXPECT_EQ(Shared().OriginalRoot, u"archive"_s);
}

TEST_P(OriginalStoreTest, AFileLiesUnderItsPathOrDirectlyUnderTheRoot) {
  Shared().OriginalRoot = program_.Path() + u"\\Data"_s;
  EXPECT_EQ(OriginalPath(QString(), u"7"_s, u".tif"_s), program_.Path(u"Data/7.tif"_s));
  EXPECT_EQ(OriginalPath(u"2002\\a"_s, u"7"_s, u".tif"_s), program_.Path(u"Data/2002/a/7.tif"_s));
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

TEST_P(OriginalStoreTest, WithoutAServerConnectionTheRowsGoAndTheFileStays) {
  InitOriginalStore();
  program_.Write(u"Data/7.tif"_s, "picture");
  design_->AddOriginal(DesignedDatabase::Key(1), u"7"_s, u"正文"_s, 1);
  Shared().DatabaseKind = u"SYSBASE"_s;
  DeleteOriginals(u" Where RecordID = '"_s + DesignedDatabase::Key(1) + u"'"_s);
  EXPECT_TRUE(program_.Has(u"Data/7.tif"_s));
  EXPECT_EQ(design_->Value(u"select count(*) from Original_Text"_s), u"0"_s);
}

}  // namespace folvane::test
