#include "forms/EntryForm.h"

#include <QLabel>
#include <QPoint>
#include <algorithm>

#include <folvane/DataError.h>

#include "forms/LengthGuard.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "widgets/EditCombo.h"
#include "widgets/PlainTip.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

// Twips of the design.
constexpr int kToolbarRoom = 500;
constexpr int kLabelLeft = 1000;
constexpr int kLabelDown = 60;
constexpr int kMarkRoom = 120;
constexpr QPoint kNotePlace(500, 120);
constexpr qsizetype kNamesInNote = 5;

int DesignTop(const LayoutRow& row) { return row.top + kToolbarRoom; }

bool IsGuarded(int controlType) {
  return !ControlArrayName(controlType).isEmpty() && controlType != ControlKind::DTP &&
         controlType != ControlKind::DTP_Arch;
}

QString LimitOf(const LayoutRow& row, const Recordset& records) {
  if (row.control.type == ControlKind::DTP) return {};
  if (row.control.type == ControlKind::Txt) return LimitText(row.fieldLong);
  return LimitText(QString::number(records[row.dataField].DefinedSize()));
}

}  // namespace

void EntryForm::BuildEntryControls(const QString& table, Recordset& records) {
  try {
    Build(table, records);
  } catch (const std::exception& error) {
    ShowMessage(u"自定义界面数据可能有误,请检查自定义的每一步操作,或与程序供应商联系!\r\n"_s + ErrorText(error),
                MessageFlag::Critical, window()->windowTitle());
  }
  if (isVisible()) FitBar();  // otherwise the first resize does
}

void EntryForm::Build(const QString& table, Recordset& records) {
  ClearEntryControls();
  layout_ = {};
  binding_.SetSource(&records);
  layout_ = ReadEntryLayout(SharedConnection(), table);
  TellArranged();
  size_t built = 0;
  try {
    for (; built < layout_.rows.size(); ++built) {
      BuildField(layout_.rows[built], records);
      BuildLabel(layout_.rows[built], int(built) + 1);
    }
    if (layout_.failure) std::rethrow_exception(layout_.failure);
  } catch (const std::exception&) {
    layout_.rows.resize(built);
    layout_.FieldList.resize(built + 1);
    throw;
  }
}

void EntryForm::ClearEntryControls() {
  binding_.Clear();
  Forget();
  fields_.clear();
  labels_.clear();
}

void EntryForm::BuildField(const LayoutRow& row, Recordset& records) {
  if (ControlArrayName(row.control.type).isEmpty()) return;
  RequireSound(row, records);
  const QString dictionary = u"'"_s + row.dictionary + u"'"_s;
  auto made = NewField({row.control.type, row.control.index, row.dataField, row.fieldType, row.caption,
                        LimitOf(row, records), dictionary},
                       Area());
  EntryField& field = *fields_.emplace_back(std::move(made));
  const bool isCombo = row.control.type == ControlKind::Cmb;
  Place(field.Widget(),
        {row.left, DesignTop(row), row.width, row.height, isCombo ? Design::OneLine : Design::AsDesigned});
  if (IsRequired(row)) field.Widget().setAccessibleDescription(u"必填"_s);
  if (IsGuarded(row.control.type)) new LengthGuard(field);
  binding_.Add(field);
  Reach(field);
}

void EntryForm::BuildLabel(const LayoutRow& row, int number) {
  const QPoint place(row.left - kLabelLeft - CaptionOverhang(row.caption), DesignTop(row) + kLabelDown);
  QLabel& label = NewLabel(ControlName(u"F_Lbl"_s, number), row.caption, place);
  label.setProperty("Tag", QString::number(place.y()));
  if (IsRequired(row)) MarkRequired(number, place);
}

QLabel& EntryForm::NewLabel(const QString& name, const QString& text, const QPoint& place) {
  QLabel& label = *labels_.emplace_back(std::make_unique<QLabel>(text, Area()));
  label.setObjectName(name);
  label.setTextFormat(Qt::PlainText);
  Place(label, {place.x(), place.y(), 0, 0, Design::Own});
  return label;
}

bool EntryForm::IsRequired(const LayoutRow& row) const {
  const std::vector<ControlId>& required = layout_.RequiredList;
  return std::find(required.begin(), required.end(), row.control) != required.end();
}

// A label of its own, so that the caption keeps its text and its place.
void EntryForm::MarkRequired(int number, const QPoint& captionPlace) {
  const QPoint place(std::max(0, captionPlace.x() - kMarkRoom), captionPlace.y());
  NewLabel(ControlName(u"Required"_s, number), u"*"_s, place).setToolTip(u"必填"_s);
}

void EntryForm::TellArranged() {
  QStringList captions;
  for (const LayoutRow& row : layout_.rows) {
    if (row.isArranged) captions << u"“"_s + row.caption + u"”"_s;
  }
  if (captions.isEmpty()) return;
  const QString more = captions.size() > kNamesInNote ? u"等%1个字段"_s.arg(captions.size()) : QString();
  NewLabel(u"LayoutNote"_s,
           u"界面设计中没有可用的位置或大小，已自动安排："_s +
               captions.first(std::min(captions.size(), kNamesInNote)).join(u'、') + more,
           kNotePlace)
      .setToolTip(PlainTip(captions.join(u'、')));
}

void EntryForm::RequireSound(const LayoutRow& row, const Recordset& records) const {
  records.Fields().Item(row.dataField);
  const QString name = ControlName(ControlArrayName(row.control.type), row.control.index);
  if (FieldOf(row.control)) throw DataError(DataErrorKind::Usage, u"控件“%1”设计了两次。"_s.arg(name));
}

EntryField* EntryForm::FieldOf(const ControlId& control) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const auto& field) {
    return ControlId{field->ControlType(), field->Index()} == control;
  });
  return found == fields_.end() ? nullptr : found->get();
}

ShownFields EntryForm::Shown() const { return ShownOf(fields_); }

void EntryForm::KeepComboTexts() {
  for (const auto& field : fields_) {
    if (field->ControlType() != ControlKind::Cmb || field->Text().isEmpty()) continue;
    auto& list = static_cast<EditCombo&>(field->Widget());
    if (list.findText(field->Text(), Qt::MatchExactly | Qt::MatchCaseSensitive) < 0) list.addItem(field->Text());
  }
}

std::vector<ComboEntries> EntryForm::ComboLists() const {
  std::vector<ComboEntries> lists;
  for (const auto& field : fields_) {
    if (field->ControlType() != ControlKind::Cmb) continue;
    ComboEntries& list = lists.emplace_back(ComboEntries{field->DataField(), {}});
    const auto& combo = static_cast<const EditCombo&>(field->Widget());
    for (int i = 0; i < combo.count(); ++i) list.entries << combo.itemText(i);
  }
  return lists;
}

}  // namespace folvane
