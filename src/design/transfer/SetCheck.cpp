#include "design/transfer/SetCheck.h"

#include "design/transfer/Conversion.h"
#include "design/transfer/FormatCheck.h"
#include "design/transfer/GivenFields.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kKey = u"ArchiveID"_s;

void Add(Findings& findings, Severity severity, const QString& text) { findings.push_back({severity, text}); }

// Whether the field stands in the table, and what is wrong where it does not.
const TableField* FieldIn(const BusinessTable& table, const QString& name, const QString& side, Findings& findings) {
  const TableField* field = table.Find(name);
  if (field && field->isThere) return field;
  if (name.isEmpty()) {
    Add(findings, Severity::Error, u"没有填写%1字段"_s.arg(side));
  } else if (table.isThere) {
    Add(findings, Severity::Error, u"%1表中没有字段“%2”，归档会失败"_s.arg(side, name));
  }
  return nullptr;
}

void CheckTable(const BusinessTable& table, const QString& side, Findings& findings) {
  if (table.name.isEmpty()) return Add(findings, Severity::Error, u"没有填写%1表"_s.arg(side));
  if (!table.isThere) return Add(findings, Severity::Error, u"数据库中没有%1表“%2”"_s.arg(side, table.name));
  if (!table.isDesigned) Add(findings, Severity::Warning, u"设计表中没有登记%1表“%2”"_s.arg(side, table.name));
  if (!table.Has(kKey)) Add(findings, Severity::Error, u"%1表没有 ArchiveID 字段"_s.arg(side));
}

void CheckOthers(const Settings& settings, std::size_t at, Findings& findings) {
  const TransferSet& set = settings.sets[at];
  for (std::size_t other = 0; other < settings.sets.size(); ++other) {
    const TransferSet& candidate = settings.sets[other];
    if (other == at || candidate.IsOrphan()) continue;
    const bool isSameSource = !set.source.isEmpty() && IsSame(candidate.source, set.source);
    if (isSameSource && IsSame(candidate.destination, set.destination)) {
      Add(findings, Severity::Error, u"与第 %1 项重复，归档会失败"_s.arg(other + 1));
    } else if (isSameSource && other < at) {
      Add(findings, Severity::Warning, u"来源表已在第 %1 项中，归档时只用那一项"_s.arg(other + 1));
    }
    // New sets have none yet.
    if (!set.number.isEmpty() && candidate.number == set.number)
      Add(findings, Severity::Error, u"编号 %1 与第 %2 项相同，保存修改时会重新编号"_s.arg(set.number).arg(other + 1));
  }
  if (set.number.isEmpty() && !set.row.isEmpty())
    Add(findings, Severity::Error, u"没有编号，字段对应不起作用，保存修改时会编号"_s);
}

void CheckDestination(const Settings& settings, const TransferSet& set, BusinessTables& tables, Findings& findings) {
  const NumberFormat* format = settings.FormatOf(set.destination);
  if (!format || format->parts.empty()) return Add(findings, Severity::Warning, u"目标表没有档号格式，不能归档"_s);
  if (WorstOfFormat(*format, tables) == Severity::Error) Add(findings, Severity::Error, u"目标表的档号格式有错误"_s);
}

void CountLinks(const Settings& settings, const TransferSet& set, BusinessTables& tables, Findings& findings) {
  int errors = 0, warnings = 0;
  for (std::size_t link = 0; link < set.links.size(); ++link) {
    const Severity worst = WorstOf(CheckLink(settings, set, link, tables));
    errors += worst == Severity::Error;
    warnings += worst == Severity::Warning;
  }
  if (errors) Add(findings, Severity::Error, u"%1 个字段对应有错误"_s.arg(errors));
  if (warnings) Add(findings, Severity::Warning, u"%1 个字段对应需注意"_s.arg(warnings));
  if (set.links.empty()) Add(findings, Severity::Warning, u"还没有字段对应"_s);
}

}  // namespace

Findings CheckLink(const Settings& settings, const TransferSet& set, std::size_t link, BusinessTables& tables) {
  Findings findings;
  if (set.IsOrphan()) return {{Severity::Error, u"没有所属的来源表和目标表，归档不会用到"_s}};
  const FieldLink& checked = set.links[link];
  const BusinessTable& destinationTable = tables.Get(set.destination);
  const TableField* source = FieldIn(tables.Get(set.source), checked.source, u"来源"_s, findings);
  const TableField* destination = FieldIn(destinationTable, checked.destination, u"目标"_s, findings);
  if (source && destination) findings = CheckConversion(*source, *destination);
  for (std::size_t other = 0; other < set.links.size(); ++other) {
    if (other == link || !IsSame(set.links[other].destination, checked.destination)) continue;
    const bool isWhole = IsSame(set.links[other].source, checked.source);
    Add(findings, Severity::Warning,
        isWhole ? u"与第 %1 行重复"_s.arg(other + 1)
                : u"目标字段在第 %1 行已有对应，后一个值覆盖前一个"_s.arg(other + 1));
  }
  const QString given = GivenByTransfer(checked.destination, destinationTable, settings.FormatOf(set.destination));
  if (!given.isEmpty()) Add(findings, IsSame(checked.destination, kKey) ? Severity::Error : Severity::Warning, given);
  return findings;
}

Findings CheckSet(const Settings& settings, std::size_t at, BusinessTables& tables) {
  const TransferSet& set = settings.sets[at];
  Findings findings;
  if (set.IsOrphan())
    return {{Severity::Error,
             u"%1 个字段对应没有所属的来源表和目标表（编号 %2），可按 F2 指定，或删除"_s.arg(set.links.size())
                 .arg(set.number.isEmpty() ? u"空"_s : set.number)}};
  CheckTable(tables.Get(set.source), u"来源"_s, findings);
  CheckTable(tables.Get(set.destination), u"目标"_s, findings);
  if (!set.source.isEmpty() && IsSame(set.source, set.destination))
    Add(findings, Severity::Error, u"来源表与目标表相同"_s);
  CheckOthers(settings, at, findings);
  if (!set.destination.isEmpty()) CheckDestination(settings, set, tables, findings);
  CountLinks(settings, set, tables, findings);
  return findings;
}

}  // namespace folvane::transfer
