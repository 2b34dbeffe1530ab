#include "components/transfer/SetsPage.h"

#include <QAction>
#include <QLabel>

#include "components/common/Notice.h"
#include "components/transfer/FrmTransferSet.h"
#include "components/transfer/SettingsList.h"
#include "design/transfer/Conversion.h"
#include "design/transfer/SetCheck.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

// A field of a table for a list: what it is called and of what type it is; a field that is gone as the row names it.
std::pair<QString, QString> Described(const BusinessTable& table, const QString& field) {
  const TableField* found = table.Find(field);
  if (!found) return {field, table.isThere ? u"（没有此列）"_s : QString()};
  return {found->Label(), TypeInWords(*found)};
}

}  // namespace

SetsPage::SetsPage(QWidget* parent, TransferSettings& settings) : QWidget(parent), settings_(settings) {
  setObjectName(u"PagSets"_s);
  LayOut();
}

void SetsPage::Refresh() {
  FillSets();
  FillFields();
}

QString SetsPage::Destination() const { return HasSet() ? Now().destination : QString(); }

bool SetsPage::HasSet() const { return sets_->Row() >= 0 && Set() < settings_.Now().sets.size(); }

std::size_t SetsPage::Set() const { return std::size_t(sets_->Row()); }

const TransferSet& SetsPage::Now() const { return settings_.Now().sets[Set()]; }

std::optional<std::size_t> SetsPage::CurrentLink() const {
  const int row = links_->Row();
  if (!HasSet() || row < 0 || std::size_t(row) >= Now().links.size()) return {};
  return std::size_t(row);
}

std::optional<std::size_t> SetsPage::CurrentSuggestion() const {
  const int row = links_->Row();
  if (!HasSet() || row < 0 || std::size_t(row) < Now().links.size()) return {};
  return std::size_t(row) - Now().links.size();
}

void SetsPage::FillSets() {
  std::vector<ListRow> rows;
  const Settings& settings = settings_.Now();
  for (std::size_t at = 0; at < settings.sets.size(); ++at) {
    const TransferSet& set = settings.sets[at];
    const auto label = [&](const QString& table) {
      return table.isEmpty() ? u"（未指定）"_s : settings_.Tables().Get(table).Label();
    };
    rows.push_back({{QString::number(at + 1), label(set.source), label(set.destination),
                     QString::number(set.links.size()), QString()},
                    QString::number(at),
                    CheckSet(settings, at, settings_.Tables())});
  }
  sets_->Fill(rows);
}

void SetsPage::FillFields() {
  suggestions_ = HasSet() ? settings_.Suggested(Set()) : std::vector<Suggestion>();
  std::vector<ListRow> rows;
  if (HasSet()) {
    const TransferSet& set = Now();
    const BusinessTable& source = settings_.Tables().Get(set.source);
    const BusinessTable& destination = settings_.Tables().Get(set.destination);
    const auto add = [&](const FieldLink& link, const QString& word, const Findings& findings, bool isProposal) {
      const auto [sourceText, sourceType] = Described(source, link.source);
      const auto [destinationText, destinationType] = Described(destination, link.destination);
      rows.push_back({{sourceText, sourceType, destinationText, destinationType, word},
                      link.source + u'\n' + link.destination,
                      findings,
                      isProposal});
    };
    for (std::size_t at = 0; at < set.links.size(); ++at)
      add(set.links[at], {}, CheckLink(settings_.Now(), set, at, settings_.Tables()), false);
    for (const Suggestion& suggestion : suggestions_)
      add(suggestion.link, u"建议：%1"_s.arg(suggestion.reason), settings_.CheckSuggestion(suggestion, Set()), true);
  }
  links_->Fill(rows);
  links_->SetHint(HasSet() ? u"还没有字段对应。在两边各选一个字段，按“对应”（Ctrl+L），或把字段拖到另一边的字段上。"_s
                           : QString());
  FillSide(*source_, HasSet() ? Now().source : QString(), true);
  FillSide(*destination_, HasSet() ? Now().destination : QString(), false);
  Enable();
}

void SetsPage::FillSide(SettingsList& list, const QString& table, bool isSource) {
  std::vector<ListRow> rows;
  const BusinessTable& shown = settings_.Tables().Get(table);
  for (const TableField& field : shown.fields) {
    if (!field.isThere) continue;
    const auto& links = Now().links;
    const bool isLinked = std::any_of(links.begin(), links.end(), [&](const FieldLink& link) {
      return IsSame(isSource ? link.source : link.destination, field.name);
    });
    rows.push_back({{field.Label(), TypeInWords(field), isLinked ? u"√"_s : QString()}, field.name});
  }
  list.Fill(rows);
  list.SetHint(!HasSet()         ? QString()
               : table.isEmpty() ? u"还没有选择表，请按 F2 修改此项。"_s
                                 : u"数据库中没有此表。"_s);
}

void SetsPage::Enable() {
  const QModelIndex current = links_->currentIndex();
  detail_->setText(current.siblingAtColumn(links_->model()->columnCount() - 1).data().toString());
  edit_->setEnabled(HasSet());
  delete_->setEnabled(HasSet());
  const bool canLink = HasSet() && !Now().IsOrphan();
  link_->setEnabled(canLink && source_->Row() >= 0 && destination_->Row() >= 0);
  editLink_->setEnabled(canLink && CurrentLink());
  unlink_->setEnabled(CurrentLink().has_value());
  take_->setEnabled(CurrentSuggestion().has_value());
  takeAll_->setEnabled(!suggestions_.empty());
}

void SetsPage::Changed(const QString& word) {
  Refresh();
  onChange();
  onWord(word);
}

void SetsPage::AddSet() {
  FrmTransferSet dialog(window(), settings_, std::nullopt);
  if (dialog.exec() != QDialog::Accepted) return;
  Refresh();
  sets_->GoTo(int(settings_.Now().sets.size()) - 1);
  Changed(suggestions_.empty() ? u"已添加。请对应字段。"_s
                               : u"已添加。有 %1 个字段可以自动对应（Ctrl+G）。"_s.arg(suggestions_.size()));
  source_->setFocus();
}

void SetsPage::EditSet() {
  if (!HasSet()) return;
  FrmTransferSet dialog(window(), settings_, Set());
  if (dialog.exec() == QDialog::Accepted) Changed(u"已修改来源表和目标表。"_s);
}

void SetsPage::DeleteSet() {
  if (!HasSet()) return;
  const QString question = u"确定要删除第 %1 项和它的 %2 个字段对应吗？"_s.arg(Set() + 1).arg(Now().links.size());
  if (!notices::Ask(question)) return;
  settings_.RemoveSet(Set());
  Changed(u"已删除，保存后生效。"_s);
}

void SetsPage::LinkFields() { Link(source_->Key(), destination_->Key()); }

// For whoever goes through the source field by field: the next one is chosen at once.
void SetsPage::LinkNext() {
  LinkFields();
  source_->setFocus();
  for (int row = source_->Row() + 1; row < source_->model()->rowCount(); ++row)
    if (source_->model()->index(row, 2).data().toString().isEmpty()) return source_->GoTo(row);
}

void SetsPage::Link(const QString& source, const QString& destination) {
  if (!HasSet()) return;
  const std::size_t before = Now().links.size();
  const std::size_t link = settings_.Link(Set(), source, destination);
  ShowLinked(link, Now().links.size() > before);
}

void SetsPage::ShowLinked(std::size_t link, bool isNew) {
  const FieldLink& linked = Now().links[link];
  Changed(isNew ? u"已将“%1”对应到“%2”。"_s.arg(linked.source, linked.destination)
                : u"目标字段“%2”原有的对应已改为来源字段“%1”。"_s.arg(linked.source, linked.destination));
  links_->GoTo(int(link));
}

void SetsPage::DropOnLink(bool isSource, const QString& field, int row) {
  if (!HasSet() || row < 0 || std::size_t(row) >= Now().links.size()) return;
  if (isSource) return Link(field, Now().links[std::size_t(row)].destination);
  const std::size_t before = Now().links.size();
  const std::size_t moved = settings_.MoveLink(Set(), std::size_t(row), field);
  ShowLinked(moved, Now().links.size() == before);  // one less where another link has given its place
}

void SetsPage::EditLink() {
  const auto link = CurrentLink();
  if (!link) return;
  const FieldLink& edited = Now().links[*link];
  source_->GoToKey(edited.source);
  destination_->GoToKey(edited.destination);
  source_->setFocus();
  onWord(u"请另选来源字段，按“对应”（Ctrl+L）。"_s);
}

void SetsPage::ActivateLink() {
  if (CurrentSuggestion())
    TakeSuggestion();
  else
    EditLink();
}

void SetsPage::DeleteLink() {
  const auto link = CurrentLink();
  if (!link) return;
  const FieldLink removed = Now().links[*link];
  settings_.RemoveLink(Set(), *link);
  Changed(u"已取消“%1”到“%2”的对应。"_s.arg(removed.source, removed.destination));
}

void SetsPage::TakeSuggestion() {
  const auto taken = CurrentSuggestion();
  if (!taken) return;
  const FieldLink link = suggestions_[*taken].link;
  Link(link.source, link.destination);
}

void SetsPage::TakeSuggestions() {
  if (!HasSet()) return;
  const int count = settings_.TakeSuggestions(Set());
  Changed(u"已采用 %1 个建议。"_s.arg(count));
}

}  // namespace folvane::transfer
