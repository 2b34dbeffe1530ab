#include "entry/TypingAids.h"

#include <QKeyEvent>

#include "forms/EntryLayout.h"
#include "shell/EventGuard.h"
#include "widgets/TextBox.h"

namespace folvane {
namespace {

bool HasTypingRules(int controlType) {
  return controlType == ControlKind::Txt || controlType == ControlKind::Cmb || controlType == ControlKind::Txt_MLine;
}

}  // namespace

TypingAids::TypingAids(EntryField& field, bool isNumeric, const QStringList& wideFields, TypingContext context)
    : QObject(&field), field_(field), isNumeric_(isNumeric), context_(std::move(context)) {
  field.Widget().installEventFilter(this);
  if (!HasTypingRules(field.ControlType())) return;
  const TypingRules rules = TypingRules::Of(field.ControlType(), field.DataField(), isNumeric, wideFields);
  field.SetAdmission([rules, hasRecord = context_.hasRecord](const QString& typed) {
    return hasRecord() ? rules.Admit(typed) : typed;
  });
}

bool TypingAids::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  bool taken = false;
  RunGuarded([&] { taken = TakeKey(key->key(), key->modifiers() & Qt::ControlModifier); });
  return taken;
}

bool TypingAids::TakeKey(int key, bool withControl) {
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    if (!withControl && context_.hasRecord()) context_.onEnter(field_);
    return true;
  }
  return context_.hasRecord() && AddYearSign(key);
}

bool TypingAids::AddYearSign(int key) {
  if (field_.ControlType() != ControlKind::Txt) return false;
  const QString sign = YearSignOf(key, context_.usesSign(), isNumeric_);
  if (sign.isEmpty()) return false;
  field_.CaretToEnd();
  static_cast<TextBox&>(field_.Widget()).insert(sign);
  return true;
}

}  // namespace folvane
