#include "host/tour/ArchiveWork.h"

#include <QComboBox>
#include <QItemSelectionModel>

#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kParameters = u"FrmArchivePara"_s, kVolumeTitle = u"FrmInAmain"_s;
constexpr int kOkKey = 1;
constexpr int kFirst = 1, kLast = 3;  // rows of documents that wait for the archive

void ChooseDocuments() {
  const QAbstractItemModel& model = *List().model();
  hands::ClickItem(List(), model.index(kFirst, 0));
  List().selectionModel()->select(QItemSelection(model.index(kFirst, 0), model.index(kLast, 0)),
                                  QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

}  // namespace

void PlanArchiving(Tour& tour) {
  tour.Step(u"send three documents into the archive"_s, OnTop(kBrowser), [] {
    ChooseDocuments();
    Expect(Cell(u"FileStatus"_s) == u"需归档"_s, Cell(u"FileStatus"_s));
    hands::ClickKey(Window(kBrowser), u"tlb"_s, u"Archive"_s);
  });
  tour.Step(u"say into which volume"_s, Shown(kParameters), [&tour] {
    In<QWidget>(kParameters, u"F_FondsNo(1)"_s).setProperty("text", u"0188"_s);
    hands::Retype(In<QWidget>(kParameters, u"Txt(1)"_s), u"2026"_s);
    In<QWidget>(kParameters, u"Cmb(1)"_s).setProperty("text", u"30年"_s);
    hands::Retype(In<QWidget>(kParameters, u"Txt(2)"_s), u"0901"_s);
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

}  // namespace folvane::host
