#include "entry/FrmInput.h"

#include "shell/ModalWindow.h"

namespace folvane {

using namespace Qt::Literals::StringLiterals;

FrmInput::FrmInput() {
  setObjectName(u"FrmInput"_s);
  setWindowTitle(u"著录界面"_s);
}

FrmInput::~FrmInput() = default;

void FrmInput::Open() { ShowModal(*this); }

}  // namespace folvane
