#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStackedWidget>

#include "components/common/Notice.h"
#include "components/documents/FileCopies.h"
#include "components/documents/FrmViewer.h"
#include "components/documents/NoticePage.h"
#include "components/documents/PageView.h"
#include "components/documents/Printing.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

QString SizeInWords(qint64 bytes) {
  if (bytes < 1024) return u"%1 字节"_s.arg(bytes);
  return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat).toUpper();
}

}  // namespace

QString FrmViewer::PathOf(int document) const { return files_.filePath(QString::number(document)); }
bool FrmViewer::IsFetched() const { return QFile::exists(PathOf(document_)); }

void FrmViewer::Open(int document) {
  if (document < 0 || document >= int(documents_.size())) return;
  loader_.reset();
  document_ = document;
  pages_ = page_ = quarters_ = 0;
  drawn_.clear();
  view_->Clear();
  setWindowTitle(Current().name + Current().type + u" - "_s + title_);
  Say(u"正在读取…"_s, false);
  loader_ = std::make_unique<PageLoader>(threads_, Current(), PathOf(document), NewEvents());
}

LoaderEvents FrmViewer::NewEvents() {
  return {.fetched = [this](qint64 bytes) { TellFetched(bytes); },
          .opened = [this](int pages) { TakePages(pages); },
          .failed = [this](const QString& why) { TellFailure(why); },
          .passwordNeeded = [this](bool wrong) { AskForPassword(wrong); },
          .drawn = [this](const DrawnPage& page) { TakeDrawn(page); }};
}

void FrmViewer::Say(const QString& text, bool settled, bool password) {
  const bool isFile = settled && IsFetched();
  const bool isProgram = isFile && IsProgram(PathOf(document_), Current().type);
  room_->setCurrentWidget(notice_);
  notice_->Say(text, {.retry = settled && !isFile, .password = password, .open = isFile && !isProgram, .save = isFile});
  TellState();
}

void FrmViewer::TellFetched(qint64 bytes) { Say(u"正在读取…  %1"_s.arg(SizeInWords(bytes)), false); }

void FrmViewer::TakePages(int count) {
  pages_ = count;
  if (count == 0) {
    const bool isProgram = IsProgram(PathOf(document_), Current().type);
    return Say(isProgram ? u"该文件是可以执行的程序，为安全起见不能直接打开，只能另存。"_s
                         : u"这种文件不能在此显示，可以用其他程序打开。"_s,
               true);
  }
  {
    const QSignalBlocker quiet(pageBox_);
    pageBox_->setRange(1, count);
  }
  // The room gets its size before the page is drawn to fit it.
  room_->setCurrentWidget(view_);
  if (!pageBox_->hasFocus()) view_->setFocus();
  GoTo(0);
}

void FrmViewer::TellFailure(const QString& why) { Say(why, true); }

void FrmViewer::AskForPassword(bool wrong) {
  Say(wrong ? u"密码不正确，请重新输入。"_s : u"文件已加密，请输入密码。"_s, false, true);
}

PageWish FrmViewer::WishFor(int page) const {
  return {.page = page,
          .zoom = zoom_,
          .room = view_->Room(zoom_.fit),
          .quarters = quarters_,
          .density = devicePixelRatioF()};
}

void FrmViewer::GoTo(int page, bool fromEnd) {
  if (page < 0 || page >= pages_) return;
  page_ = page;
  fromEnd_ = fromEnd;
  WishPages();
}

void FrmViewer::TurnBy(int pages) { GoTo(page_ + pages, pages < 0); }

void FrmViewer::SetZoom(const Zoom& zoom) {
  zoom_ = zoom;
  WishPages();
}

void FrmViewer::ZoomTo(bool larger) {
  const double factor = zoom_.fit == Zoom::Fit::None ? zoom_.factor : FactorOf(shownScale_);
  SetZoom({Zoom::Fit::None, larger ? LargerFactor(factor) : SmallerFactor(factor)});
}

void FrmViewer::Turn(int quarters) {
  quarters_ = (quarters_ + quarters) % 4;
  WishPages();
}

void FrmViewer::WishPages() {
  if (pages_ == 0) return;
  std::erase_if(drawn_, [this](const auto& held) {
    return std::abs(held.first - page_) > 1 || held.second.wish != WishFor(held.first);
  });
  std::vector<PageWish> wishes;
  for (const int page : {page_, page_ + 1, page_ - 1})
    if (page >= 0 && page < pages_ && !drawn_.contains(page)) wishes.push_back(WishFor(page));
  loader_->Wish(wishes);
  if (const auto held = drawn_.find(page_); held != drawn_.end()) ShowDrawn(held->second);
  TellState();
}

void FrmViewer::TakeDrawn(const DrawnPage& page) {
  if (std::abs(page.wish.page - page_) > 1 || page.wish != WishFor(page.wish.page)) return;
  drawn_[page.wish.page] = page;
  if (page.wish.page == page_) ShowDrawn(page);
}

void FrmViewer::ShowDrawn(const DrawnPage& page) {
  if (!page.error.isEmpty()) {
    view_->Clear();
    return Say(page.error, true);
  }
  room_->setCurrentWidget(view_);
  shownScale_ = page.scale;
  view_->Show(page, fromEnd_);
  TellState();
}

void FrmViewer::TellState() {
  const bool hasPages = pages_ > 0;
  {
    const QSignalBlocker quiet(pageBox_);
    if (hasPages) pageBox_->setValue(page_ + 1);
  }
  pageBox_->setEnabled(hasPages);
  pageCount_->setText(hasPages ? u" / %1 "_s.arg(pages_) : QString());
  pageState_->setText(hasPages ? u"第 %1 页，共 %2 页"_s.arg(page_ + 1).arg(pages_) : QString());
  // Until the page has come the one before is still in view.
  const QString zoom = drawn_.contains(page_) ? u"%1%"_s.arg(qRound(FactorOf(shownScale_) * 100)) : u"正在显示…"_s;
  zoomState_->setText(hasPages ? zoom : QString());
  sizeState_->setText(IsFetched() ? SizeInWords(QFileInfo(PathOf(document_)).size()) : QString());
  documentState_->setText(u"原文 %1 / %2"_s.arg(document_ + 1).arg(documents_.size()));
  for (QLabel* panel : {pageState_, zoomState_, sizeState_}) panel->setVisible(!panel->text().isEmpty());
  for (QAction* back : {first_, previous_}) back->setEnabled(page_ > 0);
  for (QAction* forward : {next_, last_}) forward->setEnabled(page_ < pages_ - 1);
  for (QAction* key : pageKeys_) key->setEnabled(hasPages);
  previousDocument_->setEnabled(document_ > 0);
  nextDocument_->setEnabled(document_ + 1 < int(documents_.size()));
  print_->setEnabled(hasPages);
  save_->setEnabled(IsFetched());
  open_->setEnabled(IsFetched() && !IsProgram(PathOf(document_), Current().type));
}

void FrmViewer::Print() {
  PrintFile(this, FileName(Current().name, {}), PathOf(document_), Current().type, loader_->Password(), pages_,
            quarters_);
}

void FrmViewer::SaveCopy() {
  const QString& type = Current().type;
  const QString filter = type.isEmpty() ? u"所有文件|*"_s : u"%1 文件|*%2"_s.arg(type.mid(1).toUpper(), type);
  const QString path =
      notices::AskForPath(u"另存副本"_s, QDir::home().filePath(FileName(Current().name, type)), filter);
  if (!path.isEmpty()) CopyFile(PathOf(document_), path);
}

void FrmViewer::OpenOutside() { OpenWithDesktop(PathOf(document_), Current().name, Current().type); }

}  // namespace folvane::documents
