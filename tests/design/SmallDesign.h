#pragma once

#include <folvane/Design.h>

#include "support/TestDatabase.h"

namespace folvane::test {

/// Letters that arrive and the archive that takes them, with all that a design has, and nothing wrong with it.
Design SmallDesign();

/// A database with that design.
class WithSmallDesign : public OnEachDatabase {
 protected:
  void SetUp() override;

  /// Plans and applies what becomes of the design as it is read. Losses are answered alike.
  void Apply(const std::function<void(Design&)>& change, LossAnswer answer = LossAnswer::Lose);
  /// The message of the error that applying it ends with, "" for none.
  QString Refusal(const std::function<void(Design&)>& change);
  Design Read() { return ReadDesign(*Connected()); }
};

Design::Table& TableOf(Design& design, const QString& name);
Design::Field& FieldOf(Design& design, const QString& table, const QString& field);

}  // namespace folvane::test
