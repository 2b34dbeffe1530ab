#include "archiving/ArchiveFields.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QInputMethod>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include "archiving/ArchiveFormat.h"
#include "archiving/ArchiveNumber.h"
#include "archiving/DoArchiveLog.h"
#include "forms/LengthGuard.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// What a field wants, and what it gets by with in a narrow panel.
constexpr int kFieldCharacters = 28, kFewestCharacters = 10;

bool IsCutToLimit(int controlType) {
  return controlType == ControlKind::Txt || controlType == ControlKind::F_Aec || controlType == ControlKind::F_FondsNo;
}

// The pickers begin empty.
bool TakesLastValue(int controlType) {
  return controlType == ControlKind::Txt || controlType == ControlKind::Cmb || controlType == ControlKind::DTP;
}

}  // namespace

ArchiveFields::ArchiveFields(QWidget* parent) : QScrollArea(parent) {
  auto* area = new QWidget(this);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins({});
  grid_ = new QGridLayout;
  grid_->setColumnStretch(1, 1);
  column->addLayout(grid_);
  column->addStretch();
  setWidget(area);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  // What lies behind shows through: the frame around the fields has a colour of its own in some styles.
  viewport()->setAutoFillBackground(false);
  area->setAutoFillBackground(false);
}

// The fields watch their controls, which are children of the area.
ArchiveFields::~ArchiveFields() { Clear(); }

void ArchiveFields::Clear() {
  fields_.clear();
  labels_.clear();
  note_.clear();
  table_.clear();
}

int ArchiveFields::Load(const QString& table) {
  Clear();
  table_ = table;
  const ArchiveFormat format = LoadArchiveFormat(table);
  DoArchiveLog log(table);
  for (const LayoutRow& row : format.fields)
    AddField(row, TakesLastValue(row.control.type) ? log.Last(row.dataField) : QString());
  Tell(u"读不出上次录入的值："_s, log.Failure());
  updateGeometry();
  return format.parts;
}

void ArchiveFields::AddField(const LayoutRow& row, const QString& last) {
  const QString dictionary = u"'"_s + row.dictionary + u"'"_s;
  auto made = NewField({row.control.type, row.control.index, row.dataField, row.fieldType, row.caption,
                        LimitText(row.fieldLong), dictionary},
                       widget());
  EntryField& field = *fields_.emplace_back(std::move(made));
  if (!last.isEmpty()) field.Show(last);
  if (IsCutToLimit(row.control.type)) new LengthGuard(field);
  for (auto signal : {&EntryField::Changed, &EntryField::Typing}) {
    ConnectGuarded(&field, signal, this, [this] {
      if (changed_) changed_();
    });
  }
  QLabel& label = *labels_.emplace_back(std::make_unique<QLabel>(row.caption, widget()));
  label.setObjectName(ControlName(u"F_Lbl"_s, int(labels_.size())));
  label.setTextFormat(Qt::PlainText);
  const int at = int(fields_.size());
  grid_->addWidget(&label, at, 0, Qt::AlignRight | Qt::AlignVCenter);
  grid_->addWidget(&field.Widget(), at, 1);
  field.Widget().setMinimumWidth(fontMetrics().averageCharWidth() * kFewestCharacters);
  if (at > 1) QWidget::setTabOrder(&fields_[size_t(at) - 2]->Widget(), &field.Widget());
  label.show();
  field.Widget().show();
}

ShownFields ArchiveFields::Shown() const { return ShownOf(fields_); }

bool ArchiveFields::Read() {
  QGuiApplication::inputMethod()->commit();
  for (const auto& field : fields_) field->Commit();
  const ShownFields shown = Shown();
  // The format is shared, and lost where another window could not read it.
  if (!shown.empty() && SharedNumberFormat().itemField.name.isEmpty()) LoadArchiveFormat(table_);
  DoArchiveLog log(table_);
  log.MakeFile();
  const ShownField* blank = TakeArchiveValues(shown, log);
  Tell(u"录入的值没有记下来，下次要重新录入："_s, log.Failure());
  if (!blank) return true;
  ShowMessage(u"请输入‘"_s + blank->caption + u"’字段的值"_s);
  fields_[size_t(blank - shown.data())]->Focus();
  return false;
}

void ArchiveFields::Tell(const QString& what, const QString& failure) {
  note_ = failure.isEmpty() ? QString() : what + failure;
}

QSize ArchiveFields::sizeHint() const {
  const int more = fontMetrics().averageCharWidth() * (kFieldCharacters - kFewestCharacters);
  return widget()->minimumSizeHint() + QSize(more + verticalScrollBar()->sizeHint().width(), 0);
}

}  // namespace folvane
