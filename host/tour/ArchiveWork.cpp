#include "host/tour/ArchiveWork.h"

#include <QCheckBox>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTabWidget>

#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kParameters = u"FrmArchivePara"_s, kVolumeTitle = u"FrmInAmain"_s, kArchive = u"FrmArchive"_s,
              kMergedTable = u"FrmSelTbl"_s, kMerge = u"FrmSearchResult"_s, kQuery = u"frmSimFind"_s,
              kSettings = u"FrmTransferSettings"_s;
const QString kVolume = u"0188-WS·2026-D30-0902"_s;
constexpr int kTicked = 40, kMerged = 3;
constexpr QSize kArchiveSize(1180, 720);
constexpr int kOkKey = 1;
constexpr int kFirst = 1, kLast = 3;  // rows of documents that wait for the archive

void ChooseDocuments() {
  const QAbstractItemModel& model = *List().model();
  hands::ClickItem(List(), model.index(kFirst, 0));
  List().selectionModel()->select(QItemSelection(model.index(kFirst, 0), model.index(kLast, 0)),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void EnterVolume(const QString& window, const QString& number) {
  In<QWidget>(window, u"F_FondsNo(1)"_s).setProperty("text", u"0188"_s);
  hands::Retype(In<QWidget>(window, u"Txt(1)"_s), u"WS"_s);
  hands::Retype(In<QWidget>(window, u"Txt(2)"_s), u"2026"_s);
  In<QWidget>(window, u"Cmb(1)"_s).setProperty("text", u"30年"_s);
  hands::Retype(In<QWidget>(window, u"Txt(3)"_s), number);
}

void PlanTransferFromBrowser(Tour& tour) {
  tour.Step(u"send three documents into the archive"_s, OnTop(kBrowser), [] {
    ChooseDocuments();
    Expect(Cell(u"FileStatus"_s) == u"需归档"_s, Cell(u"FileStatus"_s));
    hands::ClickKey(Window(kBrowser), u"tlb"_s, u"Archive"_s);
  });
  tour.Step(u"say into which volume"_s, Shown(kParameters), [&tour] {
    EnterVolume(kParameters, u"0901"_s);
    tour.Picture(Window(kParameters), u"archive-parameters"_s);
    hands::Click(In<QWidget>(kParameters, u"CmdOK"_s));
  });
  tour.Step(u"name the new volume"_s, Shown(kVolumeTitle), [&tour] {
    hands::Type(In<QWidget>(kVolumeTitle, u"TxtTitle"_s), u"青岚市档案馆来文"_s);
    tour.Picture(Window(kVolumeTitle), u"volume-title"_s);
    hands::Click(In<QWidget>(kVolumeTitle, u"CmdOK"_s));
  });
  tour.Step(
      u"three were archived"_s, [] { return AnswerKey(kOkKey) != nullptr; },
      [&tour] {
        tour.Picture(*AnswerKey(kOkKey)->window(), u"archived"_s);
        hands::Click(*AnswerKey(kOkKey));
      });
  tour.Step(u"the list says so"_s, OnTop(kBrowser), [] {
    hands::ClickItem(List(), List().model()->index(kLast, 0));
    Expect(Cell(u"FileStatus"_s) == u"已归档"_s, Cell(u"FileStatus"_s));
    Window(kBrowser).activateWindow();
  });
}

QAbstractItemView& Waiting() { return In<QAbstractItemView>(kArchive, u"lstData"_s); }

// The rows that are loaded by the box, the next ones by the keyboard.
void TickForty() {
  hands::Click(In<QCheckBox>(kArchive, u"Check3"_s));
  hands::ClickItem(Waiting(), Waiting().model()->index(kPage - 1, 0));
  for (int row = kPage; row < kTicked; ++row) {
    hands::Press(Waiting(), Qt::Key_Down);
    hands::Press(Waiting(), Qt::Key_Space);
  }
}

void PlanTransferFromWindow(Tour& tour) {
  tour.Step(u"open the archive window"_s, OnTop(kBrowser), [] { ChooseEntry(kBrowser, u"mnu_Manager4_Archive"_s); });
  tour.Step(u"look at the settings of the transfer"_s, Shown(kArchive), [] {
    Window(kArchive).resize(kArchiveSize);
    hands::ClickKey(Window(kArchive), u"tlb"_s, u"ArchiveSet"_s);
  });
  tour.Step(u"the fields, and the archive number"_s, Shown(kSettings), [&tour] {
    tour.Picture(Window(kSettings), u"transfer-fields"_s);
    In<QTabWidget>(kSettings, u"TabSettings"_s).setCurrentIndex(1);
    tour.Picture(Window(kSettings), u"transfer-number"_s);
    Window(kSettings).close();
  });
  tour.Step(u"tick forty documents"_s, OnTop(kArchive), [&tour] {
    Window(kArchive).activateWindow();
    tour.Picture(Window(kArchive), u"archive"_s);
    TickForty();
    const QString last = Waiting().model()->index(kTicked - 1, 0).data().toString();
    Expect(last == QString::number(kTicked), u"the last has the number "_s + last);
    EnterVolume(kArchive, u"0902"_s);
    hands::Click(In<QCheckBox>(kArchive, u"Check2"_s));
  });
  tour.Step(
      u"the panel tells what will go where"_s,
      [] { return In<QLabel>(kArchive, u"LblForecast"_s).text().startsWith(u"将归档 40 份文件，归入"_s); },
      [&tour] {
        const QString told = In<QLabel>(kArchive, u"LblForecast"_s).text();
        Expect(told.contains(kVolume), told);
        tour.Picture(Window(kArchive), u"archive-ticked"_s);
        hands::Click(In<QWidget>(kArchive, u"CmdOK"_s));
      });
  tour.Step(u"name the volume of the forty"_s, Shown(kVolumeTitle), [] {
    hands::Type(In<QWidget>(kVolumeTitle, u"TxtTitle"_s), u"二〇二六年来文（二）"_s);
    hands::Click(In<QWidget>(kVolumeTitle, u"CmdOK"_s));
  });
  tour.Step(
      u"forty were archived"_s, [] { return AnswerKey(kOkKey) != nullptr; },
      [&tour] {
        tour.Picture(*AnswerKey(kOkKey)->window(), u"archived-forty"_s);
        hands::Click(*AnswerKey(kOkKey));
      });
  tour.Step(u"they wait no longer"_s, OnTop(kArchive), [&tour] {
    Expect(!In<QCheckBox>(kArchive, u"Check3"_s).isChecked(), u"all are ticked"_s);
    tour.Picture(Window(kArchive), u"archive-afterwards"_s);
    ChooseEntry(kArchive, u"mnuExit"_s);
  });
}

// Opens the classes above the table on the way.
void GoToTable(const QString& key) {
  QAbstractItemModel& tree = *Tree().model();
  for (const QString& node : {u"C8\\"_s, key}) {
    const auto found = tree.match(tree.index(0, 0), Qt::UserRole, node, 1, Qt::MatchExactly | Qt::MatchRecursive);
    Expect(!found.isEmpty(), u"no node "_s + node);
    hands::ClickItem(Tree(), found.first());
  }
}

void PlanSums(Tour& tour) {
  tour.Step(u"look at the sums of the volume"_s, OnTop(kBrowser), [&tour] {
    GoToTable(u"Wsda_Aj"_s);
    Refresh();
    ChooseEntry(kBrowser, u"mnu_Goto6_LPage"_s);
    Expect(Cell(u"FolderNo"_s) == kVolume, Cell(u"FolderNo"_s));
    Expect(Cell(u"Quantity"_s).toInt() >= kTicked, u"pages: "_s + Cell(u"Quantity"_s));
    Expect(!Cell(u"DocStartDate"_s).isEmpty() && Cell(u"DocStartDate"_s) <= Cell(u"DocEndDate"_s), u"the dates"_s);
    tour.Picture(Window(kBrowser), u"volume-sums"_s);
    GoToTable(u"Wsda_Jn"_s);
    Refresh();
    ChooseEntry(kBrowser, u"mnu_Goto6_LPage"_s);
    Expect(Cell(u"ArchiveNo"_s).startsWith(kVolume), Cell(u"ArchiveNo"_s));
    tour.Picture(Window(kBrowser), u"volume-items"_s);
  });
}

void PlanMerge(Tour& tour) {
  tour.Step(u"merge three documents into one"_s, OnTop(kBrowser), [] {
    GoToTable(u"Lwdj"_s);
    hands::ClickItem(List(), List().model()->index(0, 0));
    ChooseEntry(kBrowser, u"mnuUnitRecord"_s);
  });
  tour.Step(u"say where they are"_s, Shown(kMergedTable), [&tour] {
    tour.Picture(Window(kMergedTable), u"merge-table"_s);
    hands::Choose(In<QComboBox>(kMergedTable, u"CboChnTable"_s), 1);
  });
  tour.Step(u"look for them"_s, Shown(kMerge), [] { hands::Click(In<QWidget>(kMerge, u"CmdSearch"_s)); });
  tour.Step(u"by a word of the title"_s, Shown(kQuery), [] {
    hands::Retype(In<QWidget>(kQuery, u"F_Sim(1)"_s), u"通知"_s);
    hands::Click(In<QWidget>(kQuery, u"CmdOK"_s));
  });
  tour.Step(u"tick three"_s, OnTop(kMerge), [&tour] {
    Window(kMerge).activateWindow();
    auto& found = In<QAbstractItemView>(kMerge, u"LVData"_s);
    for (int row = 1; row <= kMerged; ++row) {
      hands::ClickItem(found, found.model()->index(row, 1));
      hands::Press(found, Qt::Key_Space);
    }
    tour.Picture(Window(kMerge), u"merge"_s);
    hands::Click(In<QWidget>(kMerge, u"CmdOK"_s));
  });
  tour.Step(
      u"yes, merge them"_s, [] { return AnswerKey(kOkKey) != nullptr; }, [] { hands::Click(*AnswerKey(kOkKey)); });
  tour.Step(u"the browser tells what came of it"_s, OnTop(kBrowser), [&tour] {
    const QString told = In<QLabel>(kBrowser, u"Notice"_s).text();
    Expect(told.contains(QString::number(kMerged)), told);
    tour.Picture(Window(kBrowser), u"merged"_s);
    Window(kBrowser).activateWindow();
  });
}

}  // namespace

void PlanArchiving(Tour& tour) {
  PlanTransferFromBrowser(tour);
  PlanTransferFromWindow(tour);
  PlanSums(tour);
  PlanMerge(tour);
}

}  // namespace folvane::host
