#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

namespace folvane {

/// The numbers under which a table's parameters are kept. They are also the columns of the model.
enum class Parameter {
  RowLimit = 1,       ///< the user's condition in brackets; "" for all rows, "1 = 2" for none
  Filter = 2,         ///< the condition of the chosen node or of a query
  Order = 3,          ///< what follows Order By
  Parent = 4,         ///< the parent table, "" for a top table
  Child = 5,          ///< the child table, "" for none
  ChildRelation = 6,  ///< the column of the child that holds this table's value of the same name
  Node = 7,           ///< index of the table's tree node
  LookFile = 8,       ///< "1" may see originals
  Print = 9,          ///< "1" may print
  Edit = 10,          ///< "1" may edit
  RightsText = 11,    ///< the rights in words
  Target = 13,        ///< the table that receives this one's records, "" for none
  Relation = 14,      ///< the column of this table that holds the parent's value
};

/// What a table's parameters let the user do with it.
struct TableGrants {
  bool lookFile = false;
  bool print = false;
  bool edit = false;
  bool hasTarget = false;  ///< the table has an archive table
};

/// The parameter list of the tables built so far, one row each: rights, filter, order, relations and archive target.
/// Everything that opens or limits a table reads it here. Rows count from 1; 0 stands for no row.
///
/// As a model: column 0 is the table's name, columns 1 to 14 are the parameters.
class TableParameters : public QAbstractTableModel {
  Q_OBJECT

 public:
  static constexpr int kParameterCount = 14;
  using QAbstractTableModel::QAbstractTableModel;

  void Clear();
  int Add(const QString& table);
  /// Takes the row and those after it away again.
  void RemoveFrom(int row);
  int Count() const { return int(rows_.size()); }
  QString Table(int row) const { return rows_.at(size_t(row) - 1)[0]; }
  QString Get(int row, Parameter parameter) const { return rows_.at(size_t(row) - 1)[size_t(parameter)]; }
  void Set(int row, Parameter parameter, const QString& text);
  /// Remembers the conditions that the user saw and that a filter leaves out, in words.
  void SetLeftOut(const QString& filter, const QStringList& conditions) { leftOut_[filter] = conditions; }
  /// Those that the filter of the selected row leaves out.
  QStringList LeftOut() const { return leftOut_.value(Selected(Parameter::Filter)); }
  /// The first row of that table, blanks around and case not regarded; 0 when there is none.
  int Find(const QString& table) const;

  /// The row of the table that is shown.
  int SelectedRow() const { return selected_; }
  void Select(int row);
  /// A parameter of the selected row; "" when none is selected.
  QString Selected(Parameter parameter) const { return selected_ == 0 ? QString() : Get(selected_, parameter); }

  /// Those of the selected row; none when none is selected.
  TableGrants Grants() const;

  /// The condition that a query window or the way down to a child table left.
  QString Tag() const { return tag_; }
  void SetTag(const QString& tag);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 Q_SIGNALS:
  void SelectedRowChanged(int row);
  void TagChanged(const QString& tag);

 private:
  std::vector<std::array<QString, kParameterCount + 1>> rows_;
  QHash<QString, QStringList> leftOut_;  ///< by filter
  int selected_ = 0;
  QString tag_;
};

}  // namespace folvane
