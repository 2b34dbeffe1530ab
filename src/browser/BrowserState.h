#pragma once

#include <QHash>
#include <QString>

#include "records/ClassTreeBuilder.h"
#include "records/ClassTreeModel.h"
#include "records/RecordListModel.h"
#include "records/TableParameters.h"

namespace folvane {

/// How far the records of the table in view have come. Refused are those that the database did not open.
enum class ListRecords { NotOpened, Opened, Refused };

/// What the record browser knows while it is loaded.
struct BrowserState {
  QString CurrTable;       ///< the table shown, "" when none
  qint64 RecordCount = 0;  ///< rows of the current records
  ListRecords Records = ListRecords::NotOpened;
  QString ShownFilter;                 ///< the condition by which they were opened, or were to be
  QHash<QString, QString> QueryWords;  ///< conditions of query windows in words
  /// By row of the parameters: a condition that the database has refused without having taken one before.
  QHash<int, QString> Untaken;

  ClassTreeModel Tree;
  TableParameters Parameters;
  RecordListModel List;
  ClassTreeBuilder Builder{Tree, Parameters};
};

}  // namespace folvane
