#pragma once

#include "flows/FlowFixture.h"
#include "flows/FlowSheets.h"

namespace folvane::test {

using namespace Qt::Literals::StringLiterals;

/// What the same steps say and do in each flow.
struct FlowCase {
  const Flow& flow;
  QString hasten;
};

inline const std::vector<FlowCase>& Flows() {
  static const std::vector<FlowCase> flows{{Distribution(), {}}, {Circulation(), {}}, {Handling(), u"0"_s}};
  return flows;
}

class FlowSheetsTest : public FlowTest {
 protected:
  /// Three heads 1 to 3, the greatest key first in the list, over the records 11 to 13.
  void AddHeads(const Flow& flow) {
    for (int number = 1; number <= 3; ++number) {
      AddRecord(QString::number(10 + number), u"题名%1"_s.arg(number));
      AddHead(flow, {K(number), QString::number(10 + number), flow.idle});
    }
    log_->Take();
  }
};

}  // namespace folvane::test
