#pragma once

#include <QHash>
#include <memory>

#include "data/Schema.h"

namespace folvane {

class Driver;

/// What is known of the database's tables: each is read once, when it is first asked for. A missing table is asked for
/// again the next time, since the host may make it meanwhile.
class TableCatalogue {
 public:
  explicit TableCatalogue(Driver& driver) : driver_(driver) {}

  /// nullptr when there is no such table; the pointer holds until Forget.
  const TableInfo* Find(const QString& name);
  void Forget() { tables_.clear(); }

 private:
  Driver& driver_;
  QHash<QString, std::shared_ptr<const TableInfo>> tables_;
};

}  // namespace folvane
