#include <folvane/ClsCodeConvert.h>

#include "data/Recordset.h"
#include "shell/RegistryValues.h"
#include "shell/SharedState.h"

namespace folvane {
namespace {

QString StatementFor(int kind, const QString& code) {
  switch (kind) {
    case 1:
      return QStringLiteral("Select FondsName from FondsDefine Where FondsNo='") + code + u'\'';
    case 2:
      return QStringLiteral("Select ClassName from EntityClass  Where ClassNo='") + code +
             QStringLiteral("' and FondsNo = '") + QueryValue(kLocalMachine, kFondsSet, QStringLiteral("CurrFondsNo")) +
             u'\'';
    case 3:
      return QStringLiteral("Select Code from RetentionYear Where Name='") + code + u'\'';
    default:
      return {};
  }
}

}  // namespace

QString ClsCodeConvert::ConvertChn(qint16 kind, const QString& code) const {
  const QString statement = StatementFor(kind, code);
  if (statement.isEmpty()) return {};
  Recordset records;
  records.Open(statement, SharedConnection());
  return records.EOF_() ? QString() : records.Fields().Item(0).Text();
}

}  // namespace folvane
