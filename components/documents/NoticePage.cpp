#include "components/documents/NoticePage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "components/common/Notice.h"

namespace folvane::documents {
namespace {
using namespace Qt::Literals::StringLiterals;

QPushButton* NewOffer(const QString& name, const QString& icon, const QString& caption, QWidget* parent) {
  auto* key = new QPushButton(Icon(icon), caption, parent);
  key->setObjectName(name);
  key->setAutoDefault(false);
  return key;
}

}  // namespace

NoticePage::NoticePage(QWidget* parent)
    : QWidget(parent),
      text_(new QLabel(this)),
      passwordRow_(new QWidget(this)),
      password_(new QLineEdit(passwordRow_)),
      retry_(NewOffer(u"CmdRetry"_s, u"refresh"_s, u"重新读取(&R)"_s, this)),
      open_(NewOffer(u"CmdOpenOutside"_s, u"open"_s, u"用其他程序打开(&O)"_s, this)),
      save_(NewOffer(u"CmdSaveCopy"_s, u"save"_s, u"另存副本(&A)"_s, this)) {
  setBackgroundRole(QPalette::Window);
  text_->setObjectName(u"LblNotice"_s);
  text_->setTextFormat(Qt::PlainText);  // what a server has said may be in it
  text_->setAlignment(Qt::AlignCenter);
  text_->setWordWrap(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  password_->setObjectName(u"TxtPassword"_s);
  password_->setAccessibleName(u"密码"_s);
  password_->setPlaceholderText(u"密码"_s);
  password_->setEchoMode(QLineEdit::Password);
  password_->setMaximumWidth(240);
  auto* unlock = NewOffer(u"CmdUnlock"_s, u"open"_s, u"打开(&O)"_s, passwordRow_);

  const auto row = [](QWidget* owner, const QList<QWidget*>& widgets) {
    auto* box = owner ? new QHBoxLayout(owner) : new QHBoxLayout;
    box->addStretch();
    for (QWidget* widget : widgets) box->addWidget(widget);
    box->addStretch();
    return box;
  };
  row(passwordRow_, {password_, unlock});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(40, 20, 40, 20);
  column->setSpacing(16);
  column->addStretch(2);
  column->addWidget(text_);
  column->addWidget(passwordRow_);
  column->addLayout(row(nullptr, {retry_, open_, save_}));
  column->addStretch(3);

  const auto give = [this] { notices::Guarded([this] { this->unlock(password_->text()); }); };
  connect(unlock, &QPushButton::clicked, this, give);
  connect(password_, &QLineEdit::returnPressed, this, give);
  connect(retry_, &QPushButton::clicked, this, [this] { notices::Guarded(retry); });
  connect(open_, &QPushButton::clicked, this, [this] { notices::Guarded(open); });
  connect(save_, &QPushButton::clicked, this, [this] { notices::Guarded(save); });
}

void NoticePage::Say(const QString& text, const Offers& offers) {
  text_->setText(text);
  passwordRow_->setVisible(offers.password);
  password_->clear();
  if (offers.password) password_->setFocus();
  retry_->setVisible(offers.retry);
  open_->setVisible(offers.open);
  save_->setVisible(offers.save);
}

}  // namespace folvane::documents
