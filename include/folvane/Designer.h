#pragma once

#include <folvane/Export.h>

namespace folvane {

/// Shows the designer over the database whose connection the host has set (ClsFolvane::Connection), and returns when
/// the user has closed it: classes, tables and fields, entry forms, lists, queries, dictionaries, archive numbers,
/// transfers, reports, users and their rights. Nothing is written before the user applies it, and then all of it at
/// once or none.
///
/// Whoever sees it may change everything, so a host offers it to administrators alone. The entry operations show what
/// was changed when they are called the next time.
/// @throws DataError Usage without a connection or a QApplication; otherwise what keeps the design from being read
FOLVANE_EXPORT void ShowDesigner();

}  // namespace folvane
