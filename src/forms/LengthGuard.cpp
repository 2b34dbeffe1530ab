#include "forms/LengthGuard.h"

#include <QKeyEvent>

#include "base/CodePage.h"
#include "forms/EntryLayout.h"
#include "shell/TypedKeys.h"
#include "widgets/EditCombo.h"

namespace folvane {
namespace {

bool IsPassedOver(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Print:
    case Qt::Key_Insert:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Pause:
    case Qt::Key_CapsLock:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down:
      return true;
    default:
      return key >= Qt::Key_F1 && key <= Qt::Key_F10;
  }
}

}  // namespace

void CutToLimit(EntryField& field) {
  const std::optional<int> limit = LimitIn(field.LimitText());
  if (!limit || field.IsComposing() || field.IsAsShown()) return;
  const QString text = field.Text();
  const QString cut = LimitByteLength(text, *limit);
  if (cut == text) return;
  field.SetText(cut);
  field.CaretToEnd();
  Beep();
}

LengthGuard::LengthGuard(EntryField& field) : QObject(&field), field_(field) {
  field.Widget().installEventFilter(this);
  connect(&field, &EntryField::TextCommitted, this, [this] { CutToLimit(field_); });
  auto* combo = qobject_cast<EditCombo*>(&field.Widget());
  if (const std::optional<int> limit = LimitIn(field.LimitText()); combo && limit)
    combo->SetFits([limit = *limit](const QString& text) { return ByteLength(text) <= limit; });
}

bool LengthGuard::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyRelease) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool inCombo = field_.ControlType() == ControlKind::Cmb;
    if (!IsPassedOver(key->key()) && !(inCombo && key->modifiers() & Qt::ControlModifier)) CutToLimit(field_);
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace folvane
