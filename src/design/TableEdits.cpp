#include "design/TableEdits.h"

#include <algorithm>

#include <folvane/DataError.h>

#include "base/CodePage.h"
#include "design/ConditionNames.h"
#include "design/FormArrangement.h"
#include "design/Names.h"
#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

// Kinds of input of the simple query.
constexpr int kTextInput = 1, kNumberRange = 2, kDateRange = 3, kEntryChoice = 4;
// Twips of list columns: values are seldom as long as they may be, captions are shown whole.
constexpr int kValueByte = 45, kCaptionByte = 110, kColumnMargin = 200, kNarrowest = 700, kWidest = 5700;

void Replace(QString& name, const QString& from, const QString& to) {
  if (IsSame(name, from)) name = to;
}

template <class Part>
void EraseOf(std::vector<Part>& parts, const QString& field) {
  std::erase_if(parts, [&](const Part& part) { return IsSame(part.field, field); });
}

// Each end of the transfers that names a field of that table.
void ForLinkEnds(Design& design, const QString& table,
                 const std::function<void(Design::TransferMap&, QString Design::TransferLink::*)>& visit) {
  for (Design::TransferMap& map : design.transfers) {
    if (IsSame(map.source, table)) visit(map, &Design::TransferLink::source);
    if (IsSame(map.destination, table)) visit(map, &Design::TransferLink::destination);
  }
}

void ForRights(Design& design, const QString& table, const std::function<void(Design::Rights&)>& visit) {
  for (Design::User& user : design.users)
    for (Design::Rights& rights : user.rights)
      if (IsSame(rights.table, table)) visit(rights);
}

void RequireName(const QString& name) {
  if (const QString complaint = NameComplaint(name); !complaint.isEmpty())
    throw DataError(DataErrorKind::Usage, complaint + u'。');
}

int UsualWidth(const Design::Field& field) {
  const int caption = ByteLength(field.caption) * kCaptionByte + kColumnMargin;
  return std::clamp(std::max(field.length * kValueByte, caption), kNarrowest, kWidest);
}

// A column whose width nobody has chosen follows its field.
void FollowWidth(Design::Table& table, const Design::Field& before, const Design::Field& now) {
  for (Design::ListColumn& column : table.columns)
    if (IsSame(column.field, now.name) && column.width == UsualWidth(before)) column.width = UsualWidth(now);
}

int FreeSearchIndex(const Design::Table& table, int type) {
  int index = 1;
  for (const Design::SearchField& other : table.searchFields)
    if (other.type == type) index = std::max(index, other.index + 1);
  return index;
}

}  // namespace

const QStringList& FieldTypeNames() {
  static const QStringList names{u"文本型"_s, u"数值型"_s,     u"日期型"_s,     u"时间型"_s,   u"档案日期型"_s,
                                 u"数字型"_s, u"文件编号型"_s, u"机关代字型"_s, u"自动编号"_s, u"档案日期"_s};
  return names;
}

QString NameFor(const QString& caption, const std::function<bool(const QString& name)>& isTaken) {
  constexpr int kLongestWord = 20, kLongestCaption = 100;
  QString base;
  for (const QChar c : caption.left(kLongestCaption))
    if (NameComplaint(u"甲"_s + c).isEmpty() && (!base.isEmpty() || !c.isDigit())) base += c;
  if (base.isEmpty()) base = u"字段"_s;
  // A short one that cannot be a name is a word of the databases.
  if (base.size() < kLongestWord && !NameComplaint(base).isEmpty()) base.prepend(u'F');
  for (int number = 1;; ++number) {
    QString stem = base;
    const QString end = number == 1 ? QString() : QString::number(number);
    while (stem.size() > 1 && !NameComplaint(stem + end).isEmpty()) stem.chop(1);
    if (!isTaken(stem + end)) return stem + end;
  }
}

void AddToList(Design::Table& table, const Design::Field& field) {
  int order = 0;
  for (const Design::ListColumn& column : table.columns) order = std::max(order, column.order);
  table.columns.push_back({field.name, field.caption, UsualWidth(field), order + 1});
}

void SetSearchType(const Design::Table& table, Design::SearchField& field, int type) {
  if (field.type == type) return;
  field.index = FreeSearchIndex(table, type);
  field.type = type;
}

int SearchTypeFor(const Design::Field& field) {
  if (field.type.startsWith(u"日期") || field.type.startsWith(u"时间")) return kDateRange;
  if (field.type == u"数值型" || field.type == u"数字型" || field.type == u"自动编号") return kNumberRange;
  return field.dictionary.isEmpty() ? kTextInput : kEntryChoice;
}

void AddToSearch(Design::Table& table, const Design::Field& field) {
  const int type = SearchTypeFor(field);
  int order = 0;
  for (const Design::SearchField& other : table.searchFields) order = std::max(order, other.order);
  table.searchFields.push_back({field.name, field.caption, type, FreeSearchIndex(table, type), order + 1});
}

void AddField(Design::Table& table, const Design::Field& field) {
  table.fields.push_back(field);
  AddToForm(table, field);
  AddToList(table, field);
}

void ChangeField(Design::Table& table, const QString& name, const std::function<void(Design::Field&)>& change) {
  Design::Field* field = FindNamed(table.fields, name);
  if (!field) return;
  const Design::Field before = *field;
  change(*field);
  FollowWidth(table, before, *field);
  const int usual = ControlTypeFor(before), fits = ControlTypeFor(*field);
  for (std::size_t at = 0; at < table.controls.size(); ++at) {
    Design::Control& control = table.controls[at];
    if (IsSame(control.field, name) && control.type == usual && usual != fits) SetControlType(table, control, fits);
  }
  const int usualInput = SearchTypeFor(before), input = SearchTypeFor(*field);
  for (Design::SearchField& search : table.searchFields)
    if (IsSame(search.field, name) && search.type == usualInput && usualInput != input)
      SetSearchType(table, search, input);
}

void RenameField(Design& design, const QString& table, const QString& from, const QString& to) {
  RequireName(to);
  Design::Table* found = FindNamed(design.tables, table);
  Design::Field* field = found ? FindNamed(found->fields, from) : nullptr;
  if (!field) return;
  const Design::Field* other = FindNamed(found->fields, to);
  if (other && other != field) throw DataError(DataErrorKind::Usage, u"表中已有字段“%1”。"_s.arg(to));
  field->name = to;
  for (auto& part : found->controls) Replace(part.field, from, to);
  for (auto& part : found->columns) Replace(part.field, from, to);
  for (auto& part : found->searchFields) Replace(part.field, from, to);
  for (auto& part : found->numberParts) Replace(part.field, from, to);
  for (QString* name : {&found->numberField, &found->folderNumberField, &found->relationField})
    Replace(*name, from, to);
  ForLinkEnds(design, table, [&](Design::TransferMap& map, auto end) {
    for (Design::TransferLink& link : map.links) Replace(link.*end, from, to);
  });
  ForRights(design, table, [&](Design::Rights& rights) {
    rights.condition = WithFieldRenamed(rights.condition, table, from, to);
    for (QString& name : rights.conditionFields) Replace(name, from, to);
  });
}

void CaptionField(Design::Table& table, const QString& name, const QString& caption) {
  Design::Field* field = FindNamed(table.fields, name);
  if (!field) return;
  const Design::Field old = *field;
  const QString before = old.caption;
  field->caption = caption;
  FollowWidth(table, old, *field);
  const auto follow = [&](auto& parts) {
    for (auto& part : parts)
      if (IsSame(part.field, name) && part.caption == before) part.caption = caption;
  };
  follow(table.columns);
  follow(table.searchFields);
  follow(table.numberParts);
}

void RemoveField(Design& design, const QString& table, const QString& name) {
  Design::Table* found = FindNamed(design.tables, table);
  if (!found) return;
  std::erase_if(found->fields, [&](const Design::Field& field) { return IsSame(field.name, name); });
  EraseOf(found->controls, name);
  EraseOf(found->columns, name);
  EraseOf(found->searchFields, name);
  EraseOf(found->numberParts, name);
  for (QString* other : {&found->numberField, &found->folderNumberField, &found->relationField})
    Replace(*other, name, {});
  ForLinkEnds(design, table, [&](Design::TransferMap& map, auto end) {
    std::erase_if(map.links, [&](const Design::TransferLink& link) { return IsSame(link.*end, name); });
  });
}

Design::Table NewTable(const QString& name, const QString& caption, int classId, const Design::Table* like) {
  Design::Table table;
  if (like) table = *like;
  table.name = name;
  table.caption = caption;
  table.classId = classId;
  if (like) return table;
  table.kind = u"F"_s;
  for (const Design::Field& field : {Design::Field{u"RegID"_s, u"登记号"_s, u"数值型"_s, 8, {}},
                                     Design::Field{u"CreatedDate"_s, u"登记日期"_s, u"文本型"_s, 10, {}, true},
                                     Design::Field{u"Amaintitle"_s, u"题名"_s, u"文本型"_s, 160, {}, true}})
    AddField(table, field);
  AddToSearch(table, table.fields.back());
  return table;
}

void RenameTable(Design& design, const QString& from, const QString& to) {
  RequireName(to);
  Design::Table* table = FindNamed(design.tables, from);
  const Design::Table* other = FindNamed(design.tables, to);
  if (!table) return;
  if (other && other != table) throw DataError(DataErrorKind::Usage, u"已有表“%1”。"_s.arg(to));
  table->name = to;
  for (Design::Table& each : design.tables) Replace(each.parent, from, to);
  for (Design::TransferMap& map : design.transfers) {
    Replace(map.source, from, to);
    Replace(map.destination, from, to);
  }
  for (Design::Report& report : design.reports) Replace(report.group, from, to);
  ForRights(design, from, [&](Design::Rights& rights) {
    rights.condition = WithTableRenamed(rights.condition, from, to);
    rights.table = to;
  });
}

void RemoveTable(Design& design, const QString& name) {
  std::erase_if(design.tables, [&](const Design::Table& table) { return IsSame(table.name, name); });
  for (Design::Table& table : design.tables)
    if (IsSame(table.parent, name)) table.parent = table.relationField = QString();
  std::erase_if(design.transfers, [&](const Design::TransferMap& map) {
    return IsSame(map.source, name) || IsSame(map.destination, name);
  });
  std::erase_if(design.reports, [&](const Design::Report& report) { return IsSame(report.group, name); });
  for (Design::User& user : design.users)
    std::erase_if(user.rights, [&](const Design::Rights& rights) { return IsSame(rights.table, name); });
}

int FreeClassId(const std::vector<Design::Class>& classes) {
  int id = 2;
  while (FindByKey(classes, QString::number(id))) ++id;
  return id;
}

QString FreeReportId(const std::vector<Design::Report>& reports) {
  qint64 highest = 1000;
  for (const Design::Report& report : reports) highest = std::max(highest, qint64(report.id.toInt()));
  return QString::number(highest + 1);
}

int AddClass(Design& design, const QString& name, int parent) {
  const int id = FreeClassId(design.classes);
  design.classes.push_back({id, name, parent});
  return id;
}

void RemoveClass(Design& design, int id) {
  const Design::Class* gone = FindByKey(design.classes, QString::number(id));
  if (!gone) return;
  const int above = gone->parent;
  if (above == 1 && std::any_of(design.tables.begin(), design.tables.end(),
                                [&](const Design::Table& table) { return table.classId == id; }))
    throw DataError(DataErrorKind::Usage, u"类别下还有表，请先把它们移到别的类别。"_s);
  std::erase_if(design.classes, [&](const Design::Class& item) { return item.id == id; });
  for (Design::Class& item : design.classes)
    if (item.parent == id) item.parent = above;
  for (Design::Table& table : design.tables)
    if (table.classId == id) table.classId = above;
}

void RenameDictionary(Design& design, const QString& from, const QString& to) {
  if (to.isEmpty()) throw DataError(DataErrorKind::Usage, u"字典没有名称。"_s);
  for (Design::Dictionary& dictionary : design.dictionaries) Replace(dictionary.name, from, to);
  for (Design::Table& table : design.tables)
    for (Design::Field& field : table.fields) Replace(field.dictionary, from, to);
}

int RemoveDictionary(Design& design, const QString& name) {
  std::erase_if(design.dictionaries, [&](const Design::Dictionary& each) { return IsSame(each.name, name); });
  int uses = 0;
  for (Design::Table& table : design.tables) {
    for (const Design::Field& field : std::vector<Design::Field>(table.fields)) {
      if (!IsSame(field.dictionary, name)) continue;
      ChangeField(table, field.name, [](Design::Field& changed) { changed.dictionary.clear(); });
      ++uses;
    }
  }
  return uses;
}

}  // namespace folvane::design
