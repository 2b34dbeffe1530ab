#include "forms/EntryForm.h"

#include <QLabel>
#include <algorithm>

#include <folvane/DataError.h>

#include "base/CodePage.h"
#include "forms/FieldFactory.h"
#include "forms/LengthGuard.h"
#include "forms/LimitText.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/SharedState.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

namespace {

// Twips of the design.
constexpr int kToolbarRoom = 500;
constexpr int kLabelLeft = 1000;
constexpr int kLabelDown = 60;
constexpr int kLabelBytes = 11;  // that fit between a label's usual place and its field
constexpr int kTwipsPerByte = 90;

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
  size_t built = 0;
  try {
    for (; built < layout_.rows.size(); ++built) {
      BuildField(layout_.rows[built], records);
      BuildLabel(layout_.rows[built], int(built) + 1);
    }
  } catch (const std::exception&) {
    layout_.rows.resize(built);
    layout_.FieldList.resize(built + 1);
    throw;
  }
}

void EntryForm::ClearEntryControls() {
  binding_.Clear();
  Forget();
  fondsControl_ = nullptr;
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
  if (IsGuarded(row.control.type)) new LengthGuard(field);
  binding_.Add(field);
  if (row.control.type == ControlKind::F_FondsNo && row.dataField.toUpper() == u"FONDSNO") fondsControl_ = &field;
  Reach(field);
}

void EntryForm::BuildLabel(const LayoutRow& row, int number) {
  QLabel& label = *labels_.emplace_back(std::make_unique<QLabel>(row.caption, Area()));
  label.setObjectName(ControlName(u"F_Lbl"_s, number));
  label.setTextFormat(Qt::PlainText);
  const int top = DesignTop(row) + kLabelDown;
  label.setProperty("Tag", QString::number(top));
  const int beyond = std::max(0, ByteLength(row.caption) - kLabelBytes);
  Place(label, {row.left - kLabelLeft - kTwipsPerByte * beyond, top, 0, 0, Design::Own});
}

void EntryForm::RequireSound(const LayoutRow& row, const Recordset& records) const {
  records.Fields().Item(row.dataField);
  const QString name = ControlName(ControlArrayName(row.control.type), row.control.index);
  if (FieldOf(row.control)) throw DataError(DataErrorKind::Usage, u"控件“%1”设计了两次。"_s.arg(name));
  if (row.width < 0 || row.height < 0)
    throw DataError(DataErrorKind::Usage, u"控件“%1”的宽度或高度小于零。"_s.arg(name));
}

EntryField* EntryForm::FieldOf(const ControlId& control) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const auto& field) {
    return ControlId{field->ControlType(), field->Index()} == control;
  });
  return found == fields_.end() ? nullptr : found->get();
}

QString EntryForm::ValueOfField(const QString& fieldName) const {
  const EntryField* first = nullptr;
  for (const auto& field : fields_) {
    if (field->DataField() == fieldName && (!first || field->ControlType() < first->ControlType())) first = field.get();
  }
  return first ? first->Text() : QString();
}

}  // namespace folvane
