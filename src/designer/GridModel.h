#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "designer/DesignSession.h"

namespace folvane::designer {

/// A column of a grid.
struct GridColumn {
  enum class Kind { Text, Number, Check, Choice, FreeChoice };
  QString title;
  Kind kind = Kind::Text;
  int width = 12;                                 ///< in characters
  std::function<QStringList(int row)> choices{};  ///< of the two kinds of choice
  QString tip{};
};

/// Things of a design in rows. Changes go through the session, each as one step; one that cannot be is told there.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  GridModel(DesignSession& session, std::vector<GridColumn> columns, QObject* parent);

  const GridColumn& Column(int column) const { return columns_[std::size_t(column)]; }
  /// Shows the design as it is now.
  void Refresh();

  virtual bool CanAdd() const = 0;
  /// Adds a row behind the last. @return its number from 0, -1 where it was refused
  virtual int Add() = 0;
  virtual void Remove(const std::vector<int>& rows) = 0;
  virtual bool CanMove() const = 0;
  /// Moves a row up or down. @return where it is then
  virtual int Move(int row, int by) = 0;
  /// Puts lines of cells that are parted by tabs over those from there on, as one step. Rows that are missing are
  /// added.
  virtual void PasteAt(int row, int column, const QStringList& lines) = 0;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

 protected:
  virtual int Count() const = 0;
  virtual QVariant Value(int row, int column) const = 0;
  virtual bool Write(int row, int column, const QVariant& value) = 0;
  virtual bool IsLocked(int row, int column) const = 0;

  DesignSession& Session() const { return session_; }

 private:
  DesignSession& session_;
  std::vector<GridColumn> columns_;
  int shown_ = 0;  ///< rows that the view knows of
};

}  // namespace folvane::designer
