#pragma once

#include <QString>
#include <QTextStream>
#include <functional>
#include <vector>

#include "bench/Meter.h"

namespace folvane::bench {

/// A case that the subject of a comparison is held against. Aims are the greatest ratios wanted, subject over rival; 0
/// for a figure that is only told.
struct Rival {
  QString name, words;
  double timeAim = 0;
  double memoryAim = 0;
};

struct Comparison {
  QString title;
  qint64 rows;
  QString subject, words;
  std::vector<Rival> rivals;
  /// The most that the subject itself is to take; 0 for none.
  double millisecondsAim = 0;
  double bytesARowAim = 0;
};

/// Everything that is measured, in the order of the report.
std::vector<Comparison> Comparisons();

/// Runs each case of the comparison in turn, some rounds long so that a busy moment of the machine falls on all of
/// them, and writes the best of each.
void Compare(const Comparison& comparison, const std::function<Sample(const QString& name, qint64 rows)>& run,
             QTextStream& out);

}  // namespace folvane::bench
