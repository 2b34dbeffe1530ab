#pragma once

#include <vector>

#include "data/Recordset.h"
#include "entry/RegIdRule.h"
#include "forms/EntryLayout.h"

namespace folvane {

/// Adds a record with its key and today in every date picker of the form. @throws DataError
void AddRecord(Recordset& records, const EntryLayout& layout);

/// What fills a record that was just added.
struct NewRecordFill {
  const std::vector<CarryField>& values;  ///< from 1: the carried ones, or all of a record that is copied
  bool copyAll = false;                   ///< the values are those of GatherAll
  bool autoStatus = false;                ///< a combo box of FileStatus says that the record is to be archived
  const RegIdRule& rule;
};

/// Fills the record with those of the values that are not empty, its registration number and its status.
/// @throws DataError, NumberError
void FillNewRecord(Recordset& records, const EntryLayout& layout, const NewRecordFill& fill);

/// Takes the carried values, not the fixed ones, from the current record. A document number and a number that counts
/// by itself are taken one up. Does nothing without a current record. @throws DataError, NumberError
void RefreshCarried(std::vector<CarryField>& carried, const Recordset& records, const QString& table);

/// Takes all values from the current record, as FillNewRecord wants them for a copy. @throws DataError
void GatherAll(std::vector<CarryField>& fields, const Recordset& records, const QString& table);

/// Takes the values gathered that count on, document numbers and numbers that count by themselves, anew: the record
/// that was copied last has had the next ones. @throws DataError
void GatherNumbers(std::vector<CarryField>& fields, const Recordset& records, const QString& table);

}  // namespace folvane
