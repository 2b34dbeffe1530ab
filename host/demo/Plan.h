#pragma once

#include <QDate>
#include <vector>

namespace folvane::demo {

/// What of one year has gone into the archive by now.
struct ArchivedYear {
  int year = 0;
  int items = 0, volumes = 0;  ///< of incoming documents, in volumes
  int singles = 0;             ///< of outgoing documents, kept by item
};

/// How the records of the demo are spread over its tables; the sum is what was asked for.
struct Plan {
  QDate first, today;
  int incoming = 0, outgoing = 0, items = 0, volumes = 0, singles = 0, events = 0;
  std::vector<ArchivedYear> archived;

  static constexpr int kFewest = 100, kMost = 1'000'000;
  static Plan For(int records, QDate today);
};

}  // namespace folvane::demo
