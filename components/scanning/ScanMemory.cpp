#include "components/scanning/ScanMemory.h"

#include "components/common/KeptText.h"

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kScanning = u"HKEY_CURRENT_USER\\Software\\Norvex\\Folvane\\Scanning"_s;

}  // namespace

QString Remembered(const QString& name) { return ReadKept(kScanning, name); }

void Remember(const QString& name, const QString& value) { WriteKept(kScanning, name, value); }

}  // namespace folvane::scanning
