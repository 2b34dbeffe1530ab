#include "components/common/ToolKeys.h"

#include <QAction>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>

#include <folvane/Icons.h>

#include "components/common/Notice.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

QAction* AddKey(QToolBar& bar, const ToolKey& key, std::function<void()> handler) {
  QAction* action = bar.addAction(key.caption.isEmpty() ? key.tip : key.caption);
  if (!key.icon.isEmpty()) action->setIcon(Icon(key.icon));
  action->setObjectName(key.name);
  action->setShortcut(key.keys);
  action->setToolTip(key.keys.isEmpty() ? key.tip
                                        : u"%1 (%2)"_s.arg(key.tip, key.keys.toString(QKeySequence::NativeText)));
  if (auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action))) {
    button->setAccessibleName(key.tip);
    if (key.caption.isEmpty()) button->setToolButtonStyle(Qt::ToolButtonIconOnly);
  }
  QObject::connect(action, &QAction::triggered, &bar,
                   [handler = std::move(handler)] { notices::Guarded([&] { handler(); }); });
  return action;
}

QPushButton* NewPushButton(QWidget* parent, const ToolKey& key, std::function<void()> handler) {
  auto* button = new QPushButton(Icon(key.icon), key.caption, parent);
  button->setObjectName(key.name);
  button->setToolTip(key.tip);
  button->setAutoDefault(false);
  QObject::connect(button, &QPushButton::clicked, button,
                   [handler = std::move(handler)] { notices::Guarded(handler); });
  return button;
}

}  // namespace folvane
