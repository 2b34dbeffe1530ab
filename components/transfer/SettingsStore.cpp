#include "components/transfer/SettingsStore.h"

#include <QSet>

#include <folvane/Connection.h>
#include <folvane/DataError.h>

#include "components/transfer/RequiredTables.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kShowsCode = u"显示代号"_s, kShowsName = u"显示名称"_s;

// The texts of a column in the order of the rows of one table.
QStringList OrderIn(const DesignRows& rows, const QString& table) {
  QStringList order;
  for (const QVariantList& row : rows.rows)
    if (IsSame(rows.Text(row, u"TableName"_s), table)) order << rows.Text(row, u"FieldName"_s);
  return order;
}

QVariantList RowOf(const DesignRows& parts, const NumberFormat& format, const NumberPart& part) {
  QVariantList row = part.row;
  parts.Put(row, u"TableName"_s, format.table);
  parts.Put(row, u"FieldName"_s, part.field);
  parts.Put(row, u"FieldChn"_s, part.caption);
  parts.PutExact(row, u"ListSeparator"_s, part.separator);
  parts.PutNumber(row, u"Lengh"_s, part.length);
  // Any other word than that of the code means the name.
  if (part.row.isEmpty() || (parts.Exact(row, u"ShowMode"_s) == kShowsCode) != part.showsCode)
    parts.PutExact(row, u"ShowMode"_s, part.showsCode ? kShowsCode : kShowsName);
  if (format.rowsDiffer) return row;  // nothing of the format was changed
  parts.Put(row, u"StoreField"_s, format.storeField);
  parts.Put(row, u"FolderNoField"_s, format.folderField);
  return row;
}

}  // namespace

Settings SettingsStore::Read() {
  RequireTables(*connection_);
  read_ = ReadRows();
  return Understand();
}

SettingsStore::Rows SettingsStore::ReadRows() const {
  return {ReadDesignRows(*connection_, u"DataTransfer_Ini"_s), ReadDesignRows(*connection_, u"DataTransfer_Details"_s),
          ReadDesignRows(*connection_, u"ArchiveNo_Format"_s)};
}

Settings SettingsStore::Understand() const {
  Settings settings;
  const DesignRows& sets = read_.sets;
  for (const QVariantList& row : sets.rows)
    settings.sets.push_back(
        {sets.Text(row, u"RecId"_s), sets.Text(row, u"SourceTbl"_s), sets.Text(row, u"DesTbl"_s), {}, row});
  ReadLinks(settings);
  ReadParts(settings);
  return settings;
}

// Sets of one number have the same fields.
void SettingsStore::ReadLinks(Settings& settings) const {
  const DesignRows& links = read_.links;
  for (const QVariantList& row : links.rows) {
    const QString number = links.Text(row, u"IniRecId"_s);
    const FieldLink link{links.Text(row, u"SourceField"_s), links.Text(row, u"DesField"_s),
                         links.Text(row, u"SourceChn"_s), row};
    bool isTaken = false;
    for (TransferSet& set : settings.sets) {
      if (set.number != number || (number.isEmpty() && !set.IsOrphan())) continue;
      set.links.push_back(link);
      isTaken = true;
    }
    if (!isTaken) settings.sets.push_back({number, {}, {}, {link}});
  }
}

void SettingsStore::ReadParts(Settings& settings) const {
  const DesignRows& parts = read_.parts;
  for (const QVariantList& row : parts.rows) {
    const QString table = parts.Text(row, u"TableName"_s);
    auto format = std::find_if(settings.formats.begin(), settings.formats.end(),
                               [&](const NumberFormat& candidate) { return IsSame(candidate.table, table); });
    if (format == settings.formats.end()) format = settings.formats.insert(format, {table});
    const QString store = parts.Text(row, u"StoreField"_s), folder = parts.Text(row, u"FolderNoField"_s);
    if (!format->parts.empty() && (!IsSame(store, format->storeField) || !IsSame(folder, format->folderField)))
      format->rowsDiffer = true;
    format->storeField = store;
    format->folderField = folder;
    format->parts.push_back({parts.Text(row, u"FieldName"_s), parts.Text(row, u"FieldChn"_s),
                             parts.Exact(row, u"ListSeparator"_s), parts.Text(row, u"Lengh"_s),
                             parts.Exact(row, u"ShowMode"_s) == kShowsCode, row});
  }
}

Settings SettingsStore::Save(Settings settings) {
  const Settings before = Understand();
  if (settings == before) return settings;
  GiveNumbers(settings);
  const Rows after = RowsOf(settings);
  Transaction transaction(*connection_);
  if (ReadRows() != read_)
    throw DataError(DataErrorKind::Conflict,
                    u"其他用户在此期间修改了归档设置，本次修改没有保存。请重新读取（F5）后再修改。"_s);
  const RowChange sets(read_.sets, after.sets, u"RecId"_s), links(read_.links, after.links, u"IniRecId"_s),
      parts(read_.parts, after.parts, u"TableName"_s);
  links.Delete(*connection_);
  sets.Delete(*connection_);
  parts.Delete(*connection_);
  sets.Write(*connection_);
  links.Write(*connection_);
  parts.Write(*connection_);
  RequireOrder(after);
  transaction.Commit();
  read_ = ReadRows();
  return Understand();
}

// A transfer has nothing but the order of the rows to know the order of the parts by.
void SettingsStore::RequireOrder(const Rows& written) const {
  const DesignRows there = ReadDesignRows(*connection_, u"ArchiveNo_Format"_s);
  QSet<QString> tables;
  for (const QVariantList& row : written.parts.rows) tables << written.parts.Text(row, u"TableName"_s);
  for (const QString& table : tables)
    if (OrderIn(there, table) != OrderIn(written.parts, table))
      throw DataError(DataErrorKind::Other, u"数据库没有保持表“%1”档号各段的次序，本次修改没有保存。"_s.arg(table));
}

void SettingsStore::GiveNumbers(Settings& settings) const {
  QSet<QString> given;
  qlonglong last = 0;
  for (const TransferSet& set : settings.sets) last = std::max(last, set.number.toLongLong());
  for (const QVariantList& row : read_.links.rows)
    last = std::max(last, read_.links.Text(row, u"IniRecId"_s).toLongLong());
  for (TransferSet& set : settings.sets) {
    if (set.IsOrphan()) continue;
    if (set.number.isEmpty() || given.contains(set.number)) set.number = QString::number(++last);
    given << set.number;
  }
}

SettingsStore::Rows SettingsStore::RowsOf(const Settings& settings) const {
  Rows rows{{read_.sets.table, read_.sets.columns, {}},
            {read_.links.table, read_.links.columns, {}},
            {read_.parts.table, read_.parts.columns, {}}};
  for (const TransferSet& set : settings.sets) {
    if (!set.IsOrphan()) {
      QVariantList& row = rows.sets.rows.emplace_back(set.row);
      rows.sets.PutNumber(row, u"RecId"_s, set.number);
      rows.sets.Put(row, u"SourceTbl"_s, set.source);
      rows.sets.Put(row, u"DesTbl"_s, set.destination);
    }
    for (const FieldLink& link : set.links) {
      QVariantList& row = rows.links.rows.emplace_back(link.row);
      rows.links.PutNumber(row, u"IniRecId"_s, set.number);
      rows.links.Put(row, u"SourceField"_s, link.source);
      rows.links.Put(row, u"DesField"_s, link.destination);
      rows.links.Put(row, u"SourceChn"_s, link.caption);
    }
  }
  for (const NumberFormat& format : settings.formats)
    for (const NumberPart& part : format.parts) rows.parts.rows.push_back(RowOf(rows.parts, format, part));
  return rows;
}

}  // namespace folvane::transfer
