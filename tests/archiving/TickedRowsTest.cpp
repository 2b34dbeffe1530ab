#include <QItemSelectionModel>
#include <QStandardItemModel>
#include <QTreeView>
#include <gtest/gtest.h>

#include "archiving/TickedRows.h"
#include "support/QtPrinting.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

// A list of records: the tick number, a title and the record's key; a number in brackets is not ticked.
void FillTickList(QStandardItemModel& list, const QStringList& numbers) {
  for (const QString& number : numbers) {
    auto* box = new QStandardItem(QString(number).remove(u'(').remove(u')'));
    box->setCheckable(true);
    box->setCheckState(number.isEmpty() || number.startsWith(u'(') ? Qt::Unchecked : Qt::Checked);
    const QString row = QString::number(list.rowCount() + 1);
    list.appendRow({box, new QStandardItem(u"题名"_s + row), new QStandardItem(u"R"_s + row)});
  }
}

TEST(TickedRows, ComeInTheOrderOfTheirNumbers) {
  QStandardItemModel list;
  FillTickList(list, {u"3"_s, QString(), u"1"_s, u"2"_s});
  EXPECT_EQ(TickedRecords(list, 3), QStringList({u"R3"_s, u"R4"_s, u"R1"_s}));
}

TEST(TickedRows, PassOverNumbersThatNoTickedRowHas) {
  QStandardItemModel list;
  FillTickList(list, {u"1"_s, u"(2)"_s, u"4"_s});
  EXPECT_EQ(TickedRecords(list, 4), QStringList({u"R1"_s, u"R3"_s}));
}

TEST(TickedRows, SearchOnBehindAHitThatIsNotTicked) {
  QStandardItemModel list;
  FillTickList(list, {u"(1)"_s, u"1"_s, u"1"_s});
  EXPECT_EQ(TickedRecords(list, 1), QStringList({u"R2"_s}));
}

TEST(TickedRows, AreNoMoreThanTheCountSays) {
  QStandardItemModel list;
  FillTickList(list, {u"1"_s, u"2"_s, u"3"_s});
  EXPECT_EQ(TickedRecords(list, 2), QStringList({u"R1"_s, u"R2"_s}));
  EXPECT_EQ(TickedRecords(list, 0), QStringList());
}

TEST(TickedRows, OfSelectionComeInTheOrderOfTheList) {
  QStandardItemModel list;
  FillTickList(list, {QString(), QString(), QString(), QString()});
  QTreeView view;
  view.setModel(&list);
  const auto select = [&](int row) {
    view.selectionModel()->select(list.index(row, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  };
  EXPECT_EQ(SelectedRecords(view), QStringList());
  select(3);
  select(0);
  select(1);
  EXPECT_EQ(SelectedRecords(view), QStringList({u"R1"_s, u"R2"_s, u"R4"_s}));
}

TEST(TickedRows, OfListWithoutModelAreNone) {
  const QTreeView view;
  EXPECT_EQ(SelectedRecords(view), QStringList());
}

}  // namespace
}  // namespace folvane::test
