#include "host/demo/TableDesign.h"

#include <QHash>
#include <QRegularExpression>

#include "host/demo/TextLists.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

// The grid of the forms: two columns of fields with their captions to the left, rows of 32 pixels at 96 DPI.
constexpr int kFirstTop = 0, kRowPitch = 480, kLineHeight = 300;
constexpr int kLeftColumn = 1350, kRightColumn = 6300, kColumnWidth = 3600;
constexpr int kWideWidth = kRightColumn + kColumnWidth - kLeftColumn;

int ControlTypeOf(const QString& control) {
  static const QHash<QString, int> types{{u"Txt"_s, 1},   {u"Cmb"_s, 2},     {u"DTP"_s, 4},      {u"F_FondsNo"_s, 6},
                                         {u"F_Aec"_s, 7}, {u"F_Organ"_s, 8}, {u"DTP_Arch"_s, 9}, {u"Txt_MLine"_s, 10}};
  return types.value(control);
}

// "L4" and "R4" are the fourth row left and right, "W4*2" two lines over both columns from the fourth row on.
ControlBounds BoundsOf(const QString& cell) {
  static const QRegularExpression pattern(u"^([LRW])(\\d+)(?:\\*(\\d+))?$"_s);
  const auto match = pattern.match(cell);
  const int row = match.captured(2).toInt();
  const int lines = qMax(1, match.captured(3).toInt());
  ControlBounds bounds;
  bounds.left = match.captured(1) == u"R"_s ? kRightColumn : kLeftColumn;
  bounds.top = kFirstTop + (row - 1) * kRowPitch;
  bounds.width = match.captured(1) == u"W"_s ? kWideWidth : kColumnWidth;
  bounds.height = kLineHeight + (lines - 1) * kRowPitch;
  return bounds;
}

// field | caption | type | long | dictionary | marks | control position | list order:width | search order values
FieldDesign ReadField(const QStringList& line) {
  FieldDesign field;
  field.name = line[0];
  field.caption = line[1];
  field.type = line[2];
  field.length = line[3].toInt();
  field.dictionary = line[4];
  const QStringList marks = line[5].split(u' ');
  field.required = marks.contains(u"required"_s);
  field.fixed = marks.contains(u"fixed"_s);
  field.inherited = marks.contains(u"inherit"_s);
  field.carried = marks.contains(u"carry"_s);
  if (!line[6].isEmpty()) {
    field.controlType = ControlTypeOf(line[6].section(u' ', 0, 0));
    field.bounds = BoundsOf(line[6].section(u' ', 1));
  }
  field.listOrder = line.value(7).section(u':', 0, 0).toInt();
  field.listWidth = line.value(7).section(u':', 1).toInt();
  field.searchOrder = line.value(8).section(u' ', 0, 0).toInt();
  field.searched = line.value(8).section(u' ', 1);
  return field;
}

TableDesign ReadTableDesign(const QString& name) {
  TableDesign table;
  QHash<int, int> controls;
  for (const QStringList& line : ReadLines(u"tables/"_s + name + u".txt"_s)) {
    if (line[0] == u"table"_s) {
      table.name = line[1];
      table.caption = line[2];
      table.typeIsNull = line[3] == u"null"_s;
      if (line[3].size() == 1) table.type = line[3];
      table.className = line[4];
    } else if (line[0] == u"index"_s) {
      table.indexes.push_back({line[1]});
    } else {
      FieldDesign field = ReadField(line);
      if (field.controlType != 0) field.controlIndex = ++controls[field.controlType];
      table.fields.push_back(field);
    }
  }
  return table;
}

}  // namespace

bool FieldDesign::IsNumber() const { return type == u"数值型"_s || type == u"自动编号"_s || type == u"数字型"_s; }
bool FieldDesign::IsDate() const { return type == u"日期型"_s || type == u"时间型"_s; }

Table TableDesign::Physical() const {
  std::vector<Column> columns;
  for (const FieldDesign& field : fields) {
    const ColumnType type = field.IsNumber() ? ColumnType::Integer
                            : field.IsDate() ? ColumnType::Date
                                             : ColumnType::Text;
    columns.push_back({field.name, type, field.length});
  }
  return BusinessTable(name, std::move(columns), indexes);
}

std::vector<TableDesign> ReadTableDesigns() {
  std::vector<TableDesign> tables;
  for (const char* name : {"Lwdj", "Fwdj", "Wsda_Aj", "Wsda_Jn", "Gdwj", "Dsj"})
    tables.push_back(ReadTableDesign(QLatin1String(name)));
  return tables;
}

}  // namespace folvane::demo
