#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "data/DatabaseSession.h"
#include "data/Recordset.h"
#include "data/ValueText.h"

namespace folvane {

class ResultSet::Rows {
 public:
  Rows(Connection& connection, const QString& statement)
      : fetched_(DatabaseSession::Of(connection).Fetch(statement, TextOrder::Plain)) {}

  const std::vector<ColumnInfo>& Columns() const { return fetched_.columns; }
  qint64 Count() const { return qint64(fetched_.rows->RowCount()); }

  const ColumnInfo& Column(int column) const {
    if (column < 0 || column >= int(Columns().size()))
      throw DataError(DataErrorKind::Usage, QStringLiteral("结果中没有第 %1 个字段。").arg(column));
    return Columns()[std::size_t(column)];
  }

  QVariant Value(qint64 row, int column) const {
    if (row < 0 || row >= Count())
      throw DataError(DataErrorKind::Usage, QStringLiteral("结果中没有第 %1 行。").arg(row));
    const ColumnInfo& info = Column(column);
    return DecodeCell(fetched_.rows->At(std::size_t(row), column), info);
  }

 private:
  FetchedRows fetched_;
};

ResultSet::ResultSet(Connection& connection, const QString& statement)
    : rows_(std::make_unique<Rows>(connection, statement)) {}
ResultSet::~ResultSet() = default;
ResultSet::ResultSet(ResultSet&& other) noexcept = default;
ResultSet& ResultSet::operator=(ResultSet&& other) noexcept = default;

int ResultSet::ColumnCount() const { return int(rows_->Columns().size()); }
QString ResultSet::ColumnName(int column) const { return rows_->Column(column).name; }
int ResultSet::ColumnType(int column) const { return rows_->Column(column).type; }
int ResultSet::ColumnSize(int column) const { return rows_->Column(column).definedSize; }

int ResultSet::Find(const QString& name) const { return IndexOfColumn(rows_->Columns(), name); }

qint64 ResultSet::RowCount() const { return rows_->Count(); }
QVariant ResultSet::Value(qint64 row, int column) const { return rows_->Value(row, column); }
QString ResultSet::Text(qint64 row, int column) const { return ValueText(Value(row, column)); }

}  // namespace folvane
