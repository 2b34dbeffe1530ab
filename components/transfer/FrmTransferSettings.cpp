#include "components/transfer/FrmTransferSettings.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <folvane/Help.h>
#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"
#include "components/transfer/FormatPage.h"
#include "components/transfer/SetsPage.h"
#include "components/transfer/SettingsList.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

constexpr qsizetype kErrorsShown = 8;

}  // namespace

FrmTransferSettings::FrmTransferSettings(QWidget* parent, std::shared_ptr<Connection> connection)
    : QDialog(parent),
      settings_(std::move(connection)),
      pages_(new QTabWidget(this)),
      sets_(new SetsPage(this, settings_)),
      format_(new FormatPage(this, settings_)),
      state_(new QLabel(this)) {
  setObjectName(u"FrmTransferSettings"_s);
  setWindowTitle(u"归档设置[*]"_s);
  setWindowIcon(Icon(u"archive"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LayOut();
  Refresh();
  KeepPlacement(*this);
  for (SettingsList* list : findChildren<SettingsList*>()) KeepWidths(*list->header());
  for (QSplitter* splitter : findChildren<QSplitter*>()) KeepSizes(*splitter);
  sets_->findChild<SettingsList*>(u"LvSets"_s)->setFocus();
}

void FrmTransferSettings::LayOut() {
  pages_->setObjectName(u"TabSettings"_s);
  pages_->setAccessibleName(u"归档设置"_s);
  pages_->addTab(sets_, Icon(u"toparent"_s), u"归档对应(&1)"_s);
  pages_->addTab(format_, Icon(u"order"_s), u"档号格式(&2)"_s);
  state_->setObjectName(u"LblState"_s);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  for (auto* onWord : {&sets_->onWord, &format_->onWord})
    *onWord = [this](const QString& text) { state_->setText(text); };
  for (auto* onChange : {&sets_->onChange, &format_->onChange}) *onChange = [this] { ShowState(); };
  connect(pages_, &QTabWidget::currentChanged, this, [this](int page) { Guarded([&] { ShowPage(page); }); });
  auto* column = new QVBoxLayout(this);
  column->addWidget(pages_, 1);
  column->addLayout(NewKeys());
  const QFontMetrics metrics(font());
  resize(metrics.averageCharWidth() * 172, metrics.lineSpacing() * 50);
}

QHBoxLayout* FrmTransferSettings::NewKeys() {
  auto* row = new QHBoxLayout;
  row->addWidget(state_, 1);
  auto* reload = NewPushButton(this, {u"CmdReload"_s, u"refresh"_s, u"重新读取(&R)"_s, u"重新读取设置 (F5)"_s, {}},
                               [this] { ReadAgain(); });
  save_ = NewPushButton(this, {u"CmdSave"_s, u"save"_s, u"保存(&S)"_s, u"保存设置 (Ctrl+S)"_s, {}}, [this] { Save(); });
  auto* leave =
      NewPushButton(this, {u"CmdClose"_s, u"exit"_s, u"关闭(&C)"_s, u"关闭窗口 (Esc)"_s, {}}, [this] { reject(); });
  for (QPushButton* key : {reload, save_, leave}) row->addWidget(key);
  const auto add = [this](const QKeySequence& keys, QPushButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
  };
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
          [this] { OpenHelp(this, u"归档设置.htm"_s); });
  add(QKeySequence::Refresh, reload);
  add(QKeySequence::Save, save_);
  return row;
}

void FrmTransferSettings::ShowPage(int page) {
  if (page == pages_->indexOf(sets_)) return sets_->Refresh();
  // Another set leads to its destination; else the user's own choice stays.
  if (sets_->Destination() == destination_) return format_->Refresh();
  destination_ = sets_->Destination();
  format_->ShowTable(destination_);
}

void FrmTransferSettings::Refresh() {
  sets_->Refresh();
  format_->Refresh();
  ShowState();
}

void FrmTransferSettings::ShowState() {
  setWindowModified(settings_.IsChanged());
  save_->setEnabled(settings_.IsChanged());
}

void FrmTransferSettings::Save() { IsSaved(); }

bool FrmTransferSettings::IsSaved() {
  QStringList errors = settings_.Errors();
  if (!errors.isEmpty()) {
    const qsizetype more = errors.size() - kErrorsShown;
    if (more > 0) errors = errors.mid(0, kErrorsShown) << u"……还有 %1 处"_s.arg(more);
    if (!Ask(u"设置中还有错误，仍要保存吗？\n\n"_s + errors.join(u'\n'), kNoticeTitle, kWarningIcon)) return false;
  }
  settings_.Save();
  Refresh();
  state_->setText(u"设置已保存。"_s);
  return true;
}

void FrmTransferSettings::ReadAgain() {
  if (settings_.IsChanged() && !Ask(u"重新读取会放弃尚未保存的修改，确定吗？"_s)) return;
  settings_.Read();
  Refresh();
  state_->setText(u"已重新读取设置。"_s);
}

void FrmTransferSettings::reject() {
  if (settings_.IsChanged()) {
    const Choice choice = AskThreeWays(u"归档设置已修改，是否保存？"_s);
    if (choice == Choice::Cancel) return;
    bool saved = choice == Choice::No;
    if (!saved) Guarded([&] { saved = IsSaved(); });
    if (!saved) return;
  }
  QDialog::reject();
}

}  // namespace folvane::transfer
