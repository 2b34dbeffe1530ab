#include "design/transfer/NumberPiece.h"

#include <algorithm>

#include "base/CodePage.h"

namespace folvane {

// A class, too, is looked up among the fonds.
bool IsFondsOrClass(const QString& field) {
  return field.compare(QLatin1String("FondsNo"), Qt::CaseInsensitive) == 0 ||
         field.compare(QLatin1String("AecNo"), Qt::CaseInsensitive) == 0;
}

QString NumberPiece(const NumberField& field, const QString& shown) {
  const QString piece = LimitByteLength(shown, field.length);
  return IsFondsOrClass(field.name) ? piece : QString(std::max(0, field.length - ByteLength(piece)), u'0') + piece;
}

}  // namespace folvane
