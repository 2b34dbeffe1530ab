#include "catalogue/Catalogue.h"
#include "design/Checks.h"
#include "design/FormArrangement.h"

namespace folvane::design {
namespace {
using namespace Qt::Literals::StringLiterals;

using Weight = DesignFinding::Weight;
using Control = Design::Control;

// Twips. What lies farther out is not shown where it is said to be.
constexpr int kFarthestRight = 57'600, kFarthestDown = 240'000, kHighest = -500;

bool IsOnForm(const Control& control) {
  return control.left >= 0 && control.top >= kHighest && control.left + qint64(control.width) <= kFarthestRight &&
         control.top + qint64(control.height) <= kFarthestDown;
}

const Control* FrameOf(const Design::Table& table) {
  for (const Control& control : table.controls)
    if (control.type == kFrameControl && control.field.isEmpty() && HasSize(control)) return &control;
  return nullptr;
}

bool IsWithin(const Control& control, const Control& frame) {
  return control.left >= frame.left && control.left + control.width <= frame.left + qint64(frame.width);
}

// Gives a control a place of its own below all others.
std::function<void(Design&)> Below(const Design::Table& table, const Control& control) {
  return InTable(table, [key = Shape<Control>::KeyOf(control)](Design::Table& found) {
    Control* moved = FindByKey(found.controls, key);
    if (!moved) return;
    qint64 bottom = 0;
    for (const Control& other : found.controls)
      if (&other != moved && MakesControl(other) && HasSize(other) && IsOnForm(other))
        bottom = std::max<qint64>(bottom, other.top + std::max(other.height, kLine));
    const Control* frame = FrameOf(found);
    moved->left = frame ? frame->left + std::min(kUsualLeft, frame->width / 2) : kUsualLeft;
    moved->top = int(std::min<qint64>(bottom + kPitch - kLine, kFarthestDown - kLine));
    const int room = frame ? frame->left + frame->width - moved->left : kUsualWidth;
    if (moved->width <= 0 || moved->width > room) moved->width = std::min(kUsualWidth, room);
    if (moved->height <= 0 || moved->height > kFarthestDown / 2) moved->height = kLine;
  });
}

void CheckControl(Checked& checked, const Design::Table& table, const Control& control) {
  static const QList<int> known{1, 2, kFrameControl, 4, kNoControl, 6, 7, 8, 9, kLinesControl};
  const QString where = Where(table, control);
  const auto without = Without(table, &Design::Table::controls, control);
  if (!known.contains(control.type)) {
    const auto asLine = InTable(table, [key = Shape<Control>::KeyOf(control)](Design::Table& found) {
      Control* mended = FindByKey(found.controls, key);
      if (!mended) return;
      int last = 0;
      for (const Control& other : found.controls)
        if (other.type == 1) last = std::max(last, other.index);
      mended->type = 1;
      mended->index = last + 1;
    });
    checked.findings.push_back({Weight::Error, u"control-type"_s, where, u"没有第 %1 类控件"_s.arg(control.type),
                                u"录入界面中只有标题，没有输入框"_s, u"改为单行文本框"_s, asLine});
  }
  if (!FindNamed(table.fields, control.field))
    checked.findings.push_back({Weight::Error, u"control-field"_s, where,
                                control.field.isEmpty() ? u"控件没有字段"_s : u"表中没有字段“%1”"_s.arg(control.field),
                                u"录入界面中没有这个控件"_s, u"去掉这个控件"_s, without});
  if (!HasSize(control))
    checked.findings.push_back({Weight::Error, u"control-size"_s, where, u"控件没有宽度或高度"_s,
                                u"录入界面替它选了位置和大小"_s, u"放在其他控件下面"_s, Below(table, control)});
  else if (!IsOnForm(control))
    checked.findings.push_back({Weight::Error, u"control-outside"_s, where, u"控件在录入界面之外"_s,
                                u"录入时看不到这个字段"_s, u"放在其他控件下面"_s, Below(table, control)});
  else if (const Control* frame = FrameOf(table); frame && !IsWithin(control, *frame))
    checked.findings.push_back({Weight::Warning, u"control-outside"_s, where, u"控件超出了录入界面的边框"_s,
                                u"录入时可能看不全这个字段"_s, u"放在其他控件下面"_s, Below(table, control)});
}

void CheckPairs(Checked& checked, const Design::Table& table) {
  for (std::size_t at = 0; at < table.controls.size(); ++at) {
    const Control& control = table.controls[at];
    if (!MakesControl(control)) continue;
    for (std::size_t before = 0; before < at; ++before) {
      const Control& other = table.controls[before];
      if (!MakesControl(other)) continue;
      if (!control.field.isEmpty() && IsSame(control.field, other.field))
        checked.findings.push_back({Weight::Error, u"control-twice"_s, Where(table, control),
                                    u"字段在录入界面中有两个控件"_s, u"后录入的值可能被另一个控件的值覆盖"_s,
                                    u"去掉这个控件"_s, Without(table, &Design::Table::controls, control)});
      else if (Overlap(control, other))
        checked.findings.push_back({Weight::Warning, u"control-overlap"_s, Where(table, control),
                                    u"与“%1”的控件重叠"_s.arg(other.field), u"录入时其中一个被遮住"_s,
                                    u"放在其他控件下面"_s, Below(table, control)});
    }
  }
}

void CheckRequired(Checked& checked, const Design::Table& table) {
  if (table.controls.empty()) return;
  for (const Design::Field& field : table.fields) {
    const bool isAsked = std::any_of(table.controls.begin(), table.controls.end(), [&](const Control& control) {
      return MakesControl(control) && IsSame(control.field, field.name);
    });
    if (field.isRequired && !isAsked)
      checked.findings.push_back({Weight::Note, u"required-unasked"_s, Where(table, field),
                                  u"必填的字段不在录入界面中"_s, u"保存时不检查它是否填写"_s, u"取消必填"_s,
                                  InTable(table, [name = field.name](Design::Table& found) {
                                    if (Design::Field* mended = FindNamed(found.fields, name))
                                      mended->isRequired = false;
                                  })});
  }
}

}  // namespace

void CheckForms(Checked& checked) {
  for (const Design::Table& table : checked.design.tables) {
    if (table.controls.empty() && table.classId != 0)
      checked.findings.push_back({Weight::Error,
                                  u"form-empty"_s,
                                  Shape<Design::Table>::TitleOf(table),
                                  u"没有录入界面"_s,
                                  u"登记和修改记录的窗口是空的"_s,
                                  u"请安排录入界面"_s,
                                  {}});
    for (const Control& control : table.controls)
      if (MakesControl(control)) CheckControl(checked, table, control);
    CheckPairs(checked, table);
    CheckRequired(checked, table);
  }
}

}  // namespace folvane::design
