#include "host/LogOnDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "host/Accounts.h"
#include "host/Banner.h"
#include "host/Message.h"
#include "host/NewOfficeDialog.h"
#include "host/PasswordDialog.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QLatin1String(name));
  return control;
}

QPushButton* Button(const QString& text, const char* name, const QString& icon) {
  auto* button = Named(new QPushButton(text), name);
  button->setIcon(Icon(icon));
  button->setAutoDefault(false);
  return button;
}

}  // namespace

LogOnDialog::LogOnDialog(const LogOnChoices& choices, DemoMaker makeDemo, QWidget* parent)
    : QDialog(parent), makeDemo_(std::move(makeDemo)) {
  setObjectName(u"LogOnDialog"_s);
  setWindowTitle(u"登录 - 公文登记归档系统"_s);
  auto* across = new QHBoxLayout(this);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(0);
  across->addWidget(new Banner(u"公文登记归档系统"_s, u"登记 · 流转 · 归档"_s));
  across->addWidget(Form(), 1);
  Show(choices);
  if (txtPassword_->isEnabled()) txtPassword_->setFocus();
}

QWidget* LogOnDialog::Form() {
  optFile_ = Named(new QRadioButton(u"数据库文件(&F)"_s), "OptFile");
  optOdbc_ = Named(new QRadioButton(u"数据库服务器(&S)"_s), "OptOdbc");
  auto* ways = new QHBoxLayout;
  ways->addWidget(optFile_);
  ways->addWidget(optOdbc_);
  ways->addStretch();

  txtOdbc_ = Named(new QLineEdit, "TxtOdbc");
  txtOdbc_->setAccessibleName(u"ODBC 连接串"_s);
  txtOdbc_->setPlaceholderText(u"Driver={PostgreSQL ANSI};Server=…;Database=…;Uid=…;Pwd=…;"_s);
  auto* where = new QVBoxLayout;
  where->setSpacing(0);
  where->addLayout(FileRow());
  where->addWidget(txtOdbc_);

  cboKind_ = Named(new QComboBox, "CboKind");
  cboKind_->addItem(kSqlServer, kSqlServer);
  cboKind_->addItem(kSysbase, kSysbase);
  cboKind_->addItem(u"本地目录"_s, kLocal);
  cboUser_ = Named(new QComboBox, "CboUser");
  cboUser_->setEditable(true);
  cboUser_->setInsertPolicy(QComboBox::NoInsert);
  txtPassword_ = Named(new QLineEdit, "TxtPassword");
  txtPassword_->setEchoMode(QLineEdit::Password);
  lblMessage_ = Named(new QLabel, "LblMessage");
  lblMessage_->setWordWrap(true);
  lblMessage_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  lblMessage_->setMinimumHeight(fontMetrics().lineSpacing() * 3);
  lblMessage_->setTextInteractionFlags(Qt::TextSelectableByMouse);

  auto* rows = new QFormLayout;
  rows->setVerticalSpacing(12);
  rows->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  rows->addRow(u"数据库"_s, ways);
  rows->addRow(QString(), where);
  rows->addRow(u"数据库种类(&K)"_s, cboKind_);
  rows->addRow(u"登录用户(&U)"_s, cboUser_);
  rows->addRow(u"口令(&P)"_s, txtPassword_);

  auto* form = new QWidget;
  form->setMinimumWidth(fontMetrics().averageCharWidth() * 72);
  auto* down = new QVBoxLayout(form);
  down->setContentsMargins(28, 28, 28, 20);
  down->addLayout(rows);
  down->addSpacing(8);
  down->addWidget(lblMessage_, 1);
  down->addLayout(Buttons());
  connect(optOdbc_, &QRadioButton::toggled, this, &LogOnDialog::ShowWayIn);
  connect(txtFile_, &QLineEdit::editingFinished, this, &LogOnDialog::Connect);
  connect(txtOdbc_, &QLineEdit::editingFinished, this, &LogOnDialog::Connect);
  return form;
}

QLayout* LogOnDialog::FileRow() {
  fileRow_ = new QWidget;
  txtFile_ = Named(new QLineEdit, "TxtFile");
  txtFile_->setAccessibleName(u"数据库文件"_s);
  auto* browse = Button(u"浏览(&B)..."_s, "CmdBrowse", u"open"_s);
  auto* row = new QHBoxLayout(fileRow_);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(txtFile_, 1);
  row->addWidget(browse);
  connect(browse, &QPushButton::clicked, this, &LogOnDialog::Browse);
  auto* holder = new QHBoxLayout;
  holder->addWidget(fileRow_);
  return holder;
}

QLayout* LogOnDialog::Buttons() {
  auto* demo = Button(u"演示数据库(&D)"_s, "CmdDemo", u"database"_s);
  demo->setToolTip(u"没有时先建立演示数据库，然后打开它"_s);
  auto* fresh = Button(u"新建(&N)..."_s, "CmdNew", u"new"_s);
  fresh->setToolTip(u"按现成的设计建立一个新的数据库"_s);
  auto* logOn = Button(u"登录(&L)"_s, "CmdOK", u"user"_s);
  logOn->setDefault(true);
  auto* leave = Button(u"退出(&X)"_s, "CmdCancel", u"exit"_s);
  auto* row = new QHBoxLayout;
  row->addWidget(demo);
  row->addWidget(fresh);
  row->addStretch();
  row->addWidget(logOn);
  row->addWidget(leave);
  connect(demo, &QPushButton::clicked, this, &LogOnDialog::MakeDemo);
  connect(fresh, &QPushButton::clicked, this, &LogOnDialog::MakeOffice);
  connect(logOn, &QPushButton::clicked, this, &LogOnDialog::accept);
  connect(leave, &QPushButton::clicked, this, &LogOnDialog::reject);
  return row;
}

LogOnChoices LogOnDialog::Choices() const {
  return {optOdbc_->isChecked(), txtFile_->text().trimmed(), txtOdbc_->text().trimmed(), UserId(),
          cboKind_->currentData().toString()};
}

void LogOnDialog::Show(const LogOnChoices& choices) {
  wantedUser_ = choices.user;
  txtFile_->setText(choices.file);
  txtOdbc_->setText(choices.odbc);
  const int kind = cboKind_->findData(choices.kind.toUpper());
  cboKind_->setCurrentIndex(kind < 0 ? cboKind_->findData(kLocal) : kind);
  {
    const QSignalBlocker quiet(optOdbc_);
    optOdbc_->setChecked(choices.useOdbc);
    optFile_->setChecked(!choices.useOdbc);
  }
  ShowWayIn();
}

void LogOnDialog::ShowWayIn() {
  const bool odbc = optOdbc_->isChecked();
  txtOdbc_->setVisible(odbc);
  fileRow_->setVisible(!odbc);
  if ((odbc ? txtOdbc_ : txtFile_)->text().trimmed().isEmpty()) {
    database_.reset();
    ListUsers();
    ShowMessage(*lblMessage_,
                odbc ? u"请输入 ODBC 连接串。"_s : u"请选择数据库文件；还没有数据库时可以先打开演示数据库。"_s, false);
    return;
  }
  Connect();
}

void LogOnDialog::Browse() {
  const QString file = QFileDialog::getOpenFileName(this, u"选择数据库文件"_s, txtFile_->text(),
                                                    u"SQLite 数据库 (*.db *.sqlite *.db3);;所有文件 (*)"_s);
  if (file.isEmpty()) return;
  txtFile_->setText(file);
  Connect();
}

void LogOnDialog::MakeDemo() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    txtFile_->setText(makeDemo_());
    wantedUser_ = u"1"_s;
    optFile_->setChecked(true);
    Connect();
  } catch (const std::exception& error) {
    ShowMessage(*lblMessage_, QString::fromUtf8(error.what()), true);
  }
  QApplication::restoreOverrideCursor();
}

void LogOnDialog::MakeOffice() {
  NewOfficeDialog dialog(this);
  if (dialog.exec() != QDialog::Accepted) return;
  const DatabaseChoice made = dialog.Where();
  wantedUser_ = u"1"_s;
  database_.reset();
  cboUser_->clear();
  (made.file.isEmpty() ? optOdbc_ : optFile_)->setChecked(true);
  (made.file.isEmpty() ? txtOdbc_ : txtFile_)->setText(made.file.isEmpty() ? made.odbc : made.file);
  if (Connect()) ShowMessage(*lblMessage_, u"已建立“%1”，请用管理员的口令登录。"_s.arg(database_->Title()), false);
  txtPassword_->setFocus();
}

// Opens the chosen database unless it is the open one, and lists its users.
bool LogOnDialog::Connect() {
  const DatabaseChoice choice = Choices().Database();
  if (database_ && database_->Choice() == choice) return true;
  database_.reset();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    database_ = HostDatabase::Open(choice);
    ShowMessage(*lblMessage_, u"已连接“%1”，共有 %2 个用户。"_s.arg(database_->Title()).arg(database_->Users().size()),
                false);
  } catch (const std::exception& error) {
    ShowMessage(*lblMessage_, QString::fromUtf8(error.what()), true);
  }
  QApplication::restoreOverrideCursor();
  ListUsers();
  return database_ != nullptr;
}

void LogOnDialog::ListUsers() {
  if (!UserId().isEmpty()) wantedUser_ = UserId();
  cboUser_->clear();
  if (database_) {
    for (const HostUser& user : database_->Users()) cboUser_->addItem(user.id + u"  "_s + user.name, user.id);
  }
  const int known = cboUser_->findData(wantedUser_);
  if (known >= 0) cboUser_->setCurrentIndex(known);
  cboUser_->setEnabled(database_ != nullptr);
  ShowRule();
}

void LogOnDialog::ShowRule() {
  txtPassword_->clear();
  const bool asks = database_ && Accounts(database_->Connection()).LogOnRule() == Accounts::Rule::Password;
  txtPassword_->setEnabled(asks);
  txtPassword_->setPlaceholderText(!database_ || asks ? QString() : u"不需要口令"_s);
}

// The number of the chosen entry, or what was typed in place of one.
QString LogOnDialog::UserId() const {
  const QString shown = cboUser_->currentText().trimmed();
  const int entry = cboUser_->findText(shown);
  return entry < 0 ? shown : cboUser_->itemData(entry).toString();
}

bool LogOnDialog::Authenticate() {
  const HostUser user = database_->User(UserId());
  const Accounts accounts(database_->Connection());
  switch (accounts.LogOnRule()) {
    case Accounts::Rule::Free:
      return true;
    case Accounts::Rule::FirstPassword:
      if (!IsAdministrator(user.id))
        throw HostError(u"该数据库还没有设置口令，请先由系统管理员（编号 1）登录并设置。"_s);
      return PasswordDialog(accounts, user, {}, u"该数据库还没有口令，请先为系统管理员设置一个。"_s, this).exec() ==
             QDialog::Accepted;
    case Accounts::Rule::Password:
      break;
  }
  if (txtPassword_->text().isEmpty()) {
    txtPassword_->setFocus();
    throw HostError(u"请输入口令。"_s);
  }
  const QString password = txtPassword_->text();
  txtPassword_->clear();
  accounts.LogOn(user.id, password);
  return true;
}

void LogOnDialog::accept() {
  if (!Connect()) return;
  try {
    if (!Authenticate()) return;
    session_ = std::make_unique<Session>(database_, UserId(), cboKind_->currentData().toString());
  } catch (const std::exception& error) {
    ShowMessage(*lblMessage_, QString::fromUtf8(error.what()), true);
    return;
  }
  RememberChoices(Choices());
  QDialog::accept();
}

}  // namespace folvane::host
