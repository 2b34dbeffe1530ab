#include "browser/BrowserCommands.h"
#include "browser/BrowserState.h"
#include "browser/BrowserStatus.h"
#include "browser/FilterBar.h"
#include "browser/ListLimits.h"
#include "browser/OriginalsView.h"
#include "browser/RecordListPart.h"
#include "browser/SearchBar.h"
#include "shell/SharedState.h"
#include "widgets/RecordListView.h"
#include "widgets/ViewHint.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

void RecordListPart::DisableCommands() {
  parts_.Commands.SetBrowseCommands(false, false);
  parts_.Commands.SetEditCommands(false, false);
  parts_.Commands.SetPrintCommands(false);
  SetLookFileCommands(false);
}

void RecordListPart::EnableCommands() {
  const TableGrants grants = parts_.State.Parameters.Grants();
  parts_.Commands.SetBrowseCommands(true, HasParentTable());
  if (grants.lookFile) SetLookFileCommands(true);
  if (grants.print) parts_.Commands.SetPrintCommands(true);
  if (grants.edit) parts_.Commands.SetEditCommands(true, grants.hasTarget);
}

void RecordListPart::SetLookFileCommands(bool on) {
  parts_.Originals.setEnabled(on);
  parts_.Commands.EnableKeys({u"LookFiles"_s}, on);
}

bool RecordListPart::HasParentTable() const {
  const ClassTreeModel& tree = parts_.State.Tree;
  const int node = parts_.State.Parameters.Selected(Parameter::Node).toInt();
  return node != 0 && tree.Node(tree.Node(node).parent).image != NodeImage::Close;
}

void RecordListPart::TellShown() {
  const BrowserState& state = parts_.State;
  if (state.CurrTable.isEmpty()) {
    parts_.Limits.Clear();
  } else {
    parts_.Limits.ShowLimits(FilterText(parts_), LimitingRights(parts_));
  }
  parts_.Search.FollowFilter(state.ShownFilter);
  parts_.ListHint.ShowHint(EmptyListHint(parts_));
  if (shown_) shown_();
}

void RecordListPart::UpdateCommands() {
  TellShown();
  BrowserCommands& commands = parts_.Commands;
  commands.EnableEntries(
      {u"mnu_Goto5_FPage"_s, u"mnu_Goto2_PPage"_s, u"mnu_Goto6_LPage"_s, u"mnu_Goto3_NPage"_s, u"mnu_Goto4_Location"_s,
       u"mnu_Goto4A_Location"_s, u"mnu_File3_Del"_s, u"mnu_File4_Property"_s, u"mnu_Manager"_s},
      false);
  commands.EnableKeys({u"Mod"_s, u"PrePage"_s, u"NextPage"_s, u"Del"_s, u"LookFiles"_s, u"Archive"_s}, false);
  if (parts_.State.List.Count() == 0) {
    parts_.Status.ShowNoRecords();
    return;
  }
  const bool selected = parts_.List.CurrentRow() > 0;
  const qint64 position = Shared().CurrentRecords.IsOpen() ? Shared().CurrentRecords.AbsolutePosition() : 0;
  if (selected) parts_.Status.ShowPosition(position, parts_.State.RecordCount);
  const TableGrants grants = parts_.State.Parameters.Grants();
  if (grants.edit) {
    commands.EnableEntries({u"mnu_File4_Property"_s, u"mnu_File3_Del"_s, u"mnu_Manager"_s}, true);
    commands.EnableKeys({u"Del"_s, u"Mod"_s, u"Archive"_s}, true);
  }
  if (grants.lookFile) commands.EnableKeys({u"LookFiles"_s}, true);
  if (selected) EnableMoves(position, parts_.State.RecordCount);
}

void RecordListPart::EnableMoves(qint64 position, qint64 count) {
  if (count < 2) return;
  parts_.Commands.EnableEntries({u"mnu_Goto4_Location"_s, u"mnu_Goto4A_Location"_s}, true);
  if (position > 1) {
    parts_.Commands.EnableEntries({u"mnu_Goto2_PPage"_s, u"mnu_Goto5_FPage"_s}, true);
    parts_.Commands.EnableKeys({u"PrePage"_s}, true);
  }
  if (position < count) {
    parts_.Commands.EnableEntries({u"mnu_Goto3_NPage"_s, u"mnu_Goto6_LPage"_s}, true);
    parts_.Commands.EnableKeys({u"NextPage"_s}, true);
  }
}

}  // namespace folvane
