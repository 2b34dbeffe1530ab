#pragma once

#include "designer/DesignPage.h"

namespace folvane::designer {

class DesignGrid;

/// The fields that the quick search and the simple query of a table offer.
class SearchPage : public DesignPage {
 public:
  explicit SearchPage(DesignSession& session);

 protected:
  void Refresh() override;

 private:
  DesignGrid* grid_;
};

}  // namespace folvane::designer
