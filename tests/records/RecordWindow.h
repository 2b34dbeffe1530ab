#pragma once

#include <QAction>
#include <QTreeView>

#include "support/WindowDriver.h"

namespace folvane::test {

/// An open window with the class tree and a list of records, read and driven by the names of its controls.
class RecordWindow {
 public:
  RecordWindow(QWidget& window, const QString& tree, const QString& list) : window_(window), tree_(tree), list_(list) {}

  QWidget& Window() const { return window_; }
  QTreeView& View(const QString& name) const { return Find<QTreeView>(window_, name); }
  QTreeView& List() const { return View(list_); }
  /// The texts of a column of a view.
  QStringList Column(const QString& view, int column = 0) const;
  /// The captions of the list, the hidden column included.
  QStringList Captions() const;
  QModelIndex Node(const QString& key) const;
  QStringList KeysBelow(const QString& key) const;
  void Choose(const QString& key) const;
  QString Status() const { return TextIn(window_, QStringLiteral("RecordCount")); }
  QString Notice() const { return TextIn(window_, QStringLiteral("Notice")); }
  /// A parameter of the row of a table in the hidden parameter list.
  QString Parameter(const QString& table, int number) const;

  QAction& Entry(const QString& name) const;
  QAction& Key(const QString& name) const { return FindAction(window_, QStringLiteral("tlb"), name); }
  bool On(const QString& entry) const { return Entry(entry).isEnabled(); }
  bool KeyOn(const QString& key) const { return Key(key).isEnabled(); }

  /// The number of the selected row from 1, and the first column of it.
  int Row() const { return List().currentIndex().row() + 1; }
  QString Cell() const { return List().currentIndex().siblingAtColumn(0).data().toString(); }
  void ClickColumn(int column) const;
  void PressInList(Qt::Key key) const { Press(List(), key); }

 private:
  QWidget& window_;
  QString tree_, list_;
};

}  // namespace folvane::test
