#include "forms/EntryLayout.h"

#include "base/TextTests.h"
#include "data/Recordset.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

QString LayoutStatement(const QString& table) {
  return u"Select SaveControls.*,DynamicWindows.FieldType,DynamicWindows.ChnFieldName,DynamicWindows.FieldLong,"
         "DynamicWindows.AuxiDictDetails,DynamicWindows.NullFlags,DynamicWindows.ControlIndex As LockFields "
         "From SaveControls,DynamicWindows Where "
         "DataSource='"_s +
         table +
         u"' And SaveControls.ControlType <> 3 And "
         "SaveControls.ControlType <> 5 And Savecontrols.DataSource = "
         "DynamicWindows.TableName And SaveControls.DataField = DynamicWindows.FieldName "
         "Order By SaveControls.KeyOrder"_s;
}

LayoutRow ReadRow(const Recordset& design) {
  const auto number = [&](const QString& column) { return ToInteger(design[column].Text()); };
  LayoutRow row;
  row.control = {number(u"ControlType"_s), number(u"ControlIndex"_s)};
  row.dataField = design[u"DataField"_s].Text();
  row.fieldType = design[u"FieldType"_s].Text();
  row.caption = design[u"ChnFieldName"_s].Text();
  row.fieldLong = design[u"FieldLong"_s].Text();
  row.dictionary = design[u"AuxiDictDetails"_s].Text();
  row.left = number(u"F_Left"_s);
  row.top = number(u"F_Top"_s);
  row.width = number(u"F_Width"_s);
  row.height = number(u"F_Height"_s);
  return row;
}

}  // namespace

EntryLayout ReadEntryLayout(const std::shared_ptr<Connection>& connection, const QString& table) {
  EntryLayout layout;
  for (auto* list : {&layout.KeyList, &layout.RequiredList, &layout.FixedLengthList}) list->emplace_back();
  layout.FieldList.push_back({u"<无>"_s, {}, {}, false});

  Recordset design;
  design.Open(LayoutStatement(table), connection);
  for (; !design.EOF_(); design.MoveNext()) {
    const LayoutRow& row = layout.rows.emplace_back(ReadRow(design));
    layout.KeyList.push_back(row.control);
    layout.FieldList.push_back({row.dataField, row.fieldType, {}, false});
    if (design[u"NullFlags"_s].Text() == u"否") layout.RequiredList.push_back(row.control);
    if (design[u"LockFields"_s].Text() == u"1") layout.FixedLengthList.push_back(row.control);
  }
  return layout;
}

}  // namespace folvane
