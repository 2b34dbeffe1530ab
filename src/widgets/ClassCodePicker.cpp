#include "widgets/ClassCodePicker.h"

#include "shell/CommonRoutines.h"

namespace folvane {

QString ClassCodePicker::ListStatement() const {
  const QString fonds = QueryValue(kLocalMachine, kFondsSet, QStringLiteral("CurrFondsNo"));
  return QStringLiteral("Select ClassNo,ClassName From EntityClass Where FondsNo='") + EscapeSql(fonds) +
         QStringLiteral("' Order By ClassNo");
}

}  // namespace folvane
