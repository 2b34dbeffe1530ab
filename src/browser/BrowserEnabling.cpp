#include "browser/BrowserEnabling.h"

#include <QStringList>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

void Set(QHash<QString, bool>& commands, const QStringList& names, bool on) {
  for (const QString& name : names) commands.insert(name, on);
}

}  // namespace

BrowserEnabling::BrowserEnabling(const BrowserView& view) {
  SetBrowsing(view);
  SetEditing(view);
  SetOnRecord(view);
  Set(entries, {u"mnu_Report"_s}, view.hasTable && view.grants.print);
  if (view.hasTable) SetMoves(view);
}

void BrowserEnabling::SetBrowsing(const BrowserView& view) {
  Set(entries,
      {u"mnu_File5_Save"_s, u"mnu_Tool3_Sort"_s, u"mnu_Tool4_HSearch"_s, u"mnu_Tool5_LSearch"_s, u"mnu_Goto"_s},
      view.hasTable);
  Set(keys, {u"Search"_s, u"Refresh"_s}, view.hasTable);
}

void BrowserEnabling::SetEditing(const BrowserView& view) {
  const bool mayEdit = view.hasTable && view.grants.edit;
  Set(entries, {u"mnu_File2_Open"_s, u"mnu_Tool2_BDel"_s}, mayEdit);
  Set(entries, {u"mnu_File1_Add"_s, u"mnu_Tool1_BUpdate"_s}, mayEdit && !view.refused);
  Set(keys, {u"NEW"_s}, mayEdit && !view.refused);
  Set(entries, {u"Archive(1)"_s}, mayEdit && view.grants.hasTarget);
}

void BrowserEnabling::SetOnRecord(const BrowserView& view) {
  const bool hasRecord = view.hasTable && view.hasRows;
  Set(entries, {u"mnu_File4_Property"_s, u"mnu_File3_Del"_s, u"mnu_Manager"_s}, hasRecord && view.grants.edit);
  Set(keys, {u"Mod"_s, u"Del"_s, u"Archive"_s}, hasRecord && view.grants.edit);
  Set(keys, {u"LookFiles"_s}, hasRecord && view.grants.lookFile);
  Set(keys, {u"PrePage"_s, u"NextPage"_s}, false);
}

void BrowserEnabling::SetMoves(const BrowserView& view) {
  const bool moves = view.hasRows && view.selected && view.count > 1;
  const bool back = moves && view.position > 1;
  const bool forward = moves && view.position < view.count;
  Set(entries, {u"mnu_Goto1_UClass"_s}, view.hasParentTable);
  Set(entries, {u"mnu_Goto4_Location"_s, u"mnu_Goto4A_Location"_s}, moves);
  Set(entries, {u"mnu_Goto5_FPage"_s, u"mnu_Goto2_PPage"_s}, back);
  Set(entries, {u"mnu_Goto3_NPage"_s, u"mnu_Goto6_LPage"_s}, forward);
  Set(keys, {u"PrePage"_s}, back);
  Set(keys, {u"NextPage"_s}, forward);
}

}  // namespace folvane
