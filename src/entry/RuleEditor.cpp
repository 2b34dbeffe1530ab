#include "entry/RuleEditor.h"

#include <algorithm>
#include <functional>

#include "catalogue/FieldRows.h"
#include "catalogue/QueryRows.h"
#include "catalogue/ReadRows.h"
#include "data/OneTransaction.h"
#include "entry/ProofingRule.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

template <class Row>
std::vector<Row> Read(const QString& statement) {
  return ReadRows<Row>(SharedConnection(), statement);
}

}  // namespace

QString RuleEditor::OfTable() const { return u" Where TableName='"_s + table_ + u"'"_s; }

RuleEditor::Lines RuleEditor::ReadRules() const {
  Lines lines;
  for (const auto& row :
       Read<ProofingRuleRow>(u"Select * From SaveCollect"_s + OfTable() + u" And ControlType <> 0 "_s)) {
    if (row.centerControlIndex >= 0 && row.centerControlIndex < kLineCount)
      lines[size_t(row.centerControlIndex)] = {row.chnFieldName, row.relation, row.collectValue};
  }
  return lines;
}

QStringList RuleEditor::FillFieldValue() const {
  QStringList names;
  for (const auto& row : Read<DictionaryFieldRow>(u"Select ChnFieldName from DynamicWindows"_s + OfTable()))
    names << row.chnFieldName;
  return names;
}

QString RuleEditor::ReadFormat(int line) const {
  const auto rows = Read<ProofingRuleRow>(u"Select CustomFormat From SaveCollect"_s + OfTable() +
                                          u" And CenterControlIndex="_s + QString::number(line));
  return rows.empty() ? QString() : rows.front().customFormat;
}

void RuleEditor::WriteFormat(int line, const QString& pattern) {
  if (pattern.isEmpty()) return;
  SharedConnection()->Execute(u"Update SaveCollect Set CustomFormat='"_s + EscapeSql(pattern) + u"'"_s + OfTable() +
                              u" And CenterControlIndex='"_s + QString::number(line) + u"'"_s);
  formats_.at(size_t(line)) = pattern;
}

bool RuleEditor::SaveTemp(int line, const RuleLine& said) {
  if (said.field.isEmpty() || said.relation.isEmpty()) return false;
  GetIndexAndType(said);
  SaveToUpdate(line, said);
  return true;
}

void RuleEditor::GetIndexAndType(const RuleLine& said) {
  const auto fields = Read<DictionaryFieldRow>(u"Select FieldName from DynamicWindows"_s + OfTable() +
                                               u" And ChnFieldName='"_s + EscapeSql(said.field) + u"'"_s);
  fieldName_ = fields.empty() ? QString() : fields.front().fieldName;
  const auto controls =
      Read<EntryControlRow>(u"Select Controlindex,ControlType From SaveControls Where DataSource='"_s + table_ +
                            u"' And DataField='"_s + fieldName_ + u"' And ControlType <> '3'"_s);
  control_ = controls.empty() ? ControlId() : ControlId{controls.front().controlType, controls.front().controlIndex};
}

void RuleEditor::SaveToUpdate(int line, const RuleLine& said) {
  const bool isThere = !Read<ProofingRuleRow>(u"Select CenterControlIndex From SaveCollect"_s + OfTable() +
                                              u" And CenterControlIndex="_s + QString::number(line))
                            .empty();
  if (!isThere) {
    Note(line, InsertStatement(line, said));
  } else if (!said.value.isEmpty()) {
    Note(line, UpdateStatement(line, said));
  }
}

void RuleEditor::Note(int line, const QString& statement) {
  SqlList_.at(size_t(line)) = statement;
  notedFor_.at(size_t(line)) = table_;
}

// The rule keeps the control that it was made with.
QString RuleEditor::UpdateStatement(int line, const RuleLine& said) const {
  return u"Update SaveCollect Set FieldName='"_s + fieldName_ + u"',ChnFieldName='"_s + EscapeSql(said.field) +
         u"',Relation='"_s + EscapeSql(said.relation) + u"',CollectValue='"_s + EscapeSql(said.value) + u"'"_s +
         OfTable() + u" And CenterControlIndex="_s + QString::number(line);
}

QString RuleEditor::InsertStatement(int line, const RuleLine& said) const {
  QStringList values{table_,
                     QString::number(line),
                     fieldName_,
                     QString::number(control_.index),
                     QString::number(control_.type),
                     EscapeSql(said.field),
                     EscapeSql(said.relation),
                     EscapeSql(said.value)};
  QString columns =
      u"TableName,CenterControlIndex,FieldName,ControlIndex,ControlType,ChnFieldName,Relation,CollectValue"_s;
  if (said.value == kCustomFormat) {
    columns += u",CustomFormat"_s;
    values << EscapeSql(formats_.at(size_t(line)));
  }
  return u"Insert into SaveCollect("_s + columns + u") Values('"_s + values.join(u"','"_s) + u"')"_s;
}

void RuleEditor::Commit() {
  if (std::all_of(SqlList_.begin(), SqlList_.end(), std::mem_fn(&QString::isEmpty))) return;
  InOneTransaction(*SharedConnection(), [this] {
    for (const QString& statement : SqlList_) {
      if (!statement.isEmpty()) SharedConnection()->Execute(statement);
    }
  });
  SqlList_ = {};
}

void RuleEditor::DeleteAll() {
  SharedConnection()->Execute(u"Delete From SaveCollect"_s + OfTable());
  for (size_t line = 0; line < SqlList_.size(); ++line) {
    if (notedFor_[line] == table_) SqlList_[line].clear();
  }
}

std::vector<RuleTable> ReadRuleTables() {
  std::vector<RuleTable> tables;
  for (const auto& row : Read<DictionaryFieldRow>(
           u"Select TableName,ChnTableName,ClassName from DynamicWindows Group By ChnTableName,TableName,ClassName"_s))
    tables.push_back({row.chnTableName, row.tableName, row.className});
  return tables;
}

}  // namespace folvane
