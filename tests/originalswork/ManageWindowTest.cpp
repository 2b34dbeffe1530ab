#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTreeView>
#include <QUrl>

#include <folvane/HostServices.h>

#include "originalswork/WorkFixture.h"
#include "support/Accessibility.h"
#include "support/WindowDriver.h"

namespace folvane::test {
namespace {
using namespace originals;

class ManageWindowTest : public WorkTest {
 protected:
  void InWindow(const WindowSteps& steps) {
    WithWindow(u"frmOriginals"_s, steps);
    EXPECT_TRUE(Services().handleOriginals(Request()));
  }
  void AddThree() {
    for (const QString& name : {u"甲.txt"_s, u"乙.txt"_s, u"丙.txt"_s}) Added(name);
  }
  static QTreeView& List(QWidget& window) { return Find<QTreeView>(window, u"LvOriginals"_s); }
  static QStringList Shown(QWidget& window) {
    QStringList names;
    for (int row = 0; row < List(window).model()->rowCount(); ++row)
      names << List(window).model()->index(row, 0).data().toString();
    return names;
  }
  static void Choose(QWidget& window, int row, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    ClickItem(List(window), List(window).model()->index(row, 0), Qt::LeftButton, keys);
  }
  static QAction& Key(QWidget& window, const QString& key) { return FindAction(window, u"TlbOriginals"_s, key); }
  static void Press(QWidget& window, const QString& key) { Key(window, key).trigger(); }
  /// Opens the box for the name of a row and types into it.
  static QWidget& TypeName(QWidget& window, int row, const QString& name) {
    Choose(window, row);
    Press(window, u"CmdRename"_s);
    QWidget* editor = List(window).indexWidget(List(window).currentIndex());
    if (!editor) throw std::logic_error("no box for the name has been opened");
    Retype(*editor, name);
    return *editor;
  }
  static void Drop(QWidget& window, const QMimeData& data, const QPoint& at) {
    EXPECT_EQ(DropOnto(List(window), data, at, Qt::CopyAction | Qt::MoveAction), Qt::CopyAction)
        << "after a move the view removes what was dragged";
  }
};
FOLVANE_ON_EACH_DATABASE(ManageWindowTest);

TEST_P(ManageWindowTest, ShowsTheOriginalsInTheirOrder) {
  AddThree();
  InWindow([&](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), u"原文管理"_s);
    EXPECT_EQ(Shown(window), QStringList({u"甲"_s, u"乙"_s, u"丙"_s}));
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"共 3 个原文，21 字节。"_s);
    EXPECT_EQ(UnnamedControls(window), QStringList());
    for (const QString& key : {u"CmdView"_s, u"CmdExport"_s, u"CmdRename"_s, u"CmdDelete"_s, u"CmdUp"_s, u"CmdDown"_s})
      EXPECT_FALSE(Key(window, key).isEnabled()) << key.toStdString();
  });
}

TEST_P(ManageWindowTest, OpensAsItWasLeft) {
  InWindow([&](QWidget& window) {
    window.resize(500, 300);
    List(window).setColumnWidth(0, 123);
  });
  InWindow([&](QWidget& window) {
    EXPECT_EQ(window.size(), QSize(500, 300));
    EXPECT_EQ(List(window).columnWidth(0), 123);
  });
}

TEST_P(ManageWindowTest, RenamesWithF2) {
  AddThree();
  InWindow([&](QWidget& window) {
    test::Press(TypeName(window, 1, u"新名"_s), Qt::Key_Return);
    ASSERT_TRUE(WaitUntil([&] { return Names()[1] == u"新名.txt"_s; }));
    EXPECT_EQ(Shown(window), QStringList({u"甲"_s, u"新名"_s, u"丙"_s}));
  });
}

TEST_P(ManageWindowTest, ANameThatIsBeingTypedIsStoredBeforeAnythingElse) {
  AddThree();
  MessageBoxes boxes;
  boxes.Answer(7);
  InWindow([&](QWidget& window) {
    TypeName(window, 1, u"新名"_s);
    Press(window, u"CmdDelete"_s);
    EXPECT_EQ(Names(), QStringList({u"甲.txt"_s, u"新名.txt"_s, u"丙.txt"_s}));
    TypeName(window, 1, u"更新"_s);
    Press(window, u"CmdUp"_s);
    EXPECT_EQ(Names(), QStringList({u"更新.txt"_s, u"甲.txt"_s, u"丙.txt"_s}));
    TypeName(window, 2, u"末"_s);
    window.close();
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Names(), QStringList({u"更新.txt"_s, u"甲.txt"_s, u"末.txt"_s}));
  EXPECT_EQ(boxes.Requests().size(), 1u);
}

TEST_P(ManageWindowTest, WhereTheListHasChangedUnderANameTheCommandWaitsToBeGivenAgain) {
  AddThree();
  MessageBoxes boxes;
  InWindow([&](QWidget& window) {
    TypeName(window, 1, u"新名"_s);
    Originals().Delete(Originals().Read().front());
    Press(window, u"CmdDelete"_s);
    EXPECT_EQ(Shown(window), QStringList({u"新名"_s, u"丙"_s})) << "another row is where the chosen one was";
    EXPECT_TRUE(boxes.Requests().empty());
    List(window).model()->setData(List(window).model()->index(0, 1), u"x"_s);
  });
  EXPECT_EQ(Names(), QStringList({u"新名.txt"_s, u"丙.txt"_s}));
}

TEST_P(ManageWindowTest, AThumbnailLeavesTheNameThatIsBeingTyped) {
  AddThree();
  InWindow([&](QWidget& window) {
    auto& editor = static_cast<QLineEdit&>(TypeName(window, 0, u"半个名"_s));
    List(window).model()->setData(List(window).model()->index(0, 0), QIcon(), Qt::DecorationRole);
    EXPECT_EQ(editor.text(), u"半个名"_s);
    test::Press(editor, Qt::Key_Escape);
  });
}

TEST_P(ManageWindowTest, ANameForAnOriginalThatHasGoneMeanwhileIsDroppedAndTold) {
  AddThree();
  MessageBoxes boxes;
  InWindow([&](QWidget& window) {
    List(window).model()->setData(List(window).model()->index(0, 0), u"新名"_s);
    Originals().Delete(Originals().Read().front());
    Press(window, u"CmdRefresh"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(Shown(window), QStringList({u"乙"_s, u"丙"_s}));
    EXPECT_EQ(boxes.Requests().size(), 1u);
  });
  EXPECT_EQ(Names(), QStringList({u"乙.txt"_s, u"丙.txt"_s}));
}

TEST_P(ManageWindowTest, ANameIsNotEmptied) {
  AddThree();
  MessageBoxes boxes;
  InWindow([&](QWidget& window) {
    List(window).model()->setData(List(window).model()->index(0, 0), u" "_s);
    ASSERT_TRUE(WaitUntil([&] { return Shown(window)[0] == u"甲"_s; }));
  });
  EXPECT_EQ(boxes.Last().text, u"原文名称不能为空。"_s);
  EXPECT_EQ(Names()[0], u"甲.txt"_s);
}

TEST_P(ManageWindowTest, KeysMoveTheSelectedRows) {
  AddThree();
  InWindow([&](QWidget& window) {
    Choose(window, 2);
    EXPECT_FALSE(Key(window, u"CmdDown"_s).isEnabled());
    test::Press(List(window), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Names(), QStringList({u"甲.txt"_s, u"丙.txt"_s, u"乙.txt"_s}));
    test::Press(List(window), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Shown(window), QStringList({u"丙"_s, u"甲"_s, u"乙"_s})) << "the row stays selected";
    EXPECT_FALSE(Key(window, u"CmdUp"_s).isEnabled());
    test::Press(List(window), Qt::Key_Down, Qt::AltModifier);
  });
  EXPECT_EQ(Names(), QStringList({u"甲.txt"_s, u"丙.txt"_s, u"乙.txt"_s}));
}

TEST_P(ManageWindowTest, RowsAreDraggedToAnotherPlace) {
  AddThree();
  InWindow([&](QWidget& window) {
    QAbstractItemModel& model = *List(window).model();
    const std::unique_ptr<QMimeData> first(model.mimeData({model.index(0, 0), model.index(0, 1)}));
    Drop(window, *first, List(window).visualRect(model.index(2, 0)).center() + QPoint(0, 5));
    EXPECT_EQ(Shown(window), QStringList({u"乙"_s, u"丙"_s, u"甲"_s}));
    const std::unique_ptr<QMimeData> last(model.mimeData({model.index(2, 0)}));
    Drop(window, *last, List(window).visualRect(model.index(1, 0)).center() - QPoint(0, 5));
  });
  EXPECT_EQ(Names(), QStringList({u"乙.txt"_s, u"甲.txt"_s, u"丙.txt"_s}));
}

TEST_P(ManageWindowTest, AnOrderThatIsRefusedIsToldAndShownAsItIs) {
  AddThree();
  MessageBoxes boxes;
  InWindow([&](QWidget& window) {
    Choose(window, 0);
    const LockedStatement locked(*Connected(), 1);
    Press(window, u"CmdDown"_s);
    EXPECT_EQ(Shown(window), QStringList({u"甲"_s, u"乙"_s, u"丙"_s}));
  });
  EXPECT_EQ(boxes.Last().text, u"表被其他用户锁定"_s);
}

TEST_P(ManageWindowTest, AsksBeforeItDeletes) {
  AddThree();
  MessageBoxes boxes;
  boxes.Answer(7).Answer(6).Answer(6);
  InWindow([&](QWidget& window) {
    Choose(window, 1);
    test::Press(List(window), Qt::Key_Delete);
    EXPECT_EQ(Names().size(), 3);
    test::Press(List(window), Qt::Key_Delete);
    EXPECT_EQ(Shown(window), QStringList({u"甲"_s, u"丙"_s}));
    Choose(window, 0);
    Choose(window, 1, Qt::ControlModifier);
    Press(window, u"CmdDelete"_s);
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"此记录没有原文，可以添加、扫描，或将文件拖放到列表中。"_s);
  });
  EXPECT_EQ(boxes.Requests()[0].text, u"确定要删除当前原文吗?"_s);
  EXPECT_EQ(boxes.Requests()[0].flags, 68);
  EXPECT_EQ(boxes.Requests()[0].title, u"原文管理"_s);
  EXPECT_EQ(boxes.Last().text, u"确定要删除选中的 2 个原文吗?"_s);
  EXPECT_EQ(FileCount() + RowCount(), 0);
}

TEST_P(ManageWindowTest, AFileThatStaysBehindIsTold) {
  Added(u"甲.txt"_s);
  ASSERT_TRUE(QDir().rename(StoreRoot(), program_.Path(u"elsewhere"_s)));
  MessageBoxes boxes;
  boxes.Answer(6);
  InWindow([&](QWidget& window) {
    Choose(window, 0);
    Press(window, u"CmdDelete"_s);
    EXPECT_EQ(Shown(window), QStringList());
  });
  EXPECT_EQ(boxes.Last().text, u"原文已删除，但下列原文的文件留在存放位置未能删除：\n甲"_s);
}

TEST_P(ManageWindowTest, ExportsTheSelected) {
  AddThree();
  FileDialogs files;
  files.Answer(program_.Path(u"一.txt"_s)).Answer({}).Answer(program_.Path(u"none/x.txt"_s));
  MessageBoxes boxes;
  InWindow([&](QWidget& window) {
    Choose(window, 0);
    Choose(window, 2, Qt::ShiftModifier);
    Press(window, u"CmdExport"_s);
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"已导出 1 个原文。"_s);
  });
  EXPECT_TRUE(files.Requests()[0].save);
  EXPECT_TRUE(files.Requests()[0].directory.endsWith(u"/甲.txt"_s));
  EXPECT_EQ(files.Requests()[0].filter, u"原文文件|*.txt"_s);
  EXPECT_EQ(program_.Read(u"一.txt"_s), "content");
  EXPECT_TRUE(boxes.Last().text.startsWith(u"1 个原文没有导出：\n丙：文件 "_s));
}

TEST_P(ManageWindowTest, DroppedFilesAreOfferedForAdding) {
  const QString path = Source(u"新.txt"_s, "x");
  InWindow([&](QWidget& window) {
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(path)});
    WithWindow(u"frmAddOriginals"_s, [](QWidget& adding) { Click(Find(adding, u"CmdAdd"_s)); });
    Drop(window, dropped, {5, 5});
    ASSERT_TRUE(WaitUntil([&] { return Shown(window) == QStringList(u"新"_s); }));
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"已添加 1 个原文。"_s);
  });
}

TEST_P(ManageWindowTest, WhoeverThinksBetterOfItAddsAndExportsNothing) {
  AddThree();
  FileDialogs files;
  files.Answer({}).Answer({});
  InWindow([&](QWidget& window) {
    const QString state = TextIn(window, u"LblState"_s);
    WithWindow(u"frmAddOriginals"_s, [](QWidget& adding) { adding.close(); });
    Press(window, u"CmdAdd"_s);
    Choose(window, 0);
    Press(window, u"CmdExport"_s);
    EXPECT_EQ(TextIn(window, u"LblState"_s), state);
  });
  EXPECT_EQ(files.Requests().size(), 2u);
  EXPECT_EQ(RowCount(), 3);
}

TEST_P(ManageWindowTest, AClipboardWithoutAnImageOrFilesIsTold) {
  QGuiApplication::clipboard()->clear();
  InWindow([&](QWidget& window) {
    test::Press(List(window), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextIn(window, u"LblState"_s), u"剪贴板中没有图像或文件。"_s);
  });
}

TEST_P(ManageWindowTest, WhatMayOnlyBeMovedIsNotTaken) {
  InWindow([&](QWidget& window) {
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(Source(u"a.txt"_s, "a"))});
    EXPECT_EQ(DropOnto(List(window), dropped, {5, 5}, Qt::MoveAction), Qt::IgnoreAction);
  });
}

TEST_P(ManageWindowTest, PastedFilesAreOfferedForAdding) {
  auto* files = new QMimeData;
  files->setUrls({QUrl::fromLocalFile(Source(u"b.txt"_s, "b"))});
  QGuiApplication::clipboard()->setMimeData(files);
  InWindow([&](QWidget& window) {
    WithWindow(u"frmAddOriginals"_s, [](QWidget& adding) { Click(Find(adding, u"CmdAdd"_s)); });
    test::Press(List(window), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Shown(window), QStringList(u"b"_s));
  });
}

TEST_P(ManageWindowTest, AStoreThatCannotBeReachedStillShowsTheRows) {
  AddThree();
  ASSERT_TRUE(QDir(StoreRoot()).removeRecursively());
  InWindow([&](QWidget& window) {
    EXPECT_EQ(Shown(window).size(), 3);
    EXPECT_TRUE(WaitUntil([&] { return TextIn(window, u"LblState"_s).contains(StoreRoot()); }));
  });
}

TEST_P(ManageWindowTest, ChecksTheStore) {
  AddThree();
  program_.Write(u"Data/2002/lost.txt"_s, "12345");
  FileDialogs files;
  files.Answer(program_.Path(u"report.txt"_s));
  InWindow([&](QWidget& window) {
    const OnceEnabled checked(u"frmCheckOriginals"_s, u"CmdCopy"_s, [&](QWidget& check) {
      const QString summary = u"共 3 条原文记录、4 个文件；0 个文件缺少，1 个文件没有原文记录。"_s;
      EXPECT_EQ(TextIn(check, u"LblState"_s), summary);
      EXPECT_EQ(UnnamedControls(check), QStringList());
      const auto& list = Find<QTreeView>(check, u"LvFindings"_s);
      ASSERT_EQ(list.model()->rowCount(), 1);
      EXPECT_EQ(list.model()->index(0, 1).data(), u"2002/lost.txt"_s);
      Click(Find(check, u"CmdCopy"_s));
      EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(summary + u'\n'));
      Click(Find(check, u"CmdSave"_s));
      Click(Find(check, u"CmdRun"_s));
      EXPECT_EQ(list.model()->rowCount(), 1) << "checked anew";
      Click(Find(check, u"CmdClose"_s));
      EXPECT_FALSE(check.isVisible());
    });
    Press(window, u"CmdCheck"_s);
  });
  EXPECT_TRUE(program_.Read(u"report.txt"_s).startsWith("\xEF\xBB\xBF"));
  EXPECT_TRUE(program_.Read(u"report.txt"_s).contains("2002/lost.txt"));
}

TEST_P(ManageWindowTest, AnOriginalThatIsGoneIsToldWhenItShallBeShown) {
  MessageBoxes boxes;
  EXPECT_TRUE(Services().handleOriginals(Request(u"BrowseState"_s, u"17"_s)));
  EXPECT_EQ(boxes.Last().text, u"该原文已不存在，可能已被其他用户删除。"_s);
}

}  // namespace
}  // namespace folvane::test
