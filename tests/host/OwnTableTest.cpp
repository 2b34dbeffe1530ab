#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeView>
#include <gmock/gmock.h>

#include <folvane/Design.h>
#include <folvane/HostServices.h>
#include <folvane/ResultSet.h>

#include "host/LogOnDialog.h"
#include "host/StartWindow.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

// The steps of docs/first-table.md, one after the other, as the page tells them.
namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kOfficeSecret = u"correct horse"_s;

QAction& Command(QWidget& window, const QString& name) { return Find<QAction>(window, name); }

QTreeView& ChooseIn(QWidget& window, const QString& tree, const QString& node) {
  auto& view = Find<QTreeView>(window, tree);
  const auto found =
      view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, node, -1, Qt::MatchExactly | Qt::MatchRecursive);
  EXPECT_FALSE(found.isEmpty()) << node.toStdString();
  if (!found.isEmpty()) view.setCurrentIndex(found.last());
  return view;
}

class OwnTableTest : public testing::Test {
 protected:
  void SetUp() override {
    FixClock(QDateTime(QDate(2026, 6, 18), QTime(9, 30)));
    Services().programDirectory = folder_.path();
    Services().fileDialog = [this](const FileRequest&) { return folder_.filePath(u"合同室.db"_s); };
  }

  // 1: an office without any of the ready-made designs.
  std::unique_ptr<host::Session> NewOffice() {
    host::LogOnDialog logOn({}, []() -> QString { return {}; });
    logOn.show();
    WithWindow(u"NewOfficeDialog"_s, [](QWidget& dialog) {
      auto& designs = Find<QListWidget>(dialog, u"LstDesigns"_s);
      for (int row = 0; row < designs.count(); ++row) designs.item(row)->setCheckState(Qt::Unchecked);
      Click(Find(dialog, u"CmdBrowse"_s));
      Retype(Find<QLineEdit>(dialog, u"TxtName"_s), u"李馆长"_s);
      for (const QString& box : {u"TxtPassword"_s, u"TxtRepeat"_s}) Retype(Find<QLineEdit>(dialog, box), kOfficeSecret);
      Click(Find(dialog, u"CmdOK"_s));
    });
    Click(Find(logOn, u"CmdNew"_s));
    Retype(Find<QLineEdit>(logOn, u"TxtPassword"_s), kOfficeSecret);
    Click(Find(logOn, u"CmdOK"_s));
    EXPECT_EQ(logOn.result(), QDialog::Accepted);
    return logOn.TakeSession();
  }

  // 2 and 3: the table with its ten fields.
  static void MakeTable(QWidget& designer) {
    WithWindow(u"NewTableDialog"_s, [](QWidget& dialog) {
      Type(Find(dialog, u"TxtCaption"_s), u"合同登记"_s);
      Click(Find(dialog, u"CmdOK"_s));
    });
    Command(designer, u"mnuNewTable"_s).trigger();
    auto& grid = Find<QAbstractItemView>(designer, u"GrdFields"_s);
    const auto set = [&](int row, int column, const QVariant& value) {
      EXPECT_TRUE(grid.model()->setData(grid.model()->index(row, column), value)) << row << ' ' << column;
    };
    set(2, 0, u"合同名称"_s);
    int row = 2;
    for (const auto& [caption, type, length] :
         {std::tuple{u"对方单位"_s, QString(), 60}, std::tuple{u"合同类别"_s, QString(), 20},
          std::tuple{u"签订日期"_s, u"日期型"_s, 10}, std::tuple{u"合同金额"_s, u"数值型"_s, 12},
          std::tuple{u"履行期限"_s, u"日期型"_s, 10}, std::tuple{u"承办部门"_s, QString(), 30},
          std::tuple{u"备注"_s, QString(), 200}}) {
      Command(designer, u"GrdFieldsAdd"_s).trigger();
      set(++row, 0, caption);
      if (!type.isEmpty()) set(row, 2, type);
      set(row, 3, length);
    }
    EXPECT_EQ(grid.model()->rowCount(), 10);
  }

  // 6: everything is written.
  static void Apply(QWidget& designer) {
    WithWindow(u"PlanDialog"_s, [](QWidget& dialog) { Click(Find(dialog, u"CmdOK"_s)); });
    Command(designer, u"mnuApply"_s).trigger();
    EXPECT_FALSE(designer.isWindowModified()) << TextIn(designer, u"Notice"_s).toStdString();
    Command(designer, u"mnuCheckAll"_s).trigger();
    EXPECT_EQ(Find<QTreeView>(designer, u"LstFindings"_s).model()->rowCount(), 0);
  }

  // 7: the first record.
  static void Register(QWidget& browser) {
    for (int step = 0; step < 2; ++step) ChooseIn(browser, u"TV_File"_s, u"合同登记"_s);  // the class, then the table
    WithWindow(u"FrmInput"_s, [](QWidget& form) {
      const auto field = [&](const QString& name) -> QWidget& {
        for (QWidget* widget : form.findChildren<QWidget*>())
          if (widget->property("DataField") == name) return *widget;
        ADD_FAILURE() << name.toStdString();
        return form;
      };
      Retype(field(u"Amaintitle"_s), u"机房空调采购合同"_s);
      Retype(field(u"对方单位"_s), u"青岚市暖通设备公司"_s);
      Retype(field(u"合同金额"_s), u"86000"_s);
      Retype(field(u"签订日期"_s), u"2026-06-15"_s);
      QAction& save = FindAction(form, u"TlbCool"_s, u"SaveRecord"_s);
      if (WaitUntil([&] { return save.isEnabled(); })) save.trigger();
    });
    FindAction(browser, u"tlb"_s, u"NEW"_s).trigger();
    const QAbstractItemModel& list = *Find<QTreeView>(browser, u"LVData"_s).model();
    EXPECT_EQ(list.rowCount(), 1);
  }

  QTemporaryDir folder_;
  MessageBoxes boxes_;
};

TEST_F(OwnTableTest, FromAnEmptyFolderToTheFirstRecord) {
  const auto session = NewOffice();
  ASSERT_TRUE(session);
  host::StartWindow start(*session, [&](const host::Entry& entry) { (session->Library().*entry.open)(); });
  start.show();
  WithWindow(u"FrmDesigner"_s, [](QWidget& designer) {
    MakeTable(designer);
    Apply(designer);
  });
  Click(Find(start, u"CmdDesign"_s));
  WithWindow(u"FrmMain"_s, Register);
  Click(Find(start, u"FileOpen"_s));
  EXPECT_EQ(boxes_.Texts(), QStringList());

  const ResultSet rows(*session->Database().Connection(),
                       u"Select RegID, CreatedDate, Amaintitle, 合同金额, 签订日期 From 合同登记"_s);
  ASSERT_EQ(rows.RowCount(), 1);
  EXPECT_EQ(rows.Text(0, 0), u"1");
  EXPECT_EQ(rows.Text(0, 1), u"2026-06-18");
  EXPECT_EQ(rows.Text(0, 2), u"机房空调采购合同");
  EXPECT_EQ(rows.Text(0, 3), u"86000");
  EXPECT_EQ(rows.Text(0, 4), u"2026-06-15");
}

}  // namespace
}  // namespace folvane::test
