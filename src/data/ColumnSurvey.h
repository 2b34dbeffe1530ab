#pragma once

#include "data/SavedRows.h"
#include "data/persist/Tablegram.h"

namespace folvane {

/// Looks at all values of one column for the descriptor that holds them.
class ColumnSurvey {
 public:
  ColumnSurvey(SavedRows& rows, int column) : rows_(rows), column_(column) {}

  /// The descriptor itself where it will do, else the closest one, with a length or digits that suffice.
  ColumnDescriptor Fitted(const ColumnDescriptor& descriptor);

 private:
  ColumnDescriptor WithDigits(ColumnDescriptor descriptor);
  bool Holds(ColumnDescriptor& descriptor);
  template <typename Look>
  void EachValue(Look look);

  SavedRows& rows_;
  int column_;
};

}  // namespace folvane
