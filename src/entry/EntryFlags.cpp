#include "entry/EntryFlags.h"

#include "shell/RegistryValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kTrue = u"True"_s, kFalse = u"False"_s;

}  // namespace

const std::vector<EntryFlag>& EntryFlags() {
  static const std::vector<EntryFlag> flags{{u"AutoSave"_s, u"AutoAddSaveFlags"_s},
                                            {u"UseSign"_s, u"UseSpecialSign"_s},
                                            {u"AutoStatus"_s, u"AutoFileStatus"_s}};
  return flags;
}

bool ReadFlag(const EntryFlag& flag) {
  return QueryValue(kLocalMachine, kMainFlags, flag.value).compare(kTrue, Qt::CaseInsensitive) == 0;
}

void SaveFlag(const EntryFlag& flag, bool on) { SaveValue(kLocalMachine, kMainFlags, flag.value, on ? kTrue : kFalse); }

}  // namespace folvane
