#include "design/transfer/Suggestions.h"

#include "design/transfer/GivenFields.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

bool IsLinked(const TransferSet& set, const QString& destination) {
  return std::any_of(set.links.begin(), set.links.end(),
                     [&](const FieldLink& link) { return IsSame(link.destination, destination); });
}

// The one field of that caption.
const TableField* OfCaption(const BusinessTable& table, const QString& caption) {
  const TableField* found = nullptr;
  for (const TableField& field : table.fields) {
    if (!field.isThere || caption.isEmpty() || !IsSame(field.caption, caption)) continue;
    if (found) return nullptr;
    found = &field;
  }
  return found;
}

// What a transfer writes itself, and what says how far the record has come there.
bool IsStateField(const QString& field) {
  return IsSame(field, u"InputDate"_s) || IsSame(field, u"ArchiveFlag"_s) || IsSame(field, u"FileStatus"_s);
}

}  // namespace

std::vector<Suggestion> SuggestLinks(const Settings& settings, const TransferSet& set, BusinessTables& tables) {
  std::vector<Suggestion> suggestions;
  if (set.source.isEmpty() || set.destination.isEmpty()) return suggestions;
  const BusinessTable& source = tables.Get(set.source);
  const BusinessTable& destination = tables.Get(set.destination);
  const NumberFormat* format = settings.FormatOf(set.destination);
  for (const TableField& field : destination.fields) {
    if (!field.isThere || IsLinked(set, field.name) || IsStateField(field.name) ||
        !GivenByTransfer(field.name, destination, format).isEmpty())
      continue;
    const TableField* named = source.Find(field.name);
    if (named && !named->isThere) named = nullptr;
    const TableField* found = named ? named : OfCaption(source, field.caption);
    if (!found) continue;
    suggestions.push_back({{found->name, field.name, found->Word()}, named ? u"字段名相同"_s : u"标题相同"_s});
  }
  return suggestions;
}

}  // namespace folvane::transfer
