#pragma once

#include <random>

#include "archiving/TransferFixture.h"
#include "components/originals/RecordOriginals.h"
#include "components/originals/StoreCheck.h"

namespace folvane::test {

/// What a records office does in a day, without end: letters are registered, get originals and are sent around, and
/// those that wait are archived with their originals.
class DayOfWork {
 public:
  /// @param store where the originals go @param page a file that becomes one
  DayOfWork(std::shared_ptr<Connection> connection, const OriginalsRequest& store, const QString& page, unsigned seed);
  /// What there is to do with one letter.
  void DoSome();

 private:
  originals::RecordOriginals OriginalsOf(const QString& key) const;
  QString Register();
  void WorkOnOriginals(const QString& key);
  void SendAround(const QString& key);
  void Archive();

  std::shared_ptr<Connection> connection_;
  OriginalsRequest store_;
  QString page_;
  std::minstd_rand random_;
};

}  // namespace folvane::test
