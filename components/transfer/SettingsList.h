#pragma once

#include <QStandardItemModel>
#include <QTreeView>
#include <functional>
#include <vector>

#include "design/transfer/Finding.h"

namespace folvane::transfer {

/// A row of a list: its texts, and what is wrong with it in the last cell.
struct ListRow {
  QStringList cells;
  QString key;
  Findings findings{};
  bool isProposal = false;  ///< only offered so far; shown in italics
};

/// A list of rows that are filled anew after each change and keep their place: columns that say what they are, an icon
/// beside what is wrong, a hint where it is empty, and keys that can be dragged onto another list.
class SettingsList : public QTreeView {
 public:
  /// @param caption what a screen reader says
  SettingsList(QWidget* parent, const QString& name, const QString& caption, const QStringList& columns);

  /// Shown in the middle while there are no rows.
  void SetHint(const QString& hint);
  /// Takes the rows over; the one that was current is current again, or else the one at its place.
  void Fill(const std::vector<ListRow>& rows);

  /// The current row from 0, -1 for none; its key, "" for none.
  int Row() const;
  QString Key() const;
  void GoTo(int row);
  void GoToKey(const QString& key);
  /// In units of a character's width.
  void SetWidths(const std::vector<int>& units);

  /// Has keys dragged from here onto lists that take their kind.
  void DragAs(const QString& kind);
  /// Takes keys of these kinds that are dropped onto a row; -1 for the place behind the rows.
  void TakeDrops(const QStringList& kinds,
                 std::function<void(const QString& kind, const QString& key, int row)> onDrop);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  class Items;
  QString KindOf(const QDropEvent& event) const;
  QList<QStandardItem*> CellsOf(const ListRow& row) const;

  Items* items_;
  QString hint_;
  QStringList kinds_;
  std::function<void(const QString& kind, const QString& key, int row)> onDrop_;
};

/// The picture of a severity, in the style of the desktop; none for nothing wrong.
QIcon IconOf(Severity severity, const QWidget& widget);

}  // namespace folvane::transfer
