#pragma once

#include <QString>
#include <vector>

#include "archiving/ArchiveNumber.h"
#include "forms/EntryLayout.h"

namespace folvane {

class DoArchiveLog;

/// The archive number of a table as its parameters are asked for.
struct ArchiveFormat {
  int parts = 0;                  ///< of the number; the last one is counted and not asked for
  std::vector<LayoutRow> fields;  ///< that are asked for, each with its kind of control and its number in that kind
};

/// Reads the format of a table's archive number and makes it the shared one, without values. A part whose field has no
/// control in the entry form of the table is not asked for. @throws DataError
ArchiveFormat LoadArchiveFormat(const QString& table);

/// Takes what was entered into the shared archive number and keeps it for the next time, kind by kind of control. Ends
/// at the first field that is blank; a date may be.
/// @return that field, null when nothing was blank
const ShownField* TakeArchiveValues(const ShownFields& entered, DoArchiveLog& log);

/// Whether a field is blank that has to have a value.
bool HasBlankParameter(const ShownFields& entered);
/// The format with what is entered as the values of its fixed fields.
NumberFormat WithValues(NumberFormat format, const ShownFields& entered);

/// How the numbers of a table begin with what is entered, up to the item's own piece; "" while a field is blank, and
/// where no number is composed. @throws DataError
QString NumberBeginning(const ShownFields& entered, const QString& table);

}  // namespace folvane
