#include "catalogue/Catalogue.h"
#include "data/DatabaseSession.h"
#include "design/Checks.h"
#include "design/PhysicalTables.h"
#include "design/transfer/FormatCheck.h"
#include "design/transfer/SetCheck.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kAnyLength = 2147483647;

// As the database has the column, or as it will be made of the field.
ColumnInfo ColumnFor(const Design::Field& field) {
  const Column column = ColumnOf(field);
  switch (column.type) {
    case ColumnType::Integer:
      return {field.name, AdoType::Integer, 4};
    case ColumnType::Date:
      return {field.name, AdoType::DbDate, 6};
    case ColumnType::Text:
      return {field.name, AdoType::VarChar, column.length};
    default:
      return {field.name, AdoType::LongVarChar, kAnyLength};
  }
}

bool IsAsked(const Design::Table& table, const QString& field) {
  return std::any_of(table.controls.begin(), table.controls.end(), [&](const Design::Control& control) {
    return control.type != 3 && control.type != 5 && IsSame(control.field, field);
  });
}

void PutColumn(transfer::BusinessTable& table, const ColumnInfo& column) {
  auto field = std::find_if(table.fields.begin(), table.fields.end(),
                            [&](const transfer::TableField& known) { return IsSame(known.name, column.name); });
  if (field == table.fields.end()) {
    field = table.fields.emplace(field);
    field->name = column.name;
  }
  field->isThere = true;
  field->adoType = column.type;
  field->size = column.definedSize;
}

transfer::BusinessTable TableFor(const Checked& checked, const Design::Table& table) {
  transfer::BusinessTable found{table.name, table.caption, table.kind};
  found.isDesigned = !table.fields.empty();
  found.isThere = found.isDesigned;
  for (const Design::Field& field : table.fields) {
    found.fields.push_back(
        {field.name, field.caption, field.type, field.dictionary, field.length, true, IsAsked(table, field.name)});
    PutColumn(found, ColumnFor(field));
  }
  if (found.isThere) PutColumn(found, {u"ArchiveID"_s, AdoType::VarChar, 20});
  if (!checked.connection) return found;
  if (const TableInfo* info = DatabaseSession::Of(*checked.connection).Table(table.name)) {
    found.isThere = true;
    for (const ColumnInfo& column : info->columns) PutColumn(found, column);
  }
  return found;
}

transfer::BusinessTables TablesFor(const Checked& checked) {
  std::vector<transfer::BusinessTable> tables;
  for (const Design::Table& table : checked.design.tables) tables.push_back(TableFor(checked, table));
  // Transfers may name tables that only the database knows.
  for (const Design::TransferMap& map : checked.design.transfers)
    for (const QString& name : {map.source, map.destination}) {
      Design::Table unknown;
      unknown.name = name;
      if (!name.isEmpty() && !FindNamed(checked.design.tables, name)) tables.push_back(TableFor(checked, unknown));
    }
  return transfer::BusinessTables(std::move(tables));
}

transfer::NumberFormat FormatFor(const Design::Table& table) {
  transfer::NumberFormat format{table.name, {}, table.numberField, table.folderNumberField};
  for (const Design::NumberPart& part : table.numberParts)
    format.parts.push_back({part.field, part.caption, part.separator, QString::number(part.length), part.showsCode});
  return format;
}

transfer::Settings SettingsFor(const Design& design) {
  transfer::Settings settings;
  for (const Design::TransferMap& map : design.transfers) {
    transfer::TransferSet set{QString::number(settings.sets.size() + 1), map.source, map.destination};
    for (const Design::TransferLink& link : map.links)
      set.links.push_back({link.source, link.destination, link.caption});
    settings.sets.push_back(std::move(set));
  }
  for (const Design::Table& table : design.tables)
    if (!table.numberParts.empty()) settings.formats.push_back(FormatFor(table));
  return settings;
}

void Add(Checked& checked, const QString& kind, const QString& where, const transfer::Findings& found,
         const QString& remedy, const std::function<void(Design&)>& mend) {
  using transfer::Severity;
  using Weight = DesignFinding::Weight;
  for (const transfer::Finding& finding : found) {
    if (finding.severity == Severity::None) continue;
    const bool isError = finding.severity == Severity::Error, isNote = finding.severity == Severity::Note;
    checked.findings.push_back({isError  ? Weight::Error
                                : isNote ? Weight::Note
                                         : Weight::Warning,
                                kind, where, finding.text,
                                isError  ? u"归档不能进行或会失败"_s
                                : isNote ? u"不妨碍归档"_s
                                         : u"归档时会被询问，或归档后内容不全"_s,
                                remedy, isError ? mend : nullptr});
  }
}

void CheckFormats(Checked& checked, const transfer::Settings& settings, transfer::BusinessTables& tables) {
  for (const transfer::NumberFormat& format : settings.formats) {
    const Design::Table& table = *FindNamed(checked.design.tables, format.table);
    const QString where = Shape<Design::Table>::TitleOf(table);
    Add(checked, u"number-format"_s, where, transfer::CheckFormat(format, tables), u"请修改档号格式或字段长度"_s, {});
    for (std::size_t at = 0; at < format.parts.size(); ++at) {
      const auto without = InTable(table, [at](Design::Table& found) {
        if (at < found.numberParts.size()) found.numberParts.erase(found.numberParts.begin() + std::ptrdiff_t(at));
      });
      Add(checked, u"number-part"_s, Where(table, table.numberParts[at]), transfer::CheckPart(format, at, tables),
          u"去掉这一段，或修改它"_s, without);
    }
  }
}

// After a transfer the record above the documents takes its pages and days from these fields, whatever else there is.
void CheckSums(Checked& checked, const Design::TransferMap& map, transfer::BusinessTables& tables) {
  const Design::Table* destination = FindNamed(checked.design.tables, map.destination);
  const transfer::BusinessTable& table = tables.Get(map.destination);
  if (!destination || destination->parent.isEmpty() || !table.isThere) return;
  QStringList missing;
  for (const QString& field : {u"Quantity"_s, u"CreatedDate"_s})
    if (!table.Has(field)) missing << field;
  if (missing.isEmpty()) return;
  checked.findings.push_back({DesignFinding::Weight::Error,
                              u"transfer-sums"_s,
                              Shape<Design::TransferMap>::TitleOf(map),
                              u"目标表没有字段“%1”，上级表的合计由它得出"_s.arg(missing.join(u"、"_s)),
                              u"归档不能进行或会失败"_s,
                              u"请在目标表中增加这些字段"_s,
                              {}});
}

void CheckMaps(Checked& checked, const transfer::Settings& settings, transfer::BusinessTables& tables) {
  for (std::size_t at = 0; at < settings.sets.size(); ++at) {
    const Design::TransferMap& map = checked.design.transfers[at];
    const QString where = Shape<Design::TransferMap>::TitleOf(map);
    Add(checked, u"transfer-map"_s, where, transfer::CheckSet(settings, at, tables), u"请修改归档对应"_s, {});
    CheckSums(checked, map, tables);
    for (std::size_t link = 0; link < map.links.size(); ++link) {
      const auto without = [map, gone = map.links[link]](Design& design) {
        if (Design::TransferMap* found = FindSame(design.transfers, map)) std::erase(found->links, gone);
      };
      Add(checked, u"transfer-link"_s, where + u' ' + Shape<Design::TransferLink>::TitleOf(map.links[link]),
          transfer::CheckLink(settings, settings.sets[at], link, tables), u"去掉这一行对应，或修改它"_s, without);
    }
  }
}

}  // namespace

void CheckTransfers(Checked& checked) {
  transfer::BusinessTables tables = TablesFor(checked);
  const transfer::Settings settings = SettingsFor(checked.design);
  CheckFormats(checked, settings, tables);
  CheckMaps(checked, settings, tables);
}

}  // namespace folvane::design
