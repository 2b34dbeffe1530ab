// Hostile texts in the boxes of the flow windows' dialogs.
#include <optional>

#include "flows/FlowWindowFixture.h"
#include "injection/Watched.h"

namespace folvane::test {
namespace {

class FlowBoxesTest : public FlowWindowTest {
 protected:
  void SetUp() override {
    FlowWindowTest::SetUp();
    canaries_.emplace(Database(), program_);
  }
  void TearDown() override {
    canaries_.reset();
    FlowWindowTest::TearDown();
  }
  /// Two sheets, the first of which has a line.
  void AddSheets(const Flow& flow) {
    AddHeads(flow, 2);
    AddDetail(flow, K(2), 1, u"办公室"_s, u"0"_s);
    AddDetail(flow, K(1), 1, u"办公室"_s, u"0"_s);
    if (flow.hasQuantities) design_->Run(u"update %1 set Quantity=1, Back_Quantity=0"_s.arg(flow.detailTable));
    design_->Run(u"update %1 set Is_Back='否'"_s.arg(flow.detailTable));
    if (flow.isHandling) design_->Run(u"update %1 set Transact_Mode='', Transact_Result=''"_s.arg(flow.detailTable));
    if (flow.HasRange()) design_->Run(u"update %1 set %2=''"_s.arg(flow.headTable, flow.rangeColumn));
    design_->Run(u"update %1 set File_Unit='', Note=''"_s.arg(flow.headTable));
  }
  /// The boxes of a dialog, each with the column of a table that takes what it holds.
  using Columns = std::vector<std::pair<QString, QString>>;
  static Columns HeadBoxes(const Flow& flow) {
    Columns boxes{{u"txtID"_s, flow.idColumn},
                  {u"cboStatus"_s, flow.statusColumn},
                  {u"txtUnit"_s, u"File_Unit"_s},
                  {u"TxtNote"_s, u"Note"_s}};
    if (flow.HasRange()) boxes.emplace_back(u"txtRange"_s, flow.rangeColumn);
    return boxes;
  }
  static Columns DetailBoxes(const Flow& flow) {
    Columns boxes{{u"CboUnit"_s, u"Lead_Unit"_s}, {u"cboBack"_s, u"Is_Back"_s}};
    if (flow.isHandling)
      boxes.insert(boxes.end(), {{u"txtTranMode"_s, u"Transact_Mode"_s}, {u"txtResult"_s, u"Transact_Result"_s}});
    return boxes;
  }
  /// Enters all texts into a box of the first sheet's dialog, or of that of its line.
  void Try(const Flow& flow, bool isHead, const QString& control, const QString& column) {
    Open(flow.window, [&](QWidget& window) {
      QTableView& grid = isHead ? Heads(window) : Details(window);
      const QString place = u" from %1 where Register_ID='%2'"_s.arg(isHead ? flow.headTable : flow.detailTable, K(2));
      const QString old = design_->Value(u"select "_s + column + place);
      const Box box{flow.headTable.toStdString() + " " + control.toStdString(),
                    [&](const QString& text) {
                      QString typed;
                      WithWindow(isHead ? flow.headDialog : flow.detailDialog, [&](QWidget& dialog) {
                        typed = PasteInto(dialog, control, text);
                        ExpectNoMarkup(dialog, "dialog");
                        Click(Find<QWidget>(dialog, u"cmdSave"_s));
                        notes_ = TextIn(dialog, u"LblNote"_s);
                      });
                      ClickGrid(grid, 0);
                      Key(window, u"MODIFY"_s).trigger();
                      ExpectNoMarkup(window, "window");
                      return TakenUnescaped(typed);
                    },
                    [&] { return design_->Value(u"select "_s + column + place); },
                    [&] {
                      Database().Native(u"update %1 set %2=%3 where Register_ID='%4'"_s.arg(
                          isHead ? flow.headTable : flow.detailTable, column,
                          old == u"<null>"_s ? u"null"_s : u'\'' + old + u'\'', K(2)));
                      Command(window, u"mnuShowAll"_s).trigger();
                    }};
      TryBox(Database(), box, SomeHostileLines(), [&] { return WasTold(window); });
    });
  }
  bool WasTold(QWidget& window) {
    const bool told = !boxes_.Requests().empty() || !Notice(window).isEmpty() || !notes_.isEmpty();
    boxes_.Clear();
    notes_.clear();
    return told;
  }

  QString notes_;
  std::optional<Canaries> canaries_;
};

}  // namespace

FOLVANE_ON_EACH_DATABASE(FlowBoxesTest);

TEST_P(FlowBoxesTest, WhatStandsInADialogOfAFlowIsStoredAsItIsOrTold) {
  for (const Flow* flow : {&Distribution(), &Circulation(), &Handling()}) {
    AddSheets(*flow);
    for (const auto& [control, column] : HeadBoxes(*flow)) Try(*flow, true, control, column);
    for (const auto& [control, column] : DetailBoxes(*flow)) Try(*flow, false, control, column);
    design_->Run(u"delete from Lwdj"_s);
  }
}

}  // namespace folvane::test
