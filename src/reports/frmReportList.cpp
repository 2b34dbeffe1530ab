#include "reports/frmReportList.h"

#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "reports/ReportEntries.h"
#include "shell/EventGuard.h"
#include "shell/ModalWindow.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;
}  // namespace

frmReportList::frmReportList() : view_(new QListView(this)), names_(new QStringListModel(this)) {
  setObjectName(u"frmReportList"_s);
  setWindowTitle(u"报表打印"_s);
  setWindowIcon(Icon(u"print"_s));
  resize(360, 320);
  view_->setModel(names_);
  view_->setEditTriggers(QListView::NoEditTriggers);
  view_->setObjectName(u"lstReportName"_s);
  view_->setAccessibleName(u"报表名称"_s);
  view_->setToolTip(u"选择要打印的报表"_s);
  AddEmptyHint(*view_, u"没有可用的报表。"_s);
  auto* column = new QVBoxLayout(this);
  column->addWidget(view_, 1);
  const DialogKeys keys(*this);
  column->addLayout(keys.row);
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, &frmReportList::Choose);
  ConnectGuarded(view_, &QListView::doubleClicked, this, &frmReportList::Choose);
  // However the window is left otherwise, by its own button too.
  connect(this, &QDialog::rejected, this, [this] { gsReturnName.clear(); });
}

void frmReportList::Open() {
  gsReturnName.clear();
  FillReportNames();
  ShowModal(*this);
}

void frmReportList::FillReportNames() {
  giReportType = ReportTypeOf(gsReportGroupId);
  names_->setStringList(ReadReportNames(gsReportGroupId, giReportType));
  view_->setCurrentIndex(names_->index(0));
  view_->setFocus();
}

void frmReportList::Choose() {
  gsReturnName = view_->currentIndex().data().toString().trimmed();
  accept();
}

}  // namespace folvane
