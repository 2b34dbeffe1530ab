#include <gtest/gtest.h>

#include "bulk/FrmRecordMove.h"
#include "bulk/FrmReplace.h"
#include "entry/FrmCustomFormat.h"
#include "entry/FrmKeyOrder.h"
#include "entry/FrmSaveCollect.h"
#include "support/QtPrinting.h"
#include "widgets/FrmAbout.h"

namespace folvane::test {

TEST(WindowIcons, EveryWindowBringsOneWhetherTheHostsProgramHasOneOrNot) {
  EXPECT_FALSE(FrmRecordMove().windowIcon().isNull());
  EXPECT_FALSE(FrmReplace().windowIcon().isNull());
  EXPECT_FALSE(FrmCustomFormat().windowIcon().isNull());
  EXPECT_FALSE(FrmKeyOrder().windowIcon().isNull());
  EXPECT_FALSE(FrmSaveCollect().windowIcon().isNull());
  EXPECT_FALSE(FrmAbout().windowIcon().isNull());
}

}  // namespace folvane::test
