#pragma once

#include <QString>

namespace folvane {

/// The icons of a list row: they tell whether the seventh column holds something and whether the record has originals.
namespace RowIcon {
enum : int { Filled = 1, Empty = 2, Original = 3, FilledWithOriginals = 4, EmptyWithOriginals = 5 };
}  // namespace RowIcon

inline int IconOfRow(const QString& seventhCell, bool hasOriginals) {
  if (seventhCell.trimmed().isEmpty()) return hasOriginals ? RowIcon::EmptyWithOriginals : RowIcon::Empty;
  return hasOriginals ? RowIcon::FilledWithOriginals : RowIcon::Filled;
}

/// The icon after the record's originals were counted anew.
inline int IconAfterCount(int icon, bool hasOriginals) {
  const bool filled = icon == RowIcon::Filled || icon == RowIcon::FilledWithOriginals;
  if (hasOriginals) return filled ? RowIcon::FilledWithOriginals : RowIcon::EmptyWithOriginals;
  return filled ? RowIcon::Filled : RowIcon::Empty;
}

}  // namespace folvane
