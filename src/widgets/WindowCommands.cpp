#include "widgets/WindowCommands.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include <folvane/Icons.h>

#include "shell/EventGuard.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QAction* NewAction(QObject& parent, const QString& name, const QString& caption, const QString& icon,
                   const QString& shortcut, const QString& tip) {
  auto* action = new QAction(Icon(icon), caption, &parent);
  action->setObjectName(name);
  const QKeySequence keys(shortcut);
  action->setShortcut(keys);
  action->setToolTip(keys.isEmpty() ? tip : u"%1 (%2)"_s.arg(tip, keys.toString(QKeySequence::NativeText)));
  return action;
}

}  // namespace

WindowCommands::WindowCommands(QMainWindow& window, CommandDesign design)
    : QObject(&window), design_(std::move(design)), toolbar_(new QToolBar(u"工具栏"_s, &window)) {
  for (const CommandMenu& menu : design_.menus) AddMenu(window, menu);
  toolbar_->setObjectName(design_.toolbar);
  toolbar_->setMovable(false);
  toolbar_->setContextMenuPolicy(Qt::PreventContextMenu);
  toolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  for (const CommandKey& key : design_.keys) AddKey(key);
  window.addToolBar(toolbar_);
}

void WindowCommands::AddMenu(QMainWindow& window, const CommandMenu& design) {
  auto* menu = new QMenu(design.caption, &window);
  menu->setObjectName(design.name);
  menu->setToolTipsVisible(true);
  menu->menuAction()->setObjectName(design.name);
  entries_.insert(design.name, menu->menuAction());
  for (const CommandEntry& entry : design.entries) {
    if (entry.name.isEmpty()) {
      menu->addSeparator();
      continue;
    }
    entries_.insert(entry.name, AddEntry(*menu, entry));
  }
  if (!design.popsUp) window.menuBar()->addMenu(menu);
}

QAction* WindowCommands::AddEntry(QMenu& menu, const CommandEntry& entry) {
  QAction* action = NewAction(menu, entry.name, entry.caption, entry.icon, entry.shortcut, entry.tip);
  action->setCheckable(entry.hasMark);
  menu.addAction(action);
  return action;
}

void WindowCommands::AddKey(const CommandKey& key) {
  if (key.name.isEmpty()) {
    toolbar_->addSeparator();
    return;
  }
  QAction* action = NewAction(*toolbar_, key.name, key.caption, key.icon, key.shortcut, key.tip);
  action->setCheckable(key.hasMark);
  toolbar_->addAction(action);
  keys_.insert(key.name, action);
}

void WindowCommands::OnEntry(const QString& entry, std::function<void()> handler) {
  ConnectGuarded(entries_.value(entry), &QAction::triggered, this, [handler] { handler(); });
  for (const CommandKey& key : design_.keys) {
    if (!key.name.isEmpty() && key.twin == entry) OnKey(key.name, handler);
  }
}

void WindowCommands::OnKey(const QString& key, std::function<void()> handler) {
  ConnectGuarded(keys_.value(key), &QAction::triggered, this, [this, handler] {
    if (runKey_) {
      runKey_(handler);
    } else {
      handler();
    }
  });
}

void WindowCommands::BindShortcut(const QString& entry, QWidget& widget) {
  QAction* action = entries_.value(entry);
  action->setShortcutContext(Qt::WidgetShortcut);
  widget.addAction(action);
}

bool WindowCommands::HasShortcut(const QKeySequence& keys) const {
  return std::any_of(entries_.begin(), entries_.end(), [&](const QAction* entry) { return entry->shortcut() == keys; });
}

bool WindowCommands::IsMarked(const QString& entry) const { return entries_.value(entry)->isChecked(); }

void WindowCommands::SetMark(const QString& entry, bool on) {
  entries_.value(entry)->setChecked(on);
  for (const CommandKey& key : design_.keys) {
    if (!key.name.isEmpty() && key.twin == entry && key.hasMark) keys_.value(key.name)->setChecked(on);
  }
}

QMenu& WindowCommands::Menu(const QString& name) const { return *entries_.value(name)->menu(); }

QMenu& WindowCommands::KeyMenu(const QString& key, bool beside) {
  QAction* action = keys_.value(key);
  if (!action->menu()) {
    action->setMenu(new QMenu(toolbar_));
    static_cast<QToolButton*>(toolbar_->widgetForAction(action))
        ->setPopupMode(beside ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup);
  }
  return *action->menu();
}

}  // namespace folvane
