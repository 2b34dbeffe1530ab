#include "query/MoveKey.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QShortcut>

namespace folvane {

using namespace Qt::Literals::StringLiterals;

void SetUpMoveKey(QAbstractButton& button, const QString& name, const QString& tip, const QString& shortcut) {
  const QKeySequence keys(shortcut);
  button.setObjectName(name);
  button.setAccessibleName(tip);
  button.setToolTip(u"%1 (%2)"_s.arg(tip, keys.toString(QKeySequence::NativeText)));
  QObject::connect(new QShortcut(keys, button.window()), &QShortcut::activated, &button, &QAbstractButton::click);
  if (auto* push = qobject_cast<QPushButton*>(&button)) push->setAutoDefault(false);
}

}  // namespace folvane
