#include "shell/CommonRoutines.h"

#include <QComboBox>

#include <folvane/DataError.h>

#include "base/IgnoreErrors.h"
#include "shell/Beep.h"
#include "shell/EventGuard.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {

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
  elements = text.split(delimiter.isEmpty() ? QStringLiteral(",") : delimiter);
}

QString EscapeSql(const QString& text, bool likeMode) {
  QString escaped = text;
  escaped.replace(u'\'', QStringLiteral("''"));
  if (likeMode) escaped.replace(u'[', QStringLiteral("[[]"));
  return escaped;
}

QString GetReportId(const QString& group, const QString& name) {
  return FirstText(QStringLiteral("select report_id from report_index where report_group_id ='") + group +
                       QStringLiteral("'and report_name ='") + name + u'\'',
                   QStringLiteral("Report_ID"));
}

bool TableHasField(const QString& table, const QString& field) {
  return IgnoreErrors([&] {
    Recordset records;
    OpenForReading(records, QStringLiteral("select fieldname='") + field +
                                QStringLiteral("' from DynamicWindows where tablename='") + table + u'\'');
  });
}

bool FieldExists(const Recordset& records, const QString& name) {
  return IgnoreErrors([&] { records.Fields().Item(name).Type(); });
}

QString GetChnFieldName(const QString& table, const QString& field) {
  return FirstText(QStringLiteral("Select ChnFieldName from DynamicWindows Where TableName='") + table +
                       QStringLiteral("' and FieldName='") + field + u'\'',
                   QStringLiteral("ChnFieldName"));
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
                 QStringLiteral("Select DynamicWindows.FieldName,DynamicWindows.ChnFieldName,DynamicWindows.FieldType,"
                                "SimSearch.FieldValue From DynamicWindows,SimSearch Where "
                                "DynamicWindows.TableName=SimSearch.TableName And "
                                "DynamicWindows.FieldName =SimSearch.DataField And DynamicWindows.TableName = '") +
                     table + QStringLiteral("' Order By SimSearch.OrderNo"),
                 CursorLocation::Server);
  for (; !records.EOF_(); records.MoveNext()) {
    fields.addItem(records[QStringLiteral("FieldName")].Text());
    captions.addItem(records[QStringLiteral("ChnFieldName")].Text());
    types.addItem(records[QStringLiteral("FieldType")].Text());
    values.addItem(records[QStringLiteral("FieldValue")].Text());
  }
}

void FillDictionary(QComboBox& comboBox, const QString& dictionary) {
  Recordset records;
  OpenForReading(records, QStringLiteral("Select Name From AssistantDicKey Where DicID in (Select DicId from "
                                         "AssistantDictionary where Name=") +
                              dictionary + QStringLiteral(") Order By Note"));
  for (; !records.EOF_(); records.MoveNext()) comboBox.addItem(records[QStringLiteral("Name")].Text());
}

QVariant GetMaxValue(const QString& field, const QString& rest) {
  Recordset records;
  OpenForReading(records, QStringLiteral("Select Max(") + field + QStringLiteral(") From ") + rest);
  const QVariant maximum = records.Fields().Item(0).Value();
  return maximum.isValid() ? maximum : QVariant(qlonglong(0));
}

}  // namespace folvane
