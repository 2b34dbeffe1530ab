#include "archiving/TransferScope.h"

#include <algorithm>

#include "archiving/TransferTables.h"
#include "shell/Lookups.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// Stands for a value while its field's names are looked for: the value may hold such a name itself.
constexpr QChar kValueHere = QChar::ObjectReplacementCharacter;

QString ValueFor(const QString& field, const TransferTables& tables) {
  const auto& numbered = tables.format.fixedFields;
  const auto part =
      std::find_if(numbered.begin(), numbered.end(), [&](const auto& each) { return each.name == field; });
  if (part != numbered.end() && !part->value.isEmpty()) return part->value;
  const auto& map = tables.ArchiveFieldMap;
  const auto mapped = std::find_if(map.begin(), map.end(), [&](const auto& each) { return each.SourceField == field; });
  if (mapped == map.end() || tables.source.EOF_()) return {};
  return FieldAt(tables.source, mapped->sourceIndex, mapped->SourceField).Text();
}

// Values are not quoted for the statement: one with an apostrophe cannot be judged.
void PutValue(QString& condition, const QString& table, const QString& field, const QString& value) {
  condition.replace(table + u'.' + field, kValueHere);
  condition.replace(field, kValueHere);
  condition.replace(kValueHere, UnescapedLiteral(value));
}

}  // namespace

bool CheckUserScope(const TransferTables& tables) {
  const QString user = Shared().UserId, table = tables.order.sourceTable;
  if (user == u"1") return true;
  QString condition = FirstText(
      u"Select PopCondition From UserPopedomScope  where userid='"_s + user + u"' and PopTableName='"_s + table + u'\'',
      u"PopCondition"_s);
  Recordset fields;
  fields.Open(u"Select Distinct(FieldName) from UserPopedomScopeDetails Where PopTableName='"_s + table +
                  u"' And UserId = '"_s + user + u'\'',
              SharedConnection());
  if (fields.EOF_()) return true;
  for (; !fields.EOF_(); fields.MoveNext()) {
    const QString field = fields[u"FieldName"_s].Text();
    PutValue(condition, table, field, ValueFor(field, tables));
  }
  Recordset answer;
  answer.Open(u"If Not ("_s + condition +
                  u") Select 'False' As Result,Count(1)as T from DynamicWindows "
                  "Else Select 'True' As Result,Count(1)as T From DynamicWindows"_s,
              SharedConnection());
  return answer[u"Result"_s].Text() == u"True";
}

}  // namespace folvane
