// Hostile texts as rows of the design: dictionary entries and names of dictionaries, captions of fields, tables and
// reports. They are shown as they are, and what they would like to reach is as it was.
#include <QComboBox>

#include <folvane/DataError.h>

#include "browser/BrowserTest.h"
#include "entry/InputFixture.h"
#include "injection/Watched.h"
#include "shell/MessageBox.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane::test {
namespace {

class HostileFormTest : public InputTest {
 protected:
  static QString Literal(const QString& text) { return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\''; }
  static QStringList EntriesOf(const QComboBox& box) {
    QStringList entries;
    for (int at = 0; at < box.count(); ++at) entries << box.itemText(at);
    return entries;
  }
};
FOLVANE_ON_EACH_DATABASE(HostileFormTest);

class HostileRightsTest : public InputTest {};
FOLVANE_ON_EACH_DATABASE(HostileRightsTest);

class HostileDesignTest : public TwelveRecordsTest {};
FOLVANE_ON_EACH_DATABASE(HostileDesignTest);

}  // namespace

TEST_P(HostileFormTest, EntriesOfDictionariesAreOfferedAndStoredAsTheyAre) {
  AddRecords(1);
  Design({u"FileStatus"_s, u"状态"_s, ControlKind::Cmb, 0, u"文本型"_s, 100, false, false, false, false, u"状态"_s});
  Run(u"insert into AssistantDictionary (DicID,Name) values ('d1','状态')"_s);
  for (const QString& text : HostileLines())
    Run(u"insert into AssistantDicKey (DicID,Name,Note) values ('d1',%1,'1')"_s.arg(Literal(text)));
  InWindow([&](const Input& input) {
    auto& box = Find<QComboBox>(input.Window(), u"Cmb(1)"_s);
    const QStringList offered = EntriesOf(box);
    for (const QString& text : HostileLines()) EXPECT_TRUE(offered.contains(text)) << text.toStdString();
    ExpectNoMarkup(input.Window(), "entry form");
    for (const QString& text : SomeHostileLines(15)) {
      PasteInto(input.Window(), u"Cmb(1)"_s, text);
      EXPECT_TRUE(input.Form().SaveData());
      EXPECT_EQ(Value(u"select FileStatus from Lwdj"_s), text);
    }
  });
}

TEST_P(HostileFormTest, ACaptionIsShownAndAskedForAsItIs) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  for (const QString& text : HostileLines(40)) {
    Run(u"update DynamicWindows set ChnFieldName="_s + Literal(text));
    InWindow([&](const Input& input) { ExpectNoMarkup(input.Window(), "entry form: " + text.toStdString()); });
  }
}

TEST_P(HostileRightsTest, AValueDoesNotTalkItsWayPastTheRights) {
  AddRecords(1);
  Design({u"Amaintitle"_s, u"题名"_s});
  Shared().UserId = u"7"_s;
  Right(Parameter::RowLimit, u"(Lwdj.Amaintitle='可见')"_s);
  Right(Parameter::Edit, u"1"_s);
  Run(u"insert into UserPopedomScopeDetails (PopTableName,UserId,FieldName) values ('Lwdj','7','Amaintitle')"_s);
  const QString before = Value(u"select Amaintitle from Lwdj"_s);
  for (const QString& text : HostileLines(40)) {
    InWindow([&](const Input& input) {
      PasteInto(input.Window(), u"Txt(1)"_s, text);
      boxes_.Clear();
      try {
        EXPECT_FALSE(input.Form().SaveData()) << text.toStdString();
        EXPECT_FALSE(boxes_.Requests().empty()) << text.toStdString();
      } catch (const DataError& refused) {  // told by the guard of whatever saves
        EXPECT_TRUE(refused.Message().contains(u"单引号"_s)) << text.toStdString();
      }
      input.Form().CancelEdit();
    });
    EXPECT_EQ(Value(u"select Amaintitle from Lwdj"_s), before) << text.toStdString();
  }
}

TEST_P(HostileFormTest, ARecordIsDeletedWithItsOwnOriginalsWhateverItsKey) {
  for (const QString& key : {u"' or 1=1 --"_s, u"' or '1'='1"_s, u"%"_s}) {
    Run(u"delete from Lwdj"_s);
    Run(u"delete from Original_Text"_s);
    AddRecords(2);
    Run(u"update Lwdj set ArchiveID="_s + Literal(key) + u" where ArchiveID='%1'"_s.arg(Key(1)));
    Run(u"insert into Original_Text (ID,RecordID) values ('a','%1')"_s.arg(Key(2)));
    Run(u"insert into Original_Text (ID,RecordID) values ('b',%1)"_s.arg(Literal(key)));
    InWindow([&](const Input& input) {
      const Field current = Shared().CurrentRecords[u"ArchiveID"_s];
      if (current.Text() != key) input.Do(u"Next_R"_s);
      boxes_.Answer(Answer::Yes);
      input.Do(u"DelRecord"_s);
    });
    EXPECT_EQ(Value(u"select ID from Original_Text"_s), u"a"_s) << key.toStdString();
    EXPECT_EQ(Value(u"select ArchiveID from Lwdj"_s), Key(2)) << key.toStdString();
  }
}

TEST(HostileMessages, NeitherTheTextNorTheNoteOfABoxIsMarkup) {
  for (const QString& text : HostileLines()) {
    const MessageBox box({text, 0, u"提示"_s, text, {}}, nullptr);
    ExpectNoMarkup(box, "message box");
  }
}

TEST_P(HostileDesignTest, NamesOfTablesClassesAndReportsAreOnlyShown) {
  const Canaries canaries(Database(), program_);
  design_->Insert(u"Report_Index"_s, u"Report_ID,Report_Name,Report_Group_Id,Report_Type"_s,
                  {u"1"_s, u"报表"_s, u"Lwdj"_s, u"0"_s});
  MessageBoxes messages;
  for (const QString& text : SomeHostileLines(40)) {
    const QString quoted = u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
    design_->Run(u"update Design_TableRelation set ChnTableName="_s + quoted);
    design_->Run(u"update Design_ClassRelation set ClassName="_s + quoted);
    design_->Run(u"update Report_Index set Report_Name="_s + quoted);
    design_->Run(u"update ListViewFormat set ChnFieldName="_s + quoted + u" where FieldName='Amaintitle'"_s);
    InBrowser([&](const Browser& browser) {
      ExpectNoMarkup(browser.Window(), text.toStdString());
      EXPECT_EQ(browser.List().model()->rowCount(), 12);
    });
    design_->Run(u"update Lwdj set Amaintitle="_s + quoted + u" where RegID=12"_s);
    InBrowser([&](const Browser& browser) {
      ClickItem(browser.List(), browser.List().model()->index(0, 0));
      ExpectNoMarkup(browser.Window(), text.toStdString());
    });
  }
}

}  // namespace folvane::test
