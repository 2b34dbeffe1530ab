#pragma once

#include <QString>
#include <vector>

#include <folvane/OriginalsRequest.h>

#include "components/originals/RecordOriginals.h"

class QWidget;

namespace folvane::originals {

// What can be done with the originals of a record, each in a window of its own. Whatever fails is told to the user.

/// Opens the window that adds files, with some on its list. @return how many were added
int AddOriginals(QWidget* parent, RecordOriginals& originals, const std::vector<FileToAdd>& offered = {});
/// Scans documents and adds them. @return how many were added
int ScanOriginals(QWidget* parent, RecordOriginals& originals);
/// Shows an original, with the others of the record before and behind it.
void ViewOriginals(QWidget* parent, RecordOriginals& originals, const QString& fileId);
void ManageOriginals(QWidget* parent, RecordOriginals& originals);
/// Checks the store of all records.
void CheckOriginals(QWidget* parent, RecordOriginals& originals);

/// Carries out a request of the windows. @return for "AddState" whether something was added, otherwise true
/// @throws DataError Usage for a request that names no record, no connection or no known action
bool HandleOriginals(const OriginalsRequest& request);

}  // namespace folvane::originals
