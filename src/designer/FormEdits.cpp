#include "designer/FormEdits.h"

#include <algorithm>
#include <cmath>

#include "design/FormArrangement.h"
#include "designer/FormItems.h"

namespace folvane::designer {
namespace {

using Control = Design::Control;

// Twips.
constexpr int kLeastWidth = 300;
constexpr int kPull = 75;  // within which an edge draws another to itself

// The controls to be changed, each where the entry form shows it.
std::vector<Control*> Settled(Design::Table& table, const Controls& which) {
  std::vector<Control*> controls;
  for (const FormItem& item : FormItems(table, {})) {
    if (std::find(which.begin(), which.end(), item.control) == which.end()) continue;
    Control& control = table.controls[std::size_t(item.control)];
    if (item.row.isArranged) {
      control.left = item.row.left;
      control.top = item.row.top;
      control.width = item.row.width;
      control.height = item.row.height;
    }
    controls.push_back(&control);
  }
  return controls;
}

Control* SettledOne(Design::Table& table, int which) {
  const std::vector<Control*> found = Settled(table, {which});
  return found.empty() ? nullptr : found.front();
}

bool IsOneLine(const Control& control) { return control.type == design::kComboControl; }
int HeightOf(const Control& control) { return std::max(control.height, design::kLine); }

void KeepOnForm(Control& control) {
  control.left = std::clamp(control.left, 0, std::max(0, kFarthestRight - control.width));
  control.top = std::clamp(control.top, 0, std::max(0, kFarthestDown - control.height));
}

// As far as a span can go without its ends leaving the form; one that is outside may come in.
int Limited(int by, int start, int end, int far) {
  if (by < 0) return std::min(0, std::max(by, -start));
  return std::max(0, std::min(by, far - end));
}

int GrownTo(int from, int to, int least) { return std::max(from + least, to); }

template <class Work>
void ForEach(Design::Table& table, const Controls& which, Work work) {
  for (Control* control : Settled(table, which)) work(*control);
  design::FitFrame(table);
}

}  // namespace

void MoveControls(Design::Table& table, const Controls& which, QPoint by) {
  const std::vector<Control*> controls = Settled(table, which);
  for (const Control* control : controls) {
    by.rx() = Limited(by.x(), control->left, control->left + control->width, kFarthestRight);
    by.ry() = Limited(by.y(), control->top, control->top + HeightOf(*control), kFarthestDown);
  }
  for (Control* control : controls) {
    control->left += by.x();
    control->top += by.y();
  }
  design::FitFrame(table);
}

void SizeControls(Design::Table& table, const Controls& which, const EdgeShift& by) {
  ForEach(table, which, [&](Control& control) {
    const int right = control.left + control.width, bottom = control.top + HeightOf(control);
    control.left = std::clamp(control.left + by.left, 0, std::max(0, right - kLeastWidth));
    control.width = std::min(GrownTo(control.left, right + by.right, kLeastWidth), kFarthestRight) - control.left;
    if (IsOneLine(control)) return;
    if (by.top) control.top = std::clamp(control.top + by.top, 0, std::max(0, bottom - design::kLine));
    control.height = std::min(GrownTo(control.top, bottom + by.bottom, design::kLine), kFarthestDown) - control.top;
  });
}

void AlignControls(Design::Table& table, const Controls& which, int reference, Side side) {
  const Control* same = SettledOne(table, reference);
  if (!same) return;
  const Control to = *same;
  ForEach(table, which, [&](Control& control) {
    if (side == Side::Top)
      control.top = to.top;
    else
      control.left = side == Side::Left ? to.left : to.left + to.width - control.width;
    KeepOnForm(control);
  });
}

void GiveSameWidth(Design::Table& table, const Controls& which, int reference) {
  if (const Control* same = SettledOne(table, reference)) SetMeasure(table, which, &Control::width, same->width);
}

void GiveSameHeight(Design::Table& table, const Controls& which, int reference) {
  if (const Control* same = SettledOne(table, reference)) SetMeasure(table, which, &Control::height, HeightOf(*same));
}

void SpaceEvenly(Design::Table& table, const Controls& which) {
  std::vector<Control*> controls = Settled(table, which);
  if (controls.size() < 3) return;
  const auto spreadOf = [&](int Control::*start) {
    const auto [least, most] = std::minmax_element(controls.begin(), controls.end(),
                                                   [&](auto* one, auto* other) { return one->*start < other->*start; });
    return (*most)->*start - (*least)->*start;
  };
  const bool isAcross = spreadOf(&Control::left) > spreadOf(&Control::top);
  int Control::*start = isAcross ? &Control::left : &Control::top;
  const auto lengthOf = [&](const Control* control) { return isAcross ? control->width : HeightOf(*control); };
  std::stable_sort(controls.begin(), controls.end(),
                   [&](auto* one, auto* other) { return one->*start < other->*start; });
  int room = controls.back()->*start - controls.front()->*start;
  for (auto control = controls.begin(); control + 1 != controls.end(); ++control) room -= lengthOf(*control);
  const double gap = room / double(controls.size() - 1);
  double place = controls.front()->*start;
  for (Control* control : controls) {
    control->*start = int(std::lround(place));
    KeepOnForm(*control);
    place += lengthOf(control) + gap;
  }
  design::FitFrame(table);
}

void SetMeasure(Design::Table& table, const Controls& which, int Control::*measure, int value) {
  ForEach(table, which, [&](Control& control) {
    if (measure == &Control::height && IsOneLine(control)) return;
    const int least = measure == &Control::width ? kLeastWidth : measure == &Control::height ? design::kLine : 0;
    control.*measure = std::max(value, least);
    if (measure == &Control::width) control.width = std::min(control.width, kFarthestRight - control.left);
    if (measure == &Control::height) control.height = std::min(control.height, kFarthestDown - control.top);
    KeepOnForm(control);
  });
}

Controls KeyOrder(const Design::Table& table) {
  Controls order;
  for (const FormItem& item : FormItems(table, {})) order.push_back(item.control);
  return order;
}

void PutFirst(Design::Table& table, const Controls& first) {
  Controls order = first;
  for (const int control : KeyOrder(table))
    if (std::find(first.begin(), first.end(), control) == first.end()) order.push_back(control);
  int number = 0;
  for (const int control : order) table.controls[std::size_t(control)].keyOrder = ++number;
  design::FitFrame(table);
}

void OrderByPlace(Design::Table& table) {
  std::vector<FormItem> items = FormItems(table, {});
  const auto byTop = [](const FormItem& one, const FormItem& other) { return one.row.top < other.row.top; };
  const auto byLeft = [](const FormItem& one, const FormItem& other) { return one.row.left < other.row.left; };
  std::stable_sort(items.begin(), items.end(), byTop);
  for (auto row = items.begin(); row != items.end();) {
    const auto next = std::find_if(
        row, items.end(), [&](const FormItem& item) { return item.row.top >= row->row.top + design::kLine / 2; });
    std::stable_sort(row, next, byLeft);
    row = next;
  }
  Controls order;
  for (const FormItem& item : items) order.push_back(item.control);
  PutFirst(table, order);
}

void ChangeKind(Design::Table& table, const Controls& which, int type) {
  ForEach(table, which, [&](Control& control) {
    if (control.type == type) return;
    control.index = design::FreeIndex(table, type);
    control.type = type;
    if (control.height == 0) control.height = design::kLine;
  });
}

void TakeOff(Design::Table& table, const Controls& which) {
  Controls last = which;
  std::sort(last.rbegin(), last.rend());
  for (const int control : last) table.controls.erase(table.controls.begin() + control);
  design::FitFrame(table);
}

int PutOn(Design::Table& table, const Design::Field& field, std::optional<QPoint> place) {
  // The frame is there before the control, so that the control comes last.
  design::FitFrame(table);
  design::AddToForm(table, field);
  const int added = int(table.controls.size()) - 1;
  if (!place) return added;
  Control& control = table.controls.back();
  control.left = place->x();
  control.top = place->y();
  KeepOnForm(control);
  design::FitFrame(table);
  return added;
}

Snapped Snap(int by, const std::vector<int>& edges, const std::vector<int>& targets, int grid) {
  if (std::abs(by) <= kPull || edges.empty()) return {};
  std::optional<int> nearest;
  int guide = 0;
  for (const int edge : edges) {
    for (const int target : targets) {
      const int shift = target - edge;
      if (std::abs(shift - by) > kPull || (nearest && std::abs(shift - by) >= std::abs(*nearest - by))) continue;
      nearest = shift;
      guide = target;
    }
  }
  if (nearest) return {*nearest, guide};
  return {int(std::lround((edges.front() + by) / double(grid))) * grid - edges.front(), std::nullopt};
}

}  // namespace folvane::designer
