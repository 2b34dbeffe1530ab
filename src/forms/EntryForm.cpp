#include "forms/EntryForm.h"

#include <QLabel>
#include <algorithm>

#include <folvane/DataError.h>

#include "forms/EntryParts.h"
#include "forms/LengthGuard.h"
#include "forms/LineGuard.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"
#include "widgets/EditCombo.h"
#include "widgets/PlainTip.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

// Twips of the design.
constexpr ControlPlace kNotePlace{500, 120, 0, 0, ControlPlace::Own};
constexpr qsizetype kNamesInNote = 5;

bool IsGuarded(int controlType) {
  return !ControlArrayName(controlType).isEmpty() && controlType != ControlKind::DTP &&
         controlType != ControlKind::DTP_Arch;
}

QString LimitOf(const LayoutRow& row, const Recordset& records) {
  if (row.control.type == ControlKind::DTP) return {};
  if (row.control.type == ControlKind::Txt) return LimitText(row.fieldLong);
  // The size of a column that is not text counts bytes of the database and says nothing about its text.
  const Field field = records[row.dataField];
  const bool isText = GroupOfType(field.Type()) == TypeGroup::Text;
  return LimitText(isText ? QString::number(field.DefinedSize()) : row.fieldLong);
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
  EntryField& field = *fields_.emplace_back(NewField(row, LimitOf(row, records), dictionary, Area()));
  Place(field.Widget(), FieldPlace(row));
  if (IsRequired(row)) field.Widget().setAccessibleDescription(u"必填"_s);
  if (IsGuarded(row.control.type)) new LengthGuard(field);
  if (QLineEdit* line = LineOf(field)) new LineGuard(field, *line);
  binding_.Add(field);
  Reach(field);
}

void EntryForm::BuildLabel(const LayoutRow& row, int number) {
  AddLabel(NewCaption(row, number, Area()), CaptionPlace(row));
  if (IsRequired(row)) AddLabel(NewSign(number, Area()), SignPlace(row));
}

void EntryForm::AddLabel(std::unique_ptr<QLabel> label, const ControlPlace& place) {
  Place(*labels_.emplace_back(std::move(label)), place);
}

bool EntryForm::IsRequired(const LayoutRow& row) const {
  const std::vector<ControlId>& required = layout_.RequiredList;
  return std::find(required.begin(), required.end(), row.control) != required.end();
}

void EntryForm::TellArranged() {
  QStringList captions;
  for (const LayoutRow& row : layout_.rows) {
    if (row.isArranged) captions << u"“"_s + row.caption + u"”"_s;
  }
  if (captions.isEmpty()) return;
  const QString more = captions.size() > kNamesInNote ? u"等%1个字段"_s.arg(captions.size()) : QString();
  const QString names = captions.first(std::min(captions.size(), kNamesInNote)).join(u'、') + more;
  auto note = std::make_unique<QLabel>(u"界面设计中没有可用的位置或大小，已自动安排："_s + names, Area());
  note->setObjectName(u"LayoutNote"_s);
  note->setTextFormat(Qt::PlainText);
  note->setToolTip(PlainTip(captions.join(u'、')));
  AddLabel(std::move(note), kNotePlace);
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
