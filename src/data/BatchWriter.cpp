#include "data/BatchWriter.h"

#include <QDateTime>
#include <optional>

#include <folvane/DataError.h>

#include "data/RefusedValues.h"
#include "data/ValueText.h"

namespace folvane {

namespace {
using namespace Qt::Literals::StringLiterals;

bool IsLong(const ColumnInfo& column) {
  return column.type == AdoType::LongVarChar || column.type == AdoType::LongVarWChar ||
         GroupOfType(column.type) == TypeGroup::Binary;
}

bool IsInexact(const ColumnInfo& column) { return column.type == AdoType::Single || column.type == AdoType::Double; }

// Another user may have given the column another length since it was described.
ColumnInfo DescribedAnew(const ColumnInfo& column, const QString& table, DatabaseSession& session) {
  session.RefreshSchema();
  const TableInfo* now = session.Table(table);
  const int at = now ? now->IndexOf(column.name) : -1;
  return at < 0 ? column : now->columns[size_t(at)];
}

constexpr std::size_t kUsualName = 16;  ///< bytes of a quoted name and its comma, for the room of a list

// A moment is kept to the millisecond; whether one with a fraction of a second is that of the database is past telling.
bool IsRounded(const QVariant& value) {
  return value.typeId() == QMetaType::QDateTime && value.toDateTime().time().msec() != 0;
}

bool IsDate(const QVariant& value) {
  return value.typeId() == QMetaType::QDate || value.typeId() == QMetaType::QDateTime;
}

// Values go to the driver as text, numbers, truth values and bytes. A number is no truth value to every database.
QVariant ForDriver(const QVariant& value, const ColumnInfo& column) {
  if (column.type == AdoType::Boolean && value.isValid()) return value.toBool();
  return IsDate(value) ? QVariant(ValueText(value)) : value;
}

}  // namespace

BatchWriter::BatchWriter(Connection& connection, const QString& source, Rows& rows)
    : connection_(connection), session_(DatabaseSession::Of(connection)), rows_(rows) {
  const QString name = session_.BaseTable(source);
  const TableInfo* table = name.isEmpty() ? nullptr : session_.Table(name);
  if (!table) throw DataError(DataErrorKind::Usage, u"该记录集不是由一个表直接读出的，不能写回数据库。"_s, source);
  table_ = std::make_shared<const TableInfo>(*table);
  const NativeWords& words = session_.Words();
  tableName_ = words.Quoted(table_->name);
  for (const ColumnInfo& column : rows.Columns()) {
    const int at = table_->IndexOf(column.name);
    tableColumn_.push_back(at);
    names_.push_back(at < 0 ? QByteArray() : words.Quoted(table_->columns[size_t(at)].name));
  }

  for (const int keyColumn : table_->key) {
    const int column = rows.IndexOf(table_->columns[size_t(keyColumn)].name);
    if (column < 0) {
      key_.clear();
      break;
    }
    key_.push_back(column);
  }
  if (!key_.empty()) return;
  for (int i = 0; i < int(tableColumn_.size()); ++i) {
    const ColumnInfo& column = rows.Columns()[size_t(i)];
    if (tableColumn_[size_t(i)] >= 0 && !IsLong(column) && !IsInexact(column)) key_.push_back(i);
  }
}

void BatchWriter::Write(const std::vector<RowId>& pending) {
  if (pending.size() > 1)
    for (const RowId row : pending) CheckLengths(row);
  std::optional<Transaction> transaction;
  if (pending.size() > 1 && !connection_.InTransaction()) transaction.emplace(connection_);
  std::vector<Written> written;
  written.reserve(pending.size());
  for (const RowId row : pending) {
    const RowChange* change = rows_.Change(row);
    if (!change || !Rows::IsPending(*change)) continue;
    try {
      written.push_back(WriteOne(row));
    } catch (const DataError& error) {
      const int column = error.IsDuplicate() ? rows_.IndexOf(error.Column()) : -1;
      if (column < 0) throw;
      throw DuplicateError({error.Column()}, error.NativeCode(), ValueText(rows_.Value(row, column)));
    }
  }
  if (transaction) transaction->Commit();
  for (const Written& done : written) {
    for (const auto& [column, value] : done.given) rows_.SetValue(done.row, column, value);
    rows_.MarkWritten(done.row);
  }
}

BatchWriter::Written BatchWriter::WriteOne(RowId row) {
  Written written{row, {}};
  switch (rows_.Change(row)->state) {
    case RowChange::Added:
      Insert(written);
      break;
    case RowChange::Deleted:
      Delete(written);
      break;
    default:
      Update(written);
  }
  return written;
}

// A batch that cannot be written whole is refused before its first row is.
void BatchWriter::CheckLengths(RowId row) const {
  const RowChange* change = rows_.Change(row);
  if (!change || !Rows::IsPending(*change) || change->state == RowChange::Deleted) return;
  for (std::size_t i = 0; i < tableColumn_.size(); ++i) {
    const int at = int(i);
    if (tableColumn_[i] >= 0 && (change->state == RowChange::Added || rows_.IsChanged(row, at)))
      Fitted(rows_.Value(row, at), row, at);
  }
}

QVariant BatchWriter::Fitted(const QVariant& value, RowId row, int at) const {
  const ColumnInfo& column = TableColumn(at);
  if (value.typeId() != QMetaType::QString || GroupOfType(column.type) != TypeGroup::Text) return value;
  const QString text = value.toString();
  if (FitsColumn(text, column)) return value;
  return FittedText(text, DescribedAnew(column, table_->name, session_), rows_.Original(row, at).toString());
}

QVariant BatchWriter::Parameter(const QVariant& value, Written& written, int at) const {
  const QVariant kept = Fitted(value, written.row, at);
  if (kept != value) written.given.emplace_back(at, kept);
  return ForDriver(kept, TableColumn(at));
}

void BatchWriter::Insert(Written& written) {
  NativeStatement statement;
  statement.parameters.reserve(tableColumn_.size());
  QByteArray names, marks;
  names.reserve(qsizetype(kUsualName * tableColumn_.size()));
  marks.reserve(qsizetype(2 * tableColumn_.size()));
  std::vector<int> asked;
  for (std::size_t i = 0; i < tableColumn_.size(); ++i) {
    if (tableColumn_[i] < 0) continue;
    const int at = int(i);
    const ColumnInfo& column = TableColumn(at);
    const QVariant value = rows_.Value(written.row, at);
    if (value.isValid() ? MayBeRounded(value, column) : column.autoNumber || column.hasDefault) asked.push_back(at);
    if (value.isValid()) {
      if (!names.isEmpty()) names += ',';
      names += Name(at);
      marks += marks.isEmpty() ? "?" : ",?";
      statement.parameters.push_back(Parameter(value, written, at));
    }
  }
  const NativeWords& words = session_.Words();
  statement.text = "INSERT INTO " + tableName_;
  if (!names.isEmpty()) statement.text += " (" + names + ")";
  statement.text += NamesOf(asked, words.insertedAhead);
  statement.text += names.isEmpty() ? QByteArray(" DEFAULT VALUES") : " VALUES (" + marks + ")";
  statement.text += NamesOf(asked, words.writtenAtEnd);
  Run(statement, asked, written);
}

// Where a database gives back what it is asked for with every statement, a number that it may have rounded to the
// places of its column is asked for.
bool BatchWriter::MayBeRounded(const QVariant& value, const ColumnInfo& column) const {
  if (!*session_.Words().writtenAtEnd || value.typeId() == QMetaType::LongLong) return false;
  return value.isValid() &&
         (column.type == AdoType::Numeric || column.type == AdoType::Decimal || column.type == AdoType::Currency);
}

QByteArray BatchWriter::NamesOf(const std::vector<int>& columns, const QByteArray& word) const {
  QByteArray names;
  for (const int at : columns) names += (names.isEmpty() ? word : ",") + Name(at);
  return word.isEmpty() ? QByteArray() : names;
}

qint64 BatchWriter::Run(const NativeStatement& statement, const std::vector<int>& asked, Written& written) {
  if (asked.empty()) return session_.ExecuteNative(statement);
  const FetchedRows kept = session_.FetchNative(statement);
  const auto count = qint64(kept.rows->RowCount());
  for (std::size_t i = 0; count == 1 && i < asked.size(); ++i)
    written.given.emplace_back(asked[i], DecodeCell(kept.rows->At(0, int(i)), rows_.Columns()[size_t(asked[i])]));
  return count;
}

void BatchWriter::Update(Written& written) {
  const RowId row = written.row;
  const NativeWords& words = session_.Words();
  NativeStatement statement;
  QByteArray assignments;
  std::vector<int> asked;
  for (std::size_t i = 0; i < tableColumn_.size(); ++i) {
    const int at = int(i);
    if (tableColumn_[i] < 0 || !rows_.IsChanged(row, at)) continue;
    assignments += (assignments.isEmpty() ? "" : ",") + Name(at) + "=?";
    const QVariant value = rows_.Value(row, at);
    statement.parameters.push_back(Parameter(value, written, at));
    if (MayBeRounded(value, TableColumn(at))) asked.push_back(at);
  }
  if (assignments.isEmpty()) return;
  statement.text = "UPDATE " + tableName_ + " SET " + assignments;
  AddCondition(statement, row, true);
  statement.text += NamesOf(asked, words.writtenAtEnd);
  RunOnOneRow(statement, asked, written);
}

void BatchWriter::Delete(Written& written) {
  NativeStatement statement;
  statement.text = "DELETE FROM " + tableName_;
  AddCondition(statement, written.row, false);
  RunOnOneRow(statement, {}, written);
}

void BatchWriter::AddCondition(NativeStatement& statement, RowId row, bool withChanges) const {
  QByteArray condition;
  const auto add = [&](int index) {
    const QVariant value = rows_.Original(row, index);
    condition += condition.isEmpty() ? " WHERE " : " AND ";
    condition += Compared(index, value) + (value.isValid() ? "=?" : " IS NULL");
    if (value.typeId() == QMetaType::QDateTime)
      statement.parameters.emplace_back(value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s));
    else if (value.isValid())
      statement.parameters.push_back(ForDriver(value, rows_.Columns()[size_t(index)]));
  };
  // Without a key of the table's own the other columns still name the row.
  for (const int column : key_)
    if (!table_->key.empty() || !IsRounded(rows_.Original(row, column))) add(column);
  for (int i = 0; withChanges && i < int(tableColumn_.size()); ++i) {
    const auto at = size_t(i);
    const ColumnInfo& column = rows_.Columns()[at];
    const bool changed = tableColumn_[at] >= 0 && rows_.IsChanged(row, i);
    // Binary and inexact values do not compare reliably; the key still names the row.
    if (!changed || GroupOfType(column.type) == TypeGroup::Binary || IsInexact(column)) continue;
    if (IsRounded(rows_.Original(row, i))) continue;
    if (std::find(key_.begin(), key_.end(), i) == key_.end()) add(i);
  }
  statement.text += condition;
}

// A date that is kept as text may have any spelling.
QByteArray BatchWriter::Compared(int at, const QVariant& value) const {
  if (!IsDate(value)) return Name(at);
  const QByteArray length = value.typeId() == QMetaType::QDate ? "10" : "19";
  return QByteArray(session_.Words().storedDate).replace("%2", length).replace("%1", Name(at));
}

void BatchWriter::RunOnOneRow(const NativeStatement& statement, const std::vector<int>& asked, Written& written) {
  // Without a key the values may fit several rows, which one statement must not change together. SQLite lets a key be
  // null in several.
  std::optional<Transaction> transaction;
  const bool keyed = !table_->key.empty() && std::all_of(key_.begin(), key_.end(), [&](int column) {
    return rows_.Original(written.row, column).isValid();
  });
  if (!keyed && !connection_.InTransaction()) transaction.emplace(connection_);
  const qint64 count = Run(statement, asked, written);
  if (count == 0)
    throw DataError(DataErrorKind::Conflict, u"该记录已被其他用户修改或删除，未能保存。"_s,
                    QString::fromUtf8(statement.text));
  if (count > 1)
    throw DataError(DataErrorKind::Conflict,
                    u"表“%1”没有主键，有 %2 条相同的记录，不能确定要修改的是哪一条。"_s.arg(table_->name).arg(count));
  if (transaction) transaction->Commit();
}

std::vector<QVariant> BatchWriter::Read(RowId row) {
  NativeStatement statement;
  for (std::size_t i = 0; i < tableColumn_.size(); ++i) {
    statement.text += i ? "," : "SELECT ";
    statement.text += tableColumn_[i] < 0 ? QByteArray("NULL") : names_[i];
  }
  statement.text += " FROM " + tableName_;
  AddCondition(statement, row, false);
  const FetchedRows read = session_.FetchNative(statement);
  if (read.rows->RowCount() == 0)
    throw DataError(DataErrorKind::Conflict, u"该记录已被其他用户删除。"_s, QString::fromUtf8(statement.text));
  std::vector<QVariant> values;
  for (std::size_t i = 0; i < tableColumn_.size(); ++i)
    values.push_back(tableColumn_[i] < 0 ? rows_.Value(row, int(i))
                                         : DecodeCell(read.rows->At(0, int(i)), rows_.Columns()[i]));
  return values;
}

}  // namespace folvane
