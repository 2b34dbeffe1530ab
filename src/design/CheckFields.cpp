#include <QHash>

#include "design/Checks.h"
#include "design/Names.h"
#include "design/TableEdits.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;

std::function<void(Design&)> InField(const Design::Table& table, const Design::Field& field,
                                     std::function<void(Design::Field&)> change) {
  return InTable(table, [name = field.name, change = std::move(change)](Design::Table& found) {
    if (Design::Field* mended = FindNamed(found.fields, name)) change(*mended);
  });
}

void CheckField(Checked& checked, const Design::Table& table, const Design::Field& field) {
  const QString where = Where(table, field);
  if (const QString complaint = NameComplaint(field.name); !complaint.isEmpty())
    checked.findings.push_back(
        {Weight::Error, u"field-name"_s, where, complaint, u"查询和保存可能出错"_s, u"请另建一个字段"_s, {}});
  if (!FieldTypeNames().contains(field.type))
    checked.findings.push_back({Weight::Error, u"field-type"_s, where, u"不认识类型“%1”"_s.arg(field.type),
                                u"查询窗口不能比较这个字段的值"_s, u"改为“文本型”"_s,
                                InField(table, field, [](Design::Field& mended) { mended.type = u"文本型"_s; })});
  if (field.length < 0)
    checked.findings.push_back({Weight::Error, u"field-length"_s, where, u"长度小于 0"_s, u"录入时什么也不能输入"_s,
                                u"改为不限"_s,
                                InField(table, field, [](Design::Field& mended) { mended.length = 0; })});
  if (field.isFixedLength && field.length <= 0)
    checked.findings.push_back({Weight::Warning, u"field-fixed"_s, where, u"定长的字段没有长度"_s,
                                u"保存时不检查长度"_s, u"取消定长"_s,
                                InField(table, field, [](Design::Field& mended) { mended.isFixedLength = false; })});
  if (!field.dictionary.isEmpty() && !FindNamed(checked.design.dictionaries, field.dictionary))
    checked.findings.push_back({Weight::Warning, u"dictionary-unknown"_s, where,
                                u"字典“%1”不存在"_s.arg(field.dictionary), u"录入时没有可选的词条"_s, u"不用字典"_s,
                                InField(table, field, [](Design::Field& mended) { mended.dictionary = QString(); })});
}

// Windows find a field by its caption.
void CheckCaptions(Checked& checked, const Design::Table& table) {
  QHash<QString, const Design::Field*> owners;
  for (const Design::Field& field : table.fields) {
    const QString name = field.name;
    const auto useName = InField(table, field, [name](Design::Field& mended) { mended.caption = name; });
    if (field.caption.isEmpty()) {
      checked.findings.push_back({Weight::Error, u"caption-empty"_s, Where(table, field), u"没有标题"_s,
                                  u"查询和录入窗口中认不出这个字段"_s, u"用字段名作标题"_s, useName});
    } else if (const Design::Field* owner = owners.value(Folded(field.caption))) {
      const auto addName = InField(table, field, [name](Design::Field& mended) { mended.caption += name; });
      checked.findings.push_back({Weight::Error, u"caption-twice"_s, Where(table, field),
                                  u"标题与字段“%1”相同"_s.arg(owner->name), u"按标题查询时可能查到另一个字段"_s,
                                  u"在标题后加上字段名"_s, addName});
    } else {
      owners.insert(Folded(field.caption), &field);
    }
  }
}

void CheckTable(Checked& checked, const Design::Table& table) {
  const QString where = Shape<Design::Table>::TitleOf(table);
  if (const QString complaint = NameComplaint(table.name); !complaint.isEmpty())
    checked.findings.push_back(
        {Weight::Error, u"table-name"_s, where, complaint, u"打开这个表时出错"_s, u"请另建一个表"_s, {}});
  if (table.caption.isEmpty())
    checked.findings.push_back({Weight::Warning, u"table-nameless"_s, where, u"表没有标题"_s,
                                u"类别树和窗口中没有它的名称"_s, u"用表名作标题"_s,
                                InTable(table, [](Design::Table& found) { found.caption = found.name; })});
  if (table.fields.empty())
    checked.findings.push_back({Weight::Error,
                                u"table-fieldless"_s,
                                where,
                                u"表没有字段"_s,
                                u"录入和查询窗口是空的"_s,
                                u"请增加字段，或从设计中去掉这个表"_s,
                                {}});
}

}  // namespace

void CheckFields(Checked& checked) {
  for (const Design::Table& table : checked.design.tables) {
    CheckTable(checked, table);
    for (const Design::Field& field : table.fields) CheckField(checked, table, field);
    CheckCaptions(checked, table);
  }
}

}  // namespace folvane::design
