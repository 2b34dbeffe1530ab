#include "host/StartWindow.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QVBoxLayout>

#include <folvane/Designer.h>
#include <folvane/HostServices.h>
#include <folvane/Icons.h>
#include <folvane/Version.h>

#include "host/EntryButton.h"
#include "host/OfficeCopy.h"
#include "host/PasswordDialog.h"

namespace folvane::host {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kWhole = 1000;  // steps of the progress

QLabel* Text(const QString& text, double sizes, bool bold) {
  auto* label = new QLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * sizes);
  font.setBold(bold);
  label->setFont(font);
  return label;
}

QString AskForCopy(const QString& suggested) {
  const QString title = u"备份数据库"_s;
  if (const auto& ask = Services().fileDialog) return ask({true, title, suggested, u"SQLite 数据库|*.db"_s});
  return QFileDialog::getSaveFileName(nullptr, title, suggested, u"SQLite 数据库 (*.db)"_s);
}

QPushButton* Flat(const QString& text, const char* name, const QString& icon) {
  auto* button = new QPushButton(Icon(icon), text);
  button->setObjectName(QLatin1String(name));
  button->setFlat(true);
  return button;
}

}  // namespace

StartWindow::StartWindow(const Session& session, OpenEntry open, QWidget* parent)
    : QWidget(parent), session_(session), open_(std::move(open)) {
  setObjectName(u"StartWindow"_s);
  setWindowTitle(u"公文登记归档系统"_s);
  auto* down = new QVBoxLayout(this);
  down->setContentsMargins(28, 24, 28, 16);
  down->setSpacing(20);
  down->addWidget(Head(session));
  down->addLayout(Cards(), 1);
  down->addLayout(Foot());
  resize(sizeHint());
}

QWidget* StartWindow::Head(const Session& session) {
  auto* head = new QWidget;
  auto* picture = new QLabel;
  picture->setPixmap(Icon(u"folvane"_s).pixmap(QSize(52, 52), devicePixelRatio()));
  auto* who = Text(u"%1，您好。当前数据库：%2"_s.arg(session.User().name, session.Database().Title()), 1.0, false);
  who->setObjectName(u"LblUser"_s);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(2);
  texts->addWidget(Text(u"公文登记归档系统"_s, 1.6, true));
  texts->addWidget(who);
  auto* across = new QHBoxLayout(head);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(16);
  across->addWidget(picture);
  across->addLayout(texts, 1);
  return head;
}

QLayout* StartWindow::Cards() {
  auto* grid = new QGridLayout;
  grid->setSpacing(14);
  int index = 0;
  for (const Entry& entry : Entries()) {
    const QKeySequence keys(QKeyCombination(Qt::ControlModifier, Qt::Key(Qt::Key_1 + index)));
    auto* button = new EntryButton(Icon(entry.icon), entry.title, entry.line, keys);
    button->setObjectName(entry.name);
    connect(button, &EntryButton::clicked, this, [this, &entry] { Open(entry.title, [&] { open_(entry); }); });
    grid->addWidget(button, index / 2, index % 2);
    ++index;
  }
  return grid;
}

QLayout* StartWindow::Foot() {
  auto* other = Flat(u"切换用户(&U)"_s, "CmdLogOn", u"user"_s);
  auto* about = Flat(u"关于(&A)"_s, "CmdAbout", u"about"_s);
  auto* leave = Flat(u"退出(&X)"_s, "CmdExit", u"exit"_s);
  auto* row = new QHBoxLayout;
  row->addWidget(other);
  if (Accounts(session_.Database().Connection()).LogOnRule() != Accounts::Rule::Free) {
    auto* password = Flat(u"口令(&P)..."_s, "CmdPassword", u"collect"_s);
    connect(password, &QPushButton::clicked, this, &StartWindow::SetPassword);
    row->addWidget(password);
  }
  if (IsAdministrator(session_.User().id)) {
    auto* design = Flat(u"设计(&D)..."_s, "CmdDesign", u"mod"_s);
    design->setToolTip(u"设计登记和归档用的表、录入界面、列表、查询、字典和权限"_s);
    connect(design, &QPushButton::clicked, this, [this] { Open(u"设计"_s, ShowDesigner); });
    row->addWidget(design);
  }
  if (IsAdministrator(session_.User().id) && !session_.Database().Choice().file.isEmpty()) {
    auto* copy = Flat(u"备份(&B)..."_s, "CmdCopy", u"save"_s);
    copy->setToolTip(u"把数据库复制到另一个文件，并检查副本是否完好"_s);
    connect(copy, &QPushButton::clicked, this, &StartWindow::CopyDatabase);
    row->addWidget(copy);
  }
  row->addWidget(about);
  row->addStretch();
  row->addWidget(leave);
  connect(other, &QPushButton::clicked, this, [this] {
    logOnAgain_ = true;
    close();
  });
  connect(about, &QPushButton::clicked, this, &StartWindow::ShowAbout);
  connect(leave, &QPushButton::clicked, this, &StartWindow::close);
  return row;
}

void StartWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  Q_EMIT Finished(logOnAgain_);
}

void StartWindow::Open(const QString& title, const std::function<void()>& open) {
  try {
    open();
  } catch (const std::exception& error) {
    QMessageBox box(QMessageBox::Warning, title, u"“%1”未能打开。"_s.arg(title), {}, this);
    box.setObjectName(u"EntryError"_s);
    box.setInformativeText(QString::fromUtf8(error.what()));
    box.addButton(u"确定"_s, QMessageBox::AcceptRole);
    box.exec();
  }
  activateWindow();
}

void StartWindow::SetPassword() {
  const HostDatabase& database = session_.Database();
  PasswordDialog(Accounts(database.Connection()), session_.User(), database.Users(), {}, this).exec();
}

void StartWindow::CopyDatabase() {
  const QString source = session_.Database().Choice().file;
  const QFileInfo info(source);
  const QString suggested =
      info.dir().filePath(info.completeBaseName() + Services().now().toString(u"-yyyyMMdd-HHmm."_s) + info.suffix());
  const QString target = AskForCopy(suggested);
  if (target.isEmpty()) return;
  QMessageBox box(QMessageBox::Information, u"备份数据库"_s, {}, {}, this);
  box.setObjectName(u"CopyOutcome"_s);
  box.addButton(u"确定"_s, QMessageBox::AcceptRole);
  try {
    QProgressDialog work(u"正在备份，请稍等..."_s, u"取消"_s, 0, kWhole, this);
    work.setWindowTitle(u"备份数据库"_s);
    work.setWindowModality(Qt::WindowModal);
    const bool isDone = CopyOffice(source, target, [&](double done) {
      work.setValue(int(done * (kWhole - 1)));
      return !work.wasCanceled();
    });
    if (!isDone) return;
    box.setText(u"数据库已备份，副本完好。"_s);
    box.setInformativeText(u"%1\n原文文件不在其中，请另外备份。"_s.arg(QDir::toNativeSeparators(target)));
  } catch (const std::exception& error) {
    box.setIcon(QMessageBox::Warning);
    box.setText(u"数据库没有备份。"_s);
    box.setInformativeText(QString::fromUtf8(error.what()));
  }
  box.exec();
}

void StartWindow::ShowAbout() {
  QMessageBox box(QMessageBox::NoIcon, u"关于"_s, u"公文登记归档系统"_s, {}, this);
  box.setObjectName(u"About"_s);
  box.setIconPixmap(Icon(u"folvane"_s).pixmap(QSize(64, 64), devicePixelRatio()));
  box.setInformativeText(
      u"演示程序，Folvane 版本 %1\n\n浏览、登记、流转和归档都由 Folvane 组件完成；"
      "本程序只负责打开数据库和登录。"_s.arg(Version()));
  box.addButton(u"确定"_s, QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace folvane::host
