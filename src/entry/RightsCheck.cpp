#include "data/Recordset.h"
#include "entry/FieldChecks.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The condition with what was entered in place of the columns. Values are not quoted for the statement: one with an
// apostrophe cannot be judged.
QString WithValues(const EntryRights& rights, Recordset& limited,
                   const std::function<QString(const QString&)>& valueOfField) {
  QString condition = rights.condition;
  for (; !limited.EOF_(); limited.MoveNext()) {
    const QString field = limited[u"FieldName"_s].Text();
    condition.replace(rights.table + u'.' + field, u'\'' + valueOfField(field) + u'\'');
  }
  return condition;
}

}  // namespace

std::optional<CheckFailure> CheckPopedom(const EntryRights& rights,
                                         const std::function<QString(const QString&)>& valueOfField) {
  Recordset records;
  records.Open(u"Select Distinct(FieldName) from UserPopedomScopeDetails Where PopTableName='"_s + rights.table +
                   u"' And UserId = '"_s + Shared().UserId + u"'"_s,
               SharedConnection());
  if (records.EOF_()) return {};
  const QString condition = WithValues(rights, records, valueOfField);
  records.Close();
  records.Open(u"If Not ("_s + condition +
                   u") Select 'False' As Result,Count(1)as T from DynamicWindows "
                   "Else Select 'True' As Result,Count(1)as T From DynamicWindows"_s,
               SharedConnection());
  if (records[u"Result"_s].Text() == u"True") return {};
  return CheckFailure{kNotSaved + u"您输入的数据与您的权限不符！\r\n"_s + rights.words, 0, {}};
}

}  // namespace folvane
