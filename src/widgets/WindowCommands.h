#pragma once

#include <QAction>
#include <QHash>
#include <QKeySequence>
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QMainWindow;
class QMenu;
class QToolBar;
class QWidget;

namespace folvane {

/// A menu entry; one without a name is a separator.
struct CommandEntry {
  QString name, caption, icon, shortcut, tip;
  bool hasMark = false;
};

struct CommandMenu {
  QString name, caption;
  std::vector<CommandEntry> entries;
  bool popsUp = false;  ///< stands on no menu bar; the window pops it up
};

/// A toolbar key and the menu entry whose command it runs, "" for one of its own; one without a name is a separator.
struct CommandKey {
  QString name, caption, icon, tip, twin;
  bool hasMark = false;
  QString shortcut = {};
};

/// What a window can be told to do, by its menus and by its toolbar.
struct CommandDesign {
  QString toolbar;
  std::vector<CommandMenu> menus;
  std::vector<CommandKey> keys;
};

/// The menus and the toolbar of a window, made from their design. Entries and keys are actions by name, with the menu
/// or the toolbar as their parent. A menu answers to its name as an entry does.
class WindowCommands : public QObject {
 public:
  WindowCommands(QMainWindow& window, CommandDesign design);

  /// What an entry runs, and the key that is its twin. Errors are shown.
  void OnEntry(const QString& entry, std::function<void()> handler);
  /// What a key without a twin runs.
  void OnKey(const QString& key, std::function<void()> handler);

  using Work = std::function<void()>;
  /// Has every press of a key run through a function, for windows whose keys end otherwise than their entries.
  void RunKeysThrough(std::function<void(const Work&)> runner) { runKey_ = std::move(runner); }

  bool IsEntryEnabled(const QString& entry) const { return entries_.value(entry)->isEnabled(); }
  void EnableEntry(const QString& entry, bool on) { entries_.value(entry)->setEnabled(on); }
  void EnableKey(const QString& key, bool on) { keys_.value(key)->setEnabled(on); }

  /// Has the shortcut of an entry work only while that widget has the focus.
  void BindShortcut(const QString& entry, QWidget& widget);
  /// Whether an entry has that shortcut, enabled or not.
  bool HasShortcut(const QKeySequence& keys) const;

  bool IsMarked(const QString& entry) const;
  /// Marks an entry and presses the key that is its twin, without running anything.
  void SetMark(const QString& entry, bool on);

  QMenu& Menu(const QString& name) const;
  /// The menu that drops down from a key, or beside a key that can be pressed; made on the first call.
  QMenu& KeyMenu(const QString& key, bool beside = false);
  /// Adds an entry to a menu that is not of the design throughout.
  static QAction* AddEntry(QMenu& menu, const CommandEntry& entry);

 private:
  void AddMenu(QMainWindow& window, const CommandMenu& menu);
  void AddKey(const CommandKey& key);

  CommandDesign design_;
  QToolBar* toolbar_;
  QHash<QString, QAction*> entries_, keys_;
  std::function<void(const Work&)> runKey_;
};

}  // namespace folvane
