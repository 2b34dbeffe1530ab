#include "host/demo/DesignRows.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "catalogue/RowWriter.h"
#include "host/demo/TextLists.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

using Fields = std::vector<const FieldDesign*>;

// The fields that have a place in a list, in the order of that list.
Fields InOrder(const TableDesign& table, int FieldDesign::*order) {
  Fields fields;
  for (const FieldDesign& field : table.fields)
    if (field.*order > 0) fields.push_back(&field);
  std::sort(fields.begin(), fields.end(),
            [&](const FieldDesign* a, const FieldDesign* b) { return a->*order < b->*order; });
  return fields;
}

QString Word(bool on, const QString& word) { return on ? word : QString(u""_s); }

void WriteDictionary(RowWriter& writer, const TableDesign& table) {
  const QVariant type = table.typeIsNull ? QVariant() : QVariant(QString(u""_s + table.type));
  for (const FieldDesign& field : table.fields) {
    writer.Add({table.name, table.caption, table.className, type, field.name, field.caption, field.type,
                qlonglong(field.length), Word(field.required, u"否"_s), Word(field.fixed, u"1"_s), field.dictionary,
                qlonglong(field.inherited ? 1 : 0), Word(field.carried, u"是"_s)});
  }
}

void WriteForm(RowWriter& writer, const TableDesign& table) {
  qlonglong order = 0;
  int bottom = 0;
  for (const FieldDesign& field : table.fields) {
    if (field.controlType == 0) continue;
    const ControlBounds& bounds = field.bounds;
    writer.Add({table.name, field.name, qlonglong(field.controlType), qlonglong(field.controlIndex), ++order,
                qlonglong(bounds.left), qlonglong(bounds.top), qlonglong(bounds.width), qlonglong(bounds.height)});
    bottom = std::max(bottom, bounds.top + bounds.height);
  }
  // The design tool's frame around the form: it has no field, and no control is made of it.
  constexpr int kFrame = 3;
  writer.Add({table.name, QString(u""_s), qlonglong(kFrame), qlonglong(1), ++order, qlonglong(0), qlonglong(0),
              qlonglong(10200), qlonglong(bottom + 150)});
}

void WriteList(RowWriter& writer, const TableDesign& table) {
  for (const FieldDesign* field : InOrder(table, &FieldDesign::listOrder)) {
    writer.Add({table.name, field->name, field->caption, qlonglong(field->listWidth), qlonglong(field->listOrder)});
  }
}

// The kinds of input of the simple query: 1 like box, 2 range, 3 pair of dates, 4 dictionary.
int SearchKind(const FieldDesign& field) {
  if (field.IsNumber() || field.type == u"档案日期"_s) return 2;
  if (field.IsDate()) return 3;
  return field.dictionary.isEmpty() ? 1 : 4;
}

void WriteSearch(RowWriter& writer, const TableDesign& table) {
  std::array<qlonglong, 5> counts{};
  for (const FieldDesign* field : InOrder(table, &FieldDesign::searchOrder)) {
    const int kind = SearchKind(*field);
    writer.Add({table.name, field->name, field->caption, qlonglong(field->searchOrder), qlonglong(kind),
                ++counts[size_t(kind)], field->searched});
  }
}

const FieldDesign& FieldNamed(const std::vector<TableDesign>& tables, const QString& table, const QString& field) {
  for (const TableDesign& candidate : tables) {
    if (candidate.name != table) continue;
    for (const FieldDesign& each : candidate.fields)
      if (each.name == field) return each;
  }
  throw std::runtime_error("a proofing rule for no field: " + (table + u'.' + field).toStdString());
}

// Proofing rules name the control of their field.
void WriteRules(Connection& connection, const std::vector<TableDesign>& tables) {
  const std::vector<QStringList> lines = ReadLines(u"rows/SaveCollect.txt"_s);
  RowWriter rules(connection, u"SaveCollect"_s, lines.front() + QStringList{u"ControlIndex"_s, u"ControlType"_s});
  for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
    const FieldDesign& field = FieldNamed(tables, line->at(0), line->at(2));
    rules.Add({line->at(0), line->at(1).toLongLong(), line->at(2), line->at(3), line->at(4), line->at(5), line->at(6),
               qlonglong(field.controlIndex), qlonglong(field.controlType)});
  }
  rules.Finish();
}

}  // namespace

void WriteDesign(Connection& connection, const std::vector<TableDesign>& tables) {
  RowWriter dictionary(connection, u"DynamicWindows"_s,
                       {u"TableName"_s, u"ChnTableName"_s, u"ClassName"_s, u"TableType"_s, u"FieldName"_s,
                        u"ChnFieldName"_s, u"FieldType"_s, u"FieldLong"_s, u"NullFlags"_s, u"ControlIndex"_s,
                        u"AuxiDictDetails"_s, u"ControlsType"_s, u"ZJCFlags"_s});
  RowWriter forms(connection, u"SaveControls"_s,
                  {u"DataSource"_s, u"DataField"_s, u"ControlType"_s, u"ControlIndex"_s, u"KeyOrder"_s, u"F_Left"_s,
                   u"F_Top"_s, u"F_Width"_s, u"F_Height"_s});
  RowWriter lists(connection, u"ListViewFormat"_s,
                  {u"TableName"_s, u"FieldName"_s, u"ChnFieldName"_s, u"ColumnWidth"_s, u"OrderNo"_s});
  RowWriter searches(
      connection, u"SimSearch"_s,
      {u"TableName"_s, u"DataField"_s, u"ChnDataField"_s, u"OrderNo"_s, u"CtlType"_s, u"CtlIndex"_s, u"FieldValue"_s});
  for (const TableDesign& table : tables) {
    WriteDictionary(dictionary, table);
    WriteForm(forms, table);
    WriteList(lists, table);
    WriteSearch(searches, table);
  }
  for (RowWriter* writer : {&dictionary, &forms, &lists, &searches}) writer->Finish();
  WriteRules(connection, tables);
}

}  // namespace folvane::demo
