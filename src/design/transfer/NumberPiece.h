#pragma once

#include <QString>

#include <folvane/ArchiveRules.h>

namespace folvane {

/// Whether the field holds the code of a fonds or of an entity class.
bool IsFondsOrClass(const QString& field);

/// The piece that what is shown of a field's value makes of an archive number: a fonds or a class as long as it is,
/// anything else filled up with zeros; no piece is longer than its field of the number.
QString NumberPiece(const NumberField& field, const QString& shown);

/// A composed number without the first separator. That is expected to be one character: of a number that begins without
/// one, the first character is lost.
inline QString WithoutFirstSeparator(const QString& number) { return number.mid(1); }

}  // namespace folvane
