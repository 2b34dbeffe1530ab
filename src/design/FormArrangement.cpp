#include "design/FormArrangement.h"

#include <algorithm>

#include "design/Shape.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Control = Design::Control;

constexpr int kText = 1, kDate = 4, kFondsCode = 6, kClassCode = 7, kAgencyCode = 8, kArchiveDate = 9;
constexpr int kLongText = 100;  ///< bytes that are better shown in several lines

// Twips.
constexpr int kRightColumn = 6300, kBothWidth = 8550;
constexpr int kLines = 780, kGap = kPitch - kLine;
constexpr int kFrameWidth = 10'200, kFrameMargin = 150;

int BottomOf(const Control& control) { return control.top + std::max(control.height, kLine); }

bool IsWide(const Control& control) { return control.type == kLinesControl || control.width > kUsualWidth; }

// Puts a control behind those before it.
void PlaceBehind(Control& control, const std::vector<const Control*>& before) {
  int lastTop = 0, bottom = -kGap;
  for (const Control* other : before) {
    lastTop = std::max(lastTop, other->top);
    bottom = std::max(bottom, BottomOf(*other));
  }
  control.left = kRightColumn;
  control.top = lastTop;
  const auto isHit = [&](const Control* other) { return Overlap(control, *other); };
  const bool isBeside = !before.empty() && !IsWide(control) && std::none_of(before.begin(), before.end(), isHit) &&
                        std::none_of(before.begin(), before.end(), [&](const Control* other) {
                          return other->left >= kRightColumn && other->top >= lastTop;
                        });
  if (isBeside) return;
  control.left = kUsualLeft;
  control.top = bottom + kGap;
}

Control* FrameIn(Design::Table& table) {
  const auto found = std::find_if(table.controls.begin(), table.controls.end(),
                                  [](const Control& control) { return control.type == kFrameControl; });
  return found == table.controls.end() ? nullptr : &*found;
}

}  // namespace

bool HasSize(const Control& control) {
  return control.width > 0 && (control.height > 0 || control.type == kComboControl);
}

bool Overlap(const Control& one, const Control& other) {
  return HasSize(one) && HasSize(other) && one.left < other.left + qint64(other.width) &&
         other.left < one.left + qint64(one.width) && one.top < other.top + qint64(std::max(other.height, kLine)) &&
         other.top < one.top + qint64(std::max(one.height, kLine));
}

int ControlTypeFor(const Design::Field& field) {
  // Columns with a meaning of their own; the day of registration is a text.
  if (IsSame(field.name, u"CreatedDate"_s)) return kDate;
  if (IsSame(field.name, u"FondsNo"_s)) return kFondsCode;
  if (IsSame(field.name, u"AecNo"_s)) return kClassCode;
  if (field.type == u"日期型" || field.type == u"时间型") return kDate;
  if (field.type.startsWith(u"档案日期")) return kArchiveDate;
  if (!field.dictionary.isEmpty()) return kComboControl;
  if (field.type == u"文件编号型" || field.type == u"机关代字型") return kAgencyCode;
  return field.type == u"文本型" && (field.length > kLongText || field.length == 0) ? kLinesControl : kText;
}

int FreeIndex(const Design::Table& table, int type) {
  int index = 1;
  for (const Control& control : table.controls)
    if (control.type == type) index = std::max(index, control.index + 1);
  return index;
}

void SetControlType(Design::Table& table, Control& control, int type) {
  control.index = FreeIndex(table, type);
  control.type = type;
  const bool isLines = type == kLinesControl;
  control.height = isLines ? std::max(control.height, kLines) : kLine;
  if (isLines) control.width = std::max(control.width, kBothWidth);
  std::vector<const Control*> others;
  for (const Control& other : table.controls)
    if (MakesControl(other) && &other != &control) others.push_back(&other);
  const auto isHidden = [&](const Control* other) { return Overlap(control, *other); };
  if (std::any_of(others.begin(), others.end(), isHidden)) PlaceBehind(control, others);
  FitFrame(table);
}

void AddToForm(Design::Table& table, const Design::Field& field) {
  Control control;
  control.field = field.name;
  control.type = ControlTypeFor(field);
  control.index = FreeIndex(table, control.type);
  const bool isWide = control.type == kLinesControl;
  control.width = isWide ? kBothWidth : kUsualWidth;
  control.height = isWide ? kLines : kLine;
  std::vector<const Control*> before;
  for (const Control& other : table.controls) {
    if (!MakesControl(other)) continue;
    before.push_back(&other);
    control.keyOrder = std::max(control.keyOrder, other.keyOrder);
  }
  ++control.keyOrder;
  PlaceBehind(control, before);
  table.controls.push_back(control);
  FitFrame(table);
}

void ArrangeForm(Design::Table& table) {
  std::vector<Control*> controls;
  for (Control& control : table.controls)
    if (MakesControl(control)) controls.push_back(&control);
  std::stable_sort(controls.begin(), controls.end(),
                   [](const Control* one, const Control* other) { return one->keyOrder < other->keyOrder; });
  std::vector<const Control*> before;
  for (Control* control : controls) {
    const bool isWide = IsWide(*control);
    control->width = isWide ? kBothWidth : kUsualWidth;
    control->height = control->type == kLinesControl ? std::max(control->height, kLines) : kLine;
    PlaceBehind(*control, before);
    before.push_back(control);
  }
  FitFrame(table);
}

void FitFrame(Design::Table& table) {
  int right = 0, bottom = 0, last = 0;
  for (const Control& control : table.controls) {
    if (!MakesControl(control)) continue;
    right = std::max(right, control.left + control.width);
    bottom = std::max(bottom, BottomOf(control));
    last = std::max(last, control.keyOrder);
  }
  Control* frame = FrameIn(table);
  if (!frame) {
    table.controls.push_back({{}, kFrameControl, FreeIndex(table, kFrameControl), 0, 0, 0, 0, 0});
    frame = &table.controls.back();
  }
  frame->keyOrder = last + 1;
  frame->width = std::max(kFrameWidth, right + kFrameMargin - frame->left);
  frame->height = bottom + kFrameMargin - frame->top;
}

}  // namespace folvane::design
