#include "host/tour/Work.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kReplace = u"FrmReplace"_s, kSimple = u"frmSimFind"_s, kCompound = u"frmfhfind"_s,
              kOrder = u"FrmOrderBy"_s, kMove = u"FrmRecordMove"_s, kUpdate = u"FrmBactchUpdate"_s;
const QString kTitle = u"青岚市档案馆关于开展数字档案室评价工作的通知"_s;
const QString kSender = u"青岚市档案馆"_s;
constexpr int kFieldsAtMost = 40;

// Goes on by Enter until the field has the focus.
void WalkTo(const QString& name) {
  const auto& field = In<QWidget>(kEntry, name);
  for (int passed = 0; passed < kFieldsAtMost; ++passed) {
    QWidget* focus = QApplication::focusWidget();
    Expect(focus, u"nothing has the focus"_s);
    if (focus == &field || field.isAncestorOf(focus)) return;
    hands::Press(*focus, Qt::Key_Return);
  }
  throw TourError(u"Enter does not lead to "_s + name);
}

void Fill(const QString& field, const QString& text) {
  WalkTo(field);
  hands::Retype(*QApplication::focusWidget(), text);
}

void PlanAdding(Tour& tour) {
  tour.Step(u"begin a new document"_s, Shown(kBrowser), [] {
    Refresh();
    hands::ClickKey(Window(kBrowser), u"tlb"_s, u"NEW"_s);
  });
  tour.Step(u"fill it in by keyboard"_s, Shown(kEntry), [&tour] {
    Fill(u"Txt(2)"_s, u"青档发〔2026〕9号"_s);
    Fill(u"Txt_MLine(1)"_s, kTitle);
    Fill(u"Cmb(1)"_s, kSender);
    tour.Picture(Window(kEntry), u"entry"_s);
  });
  tour.Step(u"save it"_s, Shown(kEntry), [&tour] {
    hands::ClickKey(Window(kEntry), u"TlbCool"_s, u"SaveRecord"_s);
    const QString status = In<QLabel>(kEntry, u"Panel(1)"_s).text();
    Expect(status == u"准备就绪"_s, status);
    tour.Picture(Window(kEntry), u"entry-saved"_s);
  });
  tour.Step(u"close the entry window"_s, Shown(kEntry), [] { Window(kEntry).close(); });
  tour.Step(u"the list stands on the new document"_s, Shown(kBrowser), [&tour] {
    Expect(Cell(u"Amaintitle"_s) == kTitle, Cell(u"Amaintitle"_s));
    Expect(Cell(u"RegID"_s).toInt() > 1, u"the document has no number of its year"_s);
    tour.Picture(Window(kBrowser), u"added"_s);
  });
}

void PlanSearching(Tour& tour) {
  tour.Step(u"find it by the search bar"_s, Shown(kBrowser), [&tour] {
    hands::Type(In<QComboBox>(kBrowser, u"CboValue"_s), u"数字档案室评价"_s);
    hands::Click(In<QWidget>(kBrowser, u"CmdSearch"_s));
    Expect(Cell(u"Amaintitle"_s) == kTitle, Cell(u"Amaintitle"_s));
    tour.Picture(Window(kBrowser), u"quick-search"_s);
  });
  tour.Step(u"ask for the simple query"_s, Shown(kBrowser),
            [] { hands::ClickKey(Window(kBrowser), u"tlb"_s, u"Search"_s); });
  tour.Step(u"fill it in"_s, Shown(kSimple), [&tour] {
    auto& likeTitle = In<QWidget>(kSimple, u"F_Sim(1)"_s);
    hands::Type(likeTitle, u"档案"_s);
    tour.Picture(Window(kSimple), u"simple-query"_s);
    hands::Press(likeTitle, Qt::Key_Return);
  });
  tour.Step(u"what the simple query found"_s, Shown(kBrowser), [&tour] {
    Expect(Rows() > 1, Position());
    tour.Picture(Window(kBrowser), u"simple-query-found"_s);
  });
  tour.Step(u"ask for the compound query"_s, Shown(kBrowser), [] { ChooseEntry(kBrowser, u"mnu_Tool4_HSearch"_s); });
  tour.Step(u"run the conditions saved there"_s, Shown(kCompound), [&tour] {
    tour.Picture(Window(kCompound), u"compound-query"_s);
    hands::ClickKey(Window(kCompound), u"Toolbar1"_s, u"F_Query"_s);
  });
  tour.Step(u"what the compound query found"_s, Shown(kBrowser), [&tour] {
    Expect(Rows() > 0, Position());
    tour.Picture(Window(kBrowser), u"compound-query-found"_s);
  });
}

void PlanOrdering(Tour& tour) {
  tour.Step(u"ask for an order"_s, Shown(kBrowser), [] {
    Refresh();
    ChooseEntry(kBrowser, u"mnu_Tool3_Sort"_s);
  });
  tour.Step(u"add the first field on offer to it"_s, Shown(kOrder), [&tour] {
    auto& offered = In<QAbstractItemView>(kOrder, u"LV1"_s);
    hands::ClickItem(offered, offered.model()->index(0, 0));
    hands::Click(In<QWidget>(kOrder, u"CmdSort(2)"_s));
    tour.Picture(Window(kOrder), u"order"_s);
    hands::Click(In<QWidget>(kOrder, u"CmdOK"_s));
  });
  tour.Step(u"the list in that order"_s, Shown(kBrowser), [&tour] {
    Expect(!List().model()->headerData(1, Qt::Horizontal).toString().contains(u"↓"_s), u"the arrow has stayed"_s);
    tour.Picture(Window(kBrowser), u"ordered"_s);
  });
  tour.Step(u"ask for a record by its number"_s, Shown(kBrowser),
            [] { ChooseEntry(kBrowser, u"mnu_Goto4_Location"_s); });
  tour.Step(u"name the fortieth"_s, Shown(kMove), [&tour] {
    auto& number = In<QLineEdit>(kMove, u"TxtMoveNo"_s);
    hands::Type(number, u"40"_s);
    tour.Picture(Window(kMove), u"record-move"_s);
    hands::Press(number, Qt::Key_Return);
  });
  tour.Step(u"the list stands on the fortieth"_s, Shown(kBrowser),
            [] { Expect(PositionAndCount().first == 40, Position()); });
}

void PlanUpdating(Tour& tour) {
  constexpr int kYes = 6;
  tour.Step(u"ask for the batch update"_s, Shown(kBrowser), [] { ChooseEntry(kBrowser, u"mnu_Tool1_BUpdate"_s); });
  tour.Step(u"say what to replace by what"_s, Shown(kUpdate), [&tour] {
    auto& fields = In<QComboBox>(kUpdate, u"Cbo_Field"_s);
    hands::Choose(fields, fields.findText(u"来文单位"_s));
    hands::Type(In<QComboBox>(kUpdate, u"Cbo_Find"_s), kSender);
    hands::Type(In<QLineEdit>(kUpdate, u"TxtValue"_s), u"青岚市档案局"_s);
    hands::Click(In<QCheckBox>(kUpdate, u"Chk_All"_s));
    tour.Picture(Window(kUpdate), u"batch-update"_s);
    hands::Click(In<QWidget>(kUpdate, u"CmdOK"_s));
  });
  tour.Step(
      u"say yes to the question"_s, [] { return AnswerKey(kYes) != nullptr; },
      [&tour] {
        const QString count = In<QLabel>(kUpdate, u"LblCount"_s).text();
        Expect(count.contains(u"：1条"_s), count);
        tour.Picture(Window(kUpdate), u"batch-update-count"_s);
        tour.Picture(*AnswerKey(kYes)->window(), u"batch-update-question"_s);
        hands::Click(*AnswerKey(kYes));
      });
}

void PlanBatchDeletion(Tour& tour) {
  constexpr int kCancel = 2;
  tour.Step(u"ask for the batch deletion"_s, Shown(kBrowser), [] { ChooseEntry(kBrowser, u"mnu_Tool2_BDel"_s); });
  tour.Step(u"by the conditions saved there"_s, Shown(kCompound),
            [] { hands::ClickKey(Window(kCompound), u"Toolbar1"_s, u"F_Query"_s); });
  tour.Step(
      u"see how many would go, and leave them"_s, [] { return AnswerKey(kCancel) != nullptr; },
      [&tour] {
        auto& question = static_cast<QMessageBox&>(*AnswerKey(kCancel)->window());
        Expect(question.informativeText().startsWith(u"将删除 "_s), question.informativeText());
        tour.Picture(question, u"batch-deletion-question"_s);
        hands::Click(*AnswerKey(kCancel));
        Window(kBrowser).activateWindow();  // as a window manager does; offscreen there is none
      });
}

void PlanReplacing(Tour& tour) {
  tour.Step(u"open a document"_s, Shown(kBrowser), [] { hands::ClickKey(Window(kBrowser), u"tlb"_s, u"Mod"_s); });
  tour.Step(u"ask for the replacement beside it"_s, Shown(kEntry), [] { ChooseEntry(kEntry, u"mnuReplace"_s); });
  tour.Step(u"find the next one and replace it"_s, Shown(kReplace), [&tour] {
    hands::Type(In<QComboBox>(kReplace, u"CboFindTxt"_s), u"青岚市档案局"_s);
    hands::Click(In<QWidget>(kReplace, u"CmdFindNext"_s));
    hands::Type(In<QComboBox>(kReplace, u"CboRelaceTxt"_s), kSender);
    tour.Picture(Window(kReplace), u"replace"_s);
    tour.Picture(Window(kEntry), u"replace-hit"_s);
    hands::Click(In<QWidget>(kReplace, u"CmdReplace"_s));
  });
  tour.Step(
      u"close both"_s, [] { return VisibleWindow(kEntry) != nullptr; }, [] { Window(kEntry).close(); });
  tour.Step(u"back in the list"_s, Shown(kBrowser), [&tour] {
    const QString sender = Cell(u"ResponsibleBy"_s);
    Expect(sender == kSender, sender);
    tour.Picture(Window(kBrowser), u"replaced"_s);
  });
}

}  // namespace

void PlanWork(Tour& tour) {
  PlanAdding(tour);
  PlanSearching(tour);
  PlanOrdering(tour);
  PlanUpdating(tour);
  PlanBatchDeletion(tour);
  PlanReplacing(tour);
}

}  // namespace folvane::host
