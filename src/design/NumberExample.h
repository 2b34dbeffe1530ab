#pragma once

#include <folvane/Design.h>

namespace folvane::design {

/// An archive number as a table's format makes it of sample values.
struct NumberExample {
  QString number, folder;  ///< "" where there is none
  int mostBytes = 0;       ///< that such a number takes
};

/// The example of a design that may not be applied yet: codes and entries are those of the design.
NumberExample ExampleOf(const Design& design, const Design::Table& table);

}  // namespace folvane::design
