#pragma once

#include <QStringList>

#include "catalogue/FlowRows.h"
#include "flows/Flow.h"
#include "records/DesignedDatabase.h"

namespace folvane::test {

/// The key of a head by a short number.
inline QString K(int number) { return DesignedDatabase::Key(number); }

/// A head as a test lays it down: its key, the record's key, and what the flow has made of it.
struct HeadOf {
  QString key, record, status, title = QStringLiteral("关于召开会议的通知");
};

/// Incoming documents in a table Lwdj with the states of the three flows, and the flow tables.
class FlowTest : public DesignTest {
 protected:
  void SetUp() override;

  void AddRecord(const QString& key, const QString& title);
  void AddHead(const Flow& flow, const HeadOf& head);
  void AddDetail(const Flow& flow, const QString& key, int serial, const QString& unit, const QString& hasten = {});
  /// Nodes of a route, each "number|members|mode|next".
  void AddRoute(const QString& key, const QStringList& nodes);

  QString HeadText(const Flow& flow, const QString& key, const QString& column);
  QStringList DetailsOf(const Flow& flow, const QString& key);
  QString RecordState(const QString& key, const QString& column);
};

}  // namespace folvane::test
