#pragma once

namespace folvane {

/// Opens the record browser and returns when the user has closed it. Its tree and list are built anew each time.
/// @throws DataError what fails while it opens
void ShowRecordBrowser();

}  // namespace folvane
