#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSpinBox>
#include <QSplitter>
#include <QTabWidget>
#include <QTreeView>

#include <folvane/HostServices.h>

#include "support/Accessibility.h"
#include "transfersettings/SettingsFixture.h"

// The window, by the names of its controls.
namespace folvane::test {
namespace {
using testing::HasSubstr;

class WindowTest : public SettingsTest {
 protected:
  void Open(const WindowSteps& steps) {
    WithWindow(u"FrmTransferSettings"_s, steps);
    Services().editTransferSettings(Connected(), u"TransSet"_s);
  }
  /// The rows of a list, cells joined by "|".
  static QStringList Shown(QWidget& window, const QString& list) {
    const QAbstractItemModel& model = *Find<QAbstractItemView>(window, list).model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) cells << model.index(row, column).data().toString();
      rows << cells.join(u'|');
    }
    return rows;
  }
  static QAbstractItemView& List(QWidget& window, const QString& name) { return Find<QAbstractItemView>(window, name); }
  static void Choose(QWidget& window, const QString& list, const QString& key) {
    QAbstractItemView& view = List(window, list);
    const auto found = view.model()->match(view.model()->index(0, 0), Qt::UserRole, key, 1, Qt::MatchExactly);
    ASSERT_FALSE(found.isEmpty()) << key.toStdString();
    view.setCurrentIndex(found.first());
  }
  static void ChooseIn(QWidget& window, const QString& choice, const QString& value) {
    auto& box = Find<QComboBox>(window, choice);
    ASSERT_GE(box.findData(value), 0) << value.toStdString();
    box.setCurrentIndex(box.findData(value));
    Q_EMIT box.activated(box.currentIndex());
  }
  static QString State(QWidget& window) { return TextIn(window, u"LblState"_s); }
  static bool CanSave(QWidget& window) { return Find(window, u"CmdSave"_s).isEnabled(); }

  MessageBoxes boxes_;
};
FOLVANE_ON_EACH_DATABASE(WindowTest);

TEST_P(WindowTest, ShowsTheTablesAndTheirFieldsSideBySide) {
  Open([](QWidget& window) {
    EXPECT_EQ(UnnamedControls(window), QStringList());
    EXPECT_EQ(Shown(window, u"LvSets"_s), QStringList({u"1|收文登记 Lwdj|文书档案 Wenshu|2|1 个字段对应需注意"_s}));
    EXPECT_EQ(Shown(window, u"LvLinks"_s),
              QStringList({u"题名 Amaintitle|文本 200|题名 Amaintitle|文本 60|最长 200 字节，目标只有 60 字节，"
                           "多出的会被截去"_s,
                           u"页数 Pages|文本 20|页数 Quantity|整数|"_s,
                           u"责任者 Unit|文本 60|责任者 Author|文本 60|建议：标题相同"_s,
                           u"成文日期 SignDate|文本 10|日期 SignDate|日期|建议：字段名相同"_s}));
    EXPECT_TRUE(Shown(window, u"LvSource"_s).contains(u"页数 Pages|文本 20|√"_s));
    EXPECT_TRUE(Shown(window, u"LvDestination"_s).contains(u"责任者 Author|文本 60|"_s));
    EXPECT_FALSE(CanSave(window));
  });
}

TEST_P(WindowTest, FieldsAreLinkedByTheKeyboard) {
  Open([this](QWidget& window) {
    Choose(window, u"LvSource"_s, u"Unit"_s);
    Press(List(window, u"LvSource"_s), Qt::Key_Return);
    EXPECT_TRUE(List(window, u"LvDestination"_s).hasFocus());
    Choose(window, u"LvDestination"_s, u"Author"_s);
    Press(List(window, u"LvDestination"_s), Qt::Key_Return);
    EXPECT_TRUE(List(window, u"LvSource"_s).hasFocus());
    EXPECT_EQ(List(window, u"LvSource"_s).currentIndex().data(Qt::UserRole).toString(), u"Secret"_s);
    EXPECT_EQ(State(window), u"已将“Unit”对应到“Author”。"_s);
    EXPECT_TRUE(window.isWindowModified());
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(State(window), u"设置已保存。"_s);
    EXPECT_FALSE(CanSave(window));
    EXPECT_TRUE(Fields().contains(u"1|Unit|Author|责任者"_s));
  });
}

TEST_P(WindowTest, AFieldIsDroppedOntoAnotherOrOntoALink) {
  Open([](QWidget& window) {
    const auto drop = [&](const QString& from, const QString& key, const QString& onto, int row) {
      Choose(window, from, key);
      const std::unique_ptr<QMimeData> data(List(window, from).model()->mimeData({List(window, from).currentIndex()}));
      QAbstractItemView& view = List(window, onto);
      EXPECT_TRUE(view.viewport()->acceptDrops());
      const QPoint at = view.visualRect(view.model()->index(row, 0)).center();
      QDragEnterEvent enter(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(view.viewport(), &enter);
      QDropEvent event(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(view.viewport(), &event);
      return enter.isAccepted();
    };
    EXPECT_TRUE(drop(u"LvSource"_s, u"Secret"_s, u"LvDestination"_s, 5));  // Author
    WaitUntil([&] { return State(window) == u"已将“Secret”对应到“Author”。"_s; });
    EXPECT_TRUE(drop(u"LvDestination"_s, u"ItemNo"_s, u"LvLinks"_s, 1));  // instead of Quantity
    WaitUntil([&] { return State(window) == u"已将“Pages”对应到“ItemNo”。"_s; });
    EXPECT_FALSE(drop(u"LvSource"_s, u"Secret"_s, u"LvSource"_s, 0));
    EXPECT_EQ(Shown(window, u"LvLinks"_s).filter(u"建议"_s, Qt::CaseSensitive).size(), 2);  // the date, and pages anew
    EXPECT_TRUE(drop(u"LvDestination"_s, u"Author"_s, u"LvLinks"_s, 2));                    // where Secret went
    EXPECT_TRUE(WaitUntil([&] { return State(window) == u"目标字段“Author”原有的对应已改为来源字段“Pages”。"_s; }));
    Find<QAbstractButton>(window, u"CmdSave"_s).setFocus();
  });
  EXPECT_THAT(boxes_.Texts().join(u'|').toStdString(), HasSubstr("是否保存"));
}

TEST_P(WindowTest, SuggestionsAreTakenOneByOneOrAllAtOnce) {
  Open([this](QWidget& window) {
    QAbstractItemView& links = List(window, u"LvLinks"_s);
    links.setFocus();
    links.setCurrentIndex(links.model()->index(2, 0));
    EXPECT_FALSE(FindAction(window, u"TlbLinks"_s, u"CmdUnlink"_s).isEnabled());  // nothing to undo
    Press(links, Qt::Key_Space);
    EXPECT_EQ(State(window), u"已将“Unit”对应到“Author”。"_s);
    Press(window, Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(State(window), u"已采用 1 个建议。"_s);
    EXPECT_FALSE(FindAction(window, u"TlbLinks"_s, u"CmdSuggest"_s).isEnabled());
    links.setCurrentIndex(links.model()->index(0, 0));
    Press(links, Qt::Key_Delete);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Fields(),
              QStringList({u"1|Pages|Quantity|页数"_s, u"1|SignDate|SignDate|成文日期"_s, u"1|Unit|Author|责任者"_s}));
  });
}

TEST_P(WindowTest, ASetIsAddedChangedAndDeleted) {
  Open([this](QWidget& window) {
    QAbstractItemView& sets = List(window, u"LvSets"_s);
    sets.setFocus();
    WithWindow(u"FrmTransferSet"_s, [](QWidget& dialog) {
      EXPECT_EQ(UnnamedControls(dialog), QStringList());
      auto& source = Find<QComboBox>(dialog, u"CmbSource"_s);
      EXPECT_EQ(source.itemText(0), u"收文登记 Lwdj"_s);
      EXPECT_EQ(Find<QComboBox>(dialog, u"CmbDestination"_s).itemText(0), u"文书档案 Wenshu"_s);
      Press(dialog, Qt::Key_Return);  // nothing chosen yet
      EXPECT_TRUE(dialog.isVisible());
      ChooseIn(dialog, u"CmbSource"_s, u"Lwdj"_s);
      ChooseIn(dialog, u"CmbDestination"_s, u"Anjuan"_s);
      Press(dialog, Qt::Key_Return);
    });
    Press(sets, Qt::Key_Insert);
    EXPECT_EQ(boxes_.Last().text, u"请选择来源表和目标表。"_s);
    EXPECT_EQ(sets.model()->rowCount(), 2);
    EXPECT_EQ(State(window), u"已添加。有 1 个字段可以自动对应（Ctrl+G）。"_s);
    WaitUntil([&] { return List(window, u"LvSource"_s).hasFocus(); });
    sets.setFocus();
    WithWindow(u"FrmTransferSet"_s, [](QWidget& dialog) {
      ChooseIn(dialog, u"CmbSource"_s, u"Anjuan"_s);
      ChooseIn(dialog, u"CmbDestination"_s, u"Wenshu"_s);
      Press(dialog, Qt::Key_Return);
    });
    Press(sets, Qt::Key_F2);
    WaitUntil([&] { return sets.hasFocus(); });
    EXPECT_TRUE(Shown(window, u"LvSets"_s)[1].startsWith(u"2|案卷 Anjuan|文书档案 Wenshu|0|"_s));
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Pairs().size(), 2);
    boxes_.Answer(7).Answer(6);
    Press(sets, Qt::Key_Delete);
    EXPECT_EQ(sets.model()->rowCount(), 2);
    Press(sets, Qt::Key_Delete);
    EXPECT_EQ(boxes_.Last().text, u"确定要删除第 2 项和它的 0 个字段对应吗？"_s);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Pairs(), QStringList({u"1|Lwdj|Wenshu"_s}));
  });
}

TEST_P(WindowTest, BadRowsAreShownWithWhatIsWrong) {
  AddPair(u"2"_s, u"Nothing"_s, u"<null>"_s);
  AddField(u"9"_s, u"Unit"_s, u"Author"_s, QString());
  Open([](QWidget& window) {
    const QStringList sets = Shown(window, u"LvSets"_s);
    ASSERT_EQ(sets.size(), 3);
    EXPECT_THAT(sets[1].toStdString(), HasSubstr("数据库中没有来源表“Nothing”；没有填写目标表"));
    EXPECT_THAT(sets[2].toStdString(), HasSubstr("没有所属的来源表和目标表（编号 9）"));
    QAbstractItemView& list = List(window, u"LvSets"_s);
    EXPECT_FALSE(list.model()->index(1, 4).data(Qt::DecorationRole).value<QIcon>().isNull());
    list.setCurrentIndex(list.model()->index(1, 0));
    EXPECT_EQ(Shown(window, u"LvSource"_s), QStringList());
    list.setCurrentIndex(list.model()->index(2, 0));
    EXPECT_THAT(Shown(window, u"LvLinks"_s).value(0).toStdString(), HasSubstr("归档不会用到"));
    EXPECT_FALSE(FindAction(window, u"TlbLinks"_s, u"CmdLink"_s).isEnabled());
    EXPECT_TRUE(FindAction(window, u"TlbLinks"_s, u"CmdUnlink"_s).isEnabled());
  });
}

TEST_P(WindowTest, ANumberIsComposedWhileItIsEdited) {
  design_->Insert(u"FondsDefine"_s, u"FondsNo,FondsName"_s, {u"J012"_s, u"市档案局"_s});
  Open([this](QWidget& window) {
    Find<QTabWidget>(window, u"TabSettings"_s).setCurrentIndex(1);
    EXPECT_EQ(UnnamedControls(window), QStringList());
    EXPECT_EQ(TextIn(window, u"LblExample"_s), u"J012-2002-0001"_s);
    EXPECT_EQ(TextIn(window, u"LblFindings"_s), QString());
    QAbstractItemView& parts = List(window, u"LvParts"_s);
    parts.setFocus();
    parts.setCurrentIndex(parts.model()->index(1, 0));
    Press(parts, Qt::Key_F2);
    EXPECT_TRUE(Find(window, u"CmbPartField"_s).hasFocus());
    Retype(Find(window, u"TxtSeparator"_s), u"·"_s);
    EXPECT_EQ(TextIn(window, u"LblExample"_s), u"J012·2002-0001"_s);
    Find<QSpinBox>(window, u"SpnLength"_s).setValue(6);
    EXPECT_EQ(TextIn(window, u"LblExample"_s), u"J012·002002-0001"_s);
    Retype(Find(window, u"TxtSample"_s), u"1999"_s);
    EXPECT_EQ(TextIn(window, u"LblExample"_s), u"J012·001999-0001"_s);
    ChooseIn(window, u"CmbFolderField"_s, u"FolderNo"_s);
    EXPECT_EQ(TextIn(window, u"LblExampleFolder"_s), u"案卷号：J012·001999　档号最长 17 字节"_s);
    parts.setFocus();
    Press(parts, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(TextIn(window, u"LblExample"_s), u"001999-J012-0001"_s);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Parts(u"Wenshu"_s)[0], u"DocYear|年度|·|显示名称|6|ArchNo|FolderNo"_s);
  });
}

TEST_P(WindowTest, ANumberThatCannotBeComposedIsNoObstacle) {
  for (const QString& table : {u"FondsDefine"_s, u"AssistantDicKey"_s}) design_->Run(u"drop table "_s + table);
  design_->Run(u"update DynamicWindows set AuxiDictDetails = '年度表' where FieldName = 'DocYear'"_s);
  Open([](QWidget& window) {
    Find<QTabWidget>(window, u"TabSettings"_s).setCurrentIndex(1);
    QAbstractItemView& parts = List(window, u"LvParts"_s);
    EXPECT_EQ(Shown(window, u"LvParts"_s)[1], u"2|年度 DocYear|-|4|名称|1|"_s);
    parts.setCurrentIndex(parts.model()->index(1, 0));
    Click(Find(window, u"ChkShowCode"_s));  // its code is looked up
    EXPECT_EQ(TextIn(window, u"LblExample"_s), u"（不能组成示例）"_s);
    EXPECT_NE(TextIn(window, u"LblExampleFolder"_s), QString());
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(CanSave(window));
  });
  EXPECT_THAT(boxes_.Texts(), testing::IsEmpty());
}

TEST_P(WindowTest, AWidthThatCannotBeShownStaysUntilAnotherIsGiven) {
  design_->Run(u"delete from ArchiveNo_Format where FieldName = 'ItemNo'"_s);
  AddPart(u"Wenshu"_s, u"ItemNo"_s, u"件号"_s, u"40000"_s);
  Open([this](QWidget& window) {
    Find<QTabWidget>(window, u"TabSettings"_s).setCurrentIndex(1);
    QAbstractItemView& parts = List(window, u"LvParts"_s);
    parts.setCurrentIndex(parts.model()->index(2, 0));
    EXPECT_THAT(Shown(window, u"LvParts"_s)[2].toStdString(), HasSubstr("宽度“40000”不是可用的数字"));
    Retype(Find(window, u"TxtSeparator"_s), u"/"_s);
    EXPECT_TRUE(Shown(window, u"LvParts"_s)[2].startsWith(u"3|件号 ItemNo|/|40000|"_s));
    Find<QSpinBox>(window, u"SpnLength"_s).setValue(5);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Parts(u"Wenshu"_s)[2], u"ItemNo|件号|/|显示名称|5|ArchNo|(无)"_s);
  });
}

TEST_P(WindowTest, PartsAreAddedAndDeleted) {
  Open([this](QWidget& window) {
    Find<QTabWidget>(window, u"TabSettings"_s).setCurrentIndex(1);
    ChooseIn(window, u"CmbTable"_s, u"Anjuan"_s);
    QAbstractItemView& parts = List(window, u"LvParts"_s);
    EXPECT_EQ(parts.model()->rowCount(), 0);
    EXPECT_FALSE(Find(window, u"CmbPartField"_s).isEnabled());
    parts.setFocus();
    Press(parts, Qt::Key_Insert);
    EXPECT_THAT(Shown(window, u"LvParts"_s).value(0).toStdString(), HasSubstr("没有选择字段"));
    ChooseIn(window, u"CmbPartField"_s, u"Amaintitle"_s);
    ChooseIn(window, u"CmbStoreField"_s, u"Amaintitle"_s);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Parts(u"Anjuan"_s), QStringList({u"Amaintitle|案卷题名|-|显示名称|4|Amaintitle|(无)"_s}));
    parts.setFocus();
    Press(parts, Qt::Key_Delete);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Parts(u"Anjuan"_s), QStringList());
  });
}

TEST_P(WindowTest, ErrorsAreAskedAboutBeforeASave) {
  AddField(u"1"_s, u"Lost"_s, u"Author"_s, QString());
  Open([this](QWidget& window) {
    Press(window, Qt::Key_G, Qt::ControlModifier);
    Press(window, Qt::Key_S, Qt::ControlModifier);  // answered with No
    EXPECT_THAT(boxes_.Last().text.toStdString(), HasSubstr("1 个字段对应有错误"));
    EXPECT_TRUE(CanSave(window));
    boxes_.Answer(6);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(CanSave(window));
  });
}

TEST_P(WindowTest, ClosingAsksAboutWhatIsNotSaved) {
  const auto change = [](QWidget& window) { Press(window, Qt::Key_G, Qt::ControlModifier); };
  Open([&](QWidget& window) {
    change(window);
    boxes_.Answer(2).Answer(7);
    Press(window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    Press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Fields().size(), 2);
  Open([&](QWidget& window) {
    change(window);
    boxes_.Answer(6);
    window.close();
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Fields().size(), 4);
  boxes_.Clear();
  Open([](QWidget& window) { Press(window, Qt::Key_Escape); });
  EXPECT_EQ(boxes_.Texts(), QStringList());
}

TEST_P(WindowTest, EscapeLeavesTheQuestionAndTheWindow) {
  Services().messageBox = nullptr;
  Open([](QWidget& window) {
    Press(window, Qt::Key_G, Qt::ControlModifier);
    WithWindow(u"QMessageBox"_s, [](QWidget& question) { Press(question, Qt::Key_Escape); });
    window.close();
    EXPECT_TRUE(window.isVisible());
    WaitUntil([&] { return window.isActiveWindow(); });
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(CanSave(window));
  });
}

TEST_P(WindowTest, AnotherUsersChangeIsToldAndReadWhenAskedFor) {
  Open([this](QWidget& window) {
    Press(window, Qt::Key_G, Qt::ControlModifier);
    AddPair(u"2"_s, u"Lwdj"_s, u"Anjuan"_s);
    Press(window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(boxes_.Last().text.toStdString(), HasSubstr("其他用户在此期间修改了归档设置"));
    EXPECT_TRUE(CanSave(window));
    EXPECT_EQ(Fields().size(), 2);
    boxes_.Answer(6);
    Press(window, Qt::Key_F5);
    EXPECT_EQ(Shown(window, u"LvSets"_s).size(), 2);
    EXPECT_FALSE(CanSave(window));
  });
}

TEST_P(WindowTest, TabGoesThroughTheListsAndInputsInTheirOrder) {
  Open([](QWidget& window) {
    const auto walk = [&](const QStringList& names) {
      Find(window, names.first()).setFocus();
      for (const QString& name : names.mid(1)) {
        Press(*QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
      }
    };
    walk({u"LvSets"_s, u"LvSource"_s, u"LvDestination"_s, u"LvLinks"_s, u"CmdReload"_s});
    Find<QTabWidget>(window, u"TabSettings"_s).setCurrentIndex(1);
    walk({u"CmbTable"_s, u"LvParts"_s, u"CmbPartField"_s, u"TxtSeparator"_s, u"SpnLength"_s, u"ChkShowCode"_s,
          u"TxtSample"_s, u"CmbStoreField"_s, u"CmbFolderField"_s, u"CmdReload"_s});
  });
}

TEST_P(WindowTest, SizesAndWidthsAreKept) {
  Open([](QWidget& window) {
    window.resize(1111, 666);
    Find<QTreeView>(window, u"LvLinks"_s).setColumnWidth(0, 123);
    Find<QSplitter>(window, u"SplSets"_s).setSizes({300, 250});
  });
  Open([](QWidget& window) {
    EXPECT_EQ(window.size(), QSize(1111, 666));
    EXPECT_EQ(Find<QTreeView>(window, u"LvLinks"_s).columnWidth(0), 123);
    EXPECT_GT(Find<QSplitter>(window, u"SplSets"_s).sizes()[0], 250);
  });
}

TEST_P(WindowTest, HelpIsThatOfTheWindow) {
  QString topic;
  program_.Write(u"help.chm"_s, "");
  Services().showHelp = [&](QWidget*, const QString&, const QString& shown) { topic = shown; };
  Open([](QWidget& window) { Press(window, Qt::Key_F1); });
  EXPECT_EQ(topic, u"归档设置.htm"_s);
}

TEST_P(WindowTest, WithoutTheTablesThereIsNoWindow) {
  design_->Run(u"drop table DataTransfer_Ini"_s);
  const DataError error = ErrorOf([this] { Services().editTransferSettings(Connected(), u"TransSet"_s); });
  EXPECT_THAT(error.Message().toStdString(), HasSubstr("缺少表：DataTransfer_Ini"));
  EXPECT_EQ(ErrorOf([this] { Services().editTransferSettings(Connected(), u"Other"_s); }).Kind(), DataErrorKind::Usage);
  EXPECT_EQ(ErrorOf([] { Services().editTransferSettings(nullptr, u"TransSet"_s); }).Kind(), DataErrorKind::Usage);
}

TEST_P(WindowTest, WithoutSettingsTheListsSayWhatToDo) {
  for (const QString& table : {u"DataTransfer_Ini"_s, u"DataTransfer_Details"_s, u"ArchiveNo_Format"_s})
    design_->Run(u"delete from "_s + table);
  Open([](QWidget& window) {
    EXPECT_EQ(Shown(window, u"LvSets"_s), QStringList());
    for (const QString& key : {u"CmdEditSet"_s, u"CmdDeleteSet"_s})
      EXPECT_FALSE(FindAction(window, u"TlbSets"_s, key).isEnabled());
    for (const QString& key : {u"CmdLink"_s, u"CmdUnlink"_s, u"CmdSuggest"_s, u"CmdTake"_s})
      EXPECT_FALSE(FindAction(window, u"TlbLinks"_s, key).isEnabled());
    Find<QTabWidget>(window, u"TabSettings"_s).setCurrentIndex(1);
    EXPECT_EQ(TextIn(window, u"LblExample"_s), u"（没有格式）"_s);
  });
}

}  // namespace
}  // namespace folvane::test
