#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <deque>
#include <functional>
#include <vector>

namespace folvane {

/// A column of a record list; its key is the field it shows, "" for the column of the tick numbers.
struct ListColumn {
  QString key, caption;
  int width = 0;  ///< in twips, as the design gives it
  QString tag;
};

/// The icons of a list row: they tell whether the seventh column holds something and whether the record has originals.
namespace RowIcon {
enum : int { Filled = 1, Empty = 2, Original = 3, FilledWithOriginals = 4, EmptyWithOriginals = 5 };
}  // namespace RowIcon

int IconOfRow(const QString& seventhCell, bool hasOriginals);

/// A row of a record list: one text per column, and the number of its icon.
struct ListRow {
  QStringList cells;
  int icon = 0;
};

/// The rows of a record list that have been loaded so far. The last column always holds the record's key.
///
/// Rows and columns count from 0 here, as in any item model. Display role is the text; Qt::UserRole of a header is the
/// column's key and + 2 its tag; of a row Qt::UserRole is the record's key and + 1 the icon number. Qt::CheckStateRole
/// of the first column ticks a row.
class RecordListModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetColumns(std::vector<ListColumn> columns);
  const std::vector<ListColumn>& Columns() const { return columns_; }
  /// The column of that key without regard to case, -1 when there is none.
  int FindColumn(const QString& key) const;
  void SetCaption(int column, const QString& caption);
  void SetColumnTag(int column, const QString& tag) { columns_.at(size_t(column)).tag = tag; }

  void ClearRows();
  void InsertRow(int at, ListRow row);
  /// Changes the icon of a row to that of a record with originals, or without.
  void ShowOriginals(int row, bool hasOriginals);
  int Count() const { return int(rows_.size()); }
  const ListRow& Row(int row) const { return rows_.at(size_t(row)); }
  /// The key of a row's record; "" for a row that is not there.
  QString KeyOf(int row) const;
  /// What the decoration role shows for an icon number.
  void SetDecoration(std::function<QVariant(int icon)> decoration) { decoration_ = std::move(decoration); }

  /// Whether rows have a box to tick, before their first cell; they have none unless told so.
  void SetTickable(bool tickable);
  /// Gives the rows a box to tick and a first column of their own, which numbers the ticked ones in the order of their
  /// ticks. No more than the numbers reach to can be ticked.
  void NumberTicks();
  bool IsTickable() const { return ticks_ != Ticks::None; }
  /// Whether there is a column for anything but the tick numbers and the record's key.
  bool HasFieldColumns() const { return columns_.size() > (ticks_ == Ticks::Numbered ? 2 : 1); }
  /// The keys of the ticked records in the order in which they were ticked, whether their rows are loaded or not.
  const QStringList& Ticked() const { return ticked_; }
  /// Ticks the loaded rows from the top, and no others.
  void TickLoaded();
  void ClearTicks();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  enum class Ticks { None, Boxes, Numbered };

  void SetTicks(Ticks ticks);
  void SetTicked(QStringList keys);
  QString TickNumber(int row) const;

  std::vector<ListColumn> columns_;
  std::deque<ListRow> rows_;
  std::function<QVariant(int)> decoration_;
  Ticks ticks_ = Ticks::None;
  QStringList ticked_;
};

}  // namespace folvane
