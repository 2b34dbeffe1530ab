#include <QComboBox>

#include "base/CodePage.h"
#include "query/FrmReadOrder.h"
#include "query/QueryFixture.h"
#include "records/YearFormula.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"

namespace folvane::test {
namespace {

class FrmReadOrderTest : public QueryTest {
 protected:
  void SetUp() override {
    QueryTest::SetUp();
    Run(u"insert into DynamicWindows (TableName,ChnTableName,TableType,FieldName,ChnFieldName) values "
        "('Fwdj','发文登记','F','DocNo','发文字号')"_s);
    for (const QString& type : {u"'A'"_s, u"''"_s, u"null"_s, u"'X'"_s})
      Run(u"insert into DynamicWindows (TableName,ChnTableName,TableType,FieldName,ChnFieldName) values "
          "('Da'||%1||'','档案',%1,'DocNo','题名')"_s.arg(type)
              .replace(u"'Da'||null||''"_s, u"'DaNull'"_s));
    ReadYearFormula(u"Lwdj"_s);
  }
  void InWindow(const std::function<void()>& steps, qint16 flag = 1) {
    window_.vsFlag = flag;
    WithWindow(u"FrmReadOrder"_s, [&](QWidget&) { steps(); });
    window_.Open();
  }
  QComboBox& Tables() { return Find<QComboBox>(window_, u"CboChnTable"_s); }
  QStringList Entries(const QString& name) {
    const auto& box = Find<QComboBox>(window_, name);
    QStringList entries;
    for (int at = 0; at < box.count(); ++at) entries << box.itemText(at);
    entries.sort();
    return entries;
  }
  void Choose(const QString& table) { Tables().setCurrentIndex(Tables().findText(table)); }
  /// Chooses the row of that caption among the fields and adds it.
  void Add(const QString& caption) {
    ClickRow(window_, u"ListView1"_s, int(ColumnOf(window_, u"ListView1"_s).indexOf(caption)));
    Click(window_, u"CmdAdd"_s);
  }
  QString Section() { return QString::fromUtf8(program_.Read(u"YearFormula.Ini"_s).split(']').last()).trimmed(); }

  TempProgramDirectory program_;
  MessageBoxes boxes_;
  FrmReadOrder window_;
};

FOLVANE_ON_EACH_DATABASE(FrmReadOrderTest);

TEST_P(FrmReadOrderTest, AMissingFileIsToldAndNoWindowOpens) {
  QFile::remove(program_.Path(u"YearFormula.Ini"_s));
  window_.vsFlag = 1;
  window_.Open();
  EXPECT_EQ(boxes_.Last().text, u"未找到YearFormula.ini文件!"_s);
  EXPECT_EQ(boxes_.Last().title, u"浏览排序设置"_s);
  EXPECT_EQ(boxes_.Last().flags, MessageFlag::Information);
  EXPECT_FALSE(window_.isVisible());
}

TEST_P(FrmReadOrderTest, FileTablesAndArchiveTablesAreOfferedApart) {
  InWindow([&] {
    EXPECT_EQ(Entries(u"CboChnTable"_s), (QStringList{u"发文登记--Fwdj"_s, u"收文登记--Lwdj"_s}));
    EXPECT_EQ(Entries(u"CboTable"_s), (QStringList{u"Fwdj"_s, u"Lwdj"_s}));
    EXPECT_FALSE(Find(window_, u"CboTable"_s).isVisible());
  });
  InWindow([&] { EXPECT_EQ(Entries(u"CboTable"_s), (QStringList{u"Da"_s, u"DaA"_s, u"DaNull"_s})); }, 2);
  InWindow([&] { EXPECT_EQ(Entries(u"CboTable"_s), QStringList()); }, 3);
}

TEST_P(FrmReadOrderTest, ChoosingATableShowsItsFieldsByName) {
  InWindow([&] {
    Choose(u"收文登记--Lwdj"_s);
    EXPECT_EQ(window_.CurrTable, u"Lwdj"_s);
    EXPECT_EQ(TextIn(window_, u"CboTable"_s), u"Lwdj"_s);
    EXPECT_EQ(ColumnOf(window_, u"ListView1"_s, 1), (QStringList{u"Amaintitle"_s, u"DocNo"_s, u"FileDate"_s,
                                                                 u"FinishDate"_s, u"RegID"_s, u"SecurityClass"_s}));
    EXPECT_EQ(ColumnOf(window_, u"ListView1"_s).at(0), u"题名"_s);
    Choose(u"发文登记--Fwdj"_s);
    EXPECT_EQ(ColumnOf(window_, u"ListView1"_s), QStringList{u"发文字号"_s});
  });
}

TEST_P(FrmReadOrderTest, TheFirstChosenFieldIsWrittenForTheTable) {
  InWindow([&] {
    Choose(u"收文登记--Lwdj"_s);
    Add(u"密级"_s);
    Add(u"文号"_s);
    Add(u"密级"_s);
    EXPECT_EQ(ColumnOf(window_, u"ListView2"_s), (QStringList{u"密级"_s, u"文号"_s})) << "no caption twice";
    EXPECT_EQ(ColumnOf(window_, u"ListView2"_s, 1), (QStringList{u"SecurityClass"_s, u"DocNo"_s}));
    ClickRow(window_, u"ListView2"_s, 1);
    Click(window_, u"CmdOK"_s);
    EXPECT_EQ(boxes_.Last().text, u"已经成功设置！"_s);
    EXPECT_EQ(boxes_.Last().flags, MessageFlag::Information);
    EXPECT_TRUE(window_.isVisible());
    Click(window_, u"CmdCancel"_s);
    EXPECT_FALSE(window_.isVisible());
  });
  EXPECT_EQ(Section(), u"Lwdj=SecurityClass"_s);
  EXPECT_EQ(ReadYearFormula(u"Lwdj"_s), u"SecurityClass"_s);
}

TEST_P(FrmReadOrderTest, OkWithNothingSelectedSetsTheTableBackEvenIfRowsStandInTheList) {
  WriteYearFormula(u"Lwdj"_s, u"DocNo"_s);
  InWindow([&] {
    Choose(u"收文登记--Lwdj"_s);
    Add(u"密级"_s);
    Click(window_, u"CmdOK"_s);
    EXPECT_EQ(boxes_.Last().text, u"已经取消浏览排序设置！"_s);
  });
  EXPECT_EQ(Section(), u"Lwdj=0"_s);
}

TEST_P(FrmReadOrderTest, OneTableIsSetWithoutTouchingTheOthersAndTheComments) {
  const QByteArray before = program_.Read(u"YearFormula.Ini"_s);
  InWindow([&] {
    Choose(u"发文登记--Fwdj"_s);
    Add(u"发文字号"_s);
    ClickRow(window_, u"ListView2"_s, 0);
    Click(window_, u"CmdOK"_s);
  });
  EXPECT_EQ(program_.Read(u"YearFormula.Ini"_s), before + "Fwdj=DocNo\r\n");
}

TEST_P(FrmReadOrderTest, ALongFieldNameIsCutToNineteenCharactersWhenItIsReadBack) {
  Describe(u"ANameOfTwentyOneChars"_s, u"长字段"_s, u"文本型"_s);
  InWindow([&] {
    Choose(u"收文登记--Lwdj"_s);
    Add(u"长字段"_s);
    ClickRow(window_, u"ListView2"_s, 0);
    Click(window_, u"CmdOK"_s);
  });
  EXPECT_EQ(Section(), u"Lwdj=ANameOfTwentyOneChars"_s);
  EXPECT_EQ(ReadYearFormula(u"Lwdj"_s), u"ANameOfTwentyOneCha"_s);
}

TEST_P(FrmReadOrderTest, AChosenFieldIsRemovedByItsKeyOrByDelete) {
  InWindow([&] {
    Choose(u"收文登记--Lwdj"_s);
    Click(window_, u"CmdAdd"_s);
    Click(window_, u"CmdDel"_s);
    EXPECT_EQ(ColumnOf(window_, u"ListView2"_s), QStringList()) << "nothing is selected";
    Add(u"密级"_s);
    Add(u"文号"_s);
    ClickRow(window_, u"ListView2"_s, 0);
    Click(window_, u"CmdDel"_s);
    EXPECT_EQ(ColumnOf(window_, u"ListView2"_s), QStringList{u"文号"_s});
    ClickRow(window_, u"ListView2"_s, 0);
    Press(Find(window_, u"ListView2"_s), Qt::Key_Delete);
    EXPECT_EQ(ColumnOf(window_, u"ListView2"_s), QStringList());
  });
}

TEST_P(FrmReadOrderTest, WithoutATableThereIsNothingToSet) {
  InWindow([&] { EXPECT_FALSE(Find(window_, u"CmdOK"_s).isEnabled()); });
  EXPECT_EQ(Section(), u"Lwdj=0"_s);
}

TEST_P(FrmReadOrderTest, EmptyListsSayWhatToDoAndEveryControlHasAName) {
  InWindow([&] {
    EXPECT_TRUE(Find(Find(window_, u"ListView1"_s), u"EmptyHint"_s).isVisible());
    EXPECT_TRUE(Find(Find(window_, u"ListView2"_s), u"EmptyHint"_s).isVisible());
    EXPECT_EQ(UnnamedControls(window_), QStringList());
    Choose(u"收文登记--Lwdj"_s);
    EXPECT_FALSE(Find(Find(window_, u"ListView1"_s), u"EmptyHint"_s).isVisible());
  });
}

}  // namespace
}  // namespace folvane::test
