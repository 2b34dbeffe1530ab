#include "shell/CommonRoutines.h"

#include <QComboBox>

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "shell/Beep.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr char16_t kBackspace = 8;

void OpenForReading(Recordset& records, const QString& statement, CursorLocation cursor = CursorLocation::Client) {
  records.Open(statement, SharedConnection(), CursorType::Static, LockType::ReadOnly, cursor);
}

// The text of a column in the first row, "" when no row comes back.
QString FirstText(const QString& statement, const QString& column) {
  Recordset records;
  OpenForReading(records, statement);
  return records.EOF_() ? QString() : records[column].Text();
}

}  // namespace

int FilterKey(int keyCode, const QString& allowed, bool allowBackspace) {
  int result = 0;
  IgnoreErrors([&] {
    QString set = allowed.toUpper();
    if (allowBackspace) set += QChar(kBackspace);
    const char32_t character = char32_t(keyCode);
    if (set.contains(QString::fromUcs4(&character, 1).toUpper())) {
      result = keyCode;
    } else {
      Beep();
    }
  });
  return result;
}

void SplitText(QStringList& elements, const QString& text, const QString& delimiter) {
  elements = text.split(delimiter.isEmpty() ? u","_s : delimiter);
}

QString EscapeSql(const QString& text, bool likeMode) {
  QString escaped = text;
  escaped.replace(u'\'', u"''"_s);
  if (likeMode) escaped.replace(u'[', u"[[]"_s);
  return escaped;
}

QString GetReportId(const QString& group, const QString& name) {
  return FirstText(u"select report_id from report_index where report_group_id ='"_s + group + u"'and report_name ='"_s +
                       name + u'\'',
                   u"Report_ID"_s);
}

bool TableHasField(const QString& table, const QString& field) {
  return IgnoreErrors([&] {
    Recordset records;
    OpenForReading(records,
                   u"select fieldname='"_s + field + u"' from DynamicWindows where tablename='"_s + table + u'\'');
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
  const qsizetype place = text.indexOf(u'“' + known->Column() + u'”');
  if (!caption.isEmpty() && place >= 0) text.replace(place + 1, known->Column().size(), caption);
  return text;
}

void FillSearchFields(const QString& table, QComboBox& fields, QComboBox& captions, QComboBox& types,
                      QComboBox& values) {
  Recordset records;
  OpenForReading(records,
                 u"Select DynamicWindows.FieldName,DynamicWindows.ChnFieldName,DynamicWindows.FieldType,"
                 "SimSearch.FieldValue From DynamicWindows,SimSearch Where "
                 "DynamicWindows.TableName=SimSearch.TableName And "
                 "DynamicWindows.FieldName =SimSearch.DataField And DynamicWindows.TableName = '"_s +
                     table + u"' Order By SimSearch.OrderNo"_s,
                 CursorLocation::Server);
  for (; !records.EOF_(); records.MoveNext()) {
    fields.addItem(records[u"FieldName"_s].Text());
    captions.addItem(records[u"ChnFieldName"_s].Text());
    types.addItem(records[u"FieldType"_s].Text());
    values.addItem(records[u"FieldValue"_s].Text());
  }
}

void FillDictionary(QComboBox& comboBox, const QString& dictionary) {
  Recordset records;
  OpenForReading(records,
                 u"Select Name From AssistantDicKey Where DicID in (Select DicId from "
                 "AssistantDictionary where Name="_s +
                     dictionary + u") Order By Note"_s);
  for (; !records.EOF_(); records.MoveNext()) comboBox.addItem(records[u"Name"_s].Text());
}

QVariant GetMaxValue(const QString& field, const QString& rest) {
  Recordset records;
  OpenForReading(records, u"Select Max("_s + field + u") From "_s + rest);
  const QVariant maximum = records.Fields().Item(0).Value();
  return maximum.isValid() ? maximum : QVariant(qlonglong(0));
}

}  // namespace folvane
