#include "forms/EntryParts.h"

#include <algorithm>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// Twips.
constexpr int kLabelLeft = 1000, kLabelDown = 60;
constexpr int kMarkRoom = 120;

std::unique_ptr<QLabel> NewLabel(const QString& name, const QString& text, QWidget* parent) {
  auto label = std::make_unique<QLabel>(text, parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ControlPlace FieldPlace(const LayoutRow& row) {
  const bool isCombo = row.control.type == ControlKind::Cmb;
  return {row.left, row.top + kRoomAboveForm, row.width, row.height,
          isCombo ? ControlPlace::OneLine : ControlPlace::AsDesigned};
}

ControlPlace CaptionPlace(const LayoutRow& row) {
  return {row.left - kLabelLeft - CaptionOverhang(row.caption), row.top + kRoomAboveForm + kLabelDown, 0, 0,
          ControlPlace::Own};
}

ControlPlace SignPlace(const LayoutRow& row) {
  ControlPlace place = CaptionPlace(row);
  place.left = std::max(0, place.left - kMarkRoom);
  return place;
}

std::unique_ptr<EntryField> NewField(const LayoutRow& row, const QString& limitText, const QString& dictionary,
                                     QWidget* parent) {
  return NewField(
      {row.control.type, row.control.index, row.dataField, row.fieldType, row.caption, limitText, dictionary}, parent);
}

std::unique_ptr<QLabel> NewCaption(const LayoutRow& row, int number, QWidget* parent) {
  auto label = NewLabel(ControlName(u"F_Lbl"_s, number), row.caption, parent);
  label->setProperty("Tag", QString::number(CaptionPlace(row).top));
  return label;
}

std::unique_ptr<QLabel> NewSign(int number, QWidget* parent) {
  auto label = NewLabel(ControlName(u"Required"_s, number), u"*"_s, parent);
  label->setToolTip(u"必填"_s);
  return label;
}

}  // namespace folvane
