#include <QCheckBox>
#include <QGroupBox>
#include <QListWidget>
#include <QSpinBox>

#include <folvane/DataError.h>

#include "KeyOrderFixture.h"
#include "entry/FrmKeyOrder.h"
#include "entry/KeyOrder.h"
#include "shell/Messages.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {

class FrmKeyOrderTest : public KeyOrderFixture {
 protected:
  /// Opens the window, runs the steps in it and closes it.
  void InWindow(const std::function<void()>& steps) {
    FrmKeyOrder window;
    window.CurrTable = u"Lwdj"_s;
    WithWindow(u"FrmKeyOrder"_s, [&](QWidget& shown) {
      window_ = &shown;
      steps();
    });
    window.Open();
  }

  QWidget& Control(const QString& name) const { return Find(*window_, name); }
  QListWidget& List() const { return Find<QListWidget>(*window_, u"LstFieldList"_s); }
  QSpinBox& Number() const { return Find<QSpinBox>(*window_, u"PVNumeric1"_s); }
  QStringList Names() const {
    QStringList names;
    for (int row = 0; row < List().count(); ++row) names << List().item(row)->text();
    return names;
  }
  void Choose(int position) const { ClickItem(List(), List().model()->index(position - 1, 0)); }

  MessageBoxes boxes_;

 private:
  QWidget* window_ = nullptr;
};

TEST_P(FrmKeyOrderTest, ListsTheFieldsByTheirNamesWithNoneSelected) {
  InWindow([&] {
    EXPECT_EQ(Control(u"LstFieldList"_s).window()->windowTitle(), u"键盘顺序调整"_s);
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"登记号"_s, u"题名"_s}));
    EXPECT_TRUE(List().selectedItems().isEmpty());
    EXPECT_FALSE(Number().isEnabled());
    EXPECT_EQ(Find<QCheckBox>(*List().window(), u"ChkOrder"_s).text(), u"设置"_s);
    EXPECT_EQ(Find<QGroupBox>(*List().window(), u"Frame1"_s).title(), u"调整"_s);
  });
}

TEST_P(FrmKeyOrderTest, ShowsThePositionOfTheSelectedField) {
  InWindow([&] {
    Choose(3);
    EXPECT_EQ(Number().text(), u"3"_s);
    Choose(2);
    EXPECT_EQ(Number().text(), u"2"_s);
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"登记号"_s, u"题名"_s}));
  });
}

TEST_P(FrmKeyOrderTest, MovesTheSelectedFieldByOneUpToTheEnds) {
  InWindow([&] {
    Choose(1);
    Click(Control(u"ImgUp"_s));
    EXPECT_EQ(Names().front(), u"文号"_s);
    Click(Control(u"ImgDown"_s));
    EXPECT_EQ(Names(), (QStringList{u"登记号"_s, u"文号"_s, u"题名"_s}));
    EXPECT_EQ(List().currentRow(), 1);
    EXPECT_EQ(Number().text(), u"2"_s);
    Click(Control(u"ImgDown"_s));
    Click(Control(u"ImgDown"_s));
    EXPECT_EQ(Names(), (QStringList{u"登记号"_s, u"题名"_s, u"文号"_s}));
    EXPECT_EQ(Number().text(), u"3"_s);
    Click(Control(u"ImgUp"_s));
    EXPECT_EQ(Names(), (QStringList{u"登记号"_s, u"文号"_s, u"题名"_s}));
  });
}

TEST_P(FrmKeyOrderTest, MovesByKeyboard) {
  InWindow([&] {
    Press(List(), Qt::Key_End);
    Press(List(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"题名"_s, u"登记号"_s}));
    Press(List(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"登记号"_s, u"题名"_s}));
  });
}

TEST_P(FrmKeyOrderTest, MovesNothingWhenNoFieldIsSelected) {
  InWindow([&] {
    Click(Control(u"ImgDown"_s));
    Click(Control(u"ImgUp"_s));
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"登记号"_s, u"题名"_s}));
    EXPECT_TRUE(List().selectedItems().isEmpty());
  });
}

TEST_P(FrmKeyOrderTest, MovesToATypedPositionOnceThatIsSwitchedOn) {
  InWindow([&] {
    Choose(3);
    Click(Control(u"ChkOrder"_s));
    EXPECT_TRUE(Number().isEnabled());
    Retype(Number(), u"1"_s);
    EXPECT_EQ(Names(), (QStringList{u"题名"_s, u"文号"_s, u"登记号"_s}));
    EXPECT_EQ(List().currentRow(), 0);
    Click(Control(u"ChkOrder"_s));
    EXPECT_FALSE(Number().isEnabled());
  });
}

TEST_P(FrmKeyOrderTest, MarksTheWholePositionWhenItIsEntered) {
  InWindow([&] {
    Choose(3);
    Click(Control(u"ChkOrder"_s));
    ClickAt(Number(), QPoint(10, Number().height() / 2));
    Type(Number(), u"2"_s);
    EXPECT_EQ(Number().text(), u"2"_s);
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"题名"_s, u"登记号"_s}));
  });
}

TEST_P(FrmKeyOrderTest, WantsAFieldSelectedForATypedPosition) {
  InWindow([&] {
    Click(Control(u"ChkOrder"_s));
    Retype(Number(), u"1"_s);
    EXPECT_EQ(boxes_.Last().text, u"请选中需进行设置的字段!"_s);
    EXPECT_EQ(boxes_.Last().flags, MessageFlag::Information);
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"登记号"_s, u"题名"_s}));
  });
}

TEST_P(FrmKeyOrderTest, LimitsThePositionToTheCountOfFields) {
  InWindow([&] {
    Choose(1);
    Click(Control(u"ChkOrder"_s));
    EXPECT_EQ(Number().maximum(), 3);
    Retype(Number(), u"9"_s);
    EXPECT_EQ(Names(), (QStringList{u"文号"_s, u"登记号"_s, u"题名"_s}));
    Number().setProperty("text", u"9"_s);
    EXPECT_EQ(Number().text(), u"3"_s);
    EXPECT_EQ(Names().front(), u"文号"_s) << "set by program it tells nothing";
  });
}

TEST_P(FrmKeyOrderTest, WritesTheOrderWithOkButNotOfAFieldThatIsNotBuilt) {
  InWindow([&] {
    Choose(3);
    Click(Control(u"ImgUp"_s));
    Click(Control(u"ImgUp"_s));
    Click(Control(u"CmdOK"_s));
    EXPECT_FALSE(List().window()->isVisible());
  });
  EXPECT_EQ(OrderOf(u"Amaintitle"_s), u"1"_s);
  EXPECT_EQ(OrderOf(u"DocNo"_s), u"2"_s);
  EXPECT_EQ(OrderOf(u"RegID"_s), u"3"_s);
  EXPECT_EQ(OrderOf(u"Hidden"_s), u"3"_s);
  EXPECT_EQ(ReadKeyList(u"Lwdj"_s)[1], (ControlId{10, 1}));
}

TEST_P(FrmKeyOrderTest, KeepsTheWindowWhenTheOrderCannotBeWritten) {
  Refuse(u"SaveControls"_s, u"update"_s, u"new.DataField = 'RegID'"_s);
  InWindow([&] {
    Choose(3);
    Click(Control(u"ImgUp"_s));
    Click(Control(u"ImgUp"_s));
    Click(Control(u"CmdOK"_s));
    EXPECT_TRUE(List().window()->isVisible());
    EXPECT_EQ(Names().front(), u"题名"_s);
    EXPECT_EQ(boxes_.Last().note, u"没有写入任何字段的顺序，所做的调整仍保留在窗口中。"_s);
    EXPECT_TRUE(boxes_.Last().details.contains(u"Update SaveControls"_s));
  });
  EXPECT_EQ(OrderOf(u"Amaintitle"_s), u"4"_s);
}

TEST_P(FrmKeyOrderTest, NamesItsControlsForScreenReaders) {
  InWindow([&] { EXPECT_EQ(UnnamedControls(*List().window()), QStringList()); });
}

TEST_P(FrmKeyOrderTest, LeavesTheTableUnchangedWhenCancelledAfterMoves) {
  InWindow([&] {
    Choose(3);
    Click(Control(u"ImgUp"_s));
    TakeStatements();
    Click(Control(u"CmdCancel"_s));
    EXPECT_FALSE(List().window()->isVisible());
  });
  EXPECT_EQ(TakeStatements(), QStringList());
  EXPECT_EQ(OrderOf(u"Amaintitle"_s), u"4"_s);
}

TEST_P(FrmKeyOrderTest, ShowsAllFieldsOfATableWithoutAFormAndChangesNothing) {
  Run(u"delete from SaveControls"_s);
  InWindow([&] {
    EXPECT_EQ(List().count(), 4);
    Click(Control(u"CmdOK"_s));
    EXPECT_FALSE(List().window()->isVisible());
  });
  EXPECT_EQ(Value(u"select count(*) from SaveControls"_s), u"0"_s);
}

TEST_P(FrmKeyOrderTest, TellsItsOpenerThatTheFieldsCannotBeRead) {
  Run(u"drop table SaveControls"_s);
  FrmKeyOrder window;
  window.CurrTable = u"Lwdj"_s;
  EXPECT_THROW(window.Open(), DataError);
  EXPECT_FALSE(window.isVisible());
}

FOLVANE_ON_EACH_DATABASE(FrmKeyOrderTest);

}  // namespace
}  // namespace folvane::test
