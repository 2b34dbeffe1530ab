#include "archiving/FrmArchivePara.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include <folvane/Icons.h>

#include "archiving/ArchiveFields.h"
#include "archiving/ArchiveFormat.h"
#include "base/IgnoreErrors.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/ModalWindow.h"
#include "shell/WindowPlacement.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kUsualWidth = 460;
const QString kConfirmed = u"1"_s, kCancelled = u"0"_s;

}  // namespace

FrmArchivePara::FrmArchivePara() : fields_(new ArchiveFields(this)), hint_(NewHint({}, this)) {
  setObjectName(u"FrmArchivePara"_s);
  setWindowTitle(u"归档参数设置"_s);
  setWindowIcon(Icon(u"archive"_s));
  hint_->setObjectName(u"LblHint"_s);
  hint_->setTextFormat(Qt::PlainText);
  hint_->setWordWrap(true);
  LayOut();
  fields_->OnChange([this] { ShowHint(); });
}

void FrmArchivePara::LayOut() {
  auto* frame = new QGroupBox(u"档号字段设置"_s, this);
  frame->setObjectName(u"Frame1"_s);
  auto* inFrame = new QVBoxLayout(frame);
  inFrame->setContentsMargins(6, 6, 6, 6);
  inFrame->addWidget(fields_);
  const DialogKeys keys(*this);
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, &FrmArchivePara::Confirm);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(10);
  column->addWidget(frame, 1);
  column->addWidget(hint_);
  column->addLayout(keys.row);
}

void FrmArchivePara::Open() {
  const int parts = fields_->Load(ObjTbl);
  note_ = parts > 0 ? QString() : u"目标库“%1”没有设置档号格式，不能归档"_s.arg(ObjTbl);
  if (parts == 0) return;
  ShowHint();
  SetPlacementOf(*this, ObjTbl);
  resize(std::max(kUsualWidth, sizeHint().width()), sizeHint().height());
  ShowModal(*this);
}

void FrmArchivePara::ShowHint() { hint_->setText(HintText()); }

QString FrmArchivePara::HintText() const {
  if (!fields_->Note().isEmpty()) return fields_->Note();
  const ShownFields entered = fields_->Shown();
  if (entered.empty()) return u"没有需要录入的档号字段，按“确定”即可归档"_s;
  QString beginning;
  IgnoreErrors([&] { beginning = NumberBeginning(entered, ObjTbl); });  // the transfer itself will tell
  return beginning.isEmpty() ? u"录入各字段后，这里显示档号的开头"_s : u"档号将以“%1”开头"_s.arg(beginning);
}

void FrmArchivePara::Confirm() {
  setProperty("Tag", kCancelled);
  const bool complete = fields_->Read();
  note_ = fields_->Note();
  ShowHint();
  if (!complete) return;
  setProperty("Tag", kConfirmed);
  accept();
}

// Also what Escape and the window's own button do.
void FrmArchivePara::reject() {
  setProperty("Tag", kCancelled);
  QDialog::reject();
}

ArchiveParameters AskArchiveParameters(const QString& source, const QString& destination) {
  const LoadedWindow<FrmArchivePara> window;
  window->SouTbl = source;
  window->ObjTbl = destination;
  window->Open();
  return {window->property("Tag").toString() == kConfirmed, window->Note()};
}

}  // namespace folvane
