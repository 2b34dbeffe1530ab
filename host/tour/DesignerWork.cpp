#include "host/tour/DesignerWork.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <tuple>

#include <folvane/HostServices.h>

#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kNewOffice = u"NewOfficeDialog"_s, kDesigner = u"FrmDesigner"_s, kNewTable = u"NewTableDialog"_s,
              kPlan = u"PlanDialog"_s;
const QString kSecret = u"correct horse"_s, kTable = u"合同登记"_s;
constexpr QSize kDesignerSize(1180, 740);

QString OfficeFile() { return Services().programDirectory + u"/合同室.db"_s; }

void PlanOffice(Tour& tour) {
  tour.Step(u"ask for a new office"_s, Shown(kLogOn), [] { hands::Click(In<QWidget>(kLogOn, u"CmdNew"_s)); });
  tour.Step(u"say where it is and who keeps it"_s, Shown(kNewOffice), [&tour] {
    auto& designs = In<QListWidget>(kNewOffice, u"LstDesigns"_s);
    for (int row = 0; row < designs.count(); ++row) designs.item(row)->setCheckState(Qt::Unchecked);
    hands::Retype(In<QLineEdit>(kNewOffice, u"TxtFile"_s), OfficeFile());
    hands::Retype(In<QLineEdit>(kNewOffice, u"TxtName"_s), u"李馆长"_s);
    for (const QString& box : {u"TxtPassword"_s, u"TxtRepeat"_s})
      hands::Retype(In<QLineEdit>(kNewOffice, box), kSecret);
    tour.Picture(Window(kNewOffice), u"own-office"_s);
    hands::Click(In<QWidget>(kNewOffice, u"CmdOK"_s));
  });
  tour.Step(u"log on to it"_s, OnTop(kLogOn), [] {
    hands::Type(In<QWidget>(kLogOn, u"TxtPassword"_s), kSecret);
    hands::Click(In<QWidget>(kLogOn, u"CmdOK"_s));
  });
  tour.Step(u"open the designer"_s, Shown(kStart), [&tour] {
    tour.Picture(Window(kStart), u"own-start"_s);
    hands::Click(In<QWidget>(kStart, u"CmdDesign"_s));
  });
}

QAction& Command(const QString& name) {
  auto* action = Window(kDesigner).findChild<QAction*>(name);
  Expect(action, u"no "_s + name);
  Expect(action->isEnabled(), name + u" is off"_s);
  return *action;
}

void FillFields() {
  auto& grid = In<QAbstractItemView>(kDesigner, u"GrdFields"_s);
  const auto set = [&](int row, int column, const QVariant& value) {
    Expect(grid.model()->setData(grid.model()->index(row, column), value), In<QLabel>(kDesigner, u"Notice"_s).text());
  };
  set(2, 0, u"合同名称"_s);
  int row = 2;
  for (const auto& [caption, type, length] :
       {std::tuple{u"对方单位"_s, QString(), 60}, std::tuple{u"合同类别"_s, QString(), 20},
        std::tuple{u"签订日期"_s, u"日期型"_s, 10}, std::tuple{u"合同金额"_s, u"数值型"_s, 12},
        std::tuple{u"履行期限"_s, u"日期型"_s, 10}, std::tuple{u"承办部门"_s, QString(), 30},
        std::tuple{u"备注"_s, QString(), 200}}) {
    Command(u"GrdFieldsAdd"_s).trigger();
    set(++row, 0, caption);
    if (!type.isEmpty()) set(row, 2, type);
    set(row, 3, length);
  }
  set(4, 4, u"合同类别"_s);
}

// A dictionary with the kinds of contract.
void FillDictionary() {
  auto& tree = In<QAbstractItemView>(kDesigner, u"TreDesign"_s);
  const auto found = tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, u"字典"_s);
  Expect(!found.isEmpty(), u"no node of the dictionaries"_s);
  hands::ClickItem(tree, found.first());
  const auto add = [](const QString& grid, const QString& text) {
    Command(grid + u"Add"_s).trigger();
    QAbstractItemModel& model = *In<QAbstractItemView>(kDesigner, grid).model();
    Expect(model.setData(model.index(model.rowCount() - 1, 0), text), text);
  };
  add(u"GrdDictionaries"_s, u"合同类别"_s);
  for (const QString& kind : {u"采购"_s, u"服务"_s, u"工程"_s}) add(u"GrdEntries"_s, kind);
}

void PlanTable(Tour& tour) {
  tour.Step(u"begin a table"_s, Shown(kDesigner), [] {
    Window(kDesigner).resize(kDesignerSize);
    Command(u"mnuNewTable"_s).trigger();
  });
  tour.Step(u"name it"_s, Shown(kNewTable), [&tour] {
    hands::Type(In<QWidget>(kNewTable, u"TxtCaption"_s), kTable);
    tour.Picture(Window(kNewTable), u"own-table"_s);
    hands::Click(In<QWidget>(kNewTable, u"CmdOK"_s));
  });
  tour.Step(u"give it ten fields"_s, OnTop(kDesigner), [&tour] {
    FillFields();
    tour.Picture(Window(kDesigner), u"own-fields"_s);
  });
  tour.Step(u"look at its form and its list"_s, OnTop(kDesigner), [&tour] {
    auto& pages = In<QTabWidget>(kDesigner, u"TabTable"_s);
    for (const auto& [page, picture] :
         {std::pair{u"FormPage"_s, u"own-form"_s}, std::pair{u"ListPage"_s, u"own-list"_s}}) {
      pages.setCurrentWidget(&In<QWidget>(kDesigner, page));
      tour.Picture(Window(kDesigner), picture);
    }
  });
  tour.Step(u"fill a dictionary"_s, OnTop(kDesigner), [&tour] {
    FillDictionary();
    tour.Picture(Window(kDesigner), u"own-dictionary"_s);
  });
  tour.Step(u"ask what would be written"_s, OnTop(kDesigner), [] { Command(u"mnuApply"_s).trigger(); });
  tour.Step(u"have it written"_s, Shown(kPlan), [&tour] {
    tour.Picture(Window(kPlan), u"own-plan"_s);
    hands::Click(In<QWidget>(kPlan, u"CmdOK"_s));
  });
  tour.Step(u"check it all, and leave"_s, OnTop(kDesigner), [] {
    Command(u"mnuCheckAll"_s).trigger();
    const QString found = In<QLabel>(kDesigner, u"LblFindings"_s).text();
    Expect(found.contains(u"0 个问题，0 条提示"_s), found);
    Window(kDesigner).close();
  });
}

// The class first, then the table under it.
void ChooseTable() {
  const auto found = Tree().model()->match(Tree().model()->index(0, 0), Qt::DisplayRole, kTable, -1,
                                           Qt::MatchExactly | Qt::MatchRecursive);
  Expect(!found.isEmpty(), u"no node "_s + kTable);
  hands::ClickItem(Tree(), found.last());
}

void FillField(const QString& field, const QString& text) {
  for (QWidget* control : Window(kEntry).findChildren<QWidget*>())
    if (control->property("DataField") == field) return hands::Retype(*control, text);
  throw TourError(u"the form has no "_s + field);
}

void PlanFirstRecord(Tour& tour) {
  tour.Step(u"open 文件登记 of the own office"_s, Shown(kStart),
            [] { hands::Click(In<QWidget>(kStart, u"FileOpen"_s)); });
  tour.Step(u"choose the class of the own table"_s, Shown(kBrowser), ChooseTable);
  tour.Step(u"choose the own table"_s, Shown(kBrowser), ChooseTable);
  tour.Step(u"begin its first record"_s, Shown(kBrowser),
            [] { hands::ClickKey(Window(kBrowser), u"tlb"_s, u"NEW"_s); });
  tour.Step(u"fill it in and save it"_s, Shown(kEntry), [&tour] {
    FillField(u"Amaintitle"_s, u"机房空调采购合同"_s);
    FillField(u"对方单位"_s, u"青岚市暖通设备公司"_s);
    FillField(u"合同类别"_s, u"采购"_s);
    FillField(u"签订日期"_s, u"2026-06-15"_s);
    FillField(u"合同金额"_s, u"86000"_s);
    hands::ClickKey(Window(kEntry), u"TlbCool"_s, u"SaveRecord"_s);
    const QString status = In<QLabel>(kEntry, u"Panel(1)"_s).text();
    Expect(status == u"准备就绪"_s, status);
    tour.Picture(Window(kEntry), u"own-record"_s);
    Window(kEntry).close();
  });
  tour.Step(u"see it in the list with its number"_s, Shown(kBrowser), [&tour] {
    Expect(Cell(u"Amaintitle"_s) == u"机房空调采购合同"_s && Cell(u"RegID"_s) == u"1"_s, Cell(u"Amaintitle"_s));
    tour.Picture(Window(kBrowser), u"own-browser"_s);
  });
}

}  // namespace

void PlanOwnTable(Tour& tour) {
  PlanOffice(tour);
  PlanTable(tour);
  PlanFirstRecord(tour);
}

}  // namespace folvane::host
