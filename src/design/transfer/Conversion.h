#pragma once

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Finding.h"

namespace folvane::transfer {

/// Type and length of a field in words: "文本 60", "整数", "日期"; lengths are bytes of the national code page.
QString TypeInWords(const TableField& field);

/// What may become of a field's values when a transfer puts them into another field: what is cut, what is asked about,
/// what ends the transfer. Empty where every value goes over as it is.
Findings CheckConversion(const TableField& source, const TableField& destination);

}  // namespace folvane::transfer
