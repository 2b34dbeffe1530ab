#include "query/FrmReadOrder.h"

#include "shell/ModalWindow.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

FrmReadOrder::FrmReadOrder() {
  setObjectName(u"FrmReadOrder"_s);
  setWindowTitle(u"浏览排序设置"_s);
}

void FrmReadOrder::Open() { ShowModal(*this); }

}  // namespace folvane
