#include "query/FrmOrderBy.h"

#include "shell/ModalWindow.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

FrmOrderBy::FrmOrderBy() {
  setObjectName(u"FrmOrderBy"_s);
  setWindowTitle(u"排序方式"_s);
}

void FrmOrderBy::Open() { ShowModal(*this); }

}  // namespace folvane
