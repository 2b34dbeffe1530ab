#include "query/CompoundQuery.h"

#include <algorithm>

#include "base/IgnoreErrors.h"
#include "catalogue/DictionaryRows.h"
#include "catalogue/ReadRows.h"
#include "data/OneTransaction.h"
#include "query/Comparison.h"
#include "query/ConditionCheck.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

template <class Row>
std::vector<Row> Read(const QString& statement) {
  return ReadRows<Row>(SharedConnection(), statement);
}

void Run(const QString& statement) { SharedConnection()->Execute(statement); }

QString OfTable(const QString& table) { return u" Where TableName='"_s + table + u"'"_s; }

// Looking for a flaw is no reason for a command to fail.
QString FoundFlaw(const QueryConditionRow& condition, const std::vector<DictionaryFieldRow>& design) {
  QString flaw;
  IgnoreErrors([&] { flaw = FlawOf(condition, design, *SharedConnection()); });
  return flaw;
}

bool ReadsAs(const QueryConditionRow& saved, const ShownCondition& shown) {
  return saved.chnCompField.trimmed() == shown.field.trimmed() &&
         saved.chnCompRelation.trimmed() == shown.relation.trimmed() &&
         saved.compValue.trimmed() == shown.value.trimmed();
}

// The conditions as they read, one behind the other.
QString WordsOf(const std::vector<QueryConditionRow>& conditions) {
  QStringList words;
  for (const QueryConditionRow& each : conditions) {
    if (!words.isEmpty()) words << each.chnAndOrRelation;
    words << each.chnCompField << each.chnCompRelation << each.compValue;
  }
  return words.join(u' ');
}

void KeepUnlessEmpty(QString& kept, const QString& mapped) {
  if (!mapped.isEmpty()) kept = mapped;
}

}  // namespace

CompoundQuery::CompoundQuery(const QString& table) : table_(table) {
  fields_ = Read<DictionaryFieldRow>(u"Select * From DynamicWindows"_s + OfTable(table));
  ReadSaved();
}

void CompoundQuery::ReadSaved() {
  const auto saved = Read<QueryConditionRow>(u"Select * From FindCirSave"_s + OfTable(table_) + u" Order By OrderNo"_s);
  conditions_.clear();
  for (const QueryConditionRow& row : saved) {
    conditions_.push_back({row.chnAndOrRelation, row.chnCompField, row.chnCompRelation, row.compValue,
                           QString::number(row.orderNo), FoundFlaw(row, fields_), row.orderNo});
  }
}

QStringList CompoundQuery::Fields() const {
  QStringList captions;
  for (const DictionaryFieldRow& field : fields_) captions << field.chnFieldName;
  return captions;
}

QStringList CompoundQuery::ValuesFor(const QString& caption) {
  QStringList values;
  if (caption.isEmpty()) return values;
  for (const auto& row :
       Read<DictionaryEntryRow>(u"select DISTINCT name from AssistantDicKey where DicID=(select Dicid from "
                                "AssistantDictionary where name='"_s +
                                EscapeSql(caption.trimmed()) + u"')"_s)) {
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
  const QueryConditionRow row = Map(typed);
  ShownCondition added{row.chnAndOrRelation, typed.field, typed.relation, typed.value, {}};
  // One more than what is saved; the next opening shows the right number.
  added.position = QString::number(row.orderNo + 1);
  try {
    Save(row);
    added.number = row.orderNo;
    added.flaw = FoundFlaw(row, fields_);
  } catch (const std::exception& error) {
    const bool hasQuote = row.compValue.contains(u'\'');
    added.flaw = u"未能保存："_s + (hasQuote ? u"其中有单引号"_s : ErrorText(error));
  }
  conditions_.push_back(added);
}

QueryConditionRow CompoundQuery::Map(const ShownCondition& condition) {
  const std::vector<DictionaryFieldRow> fields =
      Read<DictionaryFieldRow>(u"Select FieldName from DynamicWindows Where ChnFieldName='"_s +
                               EscapeSql(condition.field) + u"' and TableName='"_s + table_ + u"'"_s);
  if (!fields.empty()) field_ = fields.front().fieldName;
  KeepUnlessEmpty(comparison_, ComparisonOperator(condition.relation));
  KeepUnlessEmpty(connector_, Connector(condition.connector));
  QueryConditionRow row;
  row.orderNo = int(conditions_.size()) + 1;
  row.tableName = table_;
  row.compField = field_;
  row.chnCompField = condition.field;
  row.compRelation = comparison_;
  row.chnCompRelation = condition.relation;
  row.compValue = condition.value.trimmed();
  if (!conditions_.empty()) {
    row.andOrRelation = condition.connector.isEmpty() ? QString() : connector_;
    row.chnAndOrRelation = condition.connector;
  }
  return row;
}

void CompoundQuery::Save(const QueryConditionRow& row) const {
  const QStringList values{QString::number(row.orderNo),
                           row.tableName,
                           row.compField,
                           row.compRelation,
                           row.compValue,
                           row.andOrRelation,
                           row.chnAndOrRelation,
                           EscapeSql(row.chnCompField),
                           row.chnCompRelation};
  Run(u"Insert Into FindCirSave(OrderNo,TableName,CompField,CompRelation,CompValue,AndOrRelation,ChnAndOrRelation,"
      "ChnCompField,ChnCompRelation) Values('"_s +
      values.join(u"','"_s) + u"')"_s);
}

void CompoundQuery::Remove(int position) {
  try {
    InOneTransaction(*SharedConnection(), [&] { RemoveSaved(position); });
  } catch (const std::exception&) {
    IgnoreErrors([this] { ReadSaved(); });
    throw;
  }
  // A row that is saved under another number than its position is still in the table, and another one may be gone.
  if (!TakeOut(position)) ReadSaved();
}

void CompoundQuery::RemoveSaved(int position) const {
  const QString number = u"'"_s + QString::number(position) + u"'"_s;
  Run(u"Delete From FindCirSave Where OrderNo="_s + number);
  Run(u"Update FindCirSave Set OrderNo=OrderNo-1 Where OrderNo>"_s + number);
  if (position != 1 || conditions_.size() < 2) return;
  Run(u"Update FindCirSave Set AndOrRelation='' Where OrderNo='1'"_s);
  Run(u"Update FindCirsave set ChnAndOrRelation='' Where OrderNo='1'"_s);
}

// Follows in the list what was done in the table. Answers whether the row taken out is the one that went there.
bool CompoundQuery::TakeOut(int position) {
  const ShownCondition& removed = conditions_[size_t(position) - 1];
  for (const ShownCondition& each : conditions_) {
    const bool isSelected = &each == &removed;
    if (isSelected ? each.number != 0 && each.number != position : each.number == position) return false;
  }
  conditions_.erase(conditions_.begin() + (position - 1));
  for (ShownCondition& each : conditions_) {
    if (each.number > position) --each.number;
  }
  if (!conditions_.empty()) conditions_.front().connector.clear();
  return true;
}

ConditionText CompoundQuery::Text(const QString& restriction) {
  ConditionText text;
  IgnoreErrors([&] {
    const auto saved =
        Read<QueryConditionRow>(u"Select * from FindCirSave"_s + OfTable(table_) + u" Order By OrderNo"_s);
    text = TextOf(table_, saved);
    inForce_ = WordsOf(saved);
    MarkGone(saved);
  });
  text.sql = Restricted(text.sql, restriction);
  return text;
}

void CompoundQuery::MarkGone(std::vector<QueryConditionRow> saved) {
  for (ShownCondition& shown : conditions_) {
    if (shown.number == 0) continue;
    const auto row = std::find_if(saved.begin(), saved.end(), [&](const auto& each) { return ReadsAs(each, shown); });
    if (row != saved.end()) {
      saved.erase(row);
    } else {
      shown.number = 0;
      shown.flaw = u"已被其他用户删除"_s;
    }
  }
}

QStringList CompoundQuery::Flawed() const {
  QStringList flawed;
  for (const ShownCondition& each : conditions_) {
    if (!each.flaw.isEmpty()) flawed << LeftOutText({each.field, each.relation, each.value}, each.flaw);
  }
  return flawed;
}

void CompoundQuery::Forget() const { Run(u"Delete From FindCirSave"_s + OfTable(table_)); }

}  // namespace folvane
