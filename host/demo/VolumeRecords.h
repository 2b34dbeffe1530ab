#pragma once

#include <QHash>
#include <optional>
#include <vector>

#include "catalogue/RowWriter.h"
#include "host/demo/Letter.h"
#include "host/demo/Originals.h"
#include "host/demo/Plan.h"
#include "host/demo/RecordKeys.h"
#include "host/demo/Words.h"
#include "host/demo/WorkCalendar.h"

namespace folvane::demo {

/// The archive's volumes, Wsda_Aj, and the documents in them, Wsda_Jn. A year's documents are put into its volumes one
/// after the other in the spring of the next year.
class VolumeRecords {
 public:
  VolumeRecords(Connection& connection, const Plan& plan, const Words& words, Random& random, Originals& originals);

  /// Begins the volumes of a year; gives how many documents they take.
  int OpenYear(int year);
  bool IsClosed(int year) const { return year <= plan_.archived.back().year; }
  void Take(const Letter& letter, const std::vector<StoredFile>& originals);
  /// Ends the last volume and writes what is left over.
  void Finish();

 private:
  struct Volume {
    QString key, retention, volumeNo, folderNo, title, security;
    QString firstDay, lastDay;
    int documents = 0, pages = 0;
  };
  void OpenVolume(const Letter& letter, const QDateTime& moment);
  void CloseVolume();

  const Plan& plan_;
  const Words& words_;
  Random& random_;
  Originals& originals_;
  RecordKeys volumeKeys_, itemKeys_;
  RowWriter volumeRows_, itemRows_;
  QHash<QString, int> lastVolumes_;  ///< of the year, by retention
  ArchivedYear year_;
  int taken_ = 0, volumesOpened_ = 0;
  std::optional<Volume> volume_;
  std::optional<WorkCalendar> spring_;
};

}  // namespace folvane::demo
