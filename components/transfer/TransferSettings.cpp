#include "components/transfer/TransferSettings.h"

#include <folvane/Connection.h>
#include <folvane/DataError.h>

#include "design/transfer/FormatCheck.h"
#include "design/transfer/SetCheck.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void Refuse(const QString& why) { throw DataError(DataErrorKind::Usage, why); }

}  // namespace

TransferSettings::TransferSettings(std::shared_ptr<Connection> connection)
    : connection_(std::move(connection)), store_(connection_) {
  Read();
}

void TransferSettings::Read() {
  Settings read = store_.Read();
  tables_ = std::make_unique<BusinessTables>(connection_);
  settings_ = saved_ = std::move(read);
}

void TransferSettings::Save() { settings_ = saved_ = store_.Save(settings_); }

QStringList TransferSettings::Errors() {
  QStringList errors;
  for (std::size_t set = 0; set < settings_.sets.size(); ++set) {
    const Findings findings = CheckSet(settings_, set, *tables_);
    if (WorstOf(findings) != Severity::Error) continue;
    const TransferSet& wrong = settings_.sets[set];
    errors << u"第 %1 项（%2 → %3）：%4"_s.arg(QString::number(set + 1), tables_->Get(wrong.source).Word(),
                                               tables_->Get(wrong.destination).Word(), TextOf(findings));
  }
  for (const NumberFormat& format : settings_.formats)
    if (WorstOfFormat(format, *tables_) == Severity::Error)
      errors << u"表“%1”的档号格式有错误"_s.arg(tables_->Get(format.table).Word());
  return errors;
}

void TransferSettings::RequireNewPair(const QString& source, const QString& destination,
                                      std::optional<std::size_t> except) const {
  if (source.isEmpty() || destination.isEmpty()) Refuse(u"请选择来源表和目标表。"_s);
  if (IsSame(source, destination)) Refuse(u"来源表与目标表不能相同。"_s);
  for (std::size_t at = 0; at < settings_.sets.size(); ++at) {
    const TransferSet& set = settings_.sets[at];
    if (at != except && IsSame(set.source, source) && IsSame(set.destination, destination))
      Refuse(u"从“%1”到“%2”的归档已在第 %3 项中。"_s.arg(source, destination).arg(at + 1));
  }
}

std::size_t TransferSettings::AddSet(const QString& source, const QString& destination) {
  RequireNewPair(source, destination, std::nullopt);
  settings_.sets.push_back({{}, source, destination});
  return settings_.sets.size() - 1;
}

void TransferSettings::ChangeSet(std::size_t set, const QString& source, const QString& destination) {
  RequireNewPair(source, destination, set);
  settings_.sets[set].source = source;
  settings_.sets[set].destination = destination;
}

void TransferSettings::RemoveSet(std::size_t set) { settings_.sets.erase(settings_.sets.begin() + qsizetype(set)); }

std::size_t TransferSettings::Link(std::size_t set, const QString& source, const QString& destination) {
  TransferSet& changed = settings_.sets[set];
  if (changed.IsOrphan()) Refuse(u"请先指定来源表和目标表（F2）。"_s);
  if (source.isEmpty() || destination.isEmpty()) Refuse(u"请在两边各选择一个字段。"_s);
  const TableField* field = tables_->Get(changed.source).Find(source);
  const QString caption = field ? field->Word() : source;
  for (std::size_t at = 0; at < changed.links.size(); ++at) {
    FieldLink& link = changed.links[at];
    if (!IsSame(link.destination, destination)) continue;
    link.source = source;
    link.caption = caption;
    return at;
  }
  changed.links.push_back({source, destination, caption});
  return changed.links.size() - 1;
}

std::size_t TransferSettings::MoveLink(std::size_t set, std::size_t link, const QString& destination) {
  const FieldLink moved = settings_.sets[set].links[link];
  if (IsSame(moved.destination, destination)) return link;
  const std::size_t at = Link(set, moved.source, destination);
  RemoveLink(set, link);
  return at > link ? at - 1 : at;
}

void TransferSettings::RemoveLink(std::size_t set, std::size_t link) {
  auto& links = settings_.sets[set].links;
  links.erase(links.begin() + qsizetype(link));
}

std::vector<Suggestion> TransferSettings::Suggested(std::size_t set) {
  return SuggestLinks(settings_, settings_.sets[set], *tables_);
}

Findings TransferSettings::CheckSuggestion(const Suggestion& suggestion, std::size_t set) {
  TransferSet tried = settings_.sets[set];
  tried.links = {suggestion.link};
  return CheckLink(settings_, tried, 0, *tables_);
}

int TransferSettings::TakeSuggestions(std::size_t set) {
  const std::vector<Suggestion> suggestions = Suggested(set);
  for (const Suggestion& suggestion : suggestions) settings_.sets[set].links.push_back(suggestion.link);
  return int(suggestions.size());
}

NumberFormat TransferSettings::FormatOf(const QString& table) const {
  if (const NumberFormat* format = settings_.FormatOf(table)) return *format;
  NumberFormat none;
  none.table = table;
  none.folderField = u"(无)"_s;
  const auto& fields = tables_->Get(table).fields;
  const auto store = std::find_if(fields.begin(), fields.end(),
                                  [](const TableField& field) { return field.isThere && field.caption == u"档号"_s; });
  if (store != fields.end()) none.storeField = store->name;
  return none;
}

void TransferSettings::SetFormat(NumberFormat format) {
  const BusinessTable& table = tables_->Get(format.table);
  const NumberFormat* before = settings_.FormatOf(format.table);
  for (NumberPart& part : format.parts) {
    const TableField* field = table.Find(part.field);
    // Who wrote a caption of his own keeps it as long as the field stays.
    const bool isNew = part.caption.isEmpty() || !before ||
                       std::none_of(before->parts.begin(), before->parts.end(), [&](const NumberPart& old) {
                         return old.field == part.field && old.caption == part.caption;
                       });
    if (isNew) part.caption = field ? field->Word() : part.field;
  }
  if (!before || !(*before == format)) format.rowsDiffer = false;
  const auto found = std::find_if(settings_.formats.begin(), settings_.formats.end(),
                                  [&](const NumberFormat& known) { return IsSame(known.table, format.table); });
  if (found != settings_.formats.end()) {
    if (format.parts.empty())
      settings_.formats.erase(found);
    else
      *found = std::move(format);
  } else if (!format.parts.empty()) {
    settings_.formats.push_back(std::move(format));
  }
}

}  // namespace folvane::transfer
