#pragma once

#include "designer/DesignPage.h"
#include "designer/ThingModel.h"

namespace folvane::designer {

class DesignGrid;

/// The fields of a table: what they are called, what they hold, and where they appear.
class FieldsPage : public DesignPage {
 public:
  explicit FieldsPage(DesignSession& session);

 protected:
  void Refresh() override;

 private:
  ThingColumn<Design::Field> CaptionColumn() const;
  std::vector<ThingColumn<Design::Field>> Columns() const;
  ThingRules<Design::Field> Rules() const;
  /// Whether the database has the field already, which keeps its name.
  bool IsStored(const Design::Field& field) const;

  DesignGrid* grid_;
};

}  // namespace folvane::designer
