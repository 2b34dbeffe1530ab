#include "query/frmSimFind.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "query/CriterionBox.h"
#include "query/FrmSimSet.h"
#include "query/SearchFields.h"
#include "query/SimpleCondition.h"
#include "query/frmfhfind.h"
#include "shell/EventGuard.h"
#include "shell/LoadedWindow.h"
#include "shell/Lookups.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "widgets/DateBox.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

QString Element(const QString& array, int index) { return u"%1(%2)"_s.arg(array).arg(index); }

// The label of an input holds the input's field in its tag.
QLabel* NewCaption(QWidget* parent, const QString& array, const SearchFieldRow& field) {
  auto* label = new QLabel(field.chnDataField, parent);
  label->setObjectName(Element(array, field.ctlIndex));
  label->setTextFormat(Qt::PlainText);
  label->setProperty("Tag", field.dataField);
  return label;
}

QString FieldOf(const QLabel& caption) { return caption.property("Tag").toString(); }

DateBox* NewDate(QWidget* parent, const QString& array, int index, const QString& tip) {
  auto* box = new DateBox(parent);
  box->setObjectName(Element(array, index));
  box->setToolTip(tip);
  box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return box;
}

QHBoxLayout* NewRow(QWidget* owner) {
  auto* row = new QHBoxLayout(owner);
  row->setContentsMargins(0, 0, 0, 0);
  return row;
}

}  // namespace

frmSimFind::frmSimFind() : scroll_(new QScrollArea(this)), inputs_(new QWidget), column_(new QVBoxLayout(inputs_)) {
  setObjectName(u"frmSimFind"_s);
  setWindowTitle(u"简单查询"_s);
  setWindowIcon(Icon(u"search"_s));
  LayOut();
}

void frmSimFind::LayOut() {
  resize(520, 420);
  inputs_->setObjectName(u"FrmParent"_s);
  column_->setAlignment(Qt::AlignTop);
  auto* bar = new QScrollBar(Qt::Vertical, scroll_);
  scroll_->setVerticalScrollBar(bar);
  bar->setObjectName(u"VScrl"_s);
  bar->setEnabled(false);
  connect(bar, &QScrollBar::rangeChanged, bar, [bar](int, int last) { bar->setEnabled(last > 0); });
  scroll_->setWidgetResizable(true);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setWidget(inputs_);

  auto* column = new QVBoxLayout(this);
  column->addWidget(scroll_, 1);
  const DialogKeys keys(*this);
  auto* setup = new QPushButton(u"设置(&T)"_s, this);
  setup->setObjectName(u"CmdSet"_s);
  setup->setToolTip(u"选择要查询的字段"_s);
  auto* compound = new QPushButton(Icon(u"query"_s), u"组合查询(&S)"_s, this);
  compound->setObjectName(u"Command1"_s);
  compound->setToolTip(u"改用多个条件组合查询"_s);
  for (QPushButton* key : {setup, compound}) key->setAutoDefault(false);
  keys.row->insertWidget(0, setup);
  keys.row->insertWidget(1, compound);
  column->addLayout(keys.row);
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, &frmSimFind::TakeQuery);
  ConnectGuarded(setup, &QPushButton::clicked, this, &frmSimFind::SetUp);
  ConnectGuarded(compound, &QPushButton::clicked, this, &frmSimFind::GoToCompoundQuery);
}

void frmSimFind::Open() {
  ReturnSql.clear();
  Ignored.clear();
  ClearQueryForm();
  BuildQueryForm();
  ShowModal(*this);
}

void frmSimFind::BuildQueryForm() {
  for (const SearchFieldRow& field : ReadSearchFields(TableName)) AddInput(field);
  LineUpCaptions();
  if (column_->count() == 0) {
    column_->addWidget(NewHint(u"尚未设置查询字段，请按“设置”选择。"_s, inputs_));
  } else if (QWidget* first = column_->itemAt(0)->widget()) {
    first->setFocus();
  }
}

void frmSimFind::ClearQueryForm() {
  likes_.clear();
  ranges_.clear();
  dates_.clear();
  dictionaries_.clear();
  captions_.clear();
  while (QLayoutItem* item = column_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
}

void frmSimFind::AddInput(const SearchFieldRow& field) {
  QWidget* input = nullptr;
  const auto add = [&](CriterionBox* box, const QString& array) {
    box->setObjectName(Element(array, field.ctlIndex));
    box->SetCaption(field.chnDataField);
    box->SetDataField(field.dataField);
    captions_ << &box->CaptionLabel();
    input = box;
  };
  switch (field.ctlType) {
    case SearchInput::Like:
      add(likes_[field.ctlIndex] = new LikeCriterionBox(inputs_), u"F_Sim"_s);
      break;
    case SearchInput::Range:
      add(ranges_[field.ctlIndex] = new RangeCriterionBox(inputs_), u"F_Btw"_s);
      break;
    case SearchInput::Dates:
      input = NewDatePair(field);
      break;
    case SearchInput::Dictionary:
      input = NewDictionaryBox(field);
      break;
    default:
      return;
  }
  column_->addWidget(input);
}

QWidget* frmSimFind::NewDatePair(const SearchFieldRow& field) {
  const int index = field.ctlIndex;
  auto* pair = new QWidget(inputs_);
  QLabel* caption = NewCaption(pair, u"Lbl_DTPCaption"_s, field);
  auto* between = new QLabel(u"至"_s, pair);
  between->setObjectName(Element(u"Lbl_DTP"_s, index));
  const DatePair boxes{caption, NewDate(pair, u"DTP_Begin"_s, index, u"从：不填则不限"_s),
                       NewDate(pair, u"DTP_End"_s, index, u"到：不填则不限"_s)};
  boxes.begin->setAccessibleName(field.chnDataField + u"从"_s);
  boxes.end->setAccessibleName(field.chnDataField + u"到"_s);
  QHBoxLayout* row = NewRow(pair);
  row->addWidget(caption);
  row->addWidget(boxes.begin, 1);
  row->addWidget(between);
  row->addWidget(boxes.end, 1);
  pair->setFocusProxy(boxes.begin);
  captions_ << caption;
  dates_[index] = boxes;
  return pair;
}

QWidget* frmSimFind::NewDictionaryBox(const SearchFieldRow& field) {
  auto* line = new QWidget(inputs_);
  const DictionaryBox list{NewCaption(line, u"Lbl_CboCaption"_s, field), new EditCombo(line)};
  list.box->setObjectName(Element(u"CboDict"_s, field.ctlIndex));
  list.box->setToolTip(u"字段中包含的文字，可从列表中选取"_s);
  list.box->setAccessibleName(field.chnDataField);
  list.box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  FillDictionary(*list.box, u"(Select AuxiDictDetails From DynamicWindows Where TableName='"_s + TableName +
                                u"' And FieldName = '"_s + field.dataField + u"')"_s);
  list.box->SetText({});
  QHBoxLayout* row = NewRow(line);
  row->addWidget(list.caption);
  row->addWidget(list.box, 1);
  line->setFocusProxy(list.box);
  captions_ << list.caption;
  dictionaries_[field.ctlIndex] = list;
  return line;
}

void frmSimFind::LineUpCaptions() {
  int width = 0;
  for (const QLabel* caption : captions_) width = qMax(width, caption->sizeHint().width());
  for (QLabel* caption : captions_) caption->setFixedWidth(width);
}

bool frmSimFind::HasInputs() const {
  return !likes_.isEmpty() || !ranges_.isEmpty() || !dates_.isEmpty() || !dictionaries_.isEmpty();
}

SimpleCriteria frmSimFind::Entered() const {
  SimpleCriteria entered;
  for (const LikeCriterionBox* box : likes_) entered.likes << box->Result();
  for (const RangeCriterionBox* box : ranges_) entered.ranges << box->Result();
  for (const DatePair& pair : dates_)
    entered.dates.push_back({FieldOf(*pair.caption), pair.begin->Text(), pair.end->Text()});
  for (const DictionaryBox& list : dictionaries_)
    entered.dictionaryTexts.push_back({FieldOf(*list.caption), list.box->Text()});
  return entered;
}

void frmSimFind::TakeQuery() {
  if (!HasInputs()) return;
  QList<DateBox*> dates;
  for (const DatePair& pair : dates_) dates << pair.begin << pair.end;
  if (!DateBox::AllTaken(dates)) return;
  const QString condition = SimpleCondition(TableName, Entered());
  if (condition.isEmpty()) {
    ShowMessage(u"请输入查询条件！"_s, 0, windowTitle());
    return;
  }
  ReturnSql = M_Condition.isEmpty() ? condition : condition + u" and ("_s + M_Condition + u")"_s;
  accept();
}

// The form is gone for good once it is hidden. The compound query has put the restriction behind its text already.
void frmSimFind::GoToCompoundQuery() {
  hide();
  const LoadedWindow<frmfhfind> compound;
  compound->M_Condition = M_Condition;
  compound->FormTag = TableName;
  compound->Open();
  Ignored = compound->Ignored;
  const QString& condition = compound->ReturnSql;
  if (!condition.isEmpty())
    ReturnSql = M_Condition.isEmpty() ? condition : M_Condition + u" And ("_s + condition + u")"_s;
}

void frmSimFind::SetUp() {
  const LoadedWindow<FrmSimSet> setup;
  setup->TableName = TableName;
  setup->Open();
  if (setup->IsCancel) return;
  ClearQueryForm();
  BuildQueryForm();
}

}  // namespace folvane
