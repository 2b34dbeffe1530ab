#include "host/StartWindow.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <folvane/Icons.h>
#include <folvane/Version.h>

#include "host/EntryButton.h"

namespace folvane::host {
namespace {

QLabel* Text(const QString& text, double sizes, bool bold) {
  auto* label = new QLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * sizes);
  font.setBold(bold);
  label->setFont(font);
  return label;
}

QPushButton* Flat(const QString& text, const char* name, const QString& icon) {
  auto* button = new QPushButton(Icon(icon), text);
  button->setObjectName(QLatin1String(name));
  button->setFlat(true);
  return button;
}

}  // namespace

StartWindow::StartWindow(const Session& session, OpenEntry open, QWidget* parent)
    : QWidget(parent), open_(std::move(open)) {
  setObjectName(QStringLiteral("StartWindow"));
  setWindowTitle(QStringLiteral("公文登记归档系统"));
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
  picture->setPixmap(Icon(QStringLiteral("folvane")).pixmap(QSize(52, 52), devicePixelRatio()));
  auto* who =
      Text(QStringLiteral("%1，您好。当前数据库：%2").arg(session.User().name, session.Database().Title()), 1.0, false);
  who->setObjectName(QStringLiteral("LblUser"));
  auto* texts = new QVBoxLayout;
  texts->setSpacing(2);
  texts->addWidget(Text(QStringLiteral("公文登记归档系统"), 1.6, true));
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
  int place = 0;
  for (const Entry& entry : Entries()) {
    const QKeySequence keys(QKeyCombination(Qt::ControlModifier, Qt::Key(Qt::Key_1 + place)));
    auto* button = new EntryButton(Icon(entry.icon), entry.title, entry.line, keys);
    button->setObjectName(entry.name);
    if (!entry.provided) button->Disable(QStringLiteral("即将提供"));
    connect(button, &EntryButton::clicked, this, [this, &entry] { Open(entry); });
    grid->addWidget(button, place / 2, place % 2);
    ++place;
  }
  return grid;
}

QLayout* StartWindow::Foot() {
  auto* other = Flat(QStringLiteral("切换用户(&U)"), "CmdLogOn", QStringLiteral("user"));
  auto* about = Flat(QStringLiteral("关于(&A)"), "CmdAbout", QStringLiteral("about"));
  auto* leave = Flat(QStringLiteral("退出(&X)"), "CmdExit", QStringLiteral("exit"));
  auto* row = new QHBoxLayout;
  row->addWidget(other);
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

void StartWindow::Open(const Entry& entry) {
  try {
    open_(entry);
  } catch (const std::exception& error) {
    QMessageBox box(QMessageBox::Warning, entry.title, QStringLiteral("“%1”未能打开。").arg(entry.title), {}, this);
    box.setObjectName(QStringLiteral("EntryError"));
    box.setInformativeText(QString::fromUtf8(error.what()));
    box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
    box.exec();
  }
  activateWindow();
}

void StartWindow::ShowAbout() {
  QMessageBox box(QMessageBox::NoIcon, QStringLiteral("关于"), QStringLiteral("公文登记归档系统"), {}, this);
  box.setObjectName(QStringLiteral("About"));
  box.setIconPixmap(Icon(QStringLiteral("folvane")).pixmap(QSize(64, 64), devicePixelRatio()));
  box.setInformativeText(QStringLiteral("演示程序，Folvane 版本 %1\n\n浏览、登记、流转和归档都由 Folvane 组件完成；"
                                        "本程序只负责打开数据库和登录。")
                             .arg(Version()));
  box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace folvane::host
