#include "entry/FrmCustomFormat.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include <folvane/Icons.h>

#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "widgets/DialogKeys.h"
#include "widgets/TextBox.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// What the help texts say is not always what the patterns do: a pattern distinguishes upper and lower case.
const std::array kHelpTexts{
    u"如何设置自定义格式"_s,
    u"特殊符号表示"_s,
    u"\"?\" 代表(任一个单个字符)、\"*\"(0以上字符)\"和#(任意单个数)"_s,
    QString(),
    u"\"AB###\"  可表示为 \"AB123\" 或 \"ab3934\""_s,
    u"\"ABC*XYZ 可表示为 \"ABCDEFGHI-VWXYZ\""_s,
    u"\"1???X\"  可表示为 \"1234X\" 或 \"1uxcx\""_s,
    u"请详细阅读示例说明后在下面框中输入自定义格式......"_s,
};

}  // namespace

FrmCustomFormat::FrmCustomFormat() : format_(new TextBox(this)) {
  setObjectName(u"FrmCustomFormat"_s);
  setWindowTitle(u"设置自定义格式"_s);
  setWindowIcon(Icon(u"collect"_s));
  format_->setObjectName(u"TxtFormat"_s);
  format_->setAccessibleName(u"自定义格式"_s);
  LayOut();
}

void FrmCustomFormat::LayOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 16);
  column->setSizeConstraint(QLayout::SetFixedSize);
  for (size_t i = 0; i < kHelpTexts.size(); ++i) {
    auto* label = new QLabel(kHelpTexts[i], this);
    label->setObjectName(u"Label%1"_s.arg(i + 1));
    label->setTextFormat(Qt::PlainText);
    column->addWidget(label);
  }
  column->addWidget(format_);
  column->addSpacing(8);
  const DialogKeys keys(*this);
  column->addLayout(keys.row);
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, &FrmCustomFormat::TakePattern);
}

void FrmCustomFormat::Open(const QString& pattern) {
  ReturnStr.clear();
  format_->setText(pattern);
  format_->selectAll();
  format_->setFocus();
  ShowModal(*this);
}

void FrmCustomFormat::TakePattern() {
  const QString pattern = format_->text().trimmed();
  if (pattern.isEmpty()) {
    ShowMessage(u"不允许输入空格式,请重输!"_s, MessageFlag::Critical);
    format_->setFocus();
    return;
  }
  ReturnStr = pattern;
  accept();
}

}  // namespace folvane
