#include "query/frmSimFind.h"

#include "shell/ModalWindow.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

frmSimFind::frmSimFind() {
  setObjectName(u"frmSimFind"_s);
  setWindowTitle(u"简单查询"_s);
}

void frmSimFind::Open() { ShowModal(*this); }

}  // namespace folvane
