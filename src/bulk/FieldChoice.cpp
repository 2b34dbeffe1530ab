#include "bulk/FieldChoice.h"

#include <folvane/DataError.h>

#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"
#include "shell/TableFields.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

QStringList FirstColumn(const QString& statement) {
  Recordset records;
  records.Open(statement, SharedConnection(), CursorType::Static, LockType::ReadOnly);
  QStringList texts;
  const Field first = records.Fields().Item(0);
  for (; !records.EOF_(); records.MoveNext()) {
    if (!first.IsNull()) texts << first.Text();
  }
  return texts;
}

QString FieldFrom(const QString& statement, const QString& table, const QString& caption) {
  const QStringList fields = FirstColumn(statement);
  if (fields.isEmpty())
    throw DataError(DataErrorKind::Usage, u"表“%1”中没有名为“%2”的字段。"_s.arg(table, caption), statement);
  return fields.front();
}

QStringList ReplaceableCaptions(const QString& table, const QString& userId) {
  QStringList captions =
      FirstColumn(u"Select ChnFieldName from DynamicWindows Where TableName='"_s + EscapeSql(table) + u"'"_s);
  captions.removeAll(u"档号"_s);
  const QStringList parts =
      FirstColumn(u"Select FieldChn From ArchiveNo_Format Where TableName = '"_s + EscapeSql(table) + u"'"_s);
  for (const QString& part : parts) captions.removeAll(part);
  const QStringList barred = FirstColumn(u"Select FieldName From UserPopedomScopeDetails Where UserId = '"_s +
                                         EscapeSql(userId) + u"' And PopTableName = '"_s + EscapeSql(table) + u"'"_s);
  for (const QString& field : barred) captions.removeAll(GetChnFieldName(table, field));
  return captions;
}

QString FieldOfCaption(const QString& table, const QString& caption) {
  return FieldFrom(u"Select FieldName from DynamicWindows Where TableName='"_s + EscapeSql(table) +
                       u"' and ChnFieldName='"_s + EscapeSql(caption) + u"'"_s,
                   table, caption);
}

QStringList ValuesOfField(const QString& table, const QString& field) {
  return FirstColumn(u"Select Distinct("_s + field + u") From "_s + table);
}

}  // namespace folvane
