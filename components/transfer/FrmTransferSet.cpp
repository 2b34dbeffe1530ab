#include "components/transfer/FrmTransferSet.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/Placement.h"
#include "components/common/ToolKeys.h"
#include "components/transfer/SettingsList.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMargin = 16;

}  // namespace

FrmTransferSet::FrmTransferSet(QWidget* parent, TransferSettings& settings, std::optional<std::size_t> set)
    : QDialog(parent),
      settings_(settings),
      set_(set),
      source_(NewChoice(u"CmbSource"_s, u"来源表"_s, true)),
      destination_(NewChoice(u"CmbDestination"_s, u"目标表"_s, false)) {
  setObjectName(u"FrmTransferSet"_s);
  setWindowTitle(set ? u"修改归档的表"_s : u"添加归档的表"_s);
  setWindowIcon(Icon(u"archive"_s));
  LayOut();
  if (set) {
    Choose(*source_, settings.Now().sets[*set].source);
    Choose(*destination_, settings.Now().sets[*set].destination);
  }
  KeepPlacement(*this);
}

// Registers stand first among the sources, archives among the destinations.
QComboBox* FrmTransferSet::NewChoice(const QString& name, const QString& caption, bool ofSources) {
  auto* choice = new QComboBox(this);
  choice->setObjectName(name);
  choice->setAccessibleName(caption);
  choice->setMaxVisibleItems(20);
  std::vector<const BusinessTable*> tables;
  for (const BusinessTable& table : settings_.Tables().Designed()) tables.push_back(&table);
  std::stable_partition(tables.begin(), tables.end(),
                        [ofSources](const BusinessTable* table) { return (table->type == u"F"_s) == ofSources; });
  for (const BusinessTable* table : tables)
    choice->addItem(Icon(table->type == u"F"_s ? u"register"_s : u"archive"_s), table->Label(), table->name);
  choice->setPlaceholderText(u"请选择"_s);
  choice->setCurrentIndex(-1);
  return choice;
}

void FrmTransferSet::LayOut() {
  auto* form = new QFormLayout;
  form->addRow(u"来源表(&S)："_s, source_);
  form->addRow(u"目标表(&D)："_s, destination_);
  auto* hint = new QLabel(u"来源表中状态为“需归档”的记录，归档时进入目标表。"_s, this);
  hint->setForegroundRole(QPalette::PlaceholderText);
  hint->setWordWrap(true);
  auto* accept =
      NewPushButton(this, {u"CmdOK"_s, u"save"_s, u"确定(&O)"_s, u"采用所选的表"_s, {}}, [this] { this->accept(); });
  accept->setDefault(true);
  auto* cancel =
      NewPushButton(this, {u"CmdCancel"_s, u"cancel"_s, u"取消(&C)"_s, u"不作修改"_s, {}}, [this] { reject(); });
  auto* keys = new QHBoxLayout;
  keys->addStretch();
  keys->addWidget(accept);
  keys->addWidget(cancel);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->addLayout(form);
  column->addWidget(hint);
  column->addStretch();
  column->addLayout(keys);
  resize(QFontMetrics(font()).averageCharWidth() * 80, sizeHint().height());
}

void FrmTransferSet::Choose(QComboBox& choice, const QString& table) {
  if (table.isEmpty()) return;
  for (int at = 0; at < choice.count(); ++at)
    if (IsSame(choice.itemData(at).toString(), table)) return choice.setCurrentIndex(at);
  choice.addItem(IconOf(Severity::Warning, *this), u"%1（设计表中没有）"_s.arg(table), table);
  choice.setCurrentIndex(choice.count() - 1);
}

void FrmTransferSet::accept() {
  notices::Guarded([this] {
    const QString source = source_->currentData().toString(), destination = destination_->currentData().toString();
    if (set_)
      settings_.ChangeSet(*set_, source, destination);
    else
      settings_.AddSet(source, destination);
    QDialog::accept();
  });
}

}  // namespace folvane::transfer
