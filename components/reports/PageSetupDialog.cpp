#include "components/reports/PageSetupDialog.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/reports/PageSetup.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;

QComboBox* NewCombo(const QString& name, const QString& caption, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setObjectName(name);
  box->setAccessibleName(caption);
  return box;
}

QPushButton* NewKey(const QString& name, const QString& caption, QWidget* parent) {
  auto* key = new QPushButton(caption, parent);
  key->setObjectName(name);
  return key;
}

QString PaperName(QPageSize::PageSizeId paper) {
  return paper == QPageSize::Letter ? u"Letter"_s : QPageSize::key(paper).remove(u"Jis"_s);
}

}  // namespace

PageSetupDialog::PageSetupDialog(const QPageLayout& layout, QWidget* parent)
    : QDialog(parent),
      paper_(NewCombo(u"CboPaper"_s, u"纸张"_s, this)),
      orientation_(NewCombo(u"CboOrientation"_s, u"方向"_s, this)) {
  setObjectName(u"PageSetupDialog"_s);
  setWindowTitle(u"页面设置"_s);
  setWindowIcon(Icon(u"print"_s));
  for (const QPageSize::PageSizeId paper : Papers()) paper_->addItem(PaperName(paper), int(paper));
  paper_->setCurrentIndex(paper_->findData(int(layout.pageSize().id())));
  orientation_->addItems({u"纵向"_s, u"横向"_s});
  orientation_->setCurrentIndex(layout.orientation() == QPageLayout::Landscape ? 1 : 0);
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  margins_ = {NewMargin(u"TxtLeft"_s, u"左边距"_s, margins.left()), NewMargin(u"TxtTop"_s, u"上边距"_s, margins.top()),
              NewMargin(u"TxtRight"_s, u"右边距"_s, margins.right()),
              NewMargin(u"TxtBottom"_s, u"下边距"_s, margins.bottom())};
  auto* form = new QFormLayout(this);
  form->addRow(u"纸张(&Z)："_s, paper_);
  form->addRow(u"方向(&F)："_s, orientation_);
  form->addRow(u"左边距(&L)："_s, margins_[0]);
  form->addRow(u"上边距(&T)："_s, margins_[1]);
  form->addRow(u"右边距(&R)："_s, margins_[2]);
  form->addRow(u"下边距(&B)："_s, margins_[3]);
  auto* keys = new QHBoxLayout;
  QPushButton* ok = NewKey(u"CmdOK"_s, u"确定(&O)"_s, this);
  QPushButton* cancel = NewKey(u"CmdCancel"_s, u"取消(&C)"_s, this);
  ok->setDefault(true);
  keys->addStretch();
  keys->addWidget(ok);
  keys->addWidget(cancel);
  form->addRow(keys);
  connect(ok, &QPushButton::clicked, this, &PageSetupDialog::AcceptIfThereIsRoom);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

QDoubleSpinBox* PageSetupDialog::NewMargin(const QString& name, const QString& caption, double millimetres) {
  auto* box = new QDoubleSpinBox(this);
  box->setObjectName(name);
  box->setAccessibleName(caption);
  box->setRange(0, 100);
  box->setDecimals(1);
  box->setSuffix(u" mm"_s);
  box->setValue(millimetres);
  return box;
}

void PageSetupDialog::AcceptIfThereIsRoom() {
  if (HasRoom(Layout())) return accept();
  notices::Tell(u"页边距太大，这种纸张上放不下内容，请改小。"_s, notices::kWarningIcon);
}

QPageLayout PageSetupDialog::Layout() const {
  const bool wide = orientation_->currentIndex() == 1;
  return {QPageSize(QPageSize::PageSizeId(paper_->currentData().toInt())),
          wide ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(margins_[0]->value(), margins_[1]->value(), margins_[2]->value(), margins_[3]->value()),
          QPageLayout::Millimeter};
}

}  // namespace folvane::reports
