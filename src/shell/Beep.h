#pragma once

namespace folvane {

/// The sound that tells of a key that was refused or a move that led nowhere.
void Beep();

}  // namespace folvane
