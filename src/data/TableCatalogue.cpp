#include "data/TableCatalogue.h"

#include "data/drivers/Driver.h"

namespace folvane {

const TableInfo* TableCatalogue::Find(const QString& name) {
  const QString key = name.toLower();
  if (const auto known = tables_.constFind(key); known != tables_.constEnd()) return known->get();
  auto described = driver_.Describe(name);
  if (!described) return nullptr;
  const auto info = std::make_shared<const TableInfo>(std::move(*described));
  tables_.insert(key, info);
  return info.get();
}

}  // namespace folvane
