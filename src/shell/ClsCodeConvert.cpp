#include <folvane/ClsCodeConvert.h>

#include "data/Recordset.h"
#include "shell/RegistryValues.h"
#include "shell/SharedState.h"
#include "shell/SqlText.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString StatementFor(int kind, const QString& code) {
  switch (kind) {
    case 1:
      return u"Select FondsName from FondsDefine Where FondsNo='"_s + EscapeSql(code) + u'\'';
    case 2:
      return u"Select ClassName from EntityClass  Where ClassNo='"_s + EscapeSql(code) + u"' and FondsNo = '"_s +
             QueryValue(kLocalMachine, kFondsSet, u"CurrFondsNo"_s) + u'\'';
    case 3:
      return u"Select Code from RetentionYear Where Name='"_s + EscapeSql(code) + u'\'';
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
