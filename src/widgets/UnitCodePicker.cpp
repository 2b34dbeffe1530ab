#include "widgets/UnitCodePicker.h"

namespace folvane {

QString UnitCodePicker::ListStatement() const {
  return QStringLiteral("Select FondsNo,FondsName From FondsDefine Order By FondsNo");
}

}  // namespace folvane
