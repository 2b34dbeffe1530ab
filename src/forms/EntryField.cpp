#include "forms/EntryField.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>

#include "forms/EntryLayout.h"

namespace folvane {

QString ControlArrayName(int controlType) {
  switch (controlType) {
    case ControlKind::Txt:
      return QStringLiteral("Txt");
    case ControlKind::Cmb:
      return QStringLiteral("Cmb");
    case ControlKind::DTP:
      return QStringLiteral("DTP");
    case ControlKind::F_FondsNo:
      return QStringLiteral("F_FondsNo");
    case ControlKind::F_Aec:
      return QStringLiteral("F_Aec");
    case ControlKind::F_Organ:
      return QStringLiteral("F_Organ");
    case ControlKind::DTP_Arch:
      return QStringLiteral("DTP_Arch");
    case ControlKind::Txt_MLine:
      return QStringLiteral("Txt_MLine");
    default:
      return {};
  }
}

QString ControlName(const QString& array, int index) { return QStringLiteral("%1(%2)").arg(array).arg(index); }

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

}  // namespace folvane
