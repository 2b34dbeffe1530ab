#include "shell/Lookups.h"

#include <QComboBox>

#include "data/Recordset.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

void OpenForReading(Recordset& records, const QString& statement) {
  records.Open(statement, SharedConnection(), CursorType::Static, LockType::ReadOnly);
}

}  // namespace

QString FirstText(const QString& statement, const QString& column) {
  Recordset records;
  OpenForReading(records, statement);
  return records.EOF_() ? QString() : records[column].Text();
}

QString GetReportId(const QString& group, const QString& name) {
  return FirstText(u"select report_id from report_index where report_group_id ='"_s + EscapeSql(group) +
                       u"'and report_name ='"_s + EscapeSql(name) + u'\'',
                   u"Report_ID"_s);
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
