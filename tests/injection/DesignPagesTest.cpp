// Hostile texts in the cells of the designer's pages, then written: the database holds each as it was typed, or it is
// told why not, and with the design of before it is as it was.
#include "designer/CodesPage.h"
#include "designer/DictionariesPage.h"
#include "designer/FieldsPage.h"
#include "designer/ListPage.h"
#include "designer/NumberPage.h"
#include "designer/ReportsPage.h"
#include "designer/SearchPage.h"
#include "designer/UsersPage.h"
#include "injection/PageBoxes.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

class FieldBoxesTest : public PageBoxesTest<designer::FieldsPage> {
 protected:
  void SetUp() override {
    PageBoxesTest::SetUp();
    Shown().SetTable(u"Lwdj"_s);
  }
};
FOLVANE_ON_EACH_DATABASE(FieldBoxesTest);

class DictionaryBoxesTest : public PageBoxesTest<designer::DictionariesPage> {
 protected:
  void SetUp() override {
    PageBoxesTest::SetUp();
    id_ = Database().Value(u"select DicID from AssistantDictionary"_s);
  }
  // A dictionary of another name is another one, with an id of its own.
  void TakeBack() override {
    PageBoxesTest::TakeBack();
    for (const QString& table : {u"AssistantDictionary"_s, u"AssistantDicKey"_s})
      Database().Native(u"update %1 set DicID='%2'"_s.arg(table, id_));
  }

 private:
  QString id_;
};
FOLVANE_ON_EACH_DATABASE(DictionaryBoxesTest);
using CodeBoxesTest = PageBoxesTest<designer::CodesPage>;
FOLVANE_ON_EACH_DATABASE(CodeBoxesTest);
using ReportBoxesTest = PageBoxesTest<designer::ReportsPage>;
FOLVANE_ON_EACH_DATABASE(ReportBoxesTest);
using NumberBoxesTest = PageBoxesTest<designer::NumberPage>;
FOLVANE_ON_EACH_DATABASE(NumberBoxesTest);
using ListBoxesTest = PageBoxesTest<designer::ListPage>;
FOLVANE_ON_EACH_DATABASE(ListBoxesTest);
using SearchBoxesTest = PageBoxesTest<designer::SearchPage>;
FOLVANE_ON_EACH_DATABASE(SearchBoxesTest);

class UserBoxesTest : public PageBoxesTest<designer::UsersPage> {
 protected:
  void SetUp() override {
    PageBoxesTest::SetUp();
    Database().Native(u"insert into Lwdj(ArchiveID, RegID, Amaintitle) values('1', 1, '文件')"_s);
    before_ = Read();
  }
  /// Opens the condition of the clerk's rights, and writes what the steps made of it.
  QString InCondition(const std::function<QString(QWidget&)>& steps) {
    QString entered;
    GoTo(u"GrdUsers"_s, 1);
    GoTo(u"GrdRights"_s, 0);
    WithWindow(u"ConditionDialog"_s, [&](QWidget& dialog) {
      entered = steps(dialog);
      Click(Find(dialog, u"CmdOK"_s));
      ExpectNoMarkup(dialog, "condition");
      if (!dialog.isVisible()) return;
      refused_ = TextIn(dialog, u"LblResult"_s);
      Click(Find(dialog, u"CmdCancel"_s));
    });
    Shown().activateWindow();
    EXPECT_TRUE(WaitUntil([this] { return Shown().isActiveWindow(); }));
    Grid(u"GrdRights"_s).setFocus();
    Press(Grid(u"GrdRights"_s), Qt::Key_F4);
    Write();
    return entered;
  }
  void TryCondition(const std::string& name, const std::function<QString(QWidget&, const QString&)>& enter) {
    const Box box{
        name, [&](const QString& text) { return InCondition([&](QWidget& dialog) { return enter(dialog, text); }); },
        [this] { return Read().users[1].rights[0].condition; }, [this] { TakeBack(); }};
    TryBox(Database(), box, FewHostileLines(), [this] { return WasTold(); });
  }
};
FOLVANE_ON_EACH_DATABASE(UserBoxesTest);

}  // namespace

TEST_P(FieldBoxesTest, ACaptionAndADictionaryOfAFieldAreKeptAsTyped) {
  Try({u"GrdFields"_s, 2, 0, [](Design& stored) { return FieldOf(stored, u"Lwdj"_s, u"Amaintitle"_s).caption; }});
  Try({u"GrdFields"_s, 2, 4, [](Design& stored) { return FieldOf(stored, u"Lwdj"_s, u"Amaintitle"_s).dictionary; }});
}

TEST_P(FieldBoxesTest, AColumnHasTheNameThatWasTypedOrItIsTold) {
  const Cell cell{u"GrdFields"_s, 5, 1, [](Design& stored) { return TableOf(stored, u"Lwdj"_s).fields.back().name; }};
  const Box box{"name",
                [&](const QString& text) {
                  Add(u"GrdFields"_s);
                  const QString typed = PasteIntoCell(cell, text);
                  Write();
                  return typed;
                },
                [&] {
                  Design stored = Read();
                  return cell.kept(stored);
                },
                [this] { TakeBack(); }};
  TryBox(Database(), box, SomeHostileLines(), [this] { return WasTold(); });
}

TEST_P(DictionaryBoxesTest, NamesAndEntriesOfDictionariesAreKeptAsTyped) {
  Try({u"GrdDictionaries"_s, 0, 0, [](Design& stored) { return stored.dictionaries[0].name; }});
  Try({u"GrdDictionaries"_s, 0, 1, [](Design& stored) { return stored.dictionaries[0].kind; }});
  Try({u"GrdEntries"_s, 0, 0, [](Design& stored) { return stored.dictionaries[0].entries[0].text; }});
  Try({u"GrdEntries"_s, 0, 1, [](Design& stored) { return stored.dictionaries[0].entries[0].code; }});
}

TEST_P(CodeBoxesTest, NumbersAndNamesOfCodesAreKeptAsTyped) {
  Try({u"GrdFonds"_s, 0, 0, [](Design& stored) { return stored.fonds[0].number; }});
  Try({u"GrdFonds"_s, 0, 1, [](Design& stored) { return stored.fonds[0].name; }});
  Try({u"GrdEntityClasses"_s, 0, 1, [](Design& stored) { return stored.entityClasses[0].number; }});
  Try({u"GrdEntityClasses"_s, 0, 2, [](Design& stored) { return stored.entityClasses[0].name; }});
  Try({u"GrdRetentions"_s, 0, 0, [](Design& stored) { return stored.retentions[0].name; }});
  Try({u"GrdRetentions"_s, 0, 1, [](Design& stored) { return stored.retentions[0].code; }});
}

TEST_P(ReportBoxesTest, NumbersAndNamesOfReportsAreKeptAsTyped) {
  Try({u"GrdReports"_s, 0, 0, [](Design& stored) { return stored.reports[0].id; }});
  Try({u"GrdReports"_s, 0, 1, [](Design& stored) { return stored.reports[0].name; }});
}

TEST_P(NumberBoxesTest, CaptionsAndSeparatorsOfAnArchiveNumberAreKeptAsTyped) {
  Shown().SetTable(u"Gdwj"_s);
  const auto part = [](Design& stored) { return TableOf(stored, u"Gdwj"_s).numberParts[1]; };
  Try({u"GrdNumberParts"_s, 1, 1, [&](Design& stored) { return part(stored).caption; }});
  Try({u"GrdNumberParts"_s, 1, 2, [&](Design& stored) { return part(stored).separator; }});
}

TEST_P(ListBoxesTest, ACaptionOfTheListIsKeptAsTyped) {
  Shown().SetTable(u"Lwdj"_s);
  Try({u"GrdColumns"_s, 1, 1, [](Design& stored) { return TableOf(stored, u"Lwdj"_s).columns[1].caption; }});
}

TEST_P(SearchBoxesTest, ACaptionOfTheQueryIsKeptAsTyped) {
  Shown().SetTable(u"Lwdj"_s);
  Try({u"GrdSearch"_s, 0, 1, [](Design& stored) { return TableOf(stored, u"Lwdj"_s).searchFields[0].caption; }});
}

TEST_P(UserBoxesTest, NamesAndWordsOfRightsAreKeptAsTyped) {
  Try({u"GrdUsers"_s, 1, 0, [](Design& stored) { return stored.users[1].name; }});
  Try({u"GrdUsers"_s, 1, 1, [](Design& stored) { return stored.users[1].id; }});
  GoTo(u"GrdUsers"_s, 1);
  Try({u"GrdRights"_s, 0, 5, [](Design& stored) { return stored.users[1].rights[0].words; }});
}

TEST_P(UserBoxesTest, AValueOfAConditionIsComparedWithAsTyped) {
  TryCondition("value", [](QWidget& dialog, const QString& text) {
    auto& relation = Find<QComboBox>(dialog, u"CmbRelation1"_s);
    relation.setCurrentIndex(relation.findText(u"等于"_s));
    const QString typed = PasteInto(dialog, u"CmbValue1"_s, text).trimmed();
    return u"Lwdj.SecurityClass = '%1'"_s.arg(QString(typed).replace(u'\'', u"''"_s));
  });
}

TEST_P(UserBoxesTest, AConditionOfOnesOwnIsOneOrItIsTold) {
  session_->Change(u"x"_s, [](Design& design) { design.users[1].rights[0].condition = u"RegID In (1,2)"_s; });
  Write();
  before_ = Read();
  TryCondition("condition", [](QWidget& dialog, const QString& text) {
    return PasteInto(dialog, u"TxtCondition"_s, text).trimmed();
  });
}

}  // namespace folvane::test
