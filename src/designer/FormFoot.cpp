#include "designer/FormFoot.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

#include "shell/EventGuard.h"
#include "widgets/NumberBox.h"
#include "widgets/PlainTip.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

struct MeasureBox {
  QString name, caption;
  int Design::Control::*measure;
  int LayoutRow::*shown;
  int least, most;
};

const std::array<MeasureBox, 4>& MeasureBoxes() {
  static const std::array<MeasureBox, 4> boxes{{
      {u"FormLeft"_s, u"左"_s, &Design::Control::left, &LayoutRow::left, 0, kFarthestRight},
      {u"FormTop"_s, u"上"_s, &Design::Control::top, &LayoutRow::top, kFarthestUp, kFarthestDown},
      {u"FormWidth"_s, u"宽"_s, &Design::Control::width, &LayoutRow::width, 0, kFarthestRight},
      {u"FormHeight"_s, u"高"_s, &Design::Control::height, &LayoutRow::height, 0, kFarthestDown},
  }};
  return boxes;
}

}  // namespace

FormFoot::FormFoot(QWidget* parent) : QWidget(parent), words_(new QLabel), kind_(new QComboBox) {
  auto* across = new QHBoxLayout(this);
  across->setContentsMargins(0, 0, 0, 0);
  words_->setObjectName(u"FormWords"_s);
  words_->setTextFormat(Qt::PlainText);
  words_->setMinimumWidth(40);
  across->addWidget(words_, 1);
  kind_->setObjectName(u"FormKind"_s);
  kind_->setAccessibleName(u"控件类型"_s);
  kind_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  kind_->setMinimumContentsLength(8);
  across->addWidget(new QLabel(u"控件"_s));
  across->addWidget(kind_);
  ConnectGuarded(kind_, &QComboBox::activated, this, [this](int at) { Q_EMIT KindSet(kind_->itemData(at).toInt()); });
  for (std::size_t i = 0; i < measures_.size(); ++i) {
    const MeasureBox& design = MeasureBoxes()[i];
    auto* box = measures_[i] = new NumberBox;
    box->setObjectName(design.name);
    box->setAccessibleName(design.caption);
    box->setRange(design.least, design.most);
    box->setSingleStep(15);
    box->setKeyboardTracking(false);
    box->setToolTip(u"缇，1440 缇为一英寸"_s);
    across->addWidget(new QLabel(design.caption));
    across->addWidget(box);
    ConnectGuarded(box, &QSpinBox::valueChanged, this,
                   [this, &design](int value) { Q_EMIT MeasureSet(design.measure, value); });
  }
}

void FormFoot::Show(const QString& words, const FormItem* item, const Design::Field* field) {
  words_->setText(words);
  words_->setToolTip(PlainTip(words));
  ShowKinds(item, field);
  for (std::size_t i = 0; i < measures_.size(); ++i) {
    const QSignalBlocker silence(measures_[i]);
    measures_[i]->setValue(item ? item->row.*MeasureBoxes()[i].shown : 0);
    const bool isFixed =
        MeasureBoxes()[i].measure == &Design::Control::height && item && item->row.control.type == ControlKind::Cmb;
    measures_[i]->setEnabled(item && !isFixed);
  }
}

void FormFoot::ShowKinds(const FormItem* item, const Design::Field* field) {
  kind_->clear();
  kind_->setEnabled(item);
  if (!item) return;
  const int own = item->row.control.type;
  for (const int type : KindsFor(field)) kind_->addItem(KindName(type), type);
  if (kind_->findData(own) < 0) kind_->addItem(KindName(own).isEmpty() ? u"第 %1 类"_s.arg(own) : KindName(own), own);
  kind_->setCurrentIndex(kind_->findData(own));
}

}  // namespace folvane::designer
