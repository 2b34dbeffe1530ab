#pragma once

#include <vector>

#include "forms/EntryLayout.h"

namespace folvane {

/// The walk of the Enter key through the fields of a form. Positions count from 1.
class EnterWalk {
 public:
  enum class Step { Focus, AddRecord };

  /// @param keys at 0 stands the empty pair; the position stays
  void SetKeys(std::vector<ControlId> keys) { keys_ = std::move(keys); }
  /// Back to the first field, as for each new record.
  void Restart() { position_ = 1; }
  int Position() const { return position_; }
  /// The field that gets the focus; the empty pair when the form has none.
  ControlId Current() const;

  /// Enter was pressed in a field. Behind the last field the record is saved and the next begun, by a user who may
  /// edit; for anyone else the walk begins anew.
  Step Next(const ControlId& from, bool mayEdit);

 private:
  std::vector<ControlId> keys_{ControlId()};
  int position_ = 1;
};

}  // namespace folvane
