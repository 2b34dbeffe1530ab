#include <QSignalSpy>
#include <gtest/gtest.h>

#include "records/TableParameters.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(TableParameters, WhoeverShowsThemIsToldWhichHasChanged) {
  TableParameters parameters;
  parameters.Add(u"Fwdj"_s);
  const int row = parameters.Add(u"Lwdj"_s);
  const QSignalSpy changes(&parameters, &QAbstractItemModel::dataChanged);
  parameters.Set(row, Parameter::Filter, u"RegID > 5"_s);
  ASSERT_EQ(changes.size(), 1);
  const auto changed = changes[0][0].toModelIndex();
  EXPECT_EQ(changed.row(), 1);
  EXPECT_EQ(changed.column(), int(Parameter::Filter));
  EXPECT_EQ(changed.data(), u"RegID > 5"_s);
  EXPECT_EQ(changes[0][1].toModelIndex(), changed);
}

}  // namespace
}  // namespace folvane::test
