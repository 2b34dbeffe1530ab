#pragma once

#include "catalogue/RowDescription.h"

// The sheets of distribution, circulation and handling: three pairs of tables with one skeleton.
namespace folvane {

/// The head of a sheet. The record's fields are copies made when it entered the flow, all text. What the three tables
/// spell differently stands in one member: Distribute_ID, PassRead_ID and Transact_ID in flowId, and so on.
struct FlowHeadRow {
  QString registerId, fileId, fileTable, docNo, mainTitle, quantity, responsibleBy, createDate, regId, securityClass;
  QString fileUnit, note;
  QString flowId, status;
  QString range;   ///< not in handling
  QString userId;  ///< the trail of members, joined by "-"; not in distribution

  static const RowColumns<FlowHeadRow>& Columns();
  static Table Distribution();  ///< Distribute_File
  static Table Circulation();   ///< PassRead_File
  static Table Handling();      ///< Transact_File
};

/// A line of a sheet. The serial within the head is a number in the table, so that the tenth line follows the ninth.
struct FlowDetailRow {
  int fileId = 0;
  QString registerId, leadUnit;
  QString sentDate;  ///< Distribute_Date, PassRead_Date or Send_Date
  int quantity = 0, backQuantity = 0;
  QString isBack, backDate, realBackDate;
  QString transactMode, transactResult;
  QString isHasten;  ///< "1" for a reminder, "0" for a line of handling

  static const RowColumns<FlowDetailRow>& Columns();
  static Table Distribution();  ///< Distribute_Details
  static Table Circulation();   ///< PassRead_Details
  static Table Handling();      ///< Transact_Details
};

}  // namespace folvane
