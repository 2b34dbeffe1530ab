#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "bulk/ControlRows.h"
#include "bulk/FrmReplace.h"
#include "widgets/EditCombo.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kTextCharacters = 28;

}  // namespace

void FrmReplace::MakeControls() {
  find_ = Named(new EditCombo(this), u"CboFindTxt"_s, u"要查找的内容；模糊匹配时可用 * ? # [ ] 作通配符"_s);
  replace_ = Named(new EditCombo(this), u"CboRelaceTxt"_s, u"整个字段被替换成的内容"_s);
  allFields_ = Named(new QRadioButton(u"全部字段(&A)"_s, this), u"OptAll"_s, u"在所有字段中查找"_s);
  oneField_ = Named(new QRadioButton(u"选择字段(&F)"_s, this), u"OptField"_s, u"只在选择的字段中查找"_s);
  field_ = Named(new TextCombo(this), u"CboField"_s, u"要查找的字段"_s);
  way_ = Named(new TextCombo(this), u"CboFx"_s, u"向上、向下均从当前记录开始，包括当前记录"_s);
  whole_ = Named(new QCheckBox(u"全字匹配(&O)"_s, this), u"ChkAll"_s, u"值与查找内容连同首尾的 * 完全相同"_s);
  like_ = Named(new QCheckBox(u"模糊匹配(&U)"_s, this), u"ChkLike"_s, u"值中含有查找内容"_s);
  case_ = Named(new QCheckBox(u"区分大小写(&S)"_s, this), u"ChkApp"_s, {});
  status_ = Named(new QLabel(this), u"LblStatus"_s, {});
  status_->setTextFormat(Qt::PlainText);
  status_->setWordWrap(true);
  progress_ = Named(new QProgressBar(this), u"ProReplace"_s, {});
  field_->setAccessibleName(field_->toolTip());
  progress_->setAccessibleName(u"查找和替换的进度"_s);
}

void FrmReplace::MakeKeys() {
  const auto key = [this](const QString& name, const QString& caption, const QString& tip) {
    auto* made = Named(new QPushButton(caption, this), name, tip);
    made->setAutoDefault(false);
    return made;
  };
  findNext_ = key(u"CmdFindNext"_s, u"查找下一个(&N)"_s, u"从当前记录起查找 (F3)"_s);
  replaceOne_ = key(u"CmdReplace"_s, u"替换(&R)"_s, u"替换当前记录中找到的字段"_s);
  replaceAll_ = key(u"CmdReplaceAll"_s, u"全部替换(&L)"_s, u"替换该方向上所有找到的字段"_s);
  cancel_ = key(u"CmdCancel"_s, u"取消(&C)"_s, {});
  help_ = key(u"Command2"_s, u"帮助(&H)"_s, {});
  findNext_->setDefault(true);
}

void FrmReplace::LayOut() {
  auto* grid = new QGridLayout;
  grid->setColumnStretch(2, 1);
  AddRow(*grid, u"查找内容(&I):"_s, find_);
  AddRow(*grid, u"替换为(&W):"_s, replace_);
  find_->setMinimumWidth(fontMetrics().averageCharWidth() * kTextCharacters * 2);
  const int row = grid->rowCount();
  grid->addWidget(allFields_, row, 1, 1, 2, Qt::AlignLeft);
  grid->addWidget(oneField_, row + 1, 1);
  grid->addWidget(field_, row + 1, 2);
  AddRow(*grid, u"方向(&D):"_s, way_);
  auto* marks = new QHBoxLayout;
  for (QCheckBox* box : {whole_, like_, case_}) marks->addWidget(box);
  marks->addStretch();
  grid->addLayout(marks, grid->rowCount(), 1, 1, 2);

  auto* keys = new QVBoxLayout;
  for (QPushButton* key : {findNext_, replaceOne_, replaceAll_, cancel_}) keys->addWidget(key);
  keys->addStretch();
  keys->addWidget(help_);

  auto* columns = new QHBoxLayout;
  columns->addLayout(grid, 1);
  columns->addSpacing(12);
  columns->addLayout(keys);

  auto* status = new QHBoxLayout;
  status->addWidget(status_, 1);
  status->addWidget(progress_, 1);
  progress_->setTextVisible(false);
  progress_->hide();

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 12);
  column->addLayout(columns);
  column->addStretch();
  column->addLayout(status);
}

}  // namespace folvane
