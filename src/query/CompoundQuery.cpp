#include "query/CompoundQuery.h"

#include "base/IgnoreErrors.h"
#include "catalogue/DictionaryRows.h"
#include "catalogue/FieldRows.h"
#include "catalogue/ReadRows.h"
#include "query/Comparison.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

template <class Row>
std::vector<Row> Read(const QString& statement) {
  return ReadRows<Row>(SharedConnection(), statement);
}

void Run(const QString& statement) { SharedConnection()->Execute(statement); }

void KeepUnlessEmpty(QString& kept, const QString& mapped) {
  if (!mapped.isEmpty()) kept = mapped;
}

}  // namespace

CompoundQuery::CompoundQuery(const QString& table) : table_(table) {
  const QString ofTable = u" Where TableName='"_s + table + u"'"_s;
  for (const auto& row : Read<DictionaryFieldRow>(u"Select * From DynamicWindows"_s + ofTable))
    fields_ << row.chnFieldName;
  for (const auto& row : Read<QueryConditionRow>(u"Select * From FindCirSave"_s + ofTable + u" Order By OrderNo"_s))
    conditions_.push_back(
        {row.chnAndOrRelation, row.chnCompField, row.chnCompRelation, row.compValue, QString::number(row.orderNo)});
}

QStringList CompoundQuery::ValuesFor(const QString& caption) {
  QStringList values;
  if (caption.isEmpty()) return values;
  for (const auto& row :
       Read<DictionaryEntryRow>(u"select DISTINCT name from AssistantDicKey where DicID=(select Dicid from "
                                "AssistantDictionary where name='"_s +
                                caption.trimmed() + u"')"_s)) {
    if (!row.name.trimmed().isEmpty()) values << row.name;
  }
  return values;
}

QString CompoundQuery::Missing(const ShownCondition& typed) const {
  if (!conditions_.empty() && typed.connector.isEmpty()) return u"未选定连接符,请选择!"_s;
  if (typed.field.isEmpty() || typed.relation.isEmpty() || typed.value.isEmpty())
    return u"未选择条件,或条件不完整,请正确选择后再添加!"_s;
  return {};
}

void CompoundQuery::Add(const ShownCondition& typed) {
  Map(typed);
  ShownCondition added = typed;
  if (conditions_.empty()) added.connector.clear();
  // One more than what is saved; the next opening shows the right number.
  added.place = QString::number(conditions_.size() + 2);
  conditions_.push_back(added);
  IgnoreErrors([&] { Save(added); });
}

void CompoundQuery::Map(const ShownCondition& condition) {
  const std::vector<DictionaryFieldRow> fields =
      Read<DictionaryFieldRow>(u"Select FieldName from DynamicWindows Where ChnFieldName='"_s + condition.field +
                               u"' and TableName='"_s + table_ + u"'"_s);
  if (!fields.empty()) field_ = fields.front().fieldName;
  KeepUnlessEmpty(comparison_, ComparisonOperator(condition.relation));
  KeepUnlessEmpty(connector_, Connector(condition.connector));
}

void CompoundQuery::Save(const ShownCondition& condition) const {
  const QStringList values{QString::number(conditions_.size()),
                           table_,
                           field_,
                           comparison_,
                           condition.value.trimmed(),
                           condition.connector.isEmpty() ? QString() : connector_,
                           condition.connector,
                           condition.field,
                           condition.relation};
  Run(u"Insert Into FindCirSave(OrderNo,TableName,CompField,CompRelation,CompValue,AndOrRelation,ChnAndOrRelation,"
      "ChnCompField,ChnCompRelation) Values('"_s +
      values.join(u"','"_s) + u"')"_s);
}

void CompoundQuery::Remove(int place) {
  const QString number = u"'"_s + QString::number(place) + u"'"_s;
  Run(u"Delete From FindCirSave Where OrderNo="_s + number);
  Run(u"Update FindCirSave Set OrderNo=OrderNo-1 Where OrderNo>"_s + number);
  if (place == 1 && conditions_.size() >= 2) {
    Run(u"Update FindCirSave Set AndOrRelation='' Where OrderNo='1'"_s);
    Run(u"Update FindCirsave set ChnAndOrRelation='' Where OrderNo='1'"_s);
  }
  conditions_.erase(conditions_.begin() + (place - 1));
  if (!conditions_.empty()) conditions_.front().connector.clear();
}

ConditionText CompoundQuery::Text(const QString& restriction) const {
  ConditionText text;
  IgnoreErrors([&] {
    text = TextOf(table_, Read<QueryConditionRow>(u"Select * from FindCirSave Where TableName='"_s + table_ +
                                                  u"' Order By OrderNo"_s));
  });
  text.sql = Restricted(text.sql, restriction);
  return text;
}

void CompoundQuery::Forget() const { Run(u"Delete From FindCirSave Where TableName='"_s + table_ + u"'"_s); }

}  // namespace folvane
