#include <folvane/ClsSaveCollect.h>

#include "entry/FrmInput.h"
#include "shell/DefaultInstance.h"

namespace folvane {
namespace {

FrmInput* LoadedEntry() {
  using Instance = DefaultInstance<FrmInput>;
  return Instance::IsLoaded() ? &Instance::Get() : nullptr;
}

}  // namespace

void ClsSaveCollect::SaveCollect(const QString& tableName, const QString& fondsNo, bool& failed) const {
  FrmInput* entry = LoadedEntry();
  const auto broken = FirstBrokenRule(tableName, fondsNo, entry ? entry->Shown() : ShownFields());
  failed = broken.has_value();
  if (broken && entry) TellBrokenRule(*entry, *broken);
}

QObject* ClsSaveCollect::FindControl(qint16 controlIndex, qint16 controlType) const {
  const FrmInput* entry = LoadedEntry();
  return entry ? entry->ControlOf({controlType, controlIndex}) : nullptr;
}

}  // namespace folvane
