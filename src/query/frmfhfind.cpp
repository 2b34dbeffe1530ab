#include "query/frmfhfind.h"

#include "shell/ModalWindow.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

frmfhfind::frmfhfind() {
  setObjectName(u"frmfhfind"_s);
  setWindowTitle(u"组合查询窗体"_s);
}

void frmfhfind::Open() { ShowModal(*this); }

}  // namespace folvane
