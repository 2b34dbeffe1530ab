#include "flows/FlowDialogs.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include <folvane/Icons.h>

#include "base/Surroundings.h"
#include "shell/EventGuard.h"
#include "shell/Lookups.h"
#include "shell/Messages.h"
#include "widgets/DateBox.h"
#include "widgets/DialogKeys.h"
#include "widgets/DigitBox.h"
#include "widgets/EditCombo.h"
#include "widgets/MemoBox.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kWidth = 520;
constexpr qint16 kChange = 2;

}  // namespace

FlowDialog::FlowDialog(FlowSheets& sheets, const QString& name)
    : sheets_(sheets), form_(new QFormLayout), note_(new QLabel(this)) {
  setObjectName(name);
  setWindowIcon(Icon(u"mod"_s));
  note_->setObjectName(u"LblNote"_s);
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  note_->hide();
  form_->setLabelAlignment(Qt::AlignRight);
  form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

template <typename Control>
Control* FlowDialog::Add(const QString& name, const QString& caption, Control* control) {
  control->setObjectName(name);
  control->setAccessibleName(caption);
  form_->addRow(caption + u'：', control);
  return control;
}

void FlowDialog::AddKeys() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 12);
  column->addLayout(form_);
  column->addWidget(note_);
  column->addStretch();
  const DialogKeys keys(*this);
  keys.ok->setObjectName(u"cmdSave"_s);
  keys.ok->setText(u"保存(&S)"_s);
  column->addLayout(keys.row);
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, [this] { Save(); });
  resize(kWidth, sizeHint().height());
}

void FlowDialog::ShowNote(const QString& text) {
  note_->setText(text);
  note_->setVisible(!text.isEmpty());
}

void FlowDialog::Fill(EditCombo& box, const QString& dictionary) {
  try {
    FillDictionary(box, dictionary);
  } catch (const std::exception& error) {
    ShowNote(u"未能读出词典 %1：%2"_s.arg(dictionary, ErrorText(error)));
  }
}

bool FlowDialog::IsBlank(TextBox& box) {
  if (!box.text().trimmed().isEmpty()) return false;
  ShowMessage(u"对不起，登记号不能为空！"_s, MessageFlag::Warning, kSystemTitle);
  box.setFocus();
  return true;
}

void FlowDialog::TakeOutcome(const SaveOutcome& outcome) {
  switch (outcome.kind) {
    case SaveOutcome::Written:
      return accept();
    case SaveOutcome::Gone:
      return ShowNote(u"没有保存：其他用户已更改或删除了它。录入的内容仍在这里。"_s);
    case SaveOutcome::Changed:
      return ShowNote(u"没有保存：其他用户刚刚作了更改（%1）。再次保存将覆盖这些更改。"_s.arg(outcome.what));
  }
}

FlowHeadDialog::FlowHeadDialog(FlowSheets& sheets) : FlowDialog(sheets, sheets.Kind().headDialog) {
  const Flow& flow = sheets.Kind();
  setWindowTitle(flow.word + u"处理单"_s);
  id_ = Add(u"txtID"_s, CaptionOf(flow.headColumns, flow.idColumn), new TextBox(this));
  status_ = Add(u"cboStatus"_s, CaptionOf(flow.headColumns, flow.statusColumn), new EditCombo(this));
  if (flow.HasRange()) range_ = Add(u"txtRange"_s, CaptionOf(flow.headColumns, flow.rangeColumn), new TextBox(this));
  const std::vector<std::pair<QString, QString>> copies{
      {u"txtDocNo"_s, u"Doc_No"_s},           {u"txtMainTitle"_s, u"MainTitle"_s},
      {u"txtQuantity"_s, u"Quantity"_s},      {u"txtResponsibleBy"_s, u"ResponsibleBy"_s},
      {u"txtCreateDate"_s, u"Create_Date"_s}, {u"txtSecurity"_s, u"Security_Class"_s}};
  for (const auto& [name, field] : copies) {
    TextBox* box = Add(name, CaptionOf(flow.headColumns, field), new TextBox(this));
    box->setReadOnly(true);
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    box->setPalette(palette);
    box->setFocusPolicy(Qt::ClickFocus);
    box->setToolTip(u"转入时从文件登记复制，不在这里修改"_s);
    box->setText(sheets.Head(field));
    box->setCursorPosition(0);
  }
  unit_ = Add(u"txtUnit"_s, CaptionOf(flow.headColumns, u"File_Unit"_s), new TextBox(this));
  note_ = Add(u"TxtNote"_s, CaptionOf(flow.headColumns, u"Note"_s), new MemoBox(this));
  note_->setTabChangesFocus(true);
  note_->setFixedHeight(note_->fontMetrics().height() * 4);
  AddKeys();
  Fill(*status_, flow.statusDictionary);
  shown_ = sheets.ReadHead();
  Show(shown_);
}

void FlowHeadDialog::Show(const HeadValues& values) {
  id_->setText(values.id);
  status_->SetText(values.status);
  if (range_) range_->setText(values.range);
  unit_->setText(values.unit);
  note_->SetText(values.note);
}

void FlowHeadDialog::ShowUnsaved(const HeadValues& values) {
  Show(values);
  ShowNote(u"上次录入的内容没有保存成，仍显示在这里。"_s);
}

HeadValues FlowHeadDialog::Typed() const {
  return {id_->text(), status_->Text(), range_ ? range_->text() : QString(), unit_->text(), note_->Text()};
}

// An error ends the dialog; the window tells it and keeps what was typed.
void FlowHeadDialog::Save() {
  if (IsBlank(*id_)) return;
  try {
    TakeOutcome(sheets_.UpdateHead(Typed(), shown_));
  } catch (const std::exception& error) {
    failure_ = ErrorText(error);
    reject();
  }
}

FlowDetailDialog::FlowDetailDialog(FlowSheets& sheets) : FlowDialog(sheets, sheets.Kind().detailDialog) {
  const Flow& flow = sheets.Kind();
  const auto caption = [&](const QString& field) { return CaptionOf(flow.detailColumns, field); };
  serial_ = Add(u"txtID"_s, caption(u"File_ID"_s), new DigitBox(this));
  unit_ = Add(u"CboUnit"_s, caption(u"Lead_Unit"_s), new EditCombo(this));
  date_ = Add(u"DtpDistr"_s, caption(flow.detailDate), new DateBox(this));
  if (flow.hasQuantities) quantity_ = Add(u"txtQuantity"_s, caption(u"Quantity"_s), new DigitBox(this));
  if (flow.isHandling) mode_ = Add(u"txtTranMode"_s, caption(u"Transact_Mode"_s), new TextBox(this));
  isBack_ = Add(u"cboBack"_s, caption(u"Is_Back"_s), new EditCombo(this));
  backDate_ = Add(u"DtpBack"_s, caption(u"Back_Date"_s), new DateBox(this));
  realBackDate_ = Add(u"DtpRealBack"_s, caption(u"Real_BackDate"_s), new DateBox(this));
  if (flow.hasQuantities) backQuantity_ = Add(u"txtBackQuantity"_s, caption(u"Back_Quantity"_s), new DigitBox(this));
  if (flow.isHandling) result_ = Add(u"txtResult"_s, caption(u"Transact_Result"_s), new TextBox(this));
  isBack_->addItems({u"是"_s, u"否"_s});
  for (TextBox* box : {quantity_, backQuantity_})
    if (box) ConnectGuarded(box, &QLineEdit::editingFinished, this, [this] { FillQuantities(); });
  AddKeys();
  Fill(*unit_, flow.unitDictionary);
  for (DateBox* box : {date_, backDate_, realBackDate_}) box->SetText(Today().toString(Qt::ISODate));
}

// A line that a route has made has none.
void FlowDetailDialog::FillQuantities() {
  for (TextBox* box : {quantity_, backQuantity_})
    if (box && box->text().isEmpty()) box->setText(u"0"_s);
}

void FlowDetailDialog::StartNew(const QString& serial) {
  m_iSaveType = 1;
  FileID = serial;
  setWindowTitle(sheets_.Reminds() ? u"添加催办单"_s : u"添加%1明细"_s.arg(sheets_.Kind().word));
  setWindowIcon(Icon(u"new"_s));
  serial_->setText(serial);
  isBack_->SetText(u"否"_s);
  FillQuantities();
}

void FlowDetailDialog::StartChange() {
  m_iSaveType = kChange;
  shown_ = sheets_.ReadDetail();
  FileID = shown_.serial;
  setWindowTitle(sheets_.Reminds() ? u"修改催办单"_s : u"修改%1明细"_s.arg(sheets_.Kind().word));
  serial_->setText(shown_.serial);
  unit_->SetText(shown_.unit);
  isBack_->SetText(shown_.isBack);
  date_->SetText(shown_.date);
  backDate_->SetText(shown_.backDate);
  realBackDate_->SetText(shown_.realBackDate);
  if (quantity_) quantity_->setText(shown_.quantity);
  if (backQuantity_) backQuantity_->setText(shown_.backQuantity);
  if (mode_) mode_->setText(shown_.mode);
  if (result_) result_->setText(shown_.result);
}

DetailValues FlowDetailDialog::Typed() const {
  const auto text = [](const TextBox* box) { return box ? box->text() : QString(); };
  return {serial_->text(), unit_->Text(),     date_->Text(),         text(quantity_),     text(mode_),
          isBack_->Text(), backDate_->Text(), realBackDate_->Text(), text(backQuantity_), text(result_)};
}

void FlowDetailDialog::Save() {
  if (IsBlank(*serial_)) return;
  if (!DateBox::AllTaken({date_, backDate_, realBackDate_})) return;
  FillQuantities();
  if (serial_->text() != FileID && sheets_.IsSerialTaken(serial_->text())) {
    ShowMessage(u"对不起，该序号已存在，请重新录入！"_s, MessageFlag::Warning, kSystemTitle);
    serial_->setFocus();
    return;
  }
  if (m_iSaveType != kChange) {
    sheets_.InsertDetail(Typed());
    return accept();
  }
  const SaveOutcome outcome = sheets_.UpdateDetail(Typed(), shown_);
  FileID = shown_.serial;
  TakeOutcome(outcome);
}

}  // namespace folvane
