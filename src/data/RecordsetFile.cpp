#include "data/RecordsetFile.h"

#include <QFileInfo>

#include "base/CodePage.h"
#include "base/FileUpdate.h"
#include "data/ColumnSurvey.h"
#include "data/SavedRows.h"
#include "data/persist/ColumnPlan.h"
#include "data/persist/RowLoader.h"
#include "data/persist/TablegramFile.h"
#include "data/persist/TablegramWriter.h"
#include "data/persist/ValueEncoder.h"

namespace folvane {

namespace {

/// A value that its column, as it was described, does not hold.
struct Misfit {};

/// Writes rows below a head that is made for them.
class RowWriter {
 public:
  RowWriter(SavedRows& rows, const Tablegram& head, QIODevice& device)
      : rows_(rows), set_(head.sets.front()), writer_(device, head) {
    for (const ColumnDescriptor& column : set_.columns) encoders_.emplace_back(column);
    row_.cells.resize(encoders_.size());
  }

  /// @throws Misfit
  void WriteAll() {
    writer_.WriteHead();
    for (qint64 i = 0; i < rows_.Count(); ++i) Write(rows_.At(i));
    writer_.WriteEnd();
  }

 private:
  void Write(RowId row) {
    const RowChange::State state = rows_.Source().StateOf(row);
    if (state == RowChange::Added) return WriteInsertion(row);
    WriteOriginal(row);
    if (state == RowChange::Modified) WriteChange(row);
    if (state == RowChange::Deleted) Put(TablegramRow::Deletion, 0);
  }

  void WriteOriginal(RowId row) {
    const std::vector<Cell>& values = rows_.Original(row);
    for (std::size_t i = 0; i < values.size(); ++i) Assign(i, values[i]);
    Put(TablegramRow::Original, 0xff);  // ADO sets the bits behind the last column's
  }

  void WriteChange(RowId row) {
    const std::vector<Cell>& values = rows_.Current(row);
    bool any = false;
    for (std::size_t i = 0; i < values.size(); ++i) {
      row_.cells[i] = {};
      if (!rows_.Source().IsChanged(row, int(i))) continue;
      Assign(i, values[i]);
      any = true;
    }
    if (any) Put(TablegramRow::Change, 0);
  }

  void WriteInsertion(RowId row) {
    const std::vector<Cell>& values = rows_.Current(row);
    for (std::size_t i = 0; i < values.size(); ++i) {
      row_.cells[i] = {};
      if (values[i].kind != Cell::Null || set_.layouts[i].presence) Assign(i, values[i]);
    }
    Put(TablegramRow::Insertion, 0);
  }

  void Assign(std::size_t column, const Cell& value) {
    TablegramCell& cell = row_.cells[column];
    if (value.kind == Cell::Null) {
      if (!set_.layouts[column].presence) throw Misfit();
      cell = {TablegramCell::Null, {}};
      return;
    }
    cell.state = TablegramCell::Value;
    if (!encoders_[column].Encode(value, cell.bytes)) throw Misfit();
  }

  void Put(TablegramRow::Kind kind, uchar padding) {
    row_.kind = kind;
    row_.padding = padding;
    writer_.WriteRow(row_);
  }

  SavedRows& rows_;
  const TablegramSet& set_;
  TablegramWriter writer_;
  std::vector<ValueEncoder> encoders_;
  TablegramRow row_;
};

void WriteFile(SavedRows& rows, const std::vector<ColumnDescriptor>& columns, const QString& path) {
  const Tablegram head = FlatTablegram(columns, std::size_t(rows.LiveCount()));
  ReplaceFile(path, [&](QIODevice& file) { RowWriter(rows, head, file).WriteAll(); });
}

}  // namespace

void SaveRecordset(const RecordsetState& state, const QString& path) {
  SavedRows rows(state);
  std::vector<ColumnDescriptor> columns;
  const auto survey = [&](std::size_t i) { columns[i] = ColumnSurvey(rows, int(i)).Fitted(columns[i]); };
  for (const ColumnInfo& column : state.rows.Columns()) {
    columns.push_back(DescribeForFile(column, int(columns.size()) + 1));
    if (column.type == AdoType::Numeric) survey(columns.size() - 1);
  }
  // Mostly every value is as its column says. Where one is not, all are looked at before the file is begun anew.
  try {
    WriteFile(rows, columns, path);
  } catch (const Misfit&) {
    for (std::size_t i = 0; i < columns.size(); ++i) survey(i);
    WriteFile(rows, columns, path);
  }
}

FetchedRows LoadRecordset(const QString& path, int codePage) {
  CodePageReader reader(codePage);
  const QByteArray content = ReadTablegramFile(path);
  return LoadTablegram(content, reader);
}

}  // namespace folvane
