#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>

#include <folvane/Export.h>

namespace folvane {

/// The library's own icon of that name, in any case: a toolbar key ("NextPage"), a kind of tree node ("CLOSE",
/// "Cent1"), a list row by its icon number ("row4"), a command ("save"). A null icon for a name without a picture.
///
/// The pictures are drawn as vectors at the size and pixel ratio asked for, in the colours of the application's palette
/// at that moment, so they stay crisp and follow a change from a light to a dark palette.
FOLVANE_EXPORT QIcon Icon(const QString& name);

/// The names that Icon knows, sorted.
FOLVANE_EXPORT QStringList IconNames();

}  // namespace folvane
