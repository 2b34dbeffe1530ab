#include "design/RebaseDesign.h"

#include <type_traits>

#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Brings together what two have made of a design, on the way down.
class Rebase {
 public:
  explicit Rebase(QStringList& given) : given_(given) {}

  template <class T>
  void BringLists(const T& base, const T& wanted, T& now) {
    Shape<T>::Lists([&](const char*, const char16_t* word, auto list) {
      using Item = typename std::decay_t<decltype(base.*list)>::value_type;
      // The order means something there, and parts of a number are known by their places.
      if constexpr (std::is_same_v<Item, Design::NumberPart>) {
        if (wanted.*list == base.*list) return;
        now.*list == base.*list ? void(now.*list = wanted.*list) : void(given_ << QString::fromUtf16(word));
      } else {
        BringItems(base.*list, wanted.*list, now.*list);
      }
    });
  }

 private:
  template <class Item>
  void BringItems(const std::vector<Item>& base, const std::vector<Item>& wanted, std::vector<Item>& now) {
    for (const Item& item : wanted) {
      const Item* before = FindSame(base, item);
      Item* found = FindSame(now, item);
      if (before && item == *before) continue;
      if (found)
        BringItem(before ? *before : Item{}, item, *found, before != nullptr);
      else if (!before)
        now.push_back(item);
      else
        given_ << Shape<Item>::TitleOf(item);  // the others have taken it out
    }
    for (const Item& item : base) {
      if (FindSame(wanted, item)) continue;
      const Item* found = FindSame(now, item);
      if (found && *found == item)
        std::erase(now, item);
      else if (found)
        given_ << Shape<Item>::TitleOf(item);
    }
  }

  template <class Item>
  void BringItem(const Item& base, const Item& wanted, Item& now, bool hasBase) {
    bool isGiven = false;
    for (const Member<Item>& value : Shape<Item>::Values()) {
      std::visit(
          [&](auto member) {
            if (wanted.*member == now.*member || (hasBase && wanted.*member == base.*member)) return;
            if (hasBase && now.*member == base.*member)
              now.*member = wanted.*member;
            else
              isGiven = true;
          },
          value.member);
    }
    if (isGiven) given_ << Shape<Item>::TitleOf(wanted);
    BringLists(base, wanted, now);
  }

  QStringList& given_;
};

/// Puts back what was taken out of a design and is changed meanwhile, with all that went with it: the others would not
/// want it back without its rights, transfers and controls.
class Restoring {
 public:
  Restoring(const Design& base, Design& wanted, const Design& now, QStringList& given)
      : base_(base), wanted_(wanted), now_(now), given_(given) {}

  void Run() {
    std::vector<const Design::Table*> tables;
    for (const Design::Table& table : base_.tables)
      if (IsTakenFromOthers(table, wanted_.tables, now_.tables)) tables.push_back(&table);
    for (const Design::Table* table : tables) wanted_.tables.push_back(*table);
    for (const Design::Table* table : tables) RestoreUses(*table);
    for (const Design::Table& table : base_.tables)
      if (Design::Table* mine = FindSame(wanted_.tables, table)) RestoreFields(table, *mine);
  }

 private:
  template <class Item>
  bool IsTakenFromOthers(const Item& item, const std::vector<Item>& wanted, const std::vector<Item>& now) {
    const Item* found = FindSame(now, item);
    if (FindSame(wanted, item) || !found || *found == item) return false;
    given_ << Shape<Item>::TitleOf(item);
    return true;
  }

  template <class Item>
  static void PutBack(std::vector<Item>& into, const Item& item) {
    if (!FindSame(into, item)) into.push_back(item);
  }

  void RestoreUses(const Design::Table& table) {
    RestoreClasses(table.classId);
    for (const Design::Table& below : base_.tables) {
      Design::Table* mine = IsSame(below.parent, table.name) ? FindSame(wanted_.tables, below) : nullptr;
      if (!mine || !mine->parent.isEmpty()) continue;
      mine->parent = below.parent;
      mine->relationField = below.relationField;
    }
    for (const Design::TransferMap& map : base_.transfers)
      if ((IsSame(map.source, table.name) || IsSame(map.destination, table.name)) &&
          FindNamed(wanted_.tables, map.source) && FindNamed(wanted_.tables, map.destination))
        PutBack(wanted_.transfers, map);
    for (const Design::Report& report : base_.reports)
      if (IsSame(report.group, table.name)) PutBack(wanted_.reports, report);
    for (const Design::User& user : base_.users) {
      const Design::Rights* rights = FindNamed(user.rights, table.name);
      Design::User* mine = FindSame(wanted_.users, user);
      if (rights && mine) PutBack(mine->rights, *rights);
    }
  }

  void RestoreClasses(int id) {
    const Design::Class* found = FindByKey(base_.classes, QString::number(id));
    if (!found || FindSame(wanted_.classes, *found)) return;
    wanted_.classes.push_back(*found);
    RestoreClasses(found->parent);
  }

  void RestoreFields(const Design::Table& before, Design::Table& mine) {
    const Design::Table* theirs = FindSame(now_.tables, before);
    if (!theirs) return;
    for (const Design::Field& field : before.fields)
      if (IsTakenFromOthers(field, mine.fields, theirs->fields)) RestoreField(before, mine, field);
  }

  void RestoreField(const Design::Table& before, Design::Table& mine, const Design::Field& field) {
    mine.fields.push_back(field);
    const auto restore = [&](auto part) {
      for (const auto& item : before.*part)
        if (IsSame(item.field, field.name)) PutBack(mine.*part, item);
    };
    restore(&Design::Table::controls);
    restore(&Design::Table::columns);
    restore(&Design::Table::searchFields);
    for (std::size_t at = 0; at < before.numberParts.size(); ++at)
      if (IsSame(before.numberParts[at].field, field.name))
        mine.numberParts.insert(mine.numberParts.begin() + qMin(at, mine.numberParts.size()), before.numberParts[at]);
    for (auto name : {&Design::Table::numberField, &Design::Table::folderNumberField, &Design::Table::relationField})
      if (IsSame(before.*name, field.name) && (mine.*name).isEmpty()) mine.*name = before.*name;
    for (const Design::TransferMap& map : base_.transfers)
      if (Design::TransferMap* same = FindSame(wanted_.transfers, map))
        RestoreLinks(map, *same, before.name, field.name);
  }

  static void RestoreLinks(const Design::TransferMap& before, Design::TransferMap& mine, const QString& table,
                           const QString& field) {
    for (const Design::TransferLink& link : before.links)
      if ((IsSame(before.source, table) && IsSame(link.source, field)) ||
          (IsSame(before.destination, table) && IsSame(link.destination, field)))
        PutBack(mine.links, link);
  }

  const Design& base_;
  Design& wanted_;
  const Design& now_;
  QStringList& given_;
};

}  // namespace

Design Rebased(const Design& base, const Design& wanted, const Design& now, QStringList& given) {
  Design mine = wanted, brought = now;
  Restoring(base, mine, now, given).Run();
  Rebase(given).BringLists(base, mine, brought);
  return brought;
}

}  // namespace folvane::design
