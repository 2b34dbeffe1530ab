#pragma once

#include <QDialog>
#include <QTemporaryDir>
#include <map>
#include <optional>

#include "components/documents/PageLoader.h"

class QAction;
class QLabel;
class QSpinBox;
class QStackedWidget;
class QTimer;
class QToolBar;

namespace folvane::documents {

class NoticePage;
class PageView;

/// Shows documents, one at a time. Files are fetched, opened and drawn in the background: of a document only the page
/// in view and its two neighbours are held, each of at most kMostPixels.
class FrmViewer : public QDialog {
 public:
  FrmViewer(QWidget* parent, const QString& title, const std::vector<Document>& documents, int first);
  ~FrmViewer() override;

 private:
  void LayOut();
  QToolBar* NewToolBar();
  void AddFileKeys(QToolBar& bar);
  void AddPageKeys(QToolBar& bar);
  void AddZoomKeys(QToolBar& bar);
  QWidget* NewStatusLine();
  void ConnectView();

  // The document.
  void Open(int document);
  LoaderEvents NewEvents();
  void TellFetched(qint64 bytes);
  void TakePages(int count);
  void TellFailure(const QString& why);
  void AskForPassword(bool wrong);
  /// @param settled nothing more is to come: offers what can be done with the file, or to fetch it again
  void Say(const QString& text, bool settled, bool password = false);
  const Document& Current() const { return documents_[document_]; }
  QString PathOf(int document) const;
  bool IsFetched() const;

  // The page.
  void GoTo(int page, bool fromEnd = false);
  void TurnBy(int pages);
  void SetZoom(const Zoom& zoom);
  void ZoomTo(bool larger);
  void Turn(int quarters);
  void WishPages();
  void TakeDrawn(const DrawnPage& page);
  void ShowDrawn(const DrawnPage& page);
  PageWish WishFor(int page) const;
  void TellState();

  void Print();
  void SaveCopy();
  void OpenOutside();

  const QString title_;
  const std::vector<Document> documents_;
  const QTemporaryDir files_;
  const std::shared_ptr<LoaderThreads> threads_;
  std::unique_ptr<PageLoader> loader_;

  int document_ = 0;
  int pages_ = 0;  ///< 0 while nothing can be shown
  int page_ = 0;
  bool fromEnd_ = false;
  Zoom zoom_;
  int quarters_ = 0;
  std::map<int, DrawnPage> drawn_;
  double shownScale_ = 1;

  PageView* view_;
  NoticePage* notice_;
  QStackedWidget* room_;
  QSpinBox* pageBox_;
  QLabel *pageCount_, *pageState_, *zoomState_, *sizeState_, *documentState_;
  QTimer* resizing_;
  QAction *print_ = nullptr, *save_ = nullptr, *open_ = nullptr;
  QAction *first_ = nullptr, *previous_ = nullptr, *next_ = nullptr, *last_ = nullptr;
  QAction *previousDocument_ = nullptr, *nextDocument_ = nullptr;
  QList<QAction*> pageKeys_;  ///< that need a page
};

}  // namespace folvane::documents
