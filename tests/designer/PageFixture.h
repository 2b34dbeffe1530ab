#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <gmock/gmock.h>

#include "design/SmallDesign.h"
#include "designer/DesignPage.h"
#include "support/Accessibility.h"
#include "support/HostDoubles.h"
#include "support/WindowDriver.h"

namespace folvane::test {

/// A page of the designer by itself, over a database with the small design, worked by keys and by the names of its
/// controls.
template <class Page>
class PageTest : public WithSmallDesign {
 protected:
  void SetUp() override {
    WithSmallDesign::SetUp();
    session_ = std::make_unique<designer::DesignSession>(Connected());
    QObject::connect(session_.get(), &designer::DesignSession::Told, [this](const QString& text) { told_ << text; });
    page_ = std::make_unique<Page>(*session_);
    page_->resize(960, 640);
    page_->show();
    page_->activateWindow();
    WaitUntil([this] { return page_->isActiveWindow(); });
  }
  void TearDown() override { page_.reset(); }

  Page& Shown() { return *page_; }
  const Design& Wanted() { return session_->Wanted(); }
  /// What was told since the last call, joined.
  QString Told() {
    const QString told = told_.join(u'\n');
    told_.clear();
    return told;
  }
  void Undo() { session_->History().undo(); }
  void Redo() { session_->History().redo(); }
  QString StepName() { return session_->History().undoText(); }
  /// Takes back every step, which leads to what the database holds.
  void ExpectTakenBack() {
    while (session_->History().canUndo()) Undo();
    EXPECT_EQ(Wanted(), session_->Stored());
  }

  QAbstractItemView& Grid(const QString& name) { return Find<QAbstractItemView>(*page_, name); }
  /// The cells of a grid by rows, joined by "|"; ticks as 是 and 否.
  QStringList Rows(const QString& name) {
    const QAbstractItemModel& model = *Grid(name).model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        const QVariant tick = model.index(row, column).data(Qt::CheckStateRole);
        cells << (!tick.isValid()       ? model.index(row, column).data().toString()
                  : tick == Qt::Checked ? QStringLiteral("是")
                                        : QStringLiteral("否"));
      }
      rows << cells.join(u'|');
    }
    return rows;
  }

  void GoTo(const QString& name, int row, int column = 0) {
    QAbstractItemView& grid = Grid(name);
    // A click on the current cell would have it edited a moment later.
    if (grid.currentIndex() != grid.model()->index(row, column)) ClickItem(grid, grid.model()->index(row, column));
    grid.setFocus();
    ASSERT_EQ(grid.currentIndex(), grid.model()->index(row, column));
  }
  /// Opens the editor of a cell; null where it cannot be edited.
  QWidget* EditorOf(const QString& name, int row, int column) {
    GoTo(name, row, column);
    Press(Grid(name), Qt::Key_F2);
    QWidget* editor = QApplication::focusWidget();
    return editor == &Grid(name) ? nullptr : editor;
  }
  void Write(const QString& name, int row, int column, const QString& text) {
    QWidget* editor = EditorOf(name, row, column);
    ASSERT_NE(editor, nullptr);
    if (auto* choice = qobject_cast<QComboBox*>(editor)) {
      choice->isEditable() ? choice->setEditText(text) : choice->setCurrentText(text);
      ASSERT_EQ(choice->currentText(), text);
    } else {
      Retype(*editor, text);
    }
    End(*editor, Qt::Key_Return);
  }
  /// Clicks on the tick of a cell, which stands in its middle.
  void Tick(const QString& name, int row, int column) { ClickItem(Grid(name), Grid(name).model()->index(row, column)); }
  /// Adds a row by its key and types what its first cell should say.
  void Add(const QString& name, const QString& text = {}) {
    Grid(name).setFocus();
    Press(Grid(name), Qt::Key_Insert);
    QWidget* editor = QApplication::focusWidget();
    if (editor == &Grid(name)) return;  // nothing was added, or nothing is to be typed
    if (!text.isEmpty() && qobject_cast<QLineEdit*>(editor)) Retype(*editor, text);
    End(*editor, text.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
  }
  void Remove(const QString& name, int row) {
    GoTo(name, row);
    Press(Grid(name), Qt::Key_Delete, Qt::ControlModifier);
  }
  void Paste(const QString& name, const QString& text) {
    QApplication::clipboard()->setText(text);
    Press(Grid(name), Qt::Key_V, Qt::ControlModifier);
  }

  std::unique_ptr<designer::DesignSession> session_;
  std::unique_ptr<Page> page_;

 private:
  // A delegate takes what was typed a moment later, and lets the editor go.
  static void End(QWidget& editor, Qt::Key key) {
    Press(editor, key);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  QStringList told_;
  DrivenByTest driven_;
};

}  // namespace folvane::test
