#include "host/demo/ClerkTraces.h"

#include <algorithm>
#include <stdexcept>

#include "catalogue/RowWriter.h"

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

// A proofing rule names its field with the control of it.
struct Rule {
  QString table, field, relation, value, format;
};

template <typename Item>
const Item& Named(const std::vector<Item>& items, QString Item::*name, const QString& wanted) {
  const auto found = std::find_if(items.begin(), items.end(), [&](const Item& item) { return item.*name == wanted; });
  if (found == items.end()) throw std::logic_error("the demo's design lacks " + wanted.toStdString());
  return *found;
}

void WriteRules(Connection& connection, const Design& design) {
  RowWriter rows(connection, u"SaveCollect"_s,
                 {u"TableName"_s, u"CenterControlIndex"_s, u"FieldName"_s, u"ChnFieldName"_s, u"Relation"_s,
                  u"CollectValue"_s, u"CustomFormat"_s, u"ControlIndex"_s, u"ControlType"_s});
  QHash<QString, qlonglong> ofTable;
  for (const Rule& rule : {Rule{u"Lwdj"_s, u"RegID"_s, u"大于"_s, u"0"_s, u""_s},
                           {u"Lwdj"_s, u"DocNo"_s, u"不能是"_s, u"重复值"_s, u""_s},
                           {u"Lwdj"_s, u"Quantity"_s, u"小于等于"_s, u"999"_s, u""_s},
                           {u"Lwdj"_s, u"FileNo"_s, u"包含"_s, u"青收"_s, u""_s},
                           {u"Fwdj"_s, u"DocNo"_s, u"不能是"_s, u"重复值"_s, u""_s},
                           {u"Fwdj"_s, u"Phone"_s, u"只能是"_s, u"自定义格式"_s, u"0###-########"_s},
                           {u"Fwdj"_s, u"Signer"_s, u"不能是"_s, u"数字"_s, u""_s},
                           {u"Wsda_Aj"_s, u"FileYear"_s, u"只能是"_s, u"4"_s, u""_s},
                           {u"Wsda_Aj"_s, u"FolderNo"_s, u"不能是"_s, u"重复值"_s, u""_s},
                           {u"Gdwj"_s, u"FileYear"_s, u"大于等于"_s, u"1949"_s, u""_s}}) {
    const Design::Table& table = Named(design.tables, &Design::Table::name, rule.table);
    const Design::Control& control = Named(table.controls, &Design::Control::field, rule.field);
    rows.Add({rule.table, ofTable[rule.table]++, rule.field,
              Named(table.fields, &Design::Field::name, rule.field).caption, rule.relation, rule.value, rule.format,
              qlonglong(control.index), qlonglong(control.type)});
  }
  rows.Finish();
}

void WriteQueries(Connection& connection) {
  RowWriter rows(connection, u"FindCirSave"_s,
                 {u"TableName"_s, u"OrderNo"_s, u"CompField"_s, u"ChnCompField"_s, u"CompRelation"_s,
                  u"ChnCompRelation"_s, u"CompValue"_s, u"AndOrRelation"_s, u"ChnAndOrRelation"_s});
  rows.Add({u"Lwdj"_s, 1LL, u"Amaintitle"_s, u"题名"_s, u"Like"_s, u"包含"_s, u"安全生产"_s, u""_s, u""_s});
  rows.Add({u"Lwdj"_s, 2LL, u"SecurityClass"_s, u"密级"_s, u"="_s, u"等于"_s, u"秘密"_s, u"or"_s, u"或"_s});
  rows.Add({u"Lwdj"_s, 3LL, u"Urgency"_s, u"缓急"_s, u"<>"_s, u"不等于"_s, u"特急"_s, u"and"_s, u"与"_s});
  rows.Add({u"Fwdj"_s, 1LL, u"DocNo"_s, u"发文字号"_s, u"Like"_s, u"包含"_s, u"青政函"_s, u""_s, u""_s});
  rows.Add({u"Fwdj"_s, 2LL, u"Quantity"_s, u"份数"_s, u">"_s, u"大于"_s, u"30"_s, u"and"_s, u"与"_s});
  rows.Finish();
}

void WriteOrders(Connection& connection) {
  RowWriter rows(connection, u"FindCirOrder"_s, {u"TableName"_s, u"OrderStr"_s, u"UserID"_s});
  rows.Add({u"Lwdj"_s, u"ArchiveId Desc"_s, 1LL});
  rows.Add({u"Fwdj"_s, u"CreatedDate Desc,RegID Desc"_s, 1LL});
  rows.Add({u"Wsda_Aj"_s, u"FolderNo Asc"_s, 1LL});
  rows.Add({u"Wsda_Jn"_s, u"FolderNo Asc,ItemNo Asc"_s, 1LL});
  rows.Add({u"Lwdj"_s, u"CreatedDate Desc,RegID Asc"_s, 2LL});
  rows.Finish();
}

void WriteSearched(Connection& connection) {
  const auto write = [&](const QString& table, const QString& field, const QString& searched) {
    connection.Execute(u"Update SimSearch Set FieldValue = '%1' Where TableName = '%2' And DataField = '%3'"_s.arg(
        searched, table, field));
  };
  write(u"Lwdj"_s, u"Amaintitle"_s, u"@防汛@档案@安全生产@"_s);
  write(u"Lwdj"_s, u"DocNo"_s, u"@东政发@青财发@"_s);
  write(u"Lwdj"_s, u"CreatedDate"_s, u"@-09-@"_s);
  write(u"Lwdj"_s, u"ResponsibleBy"_s, u"@青岚市财政局@"_s);
  write(u"Fwdj"_s, u"Amaintitle"_s, u"@民生实事@批复@"_s);
  write(u"Fwdj"_s, u"DocNo"_s, u"@青政发@青政办函@"_s);
}

}  // namespace

void WriteClerkTraces(Connection& connection, const Design& design) {
  WriteRules(connection, design);
  WriteQueries(connection);
  WriteOrders(connection);
  WriteSearched(connection);
}

}  // namespace folvane::demo
