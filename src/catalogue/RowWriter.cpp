#include "catalogue/RowWriter.h"

#include <algorithm>
#include <utility>

#include "data/DatabaseSession.h"

namespace folvane {
namespace {

constexpr std::size_t kMarkersToStatement = 1000;

}  // namespace

RowWriter::RowWriter(Connection& connection, const QString& table, QStringList columns)
    : connection_(connection),
      table_(table),
      columns_(std::move(columns)),
      rowsToStatement_(std::max<std::size_t>(1, kMarkersToStatement / size_t(columns_.size()))) {
  full_.text = Text(rowsToStatement_);
}

QByteArray RowWriter::Text(std::size_t rows) const {
  const QByteArray row = "(" + QByteArrayList(columns_.size(), "?").join(',') + ")";
  return "insert into " + table_.toUtf8() + "(" + columns_.join(u',').toUtf8() + ") values " +
         QByteArrayList(qsizetype(rows), row).join(',');
}

void RowWriter::Add(std::vector<QVariant> values) {
  for (QVariant& value : values) full_.parameters.push_back(std::move(value));
  if (full_.parameters.size() < rowsToStatement_ * values.size()) return;
  DatabaseSession::Of(connection_).ExecuteNative(full_);
  full_.parameters.clear();
}

void RowWriter::Finish() {
  if (full_.parameters.empty()) return;
  const std::size_t rows = full_.parameters.size() / size_t(columns_.size());
  DatabaseSession::Of(connection_).ExecuteNative({Text(rows), full_.parameters});
  full_.parameters.clear();
}

}  // namespace folvane
