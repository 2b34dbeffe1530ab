#include "archiving/FrmSelTbl.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "archiving/FrmSearchResult.h"
#include "data/Recordset.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"
#include "widgets/TextCombo.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kChoose = u"<请选择>"_s, kLeave = u"<退出>"_s;

}  // namespace

FrmSelTbl::FrmSelTbl() : captions_(new TextCombo(this)), tables_(new TextCombo(this)) {
  setObjectName(u"FrmSelTbl"_s);
  setWindowTitle(u"合并一件 - 选择表"_s);
  setWindowIcon(Icon(u"merge"_s));
  captions_->setObjectName(u"CboChnTable"_s);
  captions_->setAccessibleName(u"要合并的记录所在的表"_s);
  tables_->setObjectName(u"CboTable"_s);
  tables_->hide();
  LayOut();
  ConnectGuarded(captions_, &QComboBox::currentIndexChanged, this, &FrmSelTbl::Choose);
}

void FrmSelTbl::LayOut() {
  auto* label = new QLabel(u"要合并的记录所在的表(&T)："_s, this);
  label->setBuddy(captions_);
  auto* hint = NewHint(u"选择表之后，按条件查出其中的记录并勾选；它们的原文并入选中的文件。"_s, this);
  hint->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 16);
  column->setSpacing(10);
  column->addWidget(label);
  column->addWidget(captions_);
  column->addWidget(hint);
  column->addStretch();
  resize(400, sizeHint().height());
}

void FrmSelTbl::Load() {
  const QSignalBlocker silence(captions_);
  captions_->clear();
  tables_->clear();
  captions_->addItem(kChoose);
  tables_->addItem(kChoose);
  Recordset tables;
  tables.Open(u"Select TableName,ChnTableName From DynamicWindows Where TableType = 'F' And FieldName = 'FileStatus'"_s,
              SharedConnection(), CursorType::Static, LockType::ReadOnly);
  for (; !tables.EOF_(); tables.MoveNext()) {
    captions_->addItem(tables[u"ChnTableName"_s].Text());
    tables_->addItem(tables[u"TableName"_s].Text());
  }
  captions_->addItem(kLeave);
  captions_->setCurrentIndex(0);
}

void FrmSelTbl::Open() {
  Load();
  if (tables_->count() == 1) {
    Outcome = u"没有可以合并的记录：没有一个登记表带归档状态"_s;
    return;
  }
  captions_->setFocus();
  ShowModal(*this);
}

void FrmSelTbl::Choose(int index) {
  if (index <= 0) return;
  if (index < tables_->count()) Merge(index);
  hide();
}

void FrmSelTbl::Merge(int index) {
  tables_->setCurrentIndex(index);
  const LoadedWindow<FrmSearchResult> window;
  window->CurrTable = tables_->currentText();
  window->TargetID = TargetID;
  window->TargetTitle = TargetTitle;
  try {
    window->Open();
  } catch (const std::exception&) {
    const QSignalBlocker silence(captions_);
    captions_->setCurrentIndex(0);  // so that the table can be chosen again
    throw;
  }
  Outcome = window->Outcome;
}

}  // namespace folvane
