#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <map>

#include "bench/Meter.h"

namespace folvane::bench {

struct Setting {
  qint64 rows = 0;
  QString database;  ///< the file of SQLite
};

/// Does one thing once, with the meter set around what counts.
using Case = std::function<void(const Setting&, Meter&)>;
using Cases = std::map<QString, Case>;

/// Steps through the rows of a query and takes their values, and keeps nothing.
void StepThrough(const Setting& setting, const char* query, Meter& meter);

/// Reads the rows of a query as a careful program without a record set would: the bytes of all columns into chunks.
void ReadAllRaw(const Setting& setting, const char* query, Meter& meter);

Cases ReadingCases();
Cases WritingCases();
Cases PostgresCases();
Cases BrowserCases();
Cases EntryCases();
Cases BulkCases();
Cases FlowCases();
Cases OriginalsCases();
Cases ArchiveCases();
Cases ExchangeCases();
Cases FileCases();

}  // namespace folvane::bench
