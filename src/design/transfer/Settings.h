#pragma once

#include <QString>
#include <QVariantList>
#include <algorithm>
#include <vector>

#include "design/transfer/Names.h"

// The settings of the transfer into the archive, as the design tables have them. What was read wrong stays as it was
// read, so that it can be shown and put right. Each remembers the row that it comes from; a new one has none.
namespace folvane::transfer {

/// A field of the source whose value a field of the destination takes: a row of DataTransfer_Details.
struct FieldLink {
  QString source, destination;
  QString caption;  ///< of the source field, as questions of the transfer call it
  QVariantList row{};

  bool operator==(const FieldLink&) const = default;
};

/// A table that passes its records to another one, with their fields: a row of DataTransfer_Ini.
struct TransferSet {
  QString number;  ///< RecId, which ties the fields to it
  QString source, destination;
  std::vector<FieldLink> links{};
  QVariantList row{};

  /// Whether only fields are there, whose row of DataTransfer_Ini is gone.
  bool IsOrphan() const { return row.isEmpty() && source.isEmpty() && destination.isEmpty(); }
  bool operator==(const TransferSet&) const = default;
};

/// A part of an archive number: a row of ArchiveNo_Format.
struct NumberPart {
  QString field, caption;
  QString separator;  ///< in front of the part
  QString length;     ///< in bytes of the national code page; any text where the row has one
  bool showsCode = false;
  QVariantList row{};

  bool operator==(const NumberPart&) const = default;
};

/// How the archive numbers of a table are made up.
struct NumberFormat {
  QString table;
  std::vector<NumberPart> parts{};
  QString storeField{}, folderField{};  ///< of the last row, which counts
  bool rowsDiffer = false;              ///< whether rows name different ones

  bool HasFolder() const { return folderField != u"(无)"; }
  bool operator==(const NumberFormat&) const = default;
};

struct Settings {
  std::vector<TransferSet> sets;
  std::vector<NumberFormat> formats;

  bool operator==(const Settings&) const = default;
  /// nullptr for a table that has none.
  const NumberFormat* FormatOf(const QString& table) const {
    const auto found = std::find_if(formats.begin(), formats.end(),
                                    [&](const NumberFormat& format) { return IsSame(format.table, table); });
    return found == formats.end() ? nullptr : &*found;
  }
};

}  // namespace folvane::transfer
