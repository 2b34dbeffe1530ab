#pragma once

#include <QPoint>
#include <optional>
#include <vector>

#include <folvane/Design.h>

// What can be done with the controls of an entry form. Measures are twips; controls are told by their places in the
// table's list. A control that the entry form has to arrange is taken from where it stands there; none leaves the form,
// and the frame follows.
namespace folvane::designer {

using Controls = std::vector<int>;

enum class Side { Left, Top, Right };

/// How far each edge moves, to the right or down.
struct EdgeShift {
  int left = 0, top = 0, right = 0, bottom = 0;
};

void MoveControls(Design::Table& table, const Controls& which, QPoint by);
/// Moves edges as far as the control keeps a size; a list has the height of a line.
void SizeControls(Design::Table& table, const Controls& which, const EdgeShift& by);

/// Puts a side of each where that of the reference is.
void AlignControls(Design::Table& table, const Controls& which, int reference, Side side);
void GiveSameWidth(Design::Table& table, const Controls& which, int reference);
void GiveSameHeight(Design::Table& table, const Controls& which, int reference);
/// Leaves the same room between one and the next, in the direction in which they spread more.
void SpaceEvenly(Design::Table& table, const Controls& which);

/// Sets a measure of each, such as &Design::Control::left.
void SetMeasure(Design::Table& table, const Controls& which, int Design::Control::*measure, int value);

/// The controls in the order of the Enter key.
Controls KeyOrder(const Design::Table& table);
/// Numbers the controls from 1: those first, the others behind them as they were.
void PutFirst(Design::Table& table, const Controls& first);
/// Numbers the controls row by row, from left to right.
void OrderByPlace(Design::Table& table);

/// Makes them controls of another kind, with numbers that are free.
void ChangeKind(Design::Table& table, const Controls& which, int type);
void TakeOff(Design::Table& table, const Controls& which);
/// Gives a field a control, at that place or behind the others. @return its place in the list
int PutOn(Design::Table& table, const Design::Field& field, std::optional<QPoint> place);

/// A movement that was drawn to where it fits, and the line that it fits to.
struct Snapped {
  int by = 0;
  std::optional<int> guide;
};

/// @param edges that move, the first of which goes onto the grid
/// @param targets edges of others, which go before the grid
Snapped Snap(int by, const std::vector<int>& edges, const std::vector<int>& targets, int grid);

}  // namespace folvane::designer
