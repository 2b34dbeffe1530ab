#include <QCheckBox>
#include <QComboBox>

#include "bulk/FrmBactchUpdate.h"
#include "records/DesignedDatabase.h"
#include "records/TableParameters.h"
#include "shell/LoadedWindow.h"
#include "shell/SharedState.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// The dialog over a table Lwdj of titles, with the record set of all of them.
class BatchUpdateWindowTest : public DesignTest {
 protected:
  void SetUp() override {
    DesignTest::SetUp();
    design_->AddPlainTable(u"Lwdj"_s, u"来文登记"_s, 2);
    parameters_.Add(u"Lwdj"_s);
    parameters_.Select(1);
  }
  void WithTitles(const QStringList& titles) {
    for (int at = 0; at < titles.size(); ++at) {
      design_->Insert(u"Lwdj"_s, u"ArchiveID,RegID,Amaintitle"_s,
                      {DesignedDatabase::Key(at + 1), QString::number(at + 1), titles[at]});
    }
  }
  /// Opens the dialog on the list row of that number, -1 for none, and runs the steps in it.
  /// @return whether a replacement has run
  bool Open(int row, const std::function<void(QWidget&)>& steps) {
    if (!Shared().CurrentRecords.IsOpen())
      Shared().CurrentRecords.Open(u"Select * From Lwdj Order By ArchiveID"_s, Connected());
    const LoadedWindow<FrmBactchUpdate> window;
    window->TableName = u"Lwdj"_s;
    window->vsPos = row;
    window->Parameters = &parameters_;
    WithWindow(u"FrmBactchUpdate"_s, steps);
    window->Open();
    return window->IsSucceed;
  }
  QStringList Titles() {
    QStringList titles;
    for (const QStringList& row : Database().Rows(u"select Amaintitle from Lwdj order by ArchiveID"_s))
      titles << row.front();
    return titles;
  }

  static void Choose(QWidget& window, const QString& combo, const QString& entry) {
    auto& box = Find<QComboBox>(window, combo);
    box.setFocus();
    while (box.currentText() != entry) {
      const int before = box.currentIndex();
      Press(box, Qt::Key_Down);
      if (box.currentIndex() == before) throw std::runtime_error("no entry " + entry.toStdString());
    }
  }
  static void Fill(QWidget& window, const QString& find, const QString& value) {
    Choose(window, u"Cbo_Field"_s, u"题名"_s);
    if (!find.isEmpty()) Type(Find<QWidget>(window, u"Cbo_Find"_s), find);
    if (!value.isEmpty()) Type(Find<QWidget>(window, u"TxtValue"_s), value);
  }
  static void PressOk(QWidget& window) { Click(Find<QWidget>(window, u"CmdOK"_s)); }
  static QStringList Entries(QWidget& window, const QString& combo) {
    const auto& box = Find<QComboBox>(window, combo);
    QStringList entries;
    for (int at = 0; at < box.count(); ++at) entries << box.itemText(at);
    return entries;
  }

  TableParameters parameters_;
  MessageBoxes boxes_;
};

FOLVANE_ON_EACH_DATABASE(BatchUpdateWindowTest);

TEST_P(BatchUpdateWindowTest, OffersTheFieldsAndWithoutACurrentRowOnlyAll) {
  Open(-1, [&](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"批量修改"_s);
    EXPECT_EQ(Entries(window, u"Cbo_Field"_s), (QStringList{u"登记号"_s, u"题名"_s}));
    EXPECT_EQ(TextIn(window, u"Cbo_Field"_s), QString());
    EXPECT_EQ(Entries(window, u"Cbo_Direct"_s), (QStringList{u"所有"_s, u"向下"_s, u"向上"_s}));
    EXPECT_EQ(TextIn(window, u"Cbo_Direct"_s), u"所有"_s);
    EXPECT_FALSE(Find<QWidget>(window, u"Cbo_Direct"_s).isEnabled());
  });
  Open(1, [](QWidget& window) { EXPECT_TRUE(Find<QWidget>(window, u"Cbo_Direct"_s).isEnabled()); });
}

TEST_P(BatchUpdateWindowTest, ChoosingAFieldOffersItsValuesAndAnyOtherMayBeTyped) {
  WithTitles({u"甲"_s, u"乙"_s, u"甲"_s, u"<null>"_s});
  Open(1, [&](QWidget& window) {
    Choose(window, u"Cbo_Field"_s, u"题名"_s);
    QStringList values = Entries(window, u"Cbo_Find"_s);
    values.sort();
    EXPECT_EQ(values, (QStringList{u"乙"_s, u"甲"_s}));
    Type(Find<QWidget>(window, u"Cbo_Find"_s), u"别的"_s);
    EXPECT_EQ(TextIn(window, u"Cbo_Find"_s), u"别的"_s);
    Find<QComboBox>(window, u"Cbo_Field"_s).setFocus();
    Press(Find<QComboBox>(window, u"Cbo_Field"_s), Qt::Key_Up);
    EXPECT_EQ(TextIn(window, u"Cbo_Find"_s), QString());
    EXPECT_EQ(Entries(window, u"Cbo_Find"_s).size(), 4);
  });
}

TEST_P(BatchUpdateWindowTest, FillingEmptyNumbersTellsThatZerosAreAmongThem) {
  WithTitles({u"甲"_s, u"乙"_s});
  design_->Run(u"update Lwdj set RegID = 0 where Amaintitle = '甲'"_s);
  Open(1, [&](QWidget& window) {
    Choose(window, u"Cbo_Field"_s, u"登记号"_s);
    Type(Find<QWidget>(window, u"TxtValue"_s), u"5"_s);
    boxes_.Answer(7);
    PressOk(window);
    EXPECT_EQ(boxes_.Last().note, u"符合条件、将被修改的记录：1条（值为 0 的也算空）"_s);
    EXPECT_EQ(design_->Value(u"select count(*) from Lwdj where RegID = 0"_s), u"1"_s);
  });
}

TEST_P(BatchUpdateWindowTest, EqualTextsAreRefusedAndTheDialogStays) {
  WithTitles({u"甲"_s});
  EXPECT_FALSE(Open(1, [&](QWidget& window) {
    Fill(window, u"甲"_s, u"甲"_s);
    PressOk(window);
    EXPECT_EQ(boxes_.Last().text, u"替换条件无效，替换前与替换后的值不能相同！"_s);
    EXPECT_EQ(boxes_.Last().flags, 64);
    EXPECT_TRUE(window.isVisible());
  }));
}

TEST_P(BatchUpdateWindowTest, AsksWithTheNumberOfRecordsInSightAndOnNoStays) {
  WithTitles({u"甲"_s, u"甲乙"_s, u"乙"_s});
  EXPECT_FALSE(Open(1, [&](QWidget& window) {
    Fill(window, u"甲"_s, u"丙"_s);
    boxes_.Answer(7);
    PressOk(window);
    EXPECT_EQ(boxes_.Last().text, u"是否确定将字段（题名）值为 甲 的记录全部替换为 丙 ？"_s);
    EXPECT_EQ(boxes_.Last().flags, 36);
    EXPECT_EQ(boxes_.Last().note, u"符合条件、将被修改的记录：2条"_s);
    EXPECT_EQ(TextIn(window, u"LblCount"_s), u"符合条件、将被修改的记录：2条"_s);
    EXPECT_TRUE(window.isVisible());
    Click(Find<QCheckBox>(window, u"Chk_All"_s));
    EXPECT_EQ(TextIn(window, u"LblCount"_s), QString());
  }));
  EXPECT_EQ(Titles(), (QStringList{u"甲"_s, u"甲乙"_s, u"乙"_s}));
}

TEST_P(BatchUpdateWindowTest, FillsEmptyFieldsInTheTableWithinTheConditionsThoughTheRowsAreNotLoaded) {
  WithTitles({u"甲"_s, u"<null>"_s, u""_s, u""_s});
  parameters_.Set(1, Parameter::RowLimit, u"(RegID < 4)"_s);
  parameters_.Set(1, Parameter::Filter, u"RegID = 2 Or RegID = 3"_s);
  Shared().CurrentRecords.Open(u"Select * From Lwdj Where 1 = 2"_s, Connected());
  EXPECT_TRUE(Open(-1, [&](QWidget& window) {
    Fill(window, {}, u"无题"_s);
    log_->Take();
    boxes_.Answer(6);
    PressOk(window);
    EXPECT_FALSE(window.isVisible());
    const QStringList updates = log_->Take().filter(u"Update"_s);
    EXPECT_EQ(updates,
              (QStringList{u"Update Lwdj Set Amaintitle ='无题' Where (RegID < 4) And (RegID = 2 Or RegID = 3) "
                           "And Amaintitle Is Null"_s,
                           u"Update Lwdj Set Amaintitle ='无题' Where (RegID < 4) And (RegID = 2 Or RegID = 3) "
                           "And Amaintitle = ''"_s}));
  }));
  EXPECT_EQ(Titles(), (QStringList{u"甲"_s, u"无题"_s, u"无题"_s, u""_s}));
}

TEST_P(BatchUpdateWindowTest, AQuoteInTheValueFailsOnTheRoadOfStatementsAndTheDialogStays) {
  WithTitles({u""_s});
  Open(-1, [&](QWidget& window) {
    Fill(window, {}, u"it's"_s);
    boxes_.Answer(6);
    PressOk(window);
    EXPECT_EQ(boxes_.Requests().size(), 2u);
    EXPECT_EQ(boxes_.Last().title, u"系统提示"_s);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_EQ(Titles(), QStringList{u""_s});
}

TEST_P(BatchUpdateWindowTest, WalksDownFromTheSelectedRow) {
  WithTitles({u"a"_s, u"A"_s, u"it's a"_s});
  EXPECT_TRUE(Open(2, [&](QWidget& window) {
    Fill(window, u"a"_s, u"b'["_s);
    Choose(window, u"Cbo_Direct"_s, u"向下"_s);
    boxes_.Answer(6);
    PressOk(window);
    EXPECT_FALSE(window.isVisible());
  }));
  EXPECT_EQ(Titles(), (QStringList{u"a"_s, u"b'["_s, u"it's b'["_s}));
}

TEST_P(BatchUpdateWindowTest, WalksUpFromTheSelectedRowWithCaseRegarded) {
  WithTitles({u"a"_s, u"A"_s, u"a"_s});
  EXPECT_TRUE(Open(2, [&](QWidget& window) {
    Fill(window, u"a"_s, u"b"_s);
    Choose(window, u"Cbo_Direct"_s, u"向上"_s);
    Click(Find<QCheckBox>(window, u"Chk_Case"_s));
    boxes_.Answer(6);
    PressOk(window);
  }));
  EXPECT_EQ(Titles(), (QStringList{u"b"_s, u"A"_s, u"a"_s}));
}

TEST_P(BatchUpdateWindowTest, WithoutAFieldNothingIsReplaced) {
  WithTitles({u"a"_s});
  Open(-1, [&](QWidget& window) {
    Type(Find<QWidget>(window, u"TxtValue"_s), u"b"_s);
    boxes_.Answer(6);
    PressOk(window);
    EXPECT_EQ(boxes_.Last().text, u"表“Lwdj”中没有名为“”的字段。"_s);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_EQ(Titles(), QStringList{u"a"_s});
}

TEST_P(BatchUpdateWindowTest, AFailedWalkTellsHowManyRecordsWereChanged) {
  WithTitles({u"a"_s, u"a"_s});
  Open(-1, [&](QWidget& window) {
    Database().Native(u"update Lwdj set Amaintitle = 'theirs' where RegID = 2"_s);
    Fill(window, u"a"_s, u"b"_s);
    boxes_.Answer(6);
    PressOk(window);
    EXPECT_EQ(TextIn(window, u"LblCount"_s), u"已中止，已修改的记录：1条"_s);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_EQ(Titles(), (QStringList{u"b"_s, u"theirs"_s}));
}

TEST_P(BatchUpdateWindowTest, CancelEscapeAndTheWindowsButtonLeaveWhatTheCallerSet) {
  WithTitles({u"a"_s});
  EXPECT_FALSE(Open(1, [](QWidget& window) { Click(Find<QWidget>(window, u"CmdCancel"_s)); }));
  EXPECT_FALSE(Open(1, [](QWidget& window) { Press(window, Qt::Key_Escape); }));
  EXPECT_FALSE(Open(1, [](QWidget& window) { window.close(); }));
}

TEST_P(BatchUpdateWindowTest, AValueThatIsTooLongIsToldByTheCaptionOfItsFieldAndChangesNothing) {
  WithTitles({u"a"_s, u"aa"_s});
  Open(-1, [&](QWidget& window) {
    Fill(window, u"a"_s, QString(150, u'b'));
    boxes_.Answer(6);
    PressOk(window);
    EXPECT_TRUE(boxes_.Last().text.startsWith(u"字段“题名”的值太长：有 300 个字节"_s))
        << boxes_.Last().text.toStdString();
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_EQ(Titles(), (QStringList{u"a"_s, u"aa"_s}));
}

TEST_P(BatchUpdateWindowTest, EveryControlHasANameAndTheWindowAnIcon) {
  Open(-1, [](QWidget& window) {
    EXPECT_EQ(UnnamedControls(window), QStringList());
    EXPECT_FALSE(window.windowIcon().isNull());
  });
}

}  // namespace
}  // namespace folvane::test
