#include "design/RowChanges.h"

#include <map>

#include <folvane/DataError.h>

#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Keyed = std::map<QString, const QVariantList*>;

[[noreturn]] void ThrowConflict(const QString& title) {
  throw DataError(DataErrorKind::Conflict,
                  u"其他用户同时修改了%1，本次修改没有保存。请重新读取设计后再修改。"_s.arg(title));
}

Keyed ByKey(const RowSet& set) {
  Keyed keyed;
  for (const QVariantList& row : set.rows)
    if (!keyed.emplace(set.KeyOf(row), &row).second)
      throw DataError(DataErrorKind::Usage, u"设计中%1出现了两次。"_s.arg(set.TitleOf(row)));
  return keyed;
}

const QVariantList* Find(const Keyed& rows, const QString& key) {
  const auto found = rows.find(key);
  return found == rows.end() ? nullptr : found->second;
}

bool AreEqual(const QVariantList* one, const QVariantList* other) {
  return one && other ? *one == *other : one == other;
}

/// The changes of one table.
class SetChanges {
 public:
  SetChanges(const RowSet& base, const RowSet& wanted, const RowSet& now, std::vector<RowChange>& changes)
      : base_(base), wanted_(wanted), now_(now), changes_(changes) {}

  void Find() {
    if (wanted_.isInOrder) return FindGroups();
    const Keyed base = ByKey(base_), wanted = ByKey(wanted_), now = ByKey(now_);
    for (const auto& [key, row] : base)
      if (!design::Find(wanted, key)) Remove(*row, design::Find(now, key));
    // In the order of the design, so that new rows stand in the order of the fields.
    for (const QVariantList& row : wanted_.rows) {
      const QString key = wanted_.KeyOf(row);
      const QVariantList *before = design::Find(base, key), *present = design::Find(now, key);
      if (before)
        Change(*before, row, present);
      else
        Add(row, present);
    }
  }

 private:
  void Remove(const QVariantList& row, const QVariantList* now) {
    if (!now) return;
    if (*now != row) ThrowConflict(now_.TitleOf(row));
    changes_.push_back({RowChange::Kind::Delete, &wanted_, row, {}});
  }

  void Add(const QVariantList& row, const QVariantList* now) {
    if (AreEqual(now, &row)) return;
    if (now) ThrowConflict(now_.TitleOf(row));
    changes_.push_back({RowChange::Kind::Insert, &wanted_, {}, row});
  }

  void Change(const QVariantList& before, const QVariantList& after, const QVariantList* now) {
    if (before == after || AreEqual(now, &after)) return;
    if (!now) ThrowConflict(now_.TitleOf(before));
    QVariantList merged = *now;
    for (qsizetype at = 0; at < after.size(); ++at) {
      if (after[at] == before[at]) continue;
      if ((*now)[at] != before[at] && (*now)[at] != after[at]) ThrowConflict(now_.TitleOf(before));
      merged[at] = after[at];
    }
    if (merged != *now) changes_.push_back({RowChange::Kind::Update, &wanted_, *now, merged});
  }

  using Groups = std::map<QString, std::vector<QVariantList>>;

  static Groups GroupsOf(const RowSet& set) {
    Groups groups;
    for (const QVariantList& row : set.rows) groups[Folded(set.At(row, set.key[0]).toString())].push_back(row);
    return groups;
  }

  // Rows whose order counts stand or fall together.
  void FindGroups() {
    Groups base = GroupsOf(base_), wanted = GroupsOf(wanted_), now = GroupsOf(now_);
    QStringList keys;
    for (const Groups* groups : {&base, &wanted})
      for (const auto& [key, rows] : *groups)
        if (!keys.contains(key)) keys << key;
    for (const QString& key : keys) {
      if (base[key] == wanted[key] || now[key] == wanted[key]) continue;
      const QVariantList& first = (base[key].empty() ? wanted[key] : base[key]).front();
      if (now[key] != base[key])
        ThrowConflict(wanted_.word + u'“' + wanted_.At(first, wanted_.key[0]).toString() + u'”');
      changes_.push_back({RowChange::Kind::Rewrite, &wanted_, first, {}, wanted[key]});
    }
  }

  const RowSet &base_, &wanted_, &now_;
  std::vector<RowChange>& changes_;
};

}  // namespace

std::vector<RowChange> ChangesOf(const std::vector<RowSet>& base, const std::vector<RowSet>& wanted,
                                 const std::vector<RowSet>& now) {
  std::vector<RowChange> changes;
  for (std::size_t at = 0; at < wanted.size(); ++at) SetChanges(base[at], wanted[at], now[at], changes).Find();
  return changes;
}

}  // namespace folvane::design
