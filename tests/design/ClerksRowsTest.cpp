#include <gtest/gtest.h>

#include "design/SmallDesign.h"

namespace folvane::test {
namespace {

using namespace Qt::Literals::StringLiterals;

/// What clerks have kept about tables whose design changes.
class ClerksRowsTest : public WithSmallDesign {
 protected:
  void AddOrder(const QString& table, int user, const QString& order) {
    Database().Native(
        u"insert into FindCirOrder(TableName, UserID, OrderStr) values('%1', %2, '%3')"_s.arg(table).arg(user).arg(
            order));
  }
  void AddRule(const QString& table, int line, const QString& field, int type, int index) {
    Database().Native(
        u"insert into SaveCollect(TableName, CenterControlIndex, FieldName, ControlType, ControlIndex) "
        u"values('%1', %2, '%3', %4, %5)"_s.arg(table)
            .arg(line)
            .arg(field)
            .arg(type)
            .arg(index));
  }
  std::vector<QStringList> Rules() {
    return Database().Rows(
        u"select FieldName, ControlType, ControlIndex from SaveCollect order by CenterControlIndex"_s);
  }
};
FOLVANE_ON_EACH_DATABASE(ClerksRowsTest);

TEST_P(ClerksRowsTest, AColumnThatGoesLeavesTheOrders) {
  AddOrder(u"Lwdj"_s, 1, u"FileDate Desc,RegID Asc"_s);
  AddOrder(u"Lwdj"_s, 12, u"filedate Asc"_s);
  AddOrder(u"Gdwj"_s, 12, u"FileDate Asc"_s);
  const Design base = Read();
  Design wanted = base;
  std::erase_if(TableOf(wanted, u"Lwdj"_s).fields, [](const auto& field) { return field.name == u"FileDate"; });
  const DesignPlan plan = PlanDesign(*Connected(), base, wanted);
  EXPECT_TRUE(plan.statements.contains(
      u"Update FindCirOrder Set OrderStr = 'RegID Asc' Where TableName = 'Lwdj' And UserID = 1"_s))
      << "what is done is told before";
  ApplyDesign(*Connected(), plan);
  EXPECT_EQ(Database().Rows(u"select TableName, UserID, OrderStr from FindCirOrder order by TableName, UserID"_s),
            (std::vector<QStringList>{{u"Gdwj"_s, u"12"_s, u"FileDate Asc"_s},
                                      {u"Lwdj"_s, u"1"_s, u"RegID Asc"_s},
                                      {u"Lwdj"_s, u"12"_s, u"ArchiveId Desc"_s}}));
}

TEST_P(ClerksRowsTest, AColumnThatIsKeptStaysInTheOrders) {
  Database().Native(u"insert into Lwdj(ArchiveID, Amaintitle) values('1', '通知')"_s);
  AddOrder(u"Lwdj"_s, 1, u"Amaintitle Desc"_s);
  Apply(
      [](Design& design) {
        std::erase_if(TableOf(design, u"Lwdj"_s).fields, [](const auto& field) { return field.name == u"Amaintitle"; });
      },
      LossAnswer::Keep);
  EXPECT_EQ(Database().Value(u"select OrderStr from FindCirOrder"_s), u"Amaintitle Desc"_s);
}

TEST_P(ClerksRowsTest, WithATableGoesWhatClerksKeptAboutIt) {
  for (const QString& table : {u"Lwdj"_s, u"Gdwj"_s}) {
    AddOrder(table, 1, u"Amaintitle Desc"_s);
    AddRule(table, 0, u"Amaintitle"_s, 10, 1);
    Database().Native(u"insert into FindCirSave(OrderNo, TableName) values(1, '%1')"_s.arg(table));
  }
  Apply([](Design& design) {
    std::erase_if(design.tables, [](const auto& table) { return table.name == u"Lwdj"; });
    design.transfers.clear();
  });
  for (const QString& kept : {u"FindCirOrder"_s, u"SaveCollect"_s, u"FindCirSave"_s})
    EXPECT_EQ(Database().Value(u"select min(TableName) from "_s + kept), u"Gdwj"_s) << qPrintable(kept);
}

TEST_P(ClerksRowsTest, ARuleFollowsItsControl) {
  AddRule(u"Lwdj"_s, 0, u"RegID"_s, 1, 1);
  AddRule(u"Lwdj"_s, 1, u"Amaintitle"_s, 10, 1);
  AddRule(u"Lwdj"_s, 2, u"SecurityClass"_s, 2, 1);
  AddRule(u"Lwdj"_s, 3, u"FileDate"_s, 4, 2);
  Apply([](Design& design) {
    Design::Table& letters = TableOf(design, u"Lwdj"_s);
    for (Design::Control& control : letters.controls) {  // two change places, one its kind
      if (control.field == u"RegID") control.index = 2;
      if (control.field == u"Amaintitle") control.type = 1;
      if (control.field == u"FileDate") control.type = 9, control.index = 1;
    }
  });
  EXPECT_EQ(Rules(), (std::vector<QStringList>{{u"RegID"_s, u"1"_s, u"2"_s},
                                               {u"Amaintitle"_s, u"1"_s, u"1"_s},
                                               {u"SecurityClass"_s, u"2"_s, u"1"_s},
                                               {u"FileDate"_s, u"9"_s, u"1"_s}}));
}

TEST_P(ClerksRowsTest, ARuleWaitsForItsControlAndGoesWithItsField) {
  AddRule(u"Lwdj"_s, 0, u"RegID"_s, 1, 1);
  AddRule(u"Lwdj"_s, 1, u"FileDate"_s, 4, 2);
  Apply([](Design& design) {
    std::erase_if(TableOf(design, u"Lwdj"_s).controls,
                  [](const auto& each) { return each.field == u"RegID" || each.field == u"FileDate"; });
    std::erase_if(TableOf(design, u"Lwdj"_s).fields, [](const auto& field) { return field.name == u"FileDate"; });
  });
  EXPECT_EQ(Rules(), (std::vector<QStringList>{{u"RegID"_s, u"1"_s, u"0"_s}}));
  Apply([](Design& design) {
    TableOf(design, u"Lwdj"_s).controls.push_back({u"RegID"_s, 1, 7, 9, 1350, 1920, 3600, 300});
  });
  EXPECT_EQ(Rules(), (std::vector<QStringList>{{u"RegID"_s, u"1"_s, u"7"_s}}));
}

}  // namespace
}  // namespace folvane::test
