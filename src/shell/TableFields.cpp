#include "shell/TableFields.h"

#include <QComboBox>

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "data/Recordset.h"
#include "shell/EventGuard.h"
#include "shell/Lookups.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

bool TableHasField(const QString& table, const QString& field) {
  return IgnoreErrors([&] {
    Recordset records;
    records.Open(u"select fieldname='"_s + field + u"' from DynamicWindows where tablename='"_s + table + u'\'',
                 SharedConnection(), CursorType::Static, LockType::ReadOnly);
  });
}

bool FieldExists(const Recordset& records, const QString& name) {
  return IgnoreErrors([&] { records.Fields().Item(name).Type(); });
}

QString GetChnFieldName(const QString& table, const QString& field) {
  return FirstText(
      u"Select ChnFieldName from DynamicWindows Where TableName='"_s + table + u"' and FieldName='"_s + field + u'\'',
      u"ChnFieldName"_s);
}

QString ErrorTextFor(const QString& table, const std::exception& error) {
  QString text = ErrorText(error);
  const auto* known = dynamic_cast<const DataError*>(&error);
  const bool overValue =
      known && (known->Kind() == DataErrorKind::TooLong || known->Kind() == DataErrorKind::Constraint);
  if (!overValue || known->Column().isEmpty()) return text;
  QString caption;
  IgnoreErrors([&] { caption = GetChnFieldName(table, known->Column()); });
  const qsizetype at = text.indexOf(u'“' + known->Column() + u'”');
  if (!caption.isEmpty() && at >= 0) text.replace(at + 1, known->Column().size(), caption);
  return text;
}

void FillSearchFields(const QString& table, QComboBox& fields, QComboBox& captions, QComboBox& types,
                      QComboBox& values) {
  Recordset records;
  records.Open(
      u"Select DynamicWindows.FieldName,DynamicWindows.ChnFieldName,DynamicWindows.FieldType,"
      "SimSearch.FieldValue From DynamicWindows,SimSearch Where "
      "DynamicWindows.TableName=SimSearch.TableName And "
      "DynamicWindows.FieldName =SimSearch.DataField And DynamicWindows.TableName = '"_s +
          table + u"' Order By SimSearch.OrderNo"_s,
      SharedConnection(), CursorType::Static, LockType::ReadOnly, CursorLocation::Server);
  for (; !records.EOF_(); records.MoveNext()) {
    fields.addItem(records[u"FieldName"_s].Text());
    captions.addItem(records[u"ChnFieldName"_s].Text());
    types.addItem(records[u"FieldType"_s].Text());
    values.addItem(records[u"FieldValue"_s].Text());
  }
}

}  // namespace folvane
