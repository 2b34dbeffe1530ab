#include "host/tour/OriginalsWork.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>

#include "host/tour/Hands.h"
#include "host/tour/Sights.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kAdding = u"frmAddOriginals"_s, kViewer = u"frmViewer"_s, kManager = u"frmOriginals"_s;
constexpr int kYes = 6;
constexpr int kScans = 3;
constexpr QSize kScanSize(1240, 1754);  // A4 at 150 dpi

QAbstractItemView& OriginalsList() { return In<QAbstractItemView>(kBrowser, u"LVFile"_s); }

void WriteText(QPainter& painter, const QRect& page, const QString& heading) {
  QFont font = painter.font();
  font.setPixelSize(page.width() / 26);
  painter.setFont(font);
  const int margin = page.width() / 8;
  const QRect text = page.adjusted(margin, margin, -margin, -margin);
  painter.drawText(text, Qt::AlignHCenter | Qt::AlignTop, heading);
  painter.drawText(text.adjusted(0, margin, 0, 0), Qt::AlignLeft | Qt::TextWordWrap,
                   u"　　各有关单位：为做好数字档案室评价工作，现将有关事项通知如下，请结合实际认真组织落实。"_s);
}

void WritePdf(const QString& path) {
  QPdfWriter writer(path);
  writer.setPageSize(QPageSize(QPageSize::A4));
  QPainter painter(&writer);
  WriteText(painter, QRect(0, 0, writer.width(), writer.height()), u"关于开展数字档案室评价工作的通知"_s);
  writer.newPage();
  WriteText(painter, QRect(0, 0, writer.width(), writer.height()), u"附件：评价指标"_s);
}

void WriteScan(const QString& path, int number) {
  QImage page(kScanSize, QImage::Format_Grayscale8);
  page.fill(0xF4);
  QPainter painter(&page);
  painter.rotate(0.4);  // as paper lies on the glass
  WriteText(painter, page.rect(), u"办理意见 %1"_s.arg(number));
  painter.end();
  page.save(path);
}

QList<QUrl> MakeFiles(const QTemporaryDir& folder) {
  QList<QUrl> files{QUrl::fromLocalFile(folder.filePath(u"通知.pdf"_s))};
  WritePdf(files.front().toLocalFile());
  for (int number = 1; number <= kScans; ++number) {
    files << QUrl::fromLocalFile(folder.filePath(u"办理意见%1.png"_s.arg(number)));
    WriteScan(files.back().toLocalFile(), number);
  }
  return files;
}

void DropOn(QAbstractItemView& view, const QList<QUrl>& files) {
  QMimeData data;
  data.setUrls(files);
  const QPointF at = view.viewport()->rect().center();
  QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(view.viewport(), &enter);
  Expect(enter.isAccepted(), u"the list of originals takes no files"_s);
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(view.viewport(), &drop);
}

void Trigger(const QString& window, const QString& command) {
  auto& action = In<QAction>(window, command);
  Expect(action.isEnabled(), command + u" is off"_s);
  action.trigger();
}

// That the viewer has drawn the page, and so tells its zoom.
bool IsDrawn() { return VisibleWindow(kViewer) && In<QLabel>(kViewer, u"PanZoom"_s).text().endsWith(u'%'); }

void PlanDrop(Tour& tour, const std::shared_ptr<QTemporaryDir>& folder, const std::shared_ptr<int>& before) {
  tour.Step(u"drop a PDF file and three scans on a document"_s, OnTop(kBrowser), [folder, before] {
    hands::ClickItem(List(), List().model()->index(0, 0));
    *before = OriginalsList().model()->rowCount();
    DropOn(OriginalsList(), MakeFiles(*folder));
  });
  tour.Step(u"add them"_s, Shown(kAdding), [&tour] {
    tour.Picture(Window(kAdding), u"add-originals"_s);
    hands::Click(In<QWidget>(kAdding, u"CmdAdd"_s));
  });
}

void PlanLook(Tour& tour, const std::shared_ptr<int>& before) {
  tour.Step(u"they stand beneath the document; look at the first"_s, OnTop(kBrowser), [&tour, before] {
    const int added = OriginalsList().model()->rowCount() - *before;
    Expect(added == kScans + 1, u"%1 originals came"_s.arg(added));
    tour.Picture(Window(kBrowser), u"originals"_s);
    hands::ClickItem(OriginalsList(), OriginalsList().model()->index(*before, 0));
    hands::ClickKey(Window(kBrowser), u"tlb"_s, u"LookFiles"_s);
  });
  tour.Step(u"go on to its second page"_s, IsDrawn, [] { Trigger(kViewer, u"CmdNext"_s); });
  tour.Step(u"and to the first scan"_s, IsDrawn, [&tour] {
    tour.Picture(Window(kViewer), u"viewer-pdf"_s);
    Trigger(kViewer, u"CmdNextFile"_s);
  });
  tour.Step(u"look at the scan and leave"_s, IsDrawn, [&tour] {
    tour.Picture(Window(kViewer), u"viewer-scan"_s);
    Window(kViewer).close();
  });
}

void PlanManagement(Tour& tour) {
  tour.Step(u"open the document's form"_s, OnTop(kBrowser),
            [] { hands::ClickKey(Window(kBrowser), u"tlb"_s, u"Mod"_s); });
  tour.Step(u"manage its originals"_s, OnTop(kEntry), [] { ChooseEntry(kEntry, u"BorrowFile"_s); });
  tour.Step(u"look at them in small and leave"_s, Shown(kManager), [&tour] {
    tour.Picture(Window(kManager), u"manage-originals"_s);
    Window(kManager).close();
  });
  tour.Step(u"close the form"_s, OnTop(kEntry), [] { Window(kEntry).close(); });
}

void PlanDeletion(Tour& tour, const std::shared_ptr<int>& before) {
  tour.Step(u"delete the last scan"_s, OnTop(kBrowser), [before] {
    hands::ClickItem(OriginalsList(), OriginalsList().model()->index(*before + kScans, 0));
    ChooseEntry(kBrowser, u"mnu_Pop4_DelFile"_s);
  });
  tour.Step(
      u"yes, delete it"_s, [] { return AnswerKey(kYes) != nullptr; }, [] { hands::Click(*AnswerKey(kYes)); });
  tour.Step(u"three of the four are left"_s, OnTop(kBrowser), [before] {
    const int left = OriginalsList().model()->rowCount() - *before;
    Expect(left == kScans, u"%1 originals are left"_s.arg(left));
    Window(kBrowser).activateWindow();
  });
}

}  // namespace

void PlanOriginals(Tour& tour) {
  const auto folder = std::make_shared<QTemporaryDir>();
  const auto before = std::make_shared<int>(0);
  PlanDrop(tour, folder, before);
  PlanLook(tour, before);
  PlanManagement(tour);
  PlanDeletion(tour, before);
}

}  // namespace folvane::host
