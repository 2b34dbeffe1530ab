#include "monkey/DesignRows.h"

#include <algorithm>

#include "catalogue/Catalogue.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

/// A table of the catalogue, or one column of it, that commands write.
struct Written {
  QString table, column;  ///< no column for the whole table
};

const std::vector<Written>& WrittenByCommands() {
  static const std::vector<Written> written{
      {u"FindCirOrder"_s, {}},             // the order of a list, kept for its user
      {u"FindCirSave"_s, {}},              // the conditions of a compound query that is kept
      {u"SimSearch"_s, {}},                // which inputs a simple query has, and what was searched for
      {u"SaveCollect"_s, {}},              // the proofing rules, which have a window
      {u"SaveControls"_s, u"KeyOrder"_s},  // the order of the fields of an entry form, which has a window
      {u"DataTransfer_Ini"_s, {}},         // the settings of transfers, which have a window ...
      {u"DataTransfer_Details"_s, {}},     // ... with the fields ...
      {u"ArchiveNo_Format"_s, {}},         // ... and the archive numbers
      {u"AssistantDictionary"_s, {}},      // what was typed is kept in the dictionary of its field
      {u"AssistantDicKey"_s, {}},
      {u"Original_Text"_s, {}},    // the originals of the records
      {u"Distribute_File"_s, {}},  // the sheets of the flows with their lines and routes
      {u"Distribute_Details"_s, {}},
      {u"PassRead_File"_s, {}},
      {u"PassRead_Details"_s, {}},
      {u"Transact_File"_s, {}},
      {u"Transact_Details"_s, {}},
      {u"Curr_Flow"_s, {}},
      {u"Curr_FlowNode"_s, {}},
  };
  return written;
}

bool IsWritten(const QString& table, const QString& column) {
  return std::any_of(WrittenByCommands().begin(), WrittenByCommands().end(), [&](const Written& written) {
    return written.table.compare(table, Qt::CaseInsensitive) == 0 &&
           written.column.compare(column, Qt::CaseInsensitive) == 0;
  });
}

QStringList Sorted(const QString& name, const std::vector<QStringList>& rows) {
  QStringList lines;
  for (const QStringList& row : rows) lines << name + u": "_s + row.join(u'|');
  lines.sort();
  return lines;
}

}  // namespace

QStringList UntouchableRows(TestDatabase& database) {
  QStringList lines = Sorted(u"made"_s, database.Rows(u"select sql from sqlite_master"_s));
  for (const Table& table : CatalogueTables()) {
    if (IsWritten(table.name, {})) continue;
    QStringList columns;
    for (const Column& column : table.columns)
      if (!IsWritten(table.name, column.name)) columns << column.name;
    lines << Sorted(table.name, database.Rows(u"select %1 from %2"_s.arg(columns.join(u','), table.name)));
  }
  return lines;
}

}  // namespace folvane::test
