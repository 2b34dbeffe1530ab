#include "widgets/FrmAbout.h"

#include <QLabel>
#include <QVBoxLayout>

#include <folvane/Icons.h>
#include <folvane/Version.h>

#include "shell/EventGuard.h"
#include "shell/OpenHelp.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kPictureSize = 96;

}  // namespace

FrmAbout::FrmAbout() {
  setObjectName(u"frmAbout"_s);
  setWindowTitle(u"关于"_s);
  setWindowIcon(Icon(u"about"_s));
  auto* column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->setContentsMargins(48, 32, 48, 24);
  column->setSpacing(16);
  auto* picture = new QLabel(this);
  picture->setObjectName(u"Picture1"_s);
  picture->setPixmap(Icon(u"folvane"_s).pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatioF()));
  picture->setAlignment(Qt::AlignCenter);
  picture->setAccessibleName(u"公文登记与归档系统的图标"_s);
  auto* version = new QLabel(u"Folvane 版本 "_s + Version(), this);
  version->setObjectName(u"LblVersion"_s);
  version->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* link = new QLabel(u"<a href=\"help\">公文登记与归档系统的帮助</a>"_s, this);
  link->setObjectName(u"LblLink"_s);
  link->setAccessibleName(u"公文登记与归档系统的帮助"_s);
  link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  ConnectGuarded(link, &QLabel::linkActivated, this, [this] { OpenHelp(this, u"文件登记.htm"_s); });
  column->addWidget(picture);
  column->addWidget(version, 0, Qt::AlignCenter);
  column->addWidget(link, 0, Qt::AlignCenter);
}

}  // namespace folvane
