#pragma once

#include <QString>
#include <utility>
#include <vector>

#include "records/RecordsetModel.h"

namespace folvane {

/// What the dialog of a sheet can change of its head.
struct HeadValues {
  QString id, status, range, unit, note;
  friend bool operator==(const HeadValues&, const HeadValues&) = default;
};

/// What the dialog of a detail can change; dates are YYYY-MM-DD, "" for none, quantities digits.
struct DetailValues {
  QString serial, unit, date, quantity, mode, isBack, backDate, realBackDate, backQuantity, result;
  friend bool operator==(const DetailValues&, const DetailValues&) = default;
};

/// The words of a flow's route engine.
struct RouteWords {
  QString startQuestion, detailQuestion, nextQuestion, end;
};

/// All in which one flow differs from another. The three flows keep their sheets alike: a table of heads, one for each
/// record that entered the flow, and a table of the lines of each head.
struct Flow {
  QString headTable, detailTable;
  QString headSource, detailSource;  ///< the same two, as the statements that load and edit spell them
  QString word;                      ///< names the flow in questions
  QString idColumn, statusColumn, detailDate;
  QString rangeColumn;         ///< of the head; "" in handling
  QString idle, done;          ///< the status of a head without details, and of one that got some
  QString running, ended;      ///< the status of a head on its route, and at the end of it; "" without a route engine
  QString recordColumn;        ///< of the record's table: what the closing of the window writes back
  QString sort;                ///< of the heads
  bool hasQuantities = false;  ///< of the details: copies handed out and copies that came back
  bool isHandling = false;     ///< the details have mode and result, and reminders stand among them
  QString statusDictionary, unitDictionary;
  QString deleteQuestion;                                             ///< before a head is deleted
  std::vector<std::pair<QString, QString HeadValues::*>> headUpdate;  ///< "column=" and its value, in their order
  std::vector<GridColumn> headColumns, detailColumns;
  RouteWords route;

  // The windows.
  QString window, caption, icon, help, headDialog, detailDialog;
  QString routeMenu, routeMenuCaption, startEntry, startCaption;
  QString emptyHint;  ///< what an empty list of heads says

  bool HasRoute() const { return !running.isEmpty(); }
  bool HasRange() const { return !rangeColumn.isEmpty(); }
};

/// What stands above a field in a grid; a note stands in none.
QString CaptionOf(const std::vector<GridColumn>& columns, const QString& field);

const Flow& Distribution();
const Flow& Circulation();
const Flow& Handling();
/// The flow of a head table; handling for any name that is not one of the other two.
const Flow& FlowOf(const QString& headTable);

}  // namespace folvane
