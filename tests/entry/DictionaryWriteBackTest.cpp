#include <folvane/DataError.h>

#include "EntryFixture.h"
#include "entry/DictionaryWriteBack.h"

namespace folvane::test {
namespace {

class DictionaryWriteBackTest : public EntryTest {
 protected:
  void SetUp() override {
    EntryTest::SetUp();
    FixRandom({0.5});
    Run(u"insert into DynamicWindows (TableName,FieldName,AuxiDictDetails) values ('Lwdj','FileStatus','归档状态')"_s);
    Run(u"insert into DynamicWindows (TableName,FieldName,AuxiDictDetails) values ('Lwdj','FondsNo','归档状态')"_s);
  }
  void AddDictionary() {
    Run(u"insert into AssistantDictionary (DicID,Name) values ('d1','归档状态')"_s);
    Run(u"insert into AssistantDicKey (DicID,Name) values ('d1','需归档')"_s);
    Run(u"insert into AssistantDicKey (DicID,Name) values ('d2','已归档')"_s);
  }
  QString Entries(const QString& id) {
    return Value(u"select count(*) from AssistantDicKey where DicID = '"_s + id + u"'"_s);
  }
};

TEST_P(DictionaryWriteBackTest, AddsWhatItsDictionaryDoesNotHave) {
  AddDictionary();
  WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {u"需归档"_s, u"已归档"_s}}});
  EXPECT_EQ(TakeStatements(),
            (QStringList{u"Select FieldName,AuxiDictDetails From DynamicWindows Where TableName = 'Lwdj'"_s,
                         u"Select Name,DicID From AssistantDictionary"_s, u"Select DicID,Name From AssistantDicKey"_s,
                         u"Insert Into AssistantDicKey(DicID,Name,IsSystem) Values('d1','已归档','0')"_s}));
  EXPECT_EQ(Entries(u"d1"_s), u"2"_s);
}

TEST_P(DictionaryWriteBackTest, MakesADictionaryThatIsMissing) {
  WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {u"需归档"_s}}});
  const QStringList statements = TakeStatements();
  const QString id = Value(u"select DicID from AssistantDictionary"_s);
  EXPECT_TRUE(id.startsWith(u"20020304101112"_s));
  EXPECT_EQ(statements.mid(3),
            (QStringList{u"Insert Into AssistantDictionary(DicID,Name,ClassType,IsSystem) Values('"_s + id +
                             u"','归档状态','2 - 字符型','0')"_s,
                         u"Insert Into AssistantDicKey(DicID,Name,IsSystem) Values('"_s + id + u"','需归档','0')"_s}));
}

TEST_P(DictionaryWriteBackTest, AddsOnceWhatTwoCombosOfOneDictionaryHold) {
  WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {u"新"_s}}, {u"FondsNo"_s, {u"新"_s, u"新"_s}}});
  EXPECT_EQ(Value(u"select count(*) from AssistantDictionary"_s), u"1"_s);
  EXPECT_EQ(Value(u"select count(*) from AssistantDicKey"_s), u"1"_s);
}

TEST_P(DictionaryWriteBackTest, MakesNoDictionaryWithoutItsEntries) {
  Refuse(u"AssistantDicKey"_s, u"insert"_s, u"new.Name = '已归档'"_s);
  EXPECT_THROW(WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {u"需归档"_s, u"已归档"_s}}}), DataError);
  EXPECT_EQ(Value(u"select count(*) from AssistantDictionary"_s), u"0"_s);
  EXPECT_EQ(Value(u"select count(*) from AssistantDicKey"_s), u"0"_s);
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(DictionaryWriteBackTest, AddsNothingForAFieldThatWasTakenOutOfTheDesign) {
  AddDictionary();
  WriteBackDictionaries(u"Lwdj"_s, {{u"Title"_s, {u"新"_s}}, {u"FileStatus"_s, {u"已归档"_s}}});
  EXPECT_EQ(Value(u"select count(*) from AssistantDictionary"_s), u"1"_s);
  EXPECT_EQ(Value(u"select count(*) from AssistantDicKey where Name = '新'"_s), u"0"_s);
  EXPECT_EQ(Entries(u"d1"_s), u"2"_s);
}

TEST_P(DictionaryWriteBackTest, AnEntryThatIsTooLongKeepsNoOtherOut) {
  AddDictionary();
  const QString tooLong(300, u'长');
  QString told;
  try {
    WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {tooLong, u"短"_s}}});
  } catch (const DataError& error) {
    told = error.Message();
  }
  EXPECT_EQ(Value(u"select count(*) from AssistantDicKey where Name = '短'"_s), u"1"_s);
  const bool isThere = Value(u"select count(*) from AssistantDicKey where Name = '"_s + tooLong + u"'"_s) == u"1"_s;
  EXPECT_EQ(told, isThere ? QString() : u"下列内容过长，未能加入字典：\n"_s + tooLong.left(20) + u'…');
  EXPECT_FALSE(Connected()->InTransaction());
}

TEST_P(DictionaryWriteBackTest, AnotherRefusalIsToldThoughAnEntryIsTooLong) {
  AddDictionary();
  Refuse(u"AssistantDicKey"_s, u"insert"_s, u"new.Name = '拒'"_s);
  try {
    WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {QString(300, u'长'), u"拒"_s}}});
    ADD_FAILURE() << "it was written";
  } catch (const DataError& error) {
    EXPECT_NE(error.Kind(), DataErrorKind::TooLong);
  }
  EXPECT_EQ(Entries(u"d1"_s), u"1"_s);
}

TEST_P(DictionaryWriteBackTest, ADictionaryWhoseNameIsTooLongIsNotMadeAndTold) {
  if (OnSqlite()) return;  // keeps texts of any length
  Run(u"alter table DynamicWindows alter column AuxiDictDetails type varchar(300)"_s);
  Run(u"update DynamicWindows set AuxiDictDetails = repeat('长', 200) where FieldName = 'FileStatus'"_s);
  EXPECT_THROW(WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {u"新"_s}}}), DataError);
  EXPECT_EQ(Value(u"select count(*) from AssistantDictionary"_s), u"0"_s);
  EXPECT_EQ(Value(u"select count(*) from AssistantDicKey"_s), u"0"_s);
}

TEST_P(DictionaryWriteBackTest, KeepsAnApostrophe) {
  AddDictionary();
  WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {u"it's"_s}}});
  WriteBackDictionaries(u"Lwdj"_s, {{u"FileStatus"_s, {u"it's"_s}}});
  EXPECT_EQ(Value(u"select count(*) from AssistantDicKey where Name = 'it''s'"_s), u"1"_s);
}

TEST_P(DictionaryWriteBackTest, AsksNothingOfAFormWithoutCombos) {
  WriteBackDictionaries(u"Lwdj"_s, {});
  EXPECT_TRUE(TakeStatements().isEmpty());
}

FOLVANE_ON_EACH_DATABASE(DictionaryWriteBackTest);

}  // namespace
}  // namespace folvane::test
