#pragma once

#include <QHash>

#include "catalogue/RowWriter.h"
#include "host/demo/RecordContext.h"
#include "host/demo/RecordKeys.h"
#include "host/demo/VolumeRecords.h"
#include "host/demo/WorkCalendar.h"

namespace folvane::demo {

/// The register of incoming documents, Lwdj. Of closed years some go on into the volumes.
class IncomingRecords {
 public:
  IncomingRecords(const RecordContext& around, VolumeRecords& volumes);
  void Write();

 private:
  void WriteYear(int year, int begin, int end);
  Letter NewLetter(const QDateTime& registered);
  QString NextDocNo(const Sender& sender, int year);
  void Add(const Letter& letter, const QString& fileStatus, bool recent);
  QString StatusOf(int year, bool archived);

  RecordContext around_;
  VolumeRecords& volumes_;
  WorkCalendar calendar_;
  RecordKeys keys_;
  RowWriter rows_;
  QHash<QString, int> lastNumbers_;  ///< by word and year
  int year_ = 0, regId_ = 0;
};

}  // namespace folvane::demo
