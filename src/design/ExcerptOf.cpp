#include <QSet>
#include <type_traits>

#include <folvane/DataError.h>

#include "design/Shape.h"

namespace folvane {
namespace design {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Takes out of a design what some of its tables need.
class Excerpt {
 public:
  Excerpt(const Design& design, const QStringList& names) : design_(design) {
    for (const QString& name : names) {
      const Design::Table* table = FindNamed(design.tables, name);
      if (!table) throw DataError(DataErrorKind::Usage, u"设计中没有表“%1”。"_s.arg(name));
      if (taken_.contains(Folded(name))) continue;
      taken_ << Folded(name);
      excerpt_.tables.push_back(*table);
    }
  }

  Design Take() {
    for (const Design::Table& table : excerpt_.tables) TakeWhatItNeeds(table);
    for (const Design::TransferMap& map : design_.transfers)
      if (IsTaken(map.source) && IsTaken(map.destination)) excerpt_.transfers.push_back(map);
    for (const Design::Report& report : design_.reports)
      if (IsTaken(report.group)) excerpt_.reports.push_back(report);
    for (const Design::User& user : design_.users) TakeRights(user);
    PutInOrder(excerpt_);
    return excerpt_;
  }

 private:
  bool IsTaken(const QString& table) const { return taken_.contains(Folded(table)); }

  void TakeWhatItNeeds(const Design::Table& table) {
    QSet<int> seen;
    for (int id = table.classId; !seen.contains(id);) {
      seen << id;
      const Design::Class* found = FindByKey(design_.classes, QString::number(id));
      if (!found) break;
      if (!FindSame(excerpt_.classes, *found)) excerpt_.classes.push_back(*found);
      id = found->parent;
    }
    for (const Design::Field& field : table.fields) {
      const Design::Dictionary* found = FindNamed(design_.dictionaries, field.dictionary);
      if (found && !FindSame(excerpt_.dictionaries, *found)) excerpt_.dictionaries.push_back(*found);
    }
  }

  void TakeRights(const Design::User& user) {
    Design::User taken = user;
    std::erase_if(taken.rights, [&](const Design::Rights& rights) { return !IsTaken(rights.table); });
    if (!taken.rights.empty()) excerpt_.users.push_back(taken);
  }

  const Design& design_;
  Design excerpt_;
  QSet<QString> taken_;
};

// Tables, transfers and reports come whole; what is shared with others gains and keeps its parts.
template <class T>
constexpr bool kGainsParts = std::is_same_v<T, Design::Dictionary> || std::is_same_v<T, Design::User>;

template <class T>
void Join(T& into, const T& from) {
  Shape<T>::Lists([&](const char*, const char16_t*, auto list) {
    using Item = typename std::decay_t<decltype(into.*list)>::value_type;
    for (const Item& item : from.*list) {
      Item* present = FindSame(into.*list, item);
      if (!present) {
        (into.*list).push_back(item);
        continue;
      }
      const Item before = *present;
      *present = item;
      if constexpr (kGainsParts<Item>) {
        Shape<Item>::Lists([&](const char*, const char16_t*, auto parts) { present->*parts = before.*parts; });
        Join(*present, item);
      }
    }
  });
}

}  // namespace
}  // namespace design

Design ExcerptOf(const Design& design, const QStringList& tables) { return design::Excerpt(design, tables).Take(); }

Design Joined(const Design& design, const Design& other) {
  Design joined = design;
  design::Join(joined, other);
  PutInOrder(joined);
  return joined;
}

}  // namespace folvane
