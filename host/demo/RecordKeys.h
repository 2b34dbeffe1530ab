#pragma once

#include <QDateTime>
#include <QSet>

#include "host/demo/Random.h"

namespace folvane::demo {

/// What keys are made for. The last digit of a key keeps the kinds apart, so that no two are ever alike.
enum class KeyKind {
  Incoming,
  Outgoing,
  Volume,
  VolumeItem,
  SingleItem,
  Event,
  OriginalOfIncoming,
  OriginalOfOutgoing,
  SheetOfIncoming,
  SheetOfOutgoing,
};

/// The 20-digit keys that records would have got at the moment of their registration: the time to the second and six
/// random digits.
class RecordKeys {
 public:
  RecordKeys(KeyKind kind, Random& random) : kind_(kind), random_(random) {}

  /// Moments may not go back.
  QString At(const QDateTime& moment);

 private:
  KeyKind kind_;
  Random& random_;
  QDateTime second_;
  QSet<int> taken_;  ///< within that second
};

}  // namespace folvane::demo
