#include <QSet>

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

}  // namespace
}  // namespace design

Design ExcerptOf(const Design& design, const QStringList& tables) { return design::Excerpt(design, tables).Take(); }

}  // namespace folvane
