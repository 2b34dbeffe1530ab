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

const QString kEntry = QStringLiteral("FrmInput"), kReplace = QStringLiteral("FrmReplace"),
              kSimple = QStringLiteral("frmSimFind"), kCompound = QStringLiteral("frmfhfind"),
              kOrder = QStringLiteral("FrmOrderBy"), kMove = QStringLiteral("FrmRecordMove"),
              kUpdate = QStringLiteral("FrmBactchUpdate");
const QString kTitle = QStringLiteral("青岚市档案馆关于开展数字档案室评价工作的通知");
const QString kSender = QStringLiteral("青岚市档案馆");
constexpr int kFieldsAtMost = 40;

// Goes on by Enter until the field has the focus.
void WalkTo(const QString& name) {
  const auto& field = In<QWidget>(kEntry, name);
  for (int passed = 0; passed < kFieldsAtMost; ++passed) {
    QWidget* focus = QApplication::focusWidget();
    Expect(focus, QStringLiteral("nothing has the focus"));
    if (focus == &field || field.isAncestorOf(focus)) return;
    hands::Press(*focus, Qt::Key_Return);
  }
  throw TourError(QStringLiteral("Enter does not lead to ") + name);
}

void Fill(const QString& field, const QString& text) {
  WalkTo(field);
  hands::Retype(*QApplication::focusWidget(), text);
}

void PlanAdding(Tour& tour) {
  tour.Step(QStringLiteral("begin a new document"), Shown(kBrowser), [] {
    Refresh();
    hands::ClickKey(Window(kBrowser), QStringLiteral("tlb"), QStringLiteral("NEW"));
  });
  tour.Step(QStringLiteral("fill it in by keyboard"), Shown(kEntry), [&tour] {
    Fill(QStringLiteral("Txt(2)"), QStringLiteral("青档发〔2026〕9号"));
    Fill(QStringLiteral("Txt_MLine(1)"), kTitle);
    Fill(QStringLiteral("Cmb(1)"), kSender);
    tour.Picture(Window(kEntry), QStringLiteral("entry"));
  });
  tour.Step(QStringLiteral("save it"), Shown(kEntry), [&tour] {
    hands::ClickKey(Window(kEntry), QStringLiteral("TlbCool"), QStringLiteral("SaveRecord"));
    const QString status = In<QLabel>(kEntry, QStringLiteral("Panel(1)")).text();
    Expect(status == QStringLiteral("准备就绪"), status);
    tour.Picture(Window(kEntry), QStringLiteral("entry-saved"));
  });
  tour.Step(QStringLiteral("close the entry window"), Shown(kEntry), [] { Window(kEntry).close(); });
  tour.Step(QStringLiteral("the list stands on the new document"), Shown(kBrowser), [&tour] {
    Expect(Cell(QStringLiteral("Amaintitle")) == kTitle, Cell(QStringLiteral("Amaintitle")));
    Expect(Cell(QStringLiteral("RegID")).toInt() > 1, QStringLiteral("the document has no number of its year"));
    tour.Picture(Window(kBrowser), QStringLiteral("added"));
  });
}

void PlanSearching(Tour& tour) {
  tour.Step(QStringLiteral("find it by the search bar"), Shown(kBrowser), [&tour] {
    hands::Type(In<QComboBox>(kBrowser, QStringLiteral("CboValue")), QStringLiteral("数字档案室评价"));
    hands::Click(In<QWidget>(kBrowser, QStringLiteral("CmdSearch")));
    Expect(Cell(QStringLiteral("Amaintitle")) == kTitle, Cell(QStringLiteral("Amaintitle")));
    tour.Picture(Window(kBrowser), QStringLiteral("quick-search"));
  });
  tour.Step(QStringLiteral("ask for the simple query"), Shown(kBrowser),
            [] { hands::ClickKey(Window(kBrowser), QStringLiteral("tlb"), QStringLiteral("Search")); });
  tour.Step(QStringLiteral("fill it in"), Shown(kSimple), [&tour] {
    auto& likeTitle = In<QWidget>(kSimple, QStringLiteral("F_Sim(1)"));
    hands::Type(likeTitle, QStringLiteral("档案"));
    tour.Picture(Window(kSimple), QStringLiteral("simple-query"));
    hands::Press(likeTitle, Qt::Key_Return);
  });
  tour.Step(QStringLiteral("what the simple query found"), Shown(kBrowser), [&tour] {
    Expect(Rows() > 1, Position());
    tour.Picture(Window(kBrowser), QStringLiteral("simple-query-found"));
  });
  tour.Step(QStringLiteral("ask for the compound query"), Shown(kBrowser),
            [] { ChooseEntry(kBrowser, QStringLiteral("mnu_Tool4_HSearch")); });
  tour.Step(QStringLiteral("run the conditions saved there"), Shown(kCompound), [&tour] {
    tour.Picture(Window(kCompound), QStringLiteral("compound-query"));
    hands::ClickKey(Window(kCompound), QStringLiteral("Toolbar1"), QStringLiteral("F_Query"));
  });
  tour.Step(QStringLiteral("what the compound query found"), Shown(kBrowser), [&tour] {
    Expect(Rows() > 0, Position());
    tour.Picture(Window(kBrowser), QStringLiteral("compound-query-found"));
  });
}

void PlanOrdering(Tour& tour) {
  tour.Step(QStringLiteral("ask for an order"), Shown(kBrowser), [] {
    Refresh();
    ChooseEntry(kBrowser, QStringLiteral("mnu_Tool3_Sort"));
  });
  tour.Step(QStringLiteral("add the first field on offer to it"), Shown(kOrder), [&tour] {
    auto& offered = In<QAbstractItemView>(kOrder, QStringLiteral("LV1"));
    hands::ClickItem(offered, offered.model()->index(0, 0));
    hands::Click(In<QWidget>(kOrder, QStringLiteral("CmdSort(2)")));
    tour.Picture(Window(kOrder), QStringLiteral("order"));
    hands::Click(In<QWidget>(kOrder, QStringLiteral("CmdOK")));
  });
  tour.Step(QStringLiteral("the list in that order"), Shown(kBrowser), [&tour] {
    Expect(!List().model()->headerData(1, Qt::Horizontal).toString().contains(QStringLiteral("↓")),
           QStringLiteral("the arrow has stayed"));
    tour.Picture(Window(kBrowser), QStringLiteral("ordered"));
  });
  tour.Step(QStringLiteral("ask for a record by its number"), Shown(kBrowser),
            [] { ChooseEntry(kBrowser, QStringLiteral("mnu_Goto4_Location")); });
  tour.Step(QStringLiteral("name the fortieth"), Shown(kMove), [&tour] {
    auto& number = In<QLineEdit>(kMove, QStringLiteral("TxtMoveNo"));
    hands::Type(number, QStringLiteral("40"));
    tour.Picture(Window(kMove), QStringLiteral("record-move"));
    hands::Press(number, Qt::Key_Return);
  });
  tour.Step(QStringLiteral("the list stands on the fortieth"), Shown(kBrowser),
            [] { Expect(PositionAndCount().first == 40, Position()); });
}

QWidget* AnswerKey(int answer) {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!box || !box->isVisible()) return nullptr;
  for (QAbstractButton* button : box->buttons()) {
    if (button->property("Answer").toInt() == answer) return button;
  }
  return nullptr;
}

void PlanUpdating(Tour& tour) {
  constexpr int kYes = 6;
  tour.Step(QStringLiteral("ask for the batch update"), Shown(kBrowser),
            [] { ChooseEntry(kBrowser, QStringLiteral("mnu_Tool1_BUpdate")); });
  tour.Step(QStringLiteral("say what to replace by what"), Shown(kUpdate), [&tour] {
    auto& fields = In<QComboBox>(kUpdate, QStringLiteral("Cbo_Field"));
    hands::Choose(fields, fields.findText(QStringLiteral("来文单位")));
    hands::Type(In<QComboBox>(kUpdate, QStringLiteral("Cbo_Find")), kSender);
    hands::Type(In<QLineEdit>(kUpdate, QStringLiteral("TxtValue")), QStringLiteral("青岚市档案局"));
    hands::Click(In<QCheckBox>(kUpdate, QStringLiteral("Chk_All")));
    tour.Picture(Window(kUpdate), QStringLiteral("batch-update"));
    hands::Click(In<QWidget>(kUpdate, QStringLiteral("CmdOK")));
  });
  tour.Step(
      QStringLiteral("say yes to the question"), [] { return AnswerKey(kYes) != nullptr; },
      [&tour] {
        const QString count = In<QLabel>(kUpdate, QStringLiteral("LblCount")).text();
        Expect(count.contains(QStringLiteral("：1条")), count);
        tour.Picture(Window(kUpdate), QStringLiteral("batch-update-count"));
        tour.Picture(*AnswerKey(kYes)->window(), QStringLiteral("batch-update-question"));
        hands::Click(*AnswerKey(kYes));
      });
}

void PlanBatchDeletion(Tour& tour) {
  constexpr int kCancel = 2;
  tour.Step(QStringLiteral("ask for the batch deletion"), Shown(kBrowser),
            [] { ChooseEntry(kBrowser, QStringLiteral("mnu_Tool2_BDel")); });
  tour.Step(QStringLiteral("by the conditions saved there"), Shown(kCompound),
            [] { hands::ClickKey(Window(kCompound), QStringLiteral("Toolbar1"), QStringLiteral("F_Query")); });
  tour.Step(
      QStringLiteral("see how many would go, and leave them"), [] { return AnswerKey(kCancel) != nullptr; },
      [&tour] {
        auto& question = static_cast<QMessageBox&>(*AnswerKey(kCancel)->window());
        Expect(question.informativeText().startsWith(QStringLiteral("将删除 ")), question.informativeText());
        tour.Picture(question, QStringLiteral("batch-deletion-question"));
        hands::Click(*AnswerKey(kCancel));
        Window(kBrowser).activateWindow();  // as a window manager does; offscreen there is none
      });
}

void PlanReplacing(Tour& tour) {
  tour.Step(QStringLiteral("open a document"), Shown(kBrowser),
            [] { hands::ClickKey(Window(kBrowser), QStringLiteral("tlb"), QStringLiteral("Mod")); });
  tour.Step(QStringLiteral("ask for the replacement beside it"), Shown(kEntry),
            [] { ChooseEntry(kEntry, QStringLiteral("mnuReplace")); });
  tour.Step(QStringLiteral("find the next one and replace it"), Shown(kReplace), [&tour] {
    hands::Type(In<QComboBox>(kReplace, QStringLiteral("CboFindTxt")), QStringLiteral("青岚市档案局"));
    hands::Click(In<QWidget>(kReplace, QStringLiteral("CmdFindNext")));
    hands::Type(In<QComboBox>(kReplace, QStringLiteral("CboRelaceTxt")), kSender);
    tour.Picture(Window(kReplace), QStringLiteral("replace"));
    tour.Picture(Window(kEntry), QStringLiteral("replace-hit"));
    hands::Click(In<QWidget>(kReplace, QStringLiteral("CmdReplace")));
  });
  tour.Step(
      QStringLiteral("close both"), [] { return VisibleWindow(kEntry) != nullptr; }, [] { Window(kEntry).close(); });
  tour.Step(QStringLiteral("back in the list"), Shown(kBrowser), [&tour] {
    const QString sender = Cell(QStringLiteral("ResponsibleBy"));
    Expect(sender == kSender, sender);
    tour.Picture(Window(kBrowser), QStringLiteral("replaced"));
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
