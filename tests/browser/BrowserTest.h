#pragma once

#include <QAction>
#include <QTreeView>
#include <functional>

#include "records/DesignedDatabase.h"
#include "support/WindowDriver.h"

namespace folvane::test {

/// The open record browser, read and driven by the names of its controls.
class Browser {
 public:
  explicit Browser(QWidget& window) : window_(window) {}

  QWidget& Window() const { return window_; }
  QTreeView& View(const QString& name) const { return Find<QTreeView>(window_, name); }
  QTreeView& List() const { return View(QStringLiteral("LVData")); }
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
};

/// A browser over a class "文书" (2) with the tables that a case adds.
class BrowserTest : public DesignTest {
 protected:
  void SetUp() override;
  /// Opens the browser, runs the steps in it and closes it.
  void InBrowser(const std::function<void(const Browser&)>& steps);
  QString Remembered() const;
  void Remember(const QString& text) const;
};

/// One with twelve records of Lwdj, the newest first.
class TwelveRecordsTest : public BrowserTest {
 protected:
  void SetUp() override;
};

}  // namespace folvane::test
