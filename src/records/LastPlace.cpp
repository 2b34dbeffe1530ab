#include "records/LastPlace.h"

#include "shell/RegistryValues.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kValue = u"FolvaneDefault"_s;
const QString kFirstTable = u"Lwdj"_s;
}  // namespace

LastPlace LastPlace::FromText(const QString& text) {
  const QString place = text.trimmed();
  if (place.isEmpty()) return {kFirstTable, {}};
  const qsizetype comma = place.indexOf(u',');
  if (comma < 0) return {place, {}};
  return {place.left(comma), place.mid(comma + 1)};
}

LastPlace ReadLastPlace() { return LastPlace::FromText(QueryValue(kLocalMachine, kMainFlags, kValue)); }

void WriteLastPlace(const QString& text) { SaveValue(kLocalMachine, kMainFlags, kValue, text); }

}  // namespace folvane
