#include "designer/ConditionRow.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

#include <folvane/Icons.h>

#include "designer/Labels.h"
#include "query/Comparison.h"
#include "shell/EventGuard.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kMostBrackets = 3;

QStringList Brackets(QChar bracket) {
  QStringList items{QString()};
  for (int count = 1; count <= kMostBrackets; ++count) items << QString(count, bracket);
  return items;
}

// More brackets than are offered can come from what was saved.
void ShowBrackets(QComboBox& box, int count, QChar bracket) {
  const QString text(count, bracket);
  if (box.findText(text) < 0) box.addItem(text);
  box.setCurrentIndex(box.findText(text));
}

}  // namespace

ConditionRow::ConditionRow(const Design& design, const Design::Table& table, QWidget* parent)
    : QWidget(parent), design_(design), table_(table) {
  auto* along = new QHBoxLayout(this);
  along->setContentsMargins(0, 0, 0, 0);
  along->setSpacing(4);
  join_ = NewBox(ConnectorWords(), u"与上一行的关系"_s, 0);
  opens_ = NewBox(Brackets(u'('), u"左括号"_s, 0);
  field_ = NewBox({}, u"字段"_s, 4);
  for (const Design::Field& field : table.fields) field_->addItem(LabelOf(field), field.name);
  relation_ = NewBox(RelationWords(), u"比较关系"_s, 0);
  value_ = NewBox({}, u"比较值"_s, 4);
  value_->setEditable(true);
  value_->setInsertPolicy(QComboBox::NoInsert);
  value_->setCompleter(nullptr);
  closes_ = NewBox(Brackets(u')'), u"右括号"_s, 0);
  QSizePolicy keptPlace = join_->sizePolicy();
  keptPlace.setRetainSizeWhenHidden(true);
  join_->setSizePolicy(keptPlace);
  remove_ = new QToolButton;
  remove_->setIcon(Icon(u"del"_s));
  remove_->setAutoRaise(true);
  remove_->setToolTip(u"去掉这一行"_s);
  remove_->setAccessibleName(u"去掉这一行"_s);
  remove_->setFocusPolicy(Qt::StrongFocus);
  along->addWidget(remove_);
  setFocusProxy(field_);
  ConnectGuarded(field_, &QComboBox::activated, this, &ConditionRow::OfferValues);
  ConnectGuarded(relation_, &QComboBox::currentIndexChanged, this,
                 [this](int) { value_->setEnabled(TakesValue(relation_->currentText())); });
  connect(value_, &QComboBox::editTextChanged, this, &ConditionRow::Changed);
  connect(remove_, &QToolButton::clicked, this, &ConditionRow::RemovalAsked);
  OfferValues();
}

QComboBox* ConditionRow::NewBox(const QStringList& items, const QString& caption, int stretch) {
  auto* box = new QComboBox;
  box->addItems(items);
  box->setAccessibleName(caption);
  box->setToolTip(caption);
  if (stretch > 0) {
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->setMinimumContentsLength(8);
  }
  static_cast<QHBoxLayout*>(layout())->addWidget(box, stretch);
  connect(box, &QComboBox::currentIndexChanged, this, &ConditionRow::Changed);
  return box;
}

// What is typed already stays.
void ConditionRow::OfferValues() {
  const QSignalBlocker silent(value_);
  const QString typed = value_->currentText();
  value_->clear();
  const Design::Field* field = design::FindNamed(table_.fields, field_->currentData().toString());
  const Design::Dictionary* dictionary =
      field && !field->dictionary.isEmpty() ? design::FindNamed(design_.dictionaries, field->dictionary) : nullptr;
  if (dictionary)
    for (const Design::DictionaryEntry& entry : dictionary->entries) value_->addItem(entry.text);
  value_->setCurrentIndex(-1);
  value_->setEditText(typed);
}

ConditionLine ConditionRow::Line() const {
  const QString relation = relation_->currentText();
  return {join_->currentIndex() == 1,
          int(opens_->currentText().size()),
          int(closes_->currentText().size()),
          field_->currentData().toString(),
          relation,
          TakesValue(relation) ? value_->currentText().trimmed() : QString()};
}

void ConditionRow::Show(const ConditionLine& line) {
  join_->setCurrentIndex(line.isOr ? 1 : 0);
  ShowBrackets(*opens_, line.opens, u'(');
  ShowBrackets(*closes_, line.closes, u')');
  field_->setCurrentIndex(field_->findData(line.field));
  relation_->setCurrentIndex(relation_->findText(line.relation));
  OfferValues();
  value_->setEditText(line.value);
}

void ConditionRow::SetNumber(int number) {
  join_->setVisible(number > 1);
  const QString suffix = QString::number(number);
  join_->setObjectName(u"CmbJoin"_s + suffix);
  opens_->setObjectName(u"CmbOpens"_s + suffix);
  field_->setObjectName(u"CmbField"_s + suffix);
  relation_->setObjectName(u"CmbRelation"_s + suffix);
  value_->setObjectName(u"CmbValue"_s + suffix);
  closes_->setObjectName(u"CmbCloses"_s + suffix);
  remove_->setObjectName(u"CmdRemove"_s + suffix);
}

}  // namespace folvane::designer
