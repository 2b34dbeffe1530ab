#include "host/NewOfficeDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <folvane/HostServices.h>
#include <folvane/Icons.h>

#include "host/Accounts.h"
#include "host/Message.h"
#include "host/readymade/ReadyMade.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

const QStringList kUsual{u"incoming"_s, u"outgoing"_s, u"archive-items"_s};

QLineEdit* Box(const char* name, bool hidden = false) {
  auto* box = new QLineEdit;
  box->setObjectName(QLatin1String(name));
  if (hidden) box->setEchoMode(QLineEdit::Password);
  return box;
}

QString AskForFile(const QString& suggested) {
  const QString title = u"新建数据库文件"_s;
  if (const auto& ask = Services().fileDialog) return ask({true, title, suggested, u"SQLite 数据库|*.db"_s});
  return QFileDialog::getSaveFileName(nullptr, title, suggested, u"SQLite 数据库 (*.db)"_s);
}

}  // namespace

NewOfficeDialog::NewOfficeDialog(QWidget* parent) : QDialog(parent) {
  setObjectName(u"NewOfficeDialog"_s);
  setWindowTitle(u"新建数据库"_s);
  auto* rows = new QFormLayout(this);
  rows->setContentsMargins(24, 20, 24, 16);
  rows->setVerticalSpacing(10);
  rows->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
  rows->addRow(u"数据库"_s, Place());
  lstDesigns_ = Designs();
  rows->addRow(u"管理内容(&D)"_s, lstDesigns_);
  txtName_ = Box("TxtName");
  txtName_->setText(u"系统管理员"_s);
  rows->addRow(u"管理员姓名(&N)"_s, txtName_);
  txtPassword_ = Box("TxtPassword", true);
  txtPassword_->setPlaceholderText(u"至少 %1 个字符"_s.arg(Accounts::kShortest));
  rows->addRow(u"管理员口令(&P)"_s, txtPassword_);
  txtRepeat_ = Box("TxtRepeat", true);
  rows->addRow(u"再输一次(&R)"_s, txtRepeat_);
  lblMessage_ = AddMessageAndKeys(*rows, *this, u"建立(&K)"_s);
  ShowWay();
  ShowMessage(*lblMessage_, u"勾选要管理的内容；以后可以随时增加。"_s, false);
}

QLayout* NewOfficeDialog::Place() {
  optFile_ = new QRadioButton(u"数据库文件(&F)"_s);
  optFile_->setObjectName(u"OptFile"_s);
  optFile_->setChecked(true);
  optOdbc_ = new QRadioButton(u"数据库服务器(&S)"_s);
  optOdbc_->setObjectName(u"OptOdbc"_s);
  auto* ways = new QHBoxLayout;
  ways->addWidget(optFile_);
  ways->addWidget(optOdbc_);
  ways->addStretch();

  fileRow_ = new QWidget;
  txtFile_ = Box("TxtFile");
  txtFile_->setAccessibleName(u"数据库文件"_s);
  auto* browse = new QPushButton(Icon(u"open"_s), u"浏览(&B)..."_s);
  browse->setObjectName(u"CmdBrowse"_s);
  browse->setAutoDefault(false);
  auto* file = new QHBoxLayout(fileRow_);
  file->setContentsMargins(0, 0, 0, 0);
  file->addWidget(txtFile_, 1);
  file->addWidget(browse);
  txtOdbc_ = Box("TxtOdbc");
  txtOdbc_->setAccessibleName(u"ODBC 连接串"_s);
  txtOdbc_->setPlaceholderText(u"Driver={PostgreSQL ANSI};Server=…;Database=…;Uid=…;Pwd=…;"_s);
  auto* place = new QVBoxLayout;
  place->addLayout(ways);
  place->addWidget(fileRow_);
  place->addWidget(txtOdbc_);
  connect(optFile_, &QRadioButton::toggled, this, &NewOfficeDialog::ShowWay);
  connect(browse, &QPushButton::clicked, this, &NewOfficeDialog::Browse);
  return place;
}

QListWidget* NewOfficeDialog::Designs() {
  auto* list = new QListWidget;
  list->setObjectName(u"LstDesigns"_s);
  list->setAccessibleName(u"管理内容"_s);
  for (const ReadyMade& design : ReadyMades()) {
    auto* item = new QListWidgetItem(design.title + u"  —  "_s + design.line, list);
    item->setData(Qt::UserRole, design.name);
    item->setCheckState(kUsual.contains(design.name) ? Qt::Checked : Qt::Unchecked);
  }
  list->setMinimumWidth(fontMetrics().averageCharWidth() * 76);
  const int rowHeight = std::max(list->sizeHintForRow(0), fontMetrics().lineSpacing());
  list->setMinimumHeight(rowHeight * list->count() + 2 * list->frameWidth() + 4);
  return list;
}

void NewOfficeDialog::ShowWay() {
  fileRow_->setVisible(optFile_->isChecked());
  txtOdbc_->setVisible(!optFile_->isChecked());
}

void NewOfficeDialog::Browse() {
  const QString file = AskForFile(txtFile_->text());
  if (file.isEmpty()) return;
  txtFile_->setText(QFileInfo(file).suffix().isEmpty() ? file + u".db"_s : file);
}

DatabaseChoice NewOfficeDialog::Where() const {
  return optFile_->isChecked() ? DatabaseChoice{txtFile_->text().trimmed(), {}}
                               : DatabaseChoice{{}, txtOdbc_->text().trimmed()};
}

OfficeOrder NewOfficeDialog::Order() const {
  OfficeOrder order{Where(), {}, txtName_->text().trimmed(), txtPassword_->text()};
  for (int row = 0; row < lstDesigns_->count(); ++row) {
    const QListWidgetItem& item = *lstDesigns_->item(row);
    if (item.checkState() == Qt::Checked) order.readyMade << item.data(Qt::UserRole).toString();
  }
  return order;
}

void NewOfficeDialog::accept() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QString refusal;
  try {
    if (txtPassword_->text() != txtRepeat_->text()) throw HostError(u"两次输入的口令不一致。"_s);
    MakeOffice(Order());
  } catch (const std::exception& error) {
    refusal = QString::fromUtf8(error.what());
  }
  QApplication::restoreOverrideCursor();
  if (!refusal.isEmpty()) return ShowMessage(*lblMessage_, refusal, true);
  QDialog::accept();
}

}  // namespace folvane::host
