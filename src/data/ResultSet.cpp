#include <folvane/DataError.h>
#include <folvane/ResultSet.h>

#include "data/Recordset.h"

namespace folvane {

class ResultSet::Rows {
 public:
  Rows(Connection& connection, const QString& statement) {
    // Only for the time of Open: nothing is ever written.
    const std::shared_ptr<Connection> unowned(std::shared_ptr<Connection>(), &connection);
    records_.Open(statement, unowned, CursorType::Static, LockType::ReadOnly);
  }

  FieldList Fields() const { return records_.Fields(); }
  qint64 Count() const { return records_.RecordCount(); }

  Field At(qint64 row, int column) {
    if (row < 0 || row >= Count())
      throw DataError(DataErrorKind::Usage, QStringLiteral("结果中没有第 %1 行。").arg(row));
    if (records_.AbsolutePosition() != row + 1) records_.SetAbsolutePosition(row + 1);
    return Fields().Item(column);
  }

 private:
  Recordset records_;
};

ResultSet::ResultSet(Connection& connection, const QString& statement)
    : rows_(std::make_unique<Rows>(connection, statement)) {}
ResultSet::~ResultSet() = default;
ResultSet::ResultSet(ResultSet&& other) noexcept = default;
ResultSet& ResultSet::operator=(ResultSet&& other) noexcept = default;

int ResultSet::ColumnCount() const { return rows_->Fields().Count(); }
QString ResultSet::ColumnName(int column) const { return rows_->Fields().Item(column).Name(); }
int ResultSet::ColumnType(int column) const { return rows_->Fields().Item(column).Type(); }
int ResultSet::ColumnSize(int column) const { return rows_->Fields().Item(column).DefinedSize(); }
int ResultSet::Find(const QString& name) const { return rows_->Fields().IndexOf(name); }
qint64 ResultSet::RowCount() const { return rows_->Count(); }
QVariant ResultSet::Value(qint64 row, int column) const { return rows_->At(row, column).Value(); }
QString ResultSet::Text(qint64 row, int column) const { return rows_->At(row, column).Text(); }

}  // namespace folvane
