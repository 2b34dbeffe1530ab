#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>

#include "archiving/FrmArchivePara.h"
#include "archiving/ParameterFixture.h"
#include "base/CodePage.h"
#include "shell/DefaultInstance.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

namespace {

class FrmArchiveParaTest : public ParameterTest {
 protected:
  void TearDown() override {
    DefaultInstance<FrmArchivePara>::Unload();
    ParameterTest::TearDown();
  }
  /// Opens the window anew, runs the steps in it and closes it. @return what its tag says then
  QString InWindow(const WindowSteps& steps) {
    DefaultInstance<FrmArchivePara>::Unload();
    FrmArchivePara& window = DefaultInstance<FrmArchivePara>::Get();
    window.SouTbl = u"Lwdj"_s;
    window.ObjTbl = u"Wsda"_s;
    WithWindow(u"FrmArchivePara"_s, steps);
    window.Open();
    return window.property("Tag").toString();
  }
  void Confirm(QWidget& window) { Click(Find<QWidget>(window, u"CmdOK"_s)); }
  void AddDictionary(const QString& id, const QString& name, const QStringList& entries) {
    design_->Insert(u"AssistantDictionary"_s, u"DicID,Name"_s, {id, name});
    for (const QString& entry : entries)
      design_->Insert(u"AssistantDicKey"_s, u"DicID,Name,Note"_s, {id, entry, entry});
  }

  MessageBoxes boxes_;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(FrmArchiveParaTest);

TEST_P(FrmArchiveParaTest, TheFieldsFitIntoANarrowWindow) {
  AskFor(u"FondsNo"_s, u"全宗号"_s, 6);
  AskFor(u"FileYear"_s, u"年度"_s);
  Part(u"ItemNo"_s);
  InWindow([&](QWidget& window) {
    constexpr int kNarrow = 230;
    window.resize(kNarrow, window.height());
    const auto& frame = Find<QWidget>(window, u"Frame1"_s);
    for (const QString& name : {u"F_FondsNo(1)"_s, u"Txt(1)"_s}) {
      const auto& field = Find<QWidget>(window, name);
      EXPECT_TRUE(WaitUntil([&] { return field.mapTo(&frame, QPoint(field.width(), 0)).x() <= frame.width(); }))
          << name.toStdString();
    }
  });
}

TEST_P(FrmArchiveParaTest, EachFieldHasItsControlWithCaptionFieldAndLimit) {
  AskFor(u"FondsNo"_s, u"全宗号"_s, 6);
  AskFor(u"AecNo"_s, u"实体分类号"_s, 7);
  AskFor(u"FileYear"_s, u"年度"_s);
  AskFor(u"KeepTime"_s, u"保管期限"_s, 2);
  AskFor(u"InDate"_s, u"归档日期"_s, 4);
  AskFor(u"FileDate"_s, u"文件日期"_s, 9);
  Part(u"ItemNo"_s);
  InWindow([&](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"归档参数设置"_s);
    EXPECT_EQ(Find<QWidget>(window, u"Frame1"_s).property("title").toString(), u"档号字段设置"_s);
    int number = 0, above = -1;
    for (const auto& [name, field, caption] :
         std::vector<std::tuple<QString, QString, QString>>{{u"F_FondsNo(1)"_s, u"FondsNo"_s, u"全宗号"_s},
                                                            {u"F_Aec(1)"_s, u"AecNo"_s, u"实体分类号"_s},
                                                            {u"Txt(1)"_s, u"FileYear"_s, u"年度"_s},
                                                            {u"Cmb(1)"_s, u"KeepTime"_s, u"保管期限"_s},
                                                            {u"DTP(1)"_s, u"InDate"_s, u"归档日期"_s},
                                                            {u"DTP_Arch(1)"_s, u"FileDate"_s, u"文件日期"_s}}) {
      const QWidget& control = Find<QWidget>(window, name);
      EXPECT_EQ(control.property("DataField"), field);
      EXPECT_EQ(control.property("Tag"), caption);
      EXPECT_EQ(control.toolTip(), u"限长10个字符"_s);
      EXPECT_EQ(TextIn(window, name), QString());
      EXPECT_EQ(TextIn(window, u"F_Lbl(%1)"_s.arg(++number)), caption);
      EXPECT_TRUE(control.isVisible());
      EXPECT_GT(control.mapTo(&window, QPoint()).y(), above);
      above = control.mapTo(&window, QPoint()).y();
    }
    EXPECT_EQ(UnnamedControls(window), QStringList());
  });
}

TEST_P(FrmArchiveParaTest, ConfirmingTakesTheValuesAndKeepsThemForTheNextTime) {
  AskFor(u"FondsNo"_s, u"全宗号"_s, 6);
  AskFor(u"FileYear"_s, u"年度"_s);
  AskFor(u"KeepTime"_s, u"保管期限"_s, 2);
  Part(u"ItemNo"_s);
  const QString tag = InWindow([&](QWidget& window) {
    Retype(Find<QWidget>(window, u"F_FondsNo(1)"_s), u"J01"_s);
    Retype(Find<QWidget>(window, u"Txt(1)"_s), u"2002"_s);
    Retype(Find<QWidget>(window, u"Cmb(1)"_s), u"长期"_s);
    Confirm(window);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(tag, u"1"_s);
  EXPECT_EQ(Shared().ArchNoFieldValue, (QStringList{u""_s, u"J01"_s, u"2002"_s, u"长期"_s, u""_s}));
  InWindow([&](QWidget& window) {
    EXPECT_EQ(TextIn(window, u"Txt(1)"_s), u"2002"_s);
    EXPECT_EQ(TextIn(window, u"Cmb(1)"_s), u"长期"_s);
    EXPECT_EQ(TextIn(window, u"F_FondsNo(1)"_s), QString()) << "the pickers begin empty";
  });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(FrmArchiveParaTest, ABlankFieldIsToldAndTheWindowStays) {
  AskFor(u"FondsNo"_s, u"全宗号"_s, 6);
  AskFor(u"FileYear"_s, u"年度"_s);
  Part(u"ItemNo"_s);
  const QString tag = InWindow([&](QWidget& window) {
    Confirm(window);
    EXPECT_EQ(boxes_.Last().text, u"请输入‘年度’字段的值"_s) << "texts come before pickers";
    EXPECT_EQ(boxes_.Last().flags, 0);
    EXPECT_TRUE(Find<QWidget>(window, u"Txt(1)"_s).hasFocus());
    Type(Find<QWidget>(window, u"Txt(1)"_s), u"2002"_s);
    Confirm(window);
    EXPECT_EQ(boxes_.Last().text, u"请输入‘全宗号’字段的值"_s);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.property("Tag"), u"0"_s);
  });
  EXPECT_EQ(tag, u"0"_s);
  EXPECT_EQ(Kept(), "[Wsda]\r\nFILEYEAR=2002\r\nFONDSNO=\r\n");
}

TEST_P(FrmArchiveParaTest, CancellingAndClosingSayZero) {
  AskFor(u"FileYear"_s, u"年度"_s);
  Part(u"ItemNo"_s);
  EXPECT_EQ(InWindow([](QWidget& window) { Click(Find<QWidget>(window, u"CmdCancel"_s)); }), u"0"_s);
  EXPECT_EQ(InWindow([](QWidget& window) { window.close(); }), u"0"_s);
  EXPECT_EQ(InWindow([](QWidget& window) { Press(window, Qt::Key_Escape); }), u"0"_s);
  EXPECT_FALSE(program_.Has(u"DoArchiveLog.INI"_s)) << "it is made by OK";
}

TEST_P(FrmArchiveParaTest, AFormatOfOnePartBuildsNoControlAndIsConfirmed) {
  AskFor(u"ItemNo"_s, u"件号"_s);
  const QString tag = InWindow([&](QWidget& window) {
    EXPECT_EQ(window.findChild<QWidget*>(u"Txt(1)"_s), nullptr);
    EXPECT_EQ(TextIn(window, u"LblHint"_s), u"没有需要录入的档号字段，按“确定”即可归档"_s);
    Confirm(window);
  });
  EXPECT_EQ(tag, u"1"_s);
  EXPECT_TRUE(program_.Has(u"DoArchiveLog.INI"_s));
  EXPECT_EQ(Kept(), QByteArray());
}

TEST_P(FrmArchiveParaTest, WithoutAFormatItClosesAtOnceAndSaysNothing) {
  FrmArchivePara& window = DefaultInstance<FrmArchivePara>::Get();
  window.ObjTbl = u"Wsda"_s;
  window.Open();
  EXPECT_FALSE(window.isVisible());
  EXPECT_NE(window.property("Tag").toString(), u"1"_s);
  EXPECT_EQ(boxes_.Texts(), QStringList());
  const ArchiveParameters asked = AskArchiveParameters(u"Lwdj"_s, u"Wsda"_s);
  EXPECT_FALSE(asked.confirmed);
  EXPECT_EQ(asked.note, u"目标库“Wsda”没有设置档号格式，不能归档"_s);
}

TEST_P(FrmArchiveParaTest, ADictionaryFillsItsList) {
  AddDictionary(u"1"_s, u"保管期限"_s, {u"长期"_s, u"永久"_s});
  Part(u"KeepTime"_s);
  Field(u"KeepTime"_s, u"期限"_s, 2, {u"文本型"_s, u"4"_s, u"保管期限"_s});
  Part(u"ItemNo"_s);
  log_->Take();
  InWindow([&](QWidget& window) {
    EXPECT_EQ(Find<QComboBox>(window, u"Cmb(1)"_s).count(), 2);
    EXPECT_TRUE(log_->Take().contains(
        u"Select Name From AssistantDicKey Where DicID in (Select DicId from AssistantDictionary where "
        "Name='保管期限') Order By Note"_s));
  });
}

TEST_P(FrmArchiveParaTest, ANumberIsShownWholeAndADateOnlyWhereTheFileHasOne) {
  Keep("[wsda]\r\nQUANTITY=12.6\r\nNUMBER=3.5\r\nINDATE=2002-03-04\r\nNAME=12.6\r\n");
  for (const auto& [field, type, kind] :
       std::vector<std::tuple<QString, QString, int>>{{u"Quantity"_s, u"数值型"_s, 1},
                                                      {u"Number"_s, u"自动编号"_s, 1},
                                                      {u"Name"_s, u"文本型"_s, 1},
                                                      {u"InDate"_s, u"日期型"_s, 4}}) {
    Part(field);
    Field(field, field, kind, {type, u"10"_s, {}});
  }
  Part(u"ItemNo"_s);
  const QString tag = InWindow([&](QWidget& window) {
    EXPECT_EQ(TextIn(window, u"Txt(1)"_s), u"13"_s);
    EXPECT_EQ(TextIn(window, u"Txt(2)"_s), u"4"_s);
    EXPECT_EQ(TextIn(window, u"Txt(3)"_s), u"12.6"_s);
    EXPECT_EQ(TextIn(window, u"DTP(1)"_s), u"2002-03-04"_s);
    Confirm(window);
  });
  EXPECT_EQ(tag, u"1"_s);
  EXPECT_EQ(Shared().ArchNoFieldValue[4], u"2002-03-04"_s);
  EXPECT_TRUE(Kept().contains("INDATE=\r\n")) << "the date is not remembered";
}

TEST_P(FrmArchiveParaTest, TypingIsCutToTheLimitInBytes) {
  Part(u"FileYear"_s);
  Field(u"FileYear"_s, u"年度"_s, 1, {u"文本型"_s, u"5"_s, {}});
  Part(u"FondsNo"_s);
  Field(u"FondsNo"_s, u"全宗号"_s, 6, {u"文本型"_s, u"3"_s, {}});
  Part(u"AecNo"_s);
  Field(u"AecNo"_s, u"分类号"_s, 7, {u"文本型"_s, u"2"_s, {}});
  Part(u"ItemNo"_s);
  InWindow([&](QWidget& window) {
    auto& text = Find<QLineEdit>(window, u"Txt(1)"_s);
    Retype(text, u"档案号码"_s);
    EXPECT_EQ(text.text(), u"档案"_s);
    EXPECT_EQ(text.cursorPosition(), 2) << "the caret is at the end";
    Retype(Find<QWidget>(window, u"F_FondsNo(1)"_s), u"J0123"_s);
    EXPECT_EQ(TextIn(window, u"F_FondsNo(1)"_s), u"J01"_s);
    Retype(Find<QWidget>(window, u"F_Aec(1)"_s), u"A1B"_s);
    EXPECT_EQ(TextIn(window, u"F_Aec(1)"_s), u"A1"_s);
  });
}

TEST_P(FrmArchiveParaTest, TheLineTellsHowTheNumbersWillBegin) {
  AskFor(u"FondsNo"_s, u"全宗号"_s, 6);
  AskFor(u"FileYear"_s, u"年度"_s);
  Part(u"ItemNo"_s, u"."_s);
  InWindow([&](QWidget& window) {
    Retype(Find<QWidget>(window, u"F_FondsNo(1)"_s), u"J01"_s);
    EXPECT_EQ(TextIn(window, u"LblHint"_s), u"录入各字段后，这里显示档号的开头"_s);
    Retype(Find<QWidget>(window, u"Txt(1)"_s), u"2"_s);
    EXPECT_EQ(TextIn(window, u"LblHint"_s), u"档号将以“J01-0002.”开头"_s);
    EXPECT_EQ(Shared().ArchNoFieldValue, (QStringList{u""_s, u""_s, u""_s, u""_s})) << "nothing is taken before OK";
  });
}

TEST_P(FrmArchiveParaTest, WhereNoFieldKeepsTheNumberNoneIsPromised) {
  AskFor(u"FileYear"_s, u"年度"_s);
  Part(u"ItemNo"_s, u"."_s);
  design_->Run(u"update ArchiveNo_Format set StoreField=''"_s);
  InWindow([&](QWidget& window) {
    Retype(Find<QWidget>(window, u"Txt(1)"_s), u"2002"_s);
    EXPECT_EQ(TextIn(window, u"LblHint"_s), u"录入各字段后，这里显示档号的开头"_s);
  });
}

TEST_P(FrmArchiveParaTest, AFileThatCannotBeWrittenIsToldInTheLineAndStopsNothing) {
  AskFor(u"FileYear"_s, u"年度"_s);
  AskFor(u"KeepTime"_s, u"保管期限"_s, 2);
  Part(u"ItemNo"_s);
  ASSERT_TRUE(QDir().mkpath(program_.Path(u"DoArchiveLog.INI"_s)));  // where the file should be stands a folder
  const QString tag = InWindow([&](QWidget& window) {
    EXPECT_TRUE(TextIn(window, u"LblHint"_s).startsWith(u"读不出上次录入的值："_s));
    Type(Find<QWidget>(window, u"Txt(1)"_s), u"2002"_s);
    Confirm(window);
    EXPECT_EQ(boxes_.Texts(), QStringList{u"请输入‘保管期限’字段的值"_s});
    EXPECT_TRUE(TextIn(window, u"LblHint"_s).startsWith(u"录入的值没有记下来，下次要重新录入："_s));
    Type(Find<QWidget>(window, u"Cmb(1)"_s), u"长期"_s);
    Confirm(window);
  });
  EXPECT_EQ(tag, u"1"_s);
  EXPECT_TRUE(DefaultInstance<FrmArchivePara>::Get().Note().startsWith(u"录入的值没有记下来"_s));
}

}  // namespace folvane::test
