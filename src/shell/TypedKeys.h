#pragma once

#include <QString>

namespace folvane {

/// The sound that tells of a key that was refused or a move that led nowhere.
void Beep();

/// A field's filter of typed characters: the key code when the character is one of `allowed`, without regard to case,
/// or a backspace where that is allowed; otherwise a beep and 0, which cancels the key.
int FilterKey(int keyCode, const QString& allowed, bool allowBackspace);

}  // namespace folvane
