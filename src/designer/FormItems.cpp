#include "designer/FormItems.h"

#include <algorithm>

#include "design/FormArrangement.h"
#include "design/Shape.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

QStringList EntriesOf(const std::vector<Design::Dictionary>& dictionaries, const QString& name) {
  const Design::Dictionary* dictionary = name.isEmpty() ? nullptr : design::FindNamed(dictionaries, name);
  if (!dictionary) return {};
  std::vector<Design::DictionaryEntry> entries = dictionary->entries;
  std::stable_sort(entries.begin(), entries.end(),
                   [](const auto& one, const auto& other) { return one.sortKey < other.sortKey; });
  QStringList texts;
  for (const Design::DictionaryEntry& entry : entries) texts << entry.text;
  return texts;
}

FormItem ItemOf(const Design::Table& table, int at) {
  const Design::Control& control = table.controls[std::size_t(at)];
  const Design::Field* field = design::FindNamed(table.fields, control.field);
  FormItem item;
  item.control = at;
  item.keyOrder = control.keyOrder;
  item.row.control = {control.type, control.index};
  item.row.dataField = control.field;
  item.row.caption = field ? field->caption : control.field;
  item.row.left = control.left;
  item.row.top = control.top;
  item.row.width = control.width;
  item.row.height = control.height;
  item.isBuilt = field && !KindName(control.type).isEmpty();
  if (!field) {
    item.trouble = control.field.isEmpty() ? u"控件没有字段"_s : u"表中没有字段“%1”"_s.arg(control.field);
    return item;
  }
  item.row.fieldType = field->type;
  item.row.fieldLong = QString::number(field->length);
  item.row.dictionary = field->dictionary;
  item.isRequired = field->isRequired;
  if (!item.isBuilt) item.trouble = u"没有第 %1 类控件"_s.arg(control.type);
  return item;
}

void TellTroubles(std::vector<FormItem>& items) {
  for (auto item = items.begin(); item != items.end(); ++item) {
    const auto isSame = [&](const FormItem& other) { return other.row.control == item->row.control; };
    if (!item->trouble.isEmpty()) continue;
    if (std::any_of(items.begin(), item, isSame))
      item->trouble = u"%1有两个编号 %2"_s.arg(KindName(item->row.control.type)).arg(item->row.control.index);
    else if (item->row.isArranged)
      item->trouble = u"没有可用的位置或大小，已自动安排"_s;
  }
}

}  // namespace

bool FormItem::LooksLike(const FormItem& other) const {
  return row.control == other.row.control && row.dataField == other.row.dataField && row.caption == other.row.caption &&
         row.fieldType == other.row.fieldType && row.fieldLong == other.row.fieldLong && entries == other.entries &&
         isRequired == other.isRequired && isBuilt == other.isBuilt && trouble == other.trouble;
}

std::vector<FormItem> FormItems(const Design::Table& table, const std::vector<Design::Dictionary>& dictionaries) {
  std::vector<FormItem> items;
  for (int at = 0; at < int(table.controls.size()); ++at)
    if (design::MakesControl(table.controls[std::size_t(at)])) items.push_back(ItemOf(table, at));
  std::stable_sort(items.begin(), items.end(),
                   [](const FormItem& one, const FormItem& other) { return one.keyOrder < other.keyOrder; });
  std::vector<LayoutRow> rows;
  for (const FormItem& item : items) rows.push_back(item.row);
  ArrangeRows(rows);
  for (std::size_t i = 0; i < items.size(); ++i) {
    items[i].row = rows[i];
    if (rows[i].control.type == ControlKind::Cmb) items[i].entries = EntriesOf(dictionaries, rows[i].dictionary);
  }
  TellTroubles(items);
  return items;
}

QString KindName(int type) {
  switch (type) {
    case ControlKind::Txt:
      return u"单行文本框"_s;
    case ControlKind::Cmb:
      return u"下拉框"_s;
    case ControlKind::DTP:
      return u"日期框"_s;
    case ControlKind::F_FondsNo:
      return u"全宗号"_s;
    case ControlKind::F_Aec:
      return u"分类号"_s;
    case ControlKind::F_Organ:
      return u"机关代字/文号"_s;
    case ControlKind::DTP_Arch:
      return u"档案日期"_s;
    case ControlKind::Txt_MLine:
      return u"多行文本框"_s;
    default:
      return {};
  }
}

QList<int> KindsFor(const Design::Field* field) {
  using namespace ControlKind;
  const QString type = field ? field->type : QString();
  QList<int> kinds{Txt, Cmb, DTP, F_FondsNo, F_Aec, F_Organ, DTP_Arch, Txt_MLine};
  if (type == u"日期型" || type == u"时间型") kinds = {DTP, Txt};
  if (type == u"数值型" || type == u"自动编号" || type == u"数字型") kinds = {Txt, Cmb};
  if (type == u"档案日期型") kinds = {DTP_Arch, Txt};
  if (!field) return kinds;
  const int best = design::ControlTypeFor(*field);
  if (const auto at = kinds.indexOf(best); at > 0) kinds.move(at, 0);
  return kinds;
}

}  // namespace folvane::designer
