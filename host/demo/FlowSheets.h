#pragma once

#include "catalogue/RowWriter.h"
#include "host/demo/Letter.h"
#include "host/demo/RecordKeys.h"
#include "host/demo/Words.h"

namespace folvane::demo {

/// The state columns of a record.
struct FlowStates {
  QString dispense, read, handle;
};

/// The sheets of the three flows with their lines and routes. A record's states follow from its sheets; those of older
/// records were set before there were sheets.
class FlowSheets {
 public:
  FlowSheets(Connection& connection, const Words& words, QDate today, Random& random);

  FlowStates ForIncoming(const Letter& letter, int regId);
  /// Of what was sent out only the distribution is followed; gives its state.
  QString ForOutgoing(const Letter& letter, int regId);
  FlowStates LongDone();
  void Finish();

 private:
  struct Head {
    const Letter& letter;
    int regId;
  };
  QString Distribute(const Head& head);
  QString Circulate(const Head& head);
  QString Handle(const Head& head);
  void AddHandlingLines(const Head& head, const QString& registerId);
  void AddReminder(const Head& head, const QString& registerId, int serial);
  /// Lays out a route of which the first nodes are passed; gives the trail of the members reached.
  QString AddRoute(const QString& registerId, int reached);
  RecordKeys& Keys(const Head& head) { return head.letter.outgoing ? ofOutgoing_ : ofIncoming_; }
  std::vector<QVariant> HeadValues(const Head& head, const QString& registerId, const QString& status);
  /// A day some days after the registration, null for days to come.
  QVariant DayAfter(const Head& head, int least, int most);

  const Words& words_;
  QDate today_;
  Random& random_;
  RecordKeys ofIncoming_, ofOutgoing_;
  RowWriter distributions_, circulations_, handlings_;
  RowWriter distributionLines_, circulationLines_, handlingLines_;
  RowWriter routes_, nodes_;
};

}  // namespace folvane::demo
