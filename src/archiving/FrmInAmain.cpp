#include "archiving/FrmInAmain.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "base/CodePage.h"
#include "base/HalfWidth.h"
#include "base/OuterBlanks.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "widgets/TextBox.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMostTitleBytes = 160;

QString TypedTitle(const QString& typed) { return ToFullWidth(QString(typed).remove(u' ')); }

}  // namespace

FrmInAmain::FrmInAmain() : title_(new TextBox(this)) {
  setObjectName(u"FrmInAmain"_s);
  setWindowTitle(u"请输案卷入题名"_s);
  setWindowIcon(Icon(u"archive"_s));
  title_->setObjectName(u"TxtTitle"_s);
  title_->SetAdmission(TypedTitle);
  LayOut();
}

void FrmInAmain::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 16);
  auto* label = new QLabel(u"本次归档形成了一个新的案卷，请输入它的题名(&T)："_s, this);
  label->setBuddy(title_);
  column->addWidget(label);
  title_->setAccessibleName(u"案卷题名"_s);
  title_->setMinimumWidth(title_->fontMetrics().averageCharWidth() * 80);
  column->addWidget(title_);
  column->addStretch();
  auto* ok = new QPushButton(u"确定(&O)"_s, this);
  ok->setObjectName(u"CmdOK"_s);
  ok->setDefault(true);
  ConnectGuarded(ok, &QPushButton::clicked, this, &FrmInAmain::TakeTitle);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(ok);
  column->addSpacing(8);
  column->addLayout(row);
}

void FrmInAmain::TakeTitle() {
  const QString title = WithoutOuterBlanks(title_->text());
  const bool isLong = ByteLength(title) > kMostTitleBytes;
  if (title.isEmpty() || isLong) {
    ShowMessage(isLong ? u"你输入的题名应该控制在160个字符以内！请重新输入！"_s : u"请输入你的案卷题名！"_s,
                MessageFlag::Information, windowTitle());
    title_->setFocus();
    return;
  }
  Title = title;
  accept();
}

}  // namespace folvane
