#include <QPlainTextEdit>
#include <QPrintPreviewWidget>
#include <QTreeWidget>

#include "reportengine/EngineFixture.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

const QString kFile = u"Reports/55.html"_s;

class DesignerTest : public EngineTest {
 protected:
  void InDesigner(const WindowSteps& steps, const QString& table = u"Lwdj"_s,
                  const QString& selection = u"RegID = 1"_s) {
    WithWindow(u"ReportDesigner"_s, steps);
    Services().designReport(Request(table, selection, u"55"_s));
  }
  static QPlainTextEdit& Text(QWidget& window) { return Find<QPlainTextEdit>(window, u"TxtTemplate"_s); }
  static void Press(QWidget& window, const QString& key) { FindAction(window, u"TlbDesigner"_s, key).trigger(); }
  QString Saved() { return QString::fromUtf8(program_.Read(kFile)); }
};
FOLVANE_ON_EACH_DATABASE(DesignerTest);

TEST_P(DesignerTest, BeginsWithTheDefaultAndSavesWhatIsTyped) {
  InDesigner([&](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"报表设计 - 收文登记"_s);
    EXPECT_TRUE(Text(window).toPlainText().contains(u"{{CAPTION_AMAINTITLE}}"_s));
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"模板没有错误。"_s);
    EXPECT_EQ(UnnamedControls(window), QStringList());
    Text(window).setPlainText(u"<p>{{Amaintitle}}</p>"_s);
    Press(window, u"CmdSave"_s);
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"模板已保存。"_s);
    Press(window, u"CmdClose"_s);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Saved(), u"<p>{{Amaintitle}}</p>"_s);
  InDesigner([&](QWidget& window) { EXPECT_EQ(Text(window).toPlainText(), u"<p>{{Amaintitle}}</p>"_s); });
}

TEST_P(DesignerTest, ShowsWhatIsWrongWhileTyping) {
  MessageBoxes boxes;
  boxes.Answer(7).Answer(7);
  InDesigner([&](QWidget& window) {
    Text(window).setPlainText(u"\n{{Titel}}"_s);
    ASSERT_TRUE(WaitUntil([&] { return TextIn(window, u"LblState"_s).startsWith(u"报表模板第 2 行有错误"_s); }));
    Press(window, u"CmdSave"_s);
    EXPECT_TRUE(boxes.Last().text.endsWith(u"仍要保存吗？"_s));
    EXPECT_FALSE(program_.Has(kFile));
    Text(window).setPlainText(u"{{RegID}}"_s);
    ASSERT_TRUE(WaitUntil([&] { return TextIn(window, u"LblState"_s) == u"模板没有错误。"_s; }));
  });
}

TEST_P(DesignerTest, InsertsTheMarkerThatIsChosen) {
  MessageBoxes boxes;
  boxes.Answer(7);
  InDesigner([&](QWidget& window) {
    Text(window).clear();
    auto& choices = Find<QTreeWidget>(window, u"TvFields"_s);
    const auto fields = choices.findItems(u"题名"_s, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_FALSE(fields.isEmpty());
    choices.setCurrentItem(fields[0]);
    Press(window, u"CmdInsert"_s);
    EXPECT_EQ(Text(window).toPlainText(), u"{{AMAINTITLE}}"_s);
    choices.setCurrentItem(choices.topLevelItem(0));
    Press(window, u"CmdInsert"_s);
    EXPECT_EQ(Text(window).toPlainText(), u"{{AMAINTITLE}}"_s) << "a heading is nothing to insert";
  });
}

TEST_P(DesignerTest, EveryChoiceIsKnownToTheFiller) {
  MessageBoxes boxes;
  boxes.Answer(7).Answer(7);
  const QString sheet = First(u"Select Register_ID From Distribute_Details"_s);
  const auto tryAll = [&](QWidget& window) {
    auto& choices = Find<QTreeWidget>(window, u"TvFields"_s);
    QStringList texts;
    for (int group = 0; group < choices.topLevelItemCount(); ++group) {
      const bool ofLines = choices.topLevelItem(group)->text(0).startsWith(u"明细字段"_s);
      for (int at = 0; at < choices.topLevelItem(group)->childCount(); ++at) {
        const QString text = choices.topLevelItem(group)->child(at)->data(0, Qt::UserRole).toString();
        const bool ofRows = text == u"{{NO}}"_s || text.startsWith(u"{{#NEXT}}"_s);
        const QString inside = ofLines                  ? u"LINES"_s
                               : ofRows                 ? u"ROWS"_s
                               : text == u"{{GROUP}}"_s ? u"BY_REGISTER_ID"_s
                                                        : QString();
        texts << (inside.isEmpty() ? text : u"{{#%1}}%2{{/%1}}"_s.arg(inside, text));
      }
    }
    EXPECT_GT(texts.size(), 30);
    Text(window).setPlainText(texts.join(u'\n'));
    Press(window, u"CmdSave"_s);
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"模板已保存。"_s);
  };
  InDesigner(tryAll, u"Distribute_File"_s, u"Register_ID = '%1'"_s.arg(sheet));
}

TEST_P(DesignerTest, AsksBeforeATextThatIsNotSavedIsLeft) {
  MessageBoxes boxes;
  boxes.Answer(6);
  InDesigner([&](QWidget& window) {
    Text(window).setPlainText(u"saved on leaving"_s);
    window.close();
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(boxes.Last().text, u"模板已修改，是否保存？"_s);
  EXPECT_EQ(Saved(), u"saved on leaving"_s);
  boxes.Answer(7);
  InDesigner([&](QWidget& window) {
    Text(window).setPlainText(u"left"_s);
    test::Press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Saved(), u"saved on leaving"_s);
}

TEST_P(DesignerTest, EscapeTwiceKeepsTheWindow) {
  MessageBoxes boxes;
  boxes.Answer(2).Answer(7);
  InDesigner([&](QWidget& window) {
    Text(window).setPlainText(u"still here"_s);
    test::Press(window, Qt::Key_Escape);
    EXPECT_EQ(boxes.Last().flags & 0xF, 3) << "with a third answer for the escape key";
    EXPECT_TRUE(window.isVisible());
  });
}

TEST_P(DesignerTest, SpacesThatMustNotBreakAreSaved) {
  const QString text = u"a\u00a0\u00a0b\u2028c\n"_s;
  WriteTemplate(u"55"_s, text);
  InDesigner([&](QWidget& window) {
    Text(window).moveCursor(QTextCursor::End);
    Text(window).insertPlainText(u"x"_s);
    Press(window, u"CmdSave"_s);
  });
  EXPECT_EQ(Saved(), text + u'x');
}

TEST_P(DesignerTest, ATextThatCannotBeSavedKeepsTheWindow) {
  MessageBoxes boxes;
  program_.Write(u"Reports"_s, "a file where the folder should be");
  boxes.Answer(6).Answer(1).Answer(7);
  InDesigner([&](QWidget& window) {
    Text(window).setPlainText(u"x"_s);
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(boxes.Last().text.contains(u"无法保存"_s));
  });
}

TEST_P(DesignerTest, TheDefaultCanBeHadAgain) {
  WriteTemplate(u"55"_s, u"own"_s);
  MessageBoxes boxes;
  boxes.Answer(7).Answer(6).Answer(7);
  InDesigner([&](QWidget& window) {
    Press(window, u"CmdDefault"_s);
    EXPECT_EQ(Text(window).toPlainText(), u"own"_s);
    Press(window, u"CmdDefault"_s);
    EXPECT_TRUE(Text(window).toPlainText().contains(u"{{AMAINTITLE}}"_s));
  });
}

TEST_P(DesignerTest, IsReachedFromThePreview) {
  WithWindow(u"ReportPreview"_s, [&](QWidget& preview) {
    WithWindow(u"ReportDesigner"_s, [&](QWidget& window) {
      Text(window).setPlainText(u"<p style=\"page-break-after:always\">a</p><p>{{RegID}}</p>"_s);
      Press(window, u"CmdSave"_s);
      Press(window, u"CmdClose"_s);
    });
    FindAction(preview, u"TlbPreview"_s, u"CmdDesign"_s).trigger();
    EXPECT_TRUE(WaitUntil([&] { return Find<QPrintPreviewWidget>(preview, u"View"_s).pageCount() == 2; }));
  });
  Services().runReport(Request(u"Lwdj"_s, u"RegID = 1 And CreatedDate > '2026'"_s, u"55"_s));
}

TEST_P(DesignerTest, WithoutASampleThereIsNoDesign) {
  EXPECT_THROW(Services().designReport(Request(u"Lwdj"_s, u"RegID = -1"_s, u"55"_s)), DataError);
}

}  // namespace
}  // namespace folvane::test
