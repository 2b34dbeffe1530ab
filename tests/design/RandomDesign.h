#pragma once

#include <folvane/Design.h>

#include "support/Dice.h"

namespace folvane::test {

/// A design of any shape that can be stored, in the order that designs are given in. The same dice make the same one.
Design RandomDesign(Dice& dice);

/// The design after somebody has worked on it: some things gone, some changed, some new.
Design WorkedOn(const Design& design, Dice& dice);

/// A text of anything that people and files put into texts, of so many bytes of the national code page at most.
QString RandomText(Dice& dice, int mostBytes);

}  // namespace folvane::test
