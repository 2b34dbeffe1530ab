#include "host/Message.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

namespace folvane::host {

using namespace Qt::Literals::StringLiterals;

void ShowMessage(QLabel& label, const QString& message, bool isError) {
  QPalette colours = label.parentWidget()->palette();
  const bool dark = colours.color(QPalette::WindowText).lightness() > colours.color(QPalette::Window).lightness();
  const QColor red(dark ? 0xffff8a80 : 0xffb3261e);
  colours.setColor(QPalette::WindowText, isError ? red : colours.color(QPalette::Disabled, QPalette::WindowText));
  label.setPalette(colours);
  label.setText(message);
}

QLabel* AddMessageAndKeys(QFormLayout& rows, QDialog& dialog, const QString& acceptText) {
  auto* message = new QLabel;
  message->setObjectName(u"LblMessage"_s);
  message->setWordWrap(true);
  message->setMinimumHeight(dialog.fontMetrics().lineSpacing() * 2);
  rows.addRow(message);
  auto* keys = new QDialogButtonBox;
  auto* accept = keys->addButton(acceptText, QDialogButtonBox::AcceptRole);
  accept->setObjectName(u"CmdOK"_s);
  accept->setDefault(true);
  keys->addButton(u"取消(&C)"_s, QDialogButtonBox::RejectRole)->setObjectName(u"CmdCancel"_s);
  rows.addRow(keys);
  QObject::connect(keys, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(keys, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  return message;
}

}  // namespace folvane::host
