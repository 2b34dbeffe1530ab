#include "widgets/ViewHint.h"

#include <QAbstractItemView>
#include <QEvent>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMargin = 16;

}  // namespace

// A child of the view and not of its viewport, which takes its children along when it scrolls.
ViewHint::ViewHint(QAbstractItemView& view, const QString& name) : QLabel(&view), viewport_(view.viewport()) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setForegroundRole(QPalette::PlaceholderText);
  setAlignment(Qt::AlignCenter);
  setWordWrap(true);
  setMargin(kMargin);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  view.viewport()->installEventFilter(this);
  hide();
}

void ViewHint::ShowHint(const QString& text) {
  if (!viewport_) return;
  setText(text);
  Place();
  setVisible(!text.isEmpty());
  raise();
}

void ViewHint::Place() { setGeometry(viewport_->geometry()); }

bool ViewHint::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) Place();
  return false;
}

void AddEmptyHint(QAbstractItemView& view, const QString& text) {
  auto* hint = new ViewHint(view, u"EmptyHint"_s);
  const QAbstractItemModel* model = view.model();
  const auto follow = [hint, model, text] { hint->ShowHint(model->rowCount() == 0 ? text : QString()); };
  for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
    QObject::connect(model, signal, hint, follow);
  QObject::connect(model, &QAbstractItemModel::modelReset, hint, follow);
  follow();
}

QLabel* NewHint(const QString& text, QWidget* parent) {
  auto* hint = new QLabel(text, parent);
  hint->setTextFormat(Qt::PlainText);  // it may tell what somebody has typed
  hint->setForegroundRole(QPalette::PlaceholderText);
  return hint;
}

}  // namespace folvane
