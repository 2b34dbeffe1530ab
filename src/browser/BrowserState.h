#pragma once

#include <QString>

#include "records/ClassTreeBuilder.h"
#include "records/ClassTreeModel.h"
#include "records/RecordListModel.h"
#include "records/TableParameters.h"

namespace folvane {

/// What the record browser knows while it is loaded.
struct BrowserState {
  QString CurrTable;       ///< the table shown, "" when none
  qint64 RecordCount = 0;  ///< rows of the current records

  ClassTreeModel Tree;
  TableParameters Parameters;
  RecordListModel List;
  ClassTreeBuilder Builder{Tree, Parameters};
};

}  // namespace folvane
