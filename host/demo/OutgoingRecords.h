#pragma once

#include <QHash>

#include "catalogue/RowWriter.h"
#include "host/demo/Letter.h"
#include "host/demo/RecordContext.h"
#include "host/demo/RecordKeys.h"
#include "host/demo/SingleRecords.h"
#include "host/demo/WorkCalendar.h"

namespace folvane::demo {

/// The register of outgoing documents, Fwdj. Of closed years some are kept by item in the archive.
class OutgoingRecords {
 public:
  OutgoingRecords(const RecordContext& around, SingleRecords& singles);
  void Write();

 private:
  void WriteYear(int year, int begin, int end);
  Letter NewLetter(const QDateTime& registered);
  void Add(const Letter& letter, const QString& fileStatus, bool recent);
  QString StatusOf(int year, bool archived);

  RecordContext around_;
  SingleRecords& singles_;
  WorkCalendar calendar_;
  RecordKeys keys_;
  RowWriter rows_;
  QHash<QString, int> lastNumbers_;  ///< of the year, by word
  int regId_ = 0;                    ///< the running number of the document
};

}  // namespace folvane::demo
