#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <functional>
#include <vector>

#include "data/Recordset.h"

namespace folvane {

/// A column of a grid: the field that it shows and what stands above it.
struct GridColumn {
  QString field, caption;
  int characters = 0;  ///< the usual width; 0 for a column that is hidden
};

/// The rows of a record set under its filter and sort, as a grid shows them. Looking at it moves no position. A field
/// that the record set does not have shows as empty.
///
/// Display role is the text; Qt::UserRole of a header is the column's field.
class RecordsetModel : public QAbstractTableModel {
 public:
  /// Both outlive the model.
  RecordsetModel(const Recordset& records, const std::vector<GridColumn>& columns, QObject* parent = nullptr)
      : QAbstractTableModel(parent), records_(records), columns_(columns) {}

  /// To be called when the record set was opened, closed or read again, or has other rows.
  void Reset();
  /// To be called when the values of a row have changed; rows count from 0.
  void TellChanged(int row);
  /// The column of a field, -1 when there is none.
  int FieldColumn(const QString& field) const;
  /// What the decoration role shows beside a value, by its field.
  void SetDecoration(std::function<QVariant(const QString& field, const QString& text)> decoration) {
    decoration_ = std::move(decoration);
  }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const Recordset& records_;
  const std::vector<GridColumn>& columns_;
  std::vector<int> fields_;  ///< by column: the field's index in the record set, -1 where it has none
  std::function<QVariant(const QString&, const QString&)> decoration_;
};

}  // namespace folvane
