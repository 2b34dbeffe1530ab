#include "components/help/HelpViewer.h"

#include <QEvent>
#include <QFile>
#include <QFontMetrics>
#include <QPointer>
#include <QResource>
#include <QScreen>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kRoot = u"/folvane/help"_s;

QString Notice(const QString& text) { return u"<p>%1</p>"_s.arg(text.toHtmlEscaped()); }

// A page has what its file brings along, and no other file of the machine.
class HelpPages : public QTextBrowser {
 public:
  using QTextBrowser::QTextBrowser;
  QVariant loadResource(int type, const QUrl& name) override {
    const QUrl address = source().resolved(name);
    const bool isOwn = address.scheme() == u"qrc"_s && address.path().startsWith(kRoot + u'/');
    return isOwn ? QTextBrowser::loadResource(type, name) : QVariant();
  }
};

}  // namespace

HelpViewer::HelpViewer(QWidget* owner, const QString& file)
    : QWidget(owner, Qt::Window),
      file_(file),
      registered_(QResource::registerResource(file, kRoot)),
      browser_(new HelpPages(this)) {
  setObjectName(u"HelpViewer"_s);
  setWindowTitle(u"帮助"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_QuitOnClose, false);
  if (owner) owner->installEventFilter(this);
  LayOut();
  connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
    const QString title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? u"帮助"_s : u"帮助 - "_s + title);
  });
}

HelpViewer::~HelpViewer() {
  if (registered_) QResource::unregisterResource(file_, kRoot);
}

bool HelpViewer::Serves(const QWidget* owner, const QString& file) const {
  return parentWidget() == owner && file_ == file;
}

void HelpViewer::LayOut() {
  auto* bar = new QToolBar(this);
  QAction* back = bar->addAction(u"后退"_s, browser_, &QTextBrowser::backward);
  QAction* forward = bar->addAction(u"前进"_s, browser_, &QTextBrowser::forward);
  for (QAction* action : {back, forward}) action->setEnabled(false);
  back->setShortcut(QKeySequence::Back);
  forward->setShortcut(QKeySequence::Forward);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(bar);
  column->addWidget(browser_);
  const QFontMetrics metrics(font());
  resize(QSize(metrics.averageCharWidth() * 90, metrics.lineSpacing() * 36).boundedTo(screen()->availableSize()));
}

void HelpViewer::ShowTopic(const QString& topic) {
  if (!registered_) {
    browser_->setHtml(Notice(u"文件 %1 不是本系统的帮助文件，无法显示。"_s.arg(file_)));
  } else if (!QFile::exists(u':' + kRoot + u'/' + topic)) {
    browser_->setHtml(Notice(u"帮助文件中没有“%1”这一主题。"_s.arg(topic)));
  } else {
    QUrl page;
    page.setScheme(u"qrc"_s);
    page.setPath(kRoot + u'/' + topic);
    browser_->setSource(page, QTextDocument::HtmlResource);
  }
}

bool HelpViewer::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parent() && event->type() == QEvent::Hide && !event->spontaneous()) close();
  return false;
}

void ShowHelp(QWidget* owner, const QString& file, const QString& topic) {
  static QPointer<HelpViewer> viewer;
  QWidget* window = owner ? owner->window() : nullptr;
  if (!viewer || !viewer->Serves(window, file)) {
    delete viewer;
    viewer = new HelpViewer(window, file);
  }
  viewer->ShowTopic(topic);
  viewer->show();
  viewer->raise();
  viewer->activateWindow();
}

}  // namespace folvane
