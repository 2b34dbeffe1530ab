#include "query/FrmSimSet.h"

#include "shell/ModalWindow.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

FrmSimSet::FrmSimSet() {
  setObjectName(u"FrmSimSet"_s);
  setWindowTitle(u"简单查询设置"_s);
}

void FrmSimSet::Open() { ShowModal(*this); }

}  // namespace folvane
