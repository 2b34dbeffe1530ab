#include "browser/RecordBrowser.h"

#include "browser/FrmMain.h"
#include "shell/DefaultInstance.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"

namespace folvane {

void ShowRecordBrowser() {
  DefaultInstance<FrmMain>::Unload();
  FrmMain& window = DefaultInstance<FrmMain>::Get();
  ShowModal(window, [&window] { window.Start(); });
  if (DefaultInstance<FrmMain>::IsLoaded()) RunGuarded([&window] { window.End(); });
}

}  // namespace folvane
