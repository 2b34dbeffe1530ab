#include <QSet>

#include "design/Checks.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

constexpr int kTop = 1;  ///< the invisible class above all

std::function<void(Design&)> ToTheTop(const Design::Class& item) {
  return [id = item.id](Design& design) {
    if (Design::Class* found = FindByKey(design.classes, QString::number(id))) found->parent = kTop;
  };
}

// Whether the classes above lead back to the class itself.
bool IsInRing(const Design& design, const Design::Class& item) {
  QSet<int> seen;
  for (int id = item.parent; id != kTop && !seen.contains(id);) {
    if (id == item.id) return true;
    seen << id;
    const Design::Class* above = FindByKey(design.classes, QString::number(id));
    if (!above) return false;
    id = above->parent;
  }
  return false;
}

void CheckClass(Checked& checked, const Design::Class& item) {
  const QString where = Shape<Design::Class>::TitleOf(item);
  const QString hidden = u"类别树中看不到这个类别和其下的表"_s;
  if (item.id <= kTop || item.id > 32767)
    checked.findings.push_back({Weight::Error,
                                u"class-number"_s,
                                where,
                                u"类别编号应在 2 到 32767 之间"_s,
                                u"类别树中这个类别不能使用"_s,
                                u"请另编一个号"_s,
                                {}});
  if (item.name.isEmpty())
    checked.findings.push_back({Weight::Warning,
                                u"class-nameless"_s,
                                where,
                                u"类别没有名称"_s,
                                u"类别树中有一个空白的节点"_s,
                                u"请填写名称"_s,
                                {}});
  if (IsInRing(checked.design, item))
    checked.findings.push_back({Weight::Error, u"class-ring"_s, where, u"类别直接或间接是自己的上级"_s, hidden,
                                u"改为最上一级"_s, ToTheTop(item)});
  else if (item.parent != kTop && !FindByKey(checked.design.classes, QString::number(item.parent)))
    checked.findings.push_back({Weight::Error, u"class-parent"_s, where, u"上级类别 %1 不存在"_s.arg(item.parent),
                                hidden, u"改为最上一级"_s, ToTheTop(item)});
}

void CheckRelation(Checked& checked, const Design::Table& table, const Design::Table& parent) {
  const QString where = Shape<Design::Table>::TitleOf(table);
  const bool hasBoth = FindNamed(table.fields, table.relationField) && FindNamed(parent.fields, table.relationField);
  if (!table.relationField.isEmpty() && hasBoth) return;
  checked.findings.push_back({Weight::Error,
                              u"relation-field"_s,
                              where,
                              table.relationField.isEmpty()
                                  ? u"没有填写与上级表关联的字段"_s
                                  : u"关联字段“%1”不是两个表都有的字段"_s.arg(table.relationField),
                              u"打开上级表的记录时看不到本表的记录"_s,
                              u"请选择两个表都有的字段"_s,
                              {}});
}

void CheckPlace(Checked& checked, const Design::Table& table) {
  if (table.classId == 0) return;
  const QString where = Shape<Design::Table>::TitleOf(table);
  if (!FindByKey(checked.design.classes, QString::number(table.classId)))
    checked.findings.push_back({Weight::Error,
                                u"table-class"_s,
                                where,
                                u"所属类别 %1 不存在"_s.arg(table.classId),
                                u"类别树中看不到这个表"_s,
                                u"请选择已有的类别"_s,
                                {}});
  if (table.parent.isEmpty()) return;
  const Design::Table* parent = FindNamed(checked.design.tables, table.parent);
  const auto release = InTable(table, [](Design::Table& found) { found.parent = found.relationField = QString(); });
  if (IsSame(table.parent, table.name) || !parent)
    checked.findings.push_back({Weight::Error, u"table-parent"_s, where,
                                parent ? u"表是自己的上级表"_s : u"上级表“%1”不存在"_s.arg(table.parent),
                                u"类别树中看不到这个表"_s, u"直接放在类别下"_s, release});
  else
    CheckRelation(checked, table, *parent);
}

}  // namespace

void CheckTree(Checked& checked) {
  for (const Design::Class& item : checked.design.classes) CheckClass(checked, item);
  for (const Design::Table& table : checked.design.tables) CheckPlace(checked, table);
}

}  // namespace folvane::design
