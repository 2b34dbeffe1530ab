#pragma once

#include <optional>

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Settings.h"
#include "designer/DesignPage.h"
#include "designer/ThingModel.h"

class QSplitter;

namespace folvane::designer {

class DesignGrid;

/// Which tables pass records to which when they go into the archive, and the fields of the current pair.
class TransfersPage : public DesignPage {
 public:
  explicit TransfersPage(DesignSession& session);
  ~TransfersPage() override;

 protected:
  void Refresh() override;

 private:
  GridModel* NewMaps();
  GridModel* NewLinks();
  ThingColumn<Design::TransferMap> TableColumn(QString Design::TransferMap::*end);
  ThingColumn<Design::TransferLink> FieldColumn(QString Design::TransferLink::*end,
                                                QString Design::TransferMap::*table);
  /// The pair that is current in a design; null for none.
  const Design::TransferMap* CurrentIn(const Design& design) const;
  /// The fields at an end of the current pair; none where the design does not have the table.
  const std::vector<Design::Field>& FieldsAt(const Design& design, QString Design::TransferMap::*end) const;
  /// What the checks of transfers read. It is made of the whole design, and every cell that they fill asks for it.
  struct Checked {
    const Design* design;
    transfer::Settings settings;
    transfer::BusinessTables tables;
  };
  Checked& CheckedNow() const;
  QString FateOf(const Design::TransferLink& link) const;
  void Pair();

  DesignGrid *maps_, *links_ = nullptr;
  QSplitter* below_;
  QAction* pair_;
  mutable std::optional<Checked> checked_;  ///< until there is another design
};

}  // namespace folvane::designer
