#include "query/ConditionCheck.h"

#include <algorithm>

#include "data/DatabaseSession.h"
#include "data/Schema.h"
#include "data/dialect/TextValues.h"
#include "query/Comparison.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

bool IsWhole(int type) {
  return type == AdoType::SmallInt || type == AdoType::Integer || type == AdoType::BigInt || type == AdoType::TinyInt ||
         type == AdoType::UnsignedTinyInt;
}

bool IsCaptionOf(const QueryConditionRow& condition, const std::vector<DictionaryFieldRow>& design) {
  return std::any_of(design.begin(), design.end(), [&](const DictionaryFieldRow& field) {
    return field.chnFieldName == condition.chnCompField &&
           field.fieldName.compare(condition.compField, Qt::CaseInsensitive) == 0;
  });
}

QString CaptionOf(const QString& name, const std::vector<DictionaryFieldRow>& design) {
  const auto field = std::find_if(design.begin(), design.end(), [&](const DictionaryFieldRow& each) {
    return each.fieldName.compare(name, Qt::CaseInsensitive) == 0;
  });
  return field == design.end() ? name : field->chnFieldName;
}

// A column may have been added since the table was read.
const TableInfo* TableWith(const QString& column, const QString& table, Connection& connection) {
  const TableInfo* known = DatabaseSession::Of(connection).Table(table);
  if (!known || known->IndexOf(column) >= 0) return known;
  DatabaseSession::Of(connection).RefreshSchema();
  return DatabaseSession::Of(connection).Table(table);
}

}  // namespace

QString FlawOfValue(const QString& value, int adoType) {
  switch (GroupOfType(adoType)) {
    case TypeGroup::Number:
      if (!sql::FloatFromText(value)) return u"“%1”不是数字"_s.arg(value);
      if (IsWhole(adoType) && !sql::IntegerFromText(value)) return u"“%1”不是整数"_s.arg(value);
      return {};
    case TypeGroup::Date:
      return sql::DateFromText(value) ? QString() : u"“%1”不是日期"_s.arg(value);
    default:
      return {};
  }
}

QString FlawOf(const QueryConditionRow& condition, const std::vector<DictionaryFieldRow>& design,
               Connection& connection) {
  const QString missing = u"表中没有字段“%1”"_s.arg(condition.chnCompField);
  if (condition.compField.isEmpty()) return missing;
  const TableInfo* table = TableWith(condition.compField, condition.tableName, connection);
  const int column = table ? table->IndexOf(condition.compField) : -1;
  if (table && column < 0) return missing;
  if (!IsCaptionOf(condition, design))
    return missing + u"，实际比较的是“%1”"_s.arg(CaptionOf(condition.compField, design));
  if (column < 0 || IsPatternOperator(condition.compRelation)) return {};
  return FlawOfValue(condition.compValue, table->columns[size_t(column)].type);
}

}  // namespace folvane
