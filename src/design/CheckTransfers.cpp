#include "design/Checks.h"
#include "design/DesignedTransfers.h"
#include "design/transfer/FormatCheck.h"
#include "design/transfer/SetCheck.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

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
  transfer::BusinessTables tables = TablesOf(checked.design, checked.connection);
  const transfer::Settings settings = SettingsOf(checked.design);
  CheckFormats(checked, settings, tables);
  CheckMaps(checked, settings, tables);
}

}  // namespace folvane::design
