#include "forms/EntryField.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <cmath>

#include "base/TypedValues.h"
#include "shell/Lookups.h"
#include "widgets/AgencyCodePicker.h"
#include "widgets/CodePicker.h"
#include "widgets/DateBox.h"
#include "widgets/EditCombo.h"
#include "widgets/MemoBox.h"
#include "widgets/RecordDatePicker.h"
#include "widgets/TextBox.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString AsWholeNumber(const QString& stored) {
  const std::optional<double> number = ReadNumber(stored);
  // A number without decimals is shown as it is: it may have more digits than a double keeps.
  if (!number || *number == std::trunc(*number)) return stored;
  return QString::number(std::round(*number), 'f', 0);
}

// A text of one line. A field of a number type shows what a record holds as a whole number.
class TxtField : public EntryField {
 public:
  TxtField(const FieldSpec& spec, QWidget* parent)
      : EntryField(spec, new TextBox(parent)),
        showsWholeNumbers_(spec.fieldType == u"数值型" || spec.fieldType == u"自动编号") {
    connect(&Box(), &TextBox::Changed, this, &EntryField::Changed);
    connect(&Box(), &TextBox::TextCommitted, this, &EntryField::TextCommitted);
  }

  QString Text() const override { return Box().text(); }
  void SetText(const QString& text) override {
    if (Box().text() == text) return;
    Box().setText(text);
    Box().home(false);  // a long text is read from its start
  }
  bool IsComposing() const override { return Box().IsComposing(); }
  void SetAdmission(TypingGate::Admission admission) override { Box().SetAdmission(std::move(admission)); }
  void SelectAll() override { Box().selectAll(); }
  void CaretToEnd() override { Box().end(false); }

 private:
  TextBox& Box() const { return static_cast<TextBox&>(Widget()); }
  void ShowStored(const QString& stored) override { SetText(showsWholeNumbers_ ? AsWholeNumber(stored) : stored); }

  bool showsWholeNumbers_;
};

// A text of several lines.
class TxtMLineField : public EntryField {
 public:
  TxtMLineField(const FieldSpec& spec, QWidget* parent) : EntryField(spec, new MemoBox(parent)) {
    connect(&Box(), &MemoBox::Changed, this, &EntryField::Changed);
    connect(&Box(), &MemoBox::TextCommitted, this, &EntryField::TextCommitted);
  }

  QString Text() const override { return Box().Text(); }
  void SetText(const QString& text) override { Box().SetText(text); }
  bool IsComposing() const override { return Box().IsComposing(); }
  void SetAdmission(TypingGate::Admission admission) override { Box().SetAdmission(std::move(admission)); }
  void SelectAll() override { Box().selectAll(); }
  void CaretToEnd() override { Box().moveCursor(QTextCursor::End); }

 private:
  MemoBox& Box() const { return static_cast<MemoBox&>(Widget()); }
};

// A field over any box that drops something down.
class ComboField : public EntryField {
 public:
  ComboField(const FieldSpec& spec, EditCombo* combo) : EntryField(spec, combo), combo_(combo) {
    connect(combo, &EditCombo::Changed, this, &EntryField::Changed);
    connect(&combo->Box(), &TextBox::TextCommitted, this, &EntryField::TextCommitted);
  }

  QString Text() const override { return combo_->Text(); }
  void SetText(const QString& text) override { combo_->SetText(text); }
  bool IsComposing() const override { return combo_->Box().IsComposing(); }
  void SetAdmission(TypingGate::Admission admission) override { combo_->Box().SetAdmission(std::move(admission)); }
  void SelectAll() override { combo_->Box().selectAll(); }
  void CaretToEnd() override { combo_->Box().end(false); }

 private:
  EditCombo* combo_;
};

// A text with a list of the entries of a dictionary.
class CmbField : public ComboField {
 public:
  CmbField(const FieldSpec& spec, QWidget* parent) : ComboField(spec, new EditCombo(parent)) {
    auto& list = static_cast<EditCombo&>(Widget());
    if (!spec.dictionary.isEmpty()) FillDictionary(list, spec.dictionary);
    list.SetText({});  // the first entry of a list shows itself
  }
};

// A date or none; a record gets null for none.
class DtpField : public ComboField {
 public:
  DtpField(const FieldSpec& spec, QWidget* parent) : ComboField(spec, new DateBox(parent)) {
    connect(&static_cast<DateBox&>(Widget()).Box(), &TextBox::Changed, this, &EntryField::Typing);
  }

  QVariant Value() const override { return Text().isEmpty() ? QVariant() : QVariant(Text()); }
  void Commit() override { static_cast<DateBox&>(Widget()).Commit(); }
};

}  // namespace

std::unique_ptr<EntryField> NewField(const FieldSpec& spec, QWidget* parent) {
  switch (spec.controlType) {
    case ControlKind::Txt:
      return std::make_unique<TxtField>(spec, parent);
    case ControlKind::Cmb:
      return std::make_unique<CmbField>(spec, parent);
    case ControlKind::DTP:
      return std::make_unique<DtpField>(spec, parent);
    case ControlKind::F_FondsNo:
      return std::make_unique<ComboField>(spec, new UnitCodePicker(parent));
    case ControlKind::F_Aec:
      return std::make_unique<ComboField>(spec, new ClassCodePicker(parent));
    case ControlKind::F_Organ:
      return std::make_unique<ComboField>(spec, new AgencyCodePicker(parent));
    case ControlKind::DTP_Arch:
      return std::make_unique<ComboField>(spec, new RecordDatePicker(parent));
    case ControlKind::Txt_MLine:
      return std::make_unique<TxtMLineField>(spec, parent);
    default:
      return nullptr;
  }
}

QString ControlArrayName(int controlType) {
  switch (controlType) {
    case ControlKind::Txt:
      return u"Txt"_s;
    case ControlKind::Cmb:
      return u"Cmb"_s;
    case ControlKind::DTP:
      return u"DTP"_s;
    case ControlKind::F_FondsNo:
      return u"F_FondsNo"_s;
    case ControlKind::F_Aec:
      return u"F_Aec"_s;
    case ControlKind::F_Organ:
      return u"F_Organ"_s;
    case ControlKind::DTP_Arch:
      return u"DTP_Arch"_s;
    case ControlKind::Txt_MLine:
      return u"Txt_MLine"_s;
    default:
      return {};
  }
}

QString ControlName(const QString& array, int index) { return u"%1(%2)"_s.arg(array).arg(index); }

EntryField::EntryField(FieldSpec spec, QWidget* widget) : spec_(std::move(spec)), widget_(widget) {
  widget->setObjectName(ControlName(ControlArrayName(spec_.controlType), spec_.index));
  widget->setProperty("DataField", spec_.dataField);
  widget->setProperty("Tag", spec_.caption);
  widget->setToolTip(spec_.limitText);
  widget->setAccessibleName(spec_.caption);
  if (const auto* combo = qobject_cast<QComboBox*>(widget)) combo->lineEdit()->setAccessibleName(spec_.caption);
  widget->installEventFilter(this);
}

EntryField::~EntryField() { delete widget_; }

void EntryField::Show(const QString& stored) {
  ShowStored(stored);
  shown_ = Text();
}

void EntryField::Focus() {
  Widget().setFocus(Qt::OtherFocusReason);
  if (!Widget().hasFocus()) Q_EMIT Entered();  // the event comes late, and then for another reason
}

bool EntryField::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const bool moves =
        reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason && reason != Qt::MenuBarFocusReason;
    if (moves) event->type() == QEvent::FocusIn ? Q_EMIT Entered() : Q_EMIT Left();
  }
  return QObject::eventFilter(watched, event);
}

ShownFields ShownOf(const std::vector<std::unique_ptr<EntryField>>& fields) {
  ShownFields shown;
  for (const auto& field : fields)
    shown.push_back({{field->ControlType(), field->Index()},
                     field->DataField(),
                     field->Caption(),
                     field->LimitText(),
                     field->Text()});
  return shown;
}

}  // namespace folvane
