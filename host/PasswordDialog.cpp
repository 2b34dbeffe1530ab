#include "host/PasswordDialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "host/Message.h"

namespace folvane::host {

using namespace Qt::Literals::StringLiterals;

PasswordDialog::PasswordDialog(Accounts accounts, const HostUser& self, const QList<HostUser>& users,
                               const QString& reason, QWidget* parent)
    : QDialog(parent), accounts_(std::move(accounts)), self_(self) {
  setObjectName(u"PasswordDialog"_s);
  setWindowTitle(u"设置口令"_s);
  auto* rows = new QFormLayout(this);
  rows->setContentsMargins(24, 20, 24, 16);
  rows->setVerticalSpacing(12);
  rows->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);

  cboUser_ = new QComboBox;
  cboUser_->setObjectName(u"CboUser"_s);
  cboUser_->addItem(self.id + u"  "_s + self.name, self.id);
  for (const HostUser& user : users)
    if (IsAdministrator(self.id) && user.id != self.id) cboUser_->addItem(user.id + u"  "_s + user.name, user.id);
  cboUser_->setEnabled(cboUser_->count() > 1);
  rows->addRow(u"用户(&U)"_s, cboUser_);
  txtOld_ = AddBox(*rows, "TxtOld", u"原口令(&O)"_s);
  lblOld_ = qobject_cast<QLabel*>(rows->labelForField(txtOld_));
  txtNew_ = AddBox(*rows, "TxtNew", u"新口令(&N)"_s);
  txtNew_->setPlaceholderText(u"至少 %1 个字符"_s.arg(Accounts::kShortest));
  txtRepeat_ = AddBox(*rows, "TxtRepeat", u"再输一次(&R)"_s);
  lblMessage_ = AddMessageAndKeys(*rows, *this, u"确定(&K)"_s);
  connect(cboUser_, &QComboBox::currentIndexChanged, this, &PasswordDialog::ShowChosen);
  ShowChosen();
  ShowMessage(*lblMessage_, reason, false);
}

QLineEdit* PasswordDialog::AddBox(QFormLayout& rows, const char* name, const QString& caption) {
  auto* box = new QLineEdit;
  box->setObjectName(QLatin1String(name));
  box->setEchoMode(QLineEdit::Password);
  box->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
  rows.addRow(caption, box);
  return box;
}

QString PasswordDialog::ChosenUser() const { return cboUser_->currentData().toString(); }

// Who has forgotten a password gets another one from the administrator, who does not know it.
bool PasswordDialog::AsksForOld() const { return ChosenUser() == self_.id && accounts_.IsKnown(self_.id); }

void PasswordDialog::ShowChosen() {
  txtOld_->setVisible(AsksForOld());
  lblOld_->setVisible(AsksForOld());
  for (QLineEdit* box : {txtOld_, txtNew_, txtRepeat_}) box->clear();
  (AsksForOld() ? txtOld_ : txtNew_)->setFocus();
  ShowMessage(*lblMessage_, {}, false);
}

void PasswordDialog::accept() {
  try {
    if (txtNew_->text() != txtRepeat_->text()) throw HostError(u"两次输入的新口令不一致。"_s);
    if (AsksForOld()) accounts_.LogOn(self_.id, txtOld_->text());
    accounts_.SetPassword(ChosenUser(), txtNew_->text());
  } catch (const std::exception& error) {
    return ShowMessage(*lblMessage_, QString::fromUtf8(error.what()), true);
  }
  QDialog::accept();
}

}  // namespace folvane::host
