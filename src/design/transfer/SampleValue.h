#pragma once

#include <QString>
#include <functional>

#include "design/transfer/BusinessTables.h"
#include "design/transfer/Settings.h"

namespace folvane::transfer {

/// Where sample values of an archive number come from; each gives "" where it has none.
struct SampleSource {
  std::function<QString()> firstFonds, firstClass;
  std::function<QString(const QString& dictionary)> firstEntry;
};

/// A value that a part of a number might have: an entry of its dictionary, the first fonds or class, this year; 1 for
/// the running number and where nothing better is known. @throws DataError
QString SampleValue(const NumberFormat& format, std::size_t part, BusinessTables& tables, const SampleSource& source);

}  // namespace folvane::transfer
