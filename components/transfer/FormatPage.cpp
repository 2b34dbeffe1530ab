#include "components/transfer/FormatPage.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>

#include <folvane/DataError.h>
#include <folvane/Icons.h>

#include "components/transfer/NumberExample.h"
#include "components/transfer/SettingsList.h"
#include "design/transfer/FormatCheck.h"
#include "design/transfer/NumberLength.h"

namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

const QString kNoFolder = u"(无)"_s;

// Chooses the entry of a value; one that there is no entry of gets one, so that what is there is shown.
void ChooseValue(QComboBox& choice, const QString& value, const QString& caption) {
  for (int at = 0; at < choice.count(); ++at)
    if (IsSame(choice.itemData(at).toString(), value)) return choice.setCurrentIndex(at);
  choice.addItem(caption, value);
  choice.setCurrentIndex(choice.count() - 1);
}

}  // namespace

FormatPage::FormatPage(QWidget* parent, TransferSettings& settings)
    : QWidget(parent),
      settings_(settings),
      table_(new QComboBox(this)),
      field_(new QComboBox(this)),
      store_(new QComboBox(this)),
      folder_(new QComboBox(this)),
      separator_(new QLineEdit(this)),
      sample_(new QLineEdit(this)),
      length_(new QSpinBox(this)),
      showsCode_(new QCheckBox(u"显示代号(&N)"_s, this)),
      example_(new QLabel(this)),
      exampleFolder_(new QLabel(this)),
      findings_(new QLabel(this)),
      findingsIcon_(new QLabel(this)) {
  setObjectName(u"PagFormat"_s);
  LayOut();
}

QString FormatPage::Table() const { return table_->currentData().toString(); }

void FormatPage::Refresh() {
  FillTables();
  format_ = settings_.FormatOf(Table());
  FillFields();
  FillParts();
}

void FormatPage::ShowTable(const QString& table) {
  for (int at = 0; at < table_->count(); ++at)
    if (IsSame(table_->itemData(at).toString(), table)) table_->setCurrentIndex(at);
  Refresh();
}

// Archives, and whatever else has a format or takes records.
void FormatPage::FillTables() {
  const QString shown = Table();
  const Settings& settings = settings_.Now();
  table_->clear();
  const auto add = [&](const QString& name, const QString& label) {
    const NumberFormat* format = settings.FormatOf(name);
    table_->addItem(Icon(u"archive"_s), format ? u"%1（%2 段）"_s.arg(label).arg(format->parts.size()) : label, name);
  };
  for (const BusinessTable& table : settings_.Tables().Designed()) {
    const bool takesRecords = std::any_of(settings.sets.begin(), settings.sets.end(),
                                          [&](const TransferSet& set) { return IsSame(set.destination, table.name); });
    if (table.type != u"F"_s || takesRecords || settings.FormatOf(table.name)) add(table.name, table.Label());
  }
  for (const NumberFormat& format : settings.formats)
    if (!settings_.Tables().Get(format.table).isDesigned) add(format.table, format.table);
  const int at = table_->findData(shown);
  table_->setCurrentIndex(at < 0 && table_->count() > 0 ? 0 : at);
}

void FormatPage::FillFields() {
  for (QComboBox* choice : {field_, store_, folder_}) choice->clear();
  store_->addItem(u"（不组成档号）"_s, QString());
  folder_->addItem(kNoFolder, kNoFolder);
  for (const TableField& field : settings_.Tables().Get(Table()).fields) {
    if (!field.isThere) continue;
    for (QComboBox* choice : {field_, store_, folder_}) choice->addItem(field.Label(), field.name);
  }
}

void FormatPage::FillParts() {
  const BusinessTable& table = settings_.Tables().Get(Table());
  std::vector<ListRow> rows;
  for (std::size_t at = 0; at < format_.parts.size(); ++at) {
    const NumberPart& part = format_.parts[at];
    const TableField* field = table.Find(part.field);
    rows.push_back({{QString::number(at + 1), field ? field->Label() : part.field, part.separator, part.length,
                     part.showsCode ? u"代号"_s : u"名称"_s, SampleOf(at), QString()},
                    QString::number(at),
                    CheckPart(format_, at, settings_.Tables())});
  }
  parts_->Fill(rows);
  {
    const QSignalBlocker silentStore(store_), silentFolder(folder_);
    ChooseValue(*store_, format_.storeField, format_.storeField);
    ChooseValue(*folder_, format_.folderField, format_.folderField.isEmpty() ? u"（未选择）"_s : format_.folderField);
  }
  ShowPart();
  ShowExample();
}

bool FormatPage::HasPart() const { return parts_->Row() >= 0 && Part() < format_.parts.size(); }

std::size_t FormatPage::Part() const { return std::size_t(parts_->Row()); }

void FormatPage::ShowPart() {
  const NumberPart part = HasPart() ? format_.parts[Part()] : NumberPart();
  const QSignalBlocker silentLength(length_);
  if (HasPart() && !part.field.isEmpty())
    ChooseValue(*field_, part.field, part.field);
  else
    field_->setCurrentIndex(-1);
  // What is being typed keeps its place.
  if (separator_->text() != part.separator) separator_->setText(part.separator);
  if (length_->value() != part.length.toInt()) length_->setValue(part.length.toInt());
  showsCode_->setChecked(part.showsCode);
  const QString sample = HasPart() ? SampleOf(Part()) : QString();
  if (sample_->text() != sample) sample_->setText(sample);
  Enable();
}

void FormatPage::Enable() {
  for (QWidget* input : std::initializer_list<QWidget*>{field_, separator_, length_, showsCode_, sample_})
    input->setEnabled(HasPart());
  for (QComboBox* choice : {store_, folder_}) choice->setEnabled(!format_.parts.empty());
  delete_->setEnabled(HasPart());
  up_->setEnabled(HasPart() && Part() > 0);
  down_->setEnabled(HasPart() && Part() + 1 < format_.parts.size());
}

QString& FormatPage::SampleOf(std::size_t part) {
  const QString key = (format_.table + u'\n' + format_.parts[part].field).toLower();
  const auto known = samples_.find(key);
  if (known != samples_.end()) return *known;
  return samples_[key] = SampleValue(settings_.Database(), format_, part, settings_.Tables());
}

QStringList FormatPage::Samples() {
  QStringList samples;
  for (std::size_t at = 0; at < format_.parts.size(); ++at) samples << SampleOf(at);
  return samples;
}

void FormatPage::ShowExample() {
  const bool hasParts = !format_.parts.empty();
  const bool isComposed = hasParts && !format_.storeField.isEmpty();
  example_->setText(hasParts ? u"（不组成档号）"_s : u"（没有格式）"_s);
  exampleFolder_->clear();
  if (isComposed) ComposeExample();
  const Findings findings = Table().isEmpty() ? Findings() : CheckFormat(format_, settings_.Tables());
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  findingsIcon_->setPixmap(IconOf(WorstOf(findings), *this).pixmap(size, size));
  findings_->setText(TextOf(findings));
}

void FormatPage::ComposeExample() {
  try {
    const QStringList samples = Samples();
    const QString folder = format_.HasFolder() ? u"案卷号：%1　"_s.arg(ExampleFolder(format_, samples)) : QString();
    example_->setText(ExampleNumber(format_, samples));
    exampleFolder_->setText(folder + u"档号最长 %1 字节"_s.arg(LengthOf(format_, format_.parts.size())));
  } catch (const DataError& error) {
    // The settings can be edited without an example.
    example_->setText(u"（不能组成示例）"_s);
    exampleFolder_->setText(error.Message());
  }
}

void FormatPage::Take(const QString& word) {
  settings_.SetFormat(format_);
  FillTables();
  format_ = settings_.FormatOf(Table());
  FillParts();
  onChange();
  if (!word.isEmpty()) onWord(word);
}

void FormatPage::ChangePart() {
  if (!HasPart()) return;
  NumberPart& part = format_.parts[Part()];
  part.field = field_->currentData().toString();
  part.separator = separator_->text();
  part.showsCode = showsCode_->isChecked();
  Take();
}

// By itself: a width that no input can show stays for as long as nobody gives another one.
void FormatPage::ChangeLength() {
  if (!HasPart()) return;
  format_.parts[Part()].length = QString::number(length_->value());
  Take();
}

void FormatPage::ChangeNumber() {
  format_.storeField = store_->currentData().toString();
  format_.folderField = folder_->currentData().toString();
  Take();
}

void FormatPage::ChangeSample() {
  if (!HasPart()) return;
  SampleOf(Part()) = sample_->text();
  FillParts();
}

void FormatPage::AddPart() {
  if (Table().isEmpty()) return;
  const int at = parts_->Row() + 1;
  NumberPart part;
  part.separator = u"-"_s;
  part.length = u"4"_s;
  format_.parts.insert(format_.parts.begin() + at, part);
  Take(u"请选择此段的字段。"_s);
  parts_->GoTo(at);
  field_->setFocus();
}

void FormatPage::DeletePart() {
  if (!HasPart()) return;
  format_.parts.erase(format_.parts.begin() + parts_->Row());
  Take(u"已删除一段，保存后生效。"_s);
}

void FormatPage::MoveUp() { Move(-1); }
void FormatPage::MoveDown() { Move(1); }

void FormatPage::Move(int by) {
  const int row = parts_->Row(), other = row + by;
  if (!HasPart() || other < 0 || other >= int(format_.parts.size())) return;
  std::swap(format_.parts[Part()], format_.parts[std::size_t(other)]);
  Take();
  parts_->GoTo(other);
}

}  // namespace folvane::transfer
