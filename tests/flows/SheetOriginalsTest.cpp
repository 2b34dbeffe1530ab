#include <folvane/HostServices.h>
#include <folvane/OriginalsRequest.h>

#include "flows/FlowWindowFixture.h"

namespace folvane::test {
namespace {

/// The originals of a sheet's record, seen from the flow windows.
class SheetOriginalsTest : public FlowWindowTest {};

FOLVANE_ON_EACH_DATABASE(SheetOriginalsTest);

TEST_P(SheetOriginalsTest, TheFirstOriginalOfTheRecordIsShown) {
  QStringList told;
  Services().handleOriginals = [&](const OriginalsRequest& request) {
    told << request.recordId + u' ' + request.action + u' ' + request.fileId;
    return true;
  };
  AddHeads(Circulation(), 2);
  design_->AddOriginal(u"11"_s, u"92"_s, u"附件"_s, 2);
  design_->AddOriginal(u"11"_s, u"91"_s, u"正文"_s, 1);
  Open(
      u"frmPassFile"_s, [](QWidget& window) { Command(window, u"mnuSeeFile"_s).trigger(); }, u"11"_s);
  EXPECT_EQ(told, QStringList{u"11 BrowseState 91"_s});
  Open(
      u"frmPassFile"_s,
      [](QWidget& window) {
        Command(window, u"mnuSeeFile"_s).trigger();
        EXPECT_EQ(TextIn(window, u"Notice"_s), u"此文件没有原文"_s);
      },
      u"12"_s);
  EXPECT_EQ(told.size(), 1);
}

TEST_P(SheetOriginalsTest, AnEmptyWindowHasNothingToShow) {
  int asked = 0;
  Services().handleOriginals = [&](const OriginalsRequest&) { return ++asked > 0; };
  Open(u"frmDistributeFile"_s, [](QWidget& window) { Command(window, u"mnuSeeFile"_s).trigger(); });
  EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace folvane::test
