#include <QCheckBox>

#include "faults/Trial.h"
#include "query/CompoundWindowFixture.h"
#include "query/FrmOrderBy.h"
#include "query/FrmSimSet.h"

namespace folvane::test {
namespace {

class OrderOfList : public CommandIn<QueryTest> {
 public:
  void Work(Trial& trial) override {
    FrmOrderBy window;
    window.TableName = u"Lwdj"_s;
    WithWindow(u"FrmOrderBy"_s, [&](QWidget&) {
      Click(window, u"CmdSort(3)"_s);
      trial.Try([&] { Click(window, u"CmdOK"_s); }, [&] { return ColumnOf(window, u"LV2"_s).size() == 6; });
    });
    window.Open();
  }
};

class FieldsOfSimpleQuery : public CommandIn<QueryTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    Run(u"insert into SimSearch (TableName,DataField,ChnDataField,OrderNo,CtlType,CtlIndex) values "
        "('Lwdj','DocNo','文号',1,1,1)"_s);
  }
  void Work(Trial& trial) override {
    FrmSimSet window;
    window.TableName = u"Lwdj"_s;
    WithWindow(u"FrmSimSet"_s, [&](QWidget&) {
      ClickRow(window, u"LV1"_s, 0);
      ClickRow(window, u"LV1"_s, 1, Qt::ControlModifier);
      Click(window, u"Image3"_s);
      trial.Try([&] { Click(window, u"CmdOK"_s); }, [&] { return ColumnOf(window, u"LV2"_s).size() == 3; });
    });
    window.Open();
  }
};

class InCompoundQuery : public CommandIn<frmfhfindTest> {
 public:
  void Begin() override {
    CommandIn::Begin();
    for (const int number : {1, 2, 3})
      Run(u"insert into FindCirSave (OrderNo,TableName,CompField,CompRelation,CompValue,AndOrRelation,ChnAndOrRelation,"
          "ChnCompField,ChnCompRelation) values (%1,'Lwdj','RegID','=','%1','%2','%3','登记号','等于')"_s.arg(number)
              .arg(number > 1 ? u"or"_s : QString(), number > 1 ? u"或"_s : QString()));
  }
};

class ConditionAdded : public InCompoundQuery {
 public:
  void Work(Trial& trial) override {
    InWindow([&] {
      trial.TryFromArm([&] {
        if (List().size() > 3) {  // what was not saved stands there, struck out
          ClickRow(window_, u"ListView1"_s, 3);
          Key(u"F_DelRecord"_s).trigger();
        }
        Fill(u"与"_s, u"登记号"_s, u"大于"_s, u"1"_s);
        trial.Arm();
        Key(u"F_AddRecord"_s).trigger();
      });
    });
  }
};

class ConditionRemoved : public InCompoundQuery {
 public:
  void Work(Trial& trial) override {
    InWindow([&] {
      ClickRow(window_, u"ListView1"_s, 0);
      trial.Try([&] { Key(u"F_DelRecord"_s).trigger(); });
    });
  }
};

class ConditionsForgotten : public InCompoundQuery {
 public:
  void Work(Trial& trial) override {
    InWindow([&] {
      Find<QCheckBox>(window_, u"Check1"_s).setChecked(true);
      trial.Try([&] { Key(u"F_Query"_s).trigger(); });
    });
  }
};

}  // namespace

std::vector<CommandRow> QueryCommands() {
  return {Row<OrderOfList>("keep the order of a list", Keeps::AllOrNothing, 1),
          Row<FieldsOfSimpleQuery>("choose the fields of the simple query", Keeps::AllOrNothing, 1),
          Row<ConditionAdded>("save a condition of a query", Keeps::AllOrNothing, 1),
          Row<ConditionRemoved>("remove a saved condition", Keeps::AllOrNothing, 1),
          Row<ConditionsForgotten>("forget the conditions of a query", Keeps::AllOrNothing, 1)};
}

}  // namespace folvane::test
