#include "widgets/DialogKeys.h"

#include <QAbstractButton>
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QPushButton* NewKey(QDialog& dialog, const QString& name, const QString& caption) {
  auto* key = new QPushButton(caption, &dialog);
  key->setObjectName(name);
  key->setAutoDefault(false);
  return key;
}

}  // namespace

DialogKeys::DialogKeys(QDialog& dialog)
    : row(new QHBoxLayout),
      ok(NewKey(dialog, u"CmdOK"_s, u"确定(&O)"_s)),
      cancel(NewKey(dialog, u"CmdCancel"_s, u"取消(&C)"_s)) {
  ok->setDefault(true);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  row->addStretch();
  row->addWidget(ok);
  row->addWidget(cancel);
}

void SetUpMoveKey(QAbstractButton& button, const QString& name, const QString& tip, const QString& shortcut) {
  const QKeySequence keys(shortcut);
  button.setObjectName(name);
  button.setAccessibleName(tip);
  button.setToolTip(u"%1 (%2)"_s.arg(tip, keys.toString(QKeySequence::NativeText)));
  QObject::connect(new QShortcut(keys, button.window()), &QShortcut::activated, &button, &QAbstractButton::click);
  if (auto* push = qobject_cast<QPushButton*>(&button)) push->setAutoDefault(false);
}

}  // namespace folvane
