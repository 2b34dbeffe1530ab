#include "designer/NumberPage.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "design/DesignedTransfers.h"
#include "design/NumberExample.h"
#include "design/transfer/FormatCheck.h"
#include "designer/DesignGrid.h"
#include "designer/Labels.h"
#include "shell/EventGuard.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

using Part = Design::NumberPart;

const QString kNoField = u"(无)"_s;
constexpr int kUsualLength = 4;

bool IsPart(const Design::Table& table, const QString& field) {
  return std::any_of(table.numberParts.begin(), table.numberParts.end(),
                     [&](const Part& part) { return design::IsSame(part.field, field); });
}

// The first field that gives no part yet.
Part NextPart(const Design::Table& table) {
  for (const Design::Field& field : table.fields) {
    const bool takesNumber = design::IsSame(field.name, table.numberField) ||
                             design::IsSame(field.name, table.folderNumberField) || field.name == u"ArchiveID";
    if (takesNumber || IsPart(table, field.name)) continue;
    return {field.name, field.caption, u"-"_s, !field.dictionary.isEmpty(),
            field.length > 0 ? std::min(field.length, kUsualLength) : kUsualLength};
  }
  throw DataError(DataErrorKind::Usage, u"表中没有其他字段可以作档号的一段。"_s);
}

// What takes the numbers is stored with their parts.
void AddPart(Design::Table& table, const Part& part) {
  table.numberParts.push_back(part);
  if (table.folderNumberField.isEmpty()) table.folderNumberField = kNoField;
}

void RemovePart(Design::Table& table, const Part& part) {
  if (const auto at = std::find(table.numberParts.begin(), table.numberParts.end(), part);
      at != table.numberParts.end())
    table.numberParts.erase(at);
  if (table.numberParts.empty()) table.numberField = table.folderNumberField = QString();
}

void Choose(QComboBox& choice, const Design::Table& table, const QString& name) {
  choice.addItem(kNoField, QString());
  for (const Design::Field& field : table.fields) choice.addItem(LabelOf(field), field.name);
  if (name.isEmpty() || name == kNoField) return choice.setCurrentIndex(0);
  const Design::Field* field = design::FindNamed(table.fields, name);
  if (!field) choice.addItem(name, name);
  choice.setCurrentIndex(choice.findData(field ? field->name : name));
}

QLabel* NewReading(const QString& name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  return label;
}

}  // namespace

NumberPage::NumberPage(DesignSession& session)
    : DesignPage(session, u"NumberPage"_s),
      number_(NewChoice(u"CmbNumberField"_s, u"归档时组成的档号存入这个字段"_s, &Design::Table::numberField)),
      folder_(NewChoice(u"CmbFolderField"_s, u"案卷号是档号去掉最后一段；不需要时选“(无)”"_s,
                        &Design::Table::folderNumberField)),
      example_(NewReading(u"LblExample"_s)),
      folderExample_(NewReading(u"LblFolderExample"_s)),
      complaints_(NewReading(u"LblComplaints"_s)) {
  parts_ = new DesignGrid(NewParts(), u"GrdNumberParts"_s, u"档号的各段(&N)"_s,
                          u"表没有档号格式，不能归档到这个表。\n按 Ins 增加一段。"_s, this);
  auto* down = new QVBoxLayout(this);
  down->addWidget(parts_, 1);
  down->addWidget(NewExample());
  down->addWidget(NewHint(u"各段按先后组成档号，最后一段是顺序号；首段的分隔符不出现在档号中。"_s, this));
  setFocusProxy(parts_);
}

QWidget* NumberPage::NewExample() {
  QFont big = example_->font();
  big.setPointSizeF(big.pointSizeF() * 1.4);
  example_->setFont(big);
  auto* box = new QGroupBox(u"存放与示例"_s);
  auto* form = new QFormLayout(box);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(u"档号字段(&M)"_s, number_);
  form->addRow(u"案卷号字段(&J)"_s, folder_);
  form->addRow(u"档号示例"_s, example_);
  form->addRow(u"案卷号示例"_s, folderExample_);
  form->addRow(u"提示"_s, complaints_);
  return box;
}

QComboBox* NumberPage::NewChoice(const QString& name, const QString& tip, QString Design::Table::*field) {
  auto* choice = new QComboBox(this);
  choice->setObjectName(name);
  choice->setToolTip(tip);
  ConnectGuarded(choice, &QComboBox::activated, this, [this, choice, field](int) {
    QString chosen = choice->currentData().toString();
    if (chosen.isEmpty() && field == &Design::Table::folderNumberField) chosen = kNoField;
    ChangeTable(u"选择"_s + (field == &Design::Table::numberField ? u"档号字段"_s : u"案卷号字段"_s),
                [&](Design::Table& table) { table.*field = chosen; });
  });
  return choice;
}

void NumberPage::Refresh() {
  parts_->Refresh();
  ShowChoices();
  ShowExample();
}

void NumberPage::ShowChoices() {
  const Design::Table* table = Table();
  for (QComboBox* choice : {number_, folder_}) {
    choice->clear();
    choice->setEnabled(table && !table->numberParts.empty());
  }
  if (!table) return;
  Choose(*number_, *table, table->numberField);
  Choose(*folder_, *table, table->folderNumberField);
}

void NumberPage::ShowExample() {
  const Design::Table* table = Table();
  const design::NumberExample example = table ? design::ExampleOf(Session().Wanted(), *table) : design::NumberExample();
  const bool hasNumber = !example.number.isEmpty();
  example_->setText(hasNumber ? example.number : u"（没有格式）"_s);
  const bool hasFolder = table && table->folderNumberField != kNoField && !example.folder.isEmpty();
  folderExample_->setText(hasFolder ? example.folder : kNoField);
  complaints_->setText(hasNumber ? u"档号最长 %1 字节。"_s.arg(example.mostBytes) + Complaints() : QString());
}

QString NumberPage::Complaints() const {
  const Design::Table* table = Table();
  transfer::BusinessTables tables = design::TablesOf(Session().Wanted(), Session().Database().get());
  QStringList sentences;
  for (const transfer::Finding& finding : transfer::CheckFormat(design::FormatOf(*table), tables))
    sentences << finding.text + u'。';
  return sentences.isEmpty() ? u"格式没有问题。"_s : sentences.join(QString());
}

GridModel* NumberPage::NewParts() {
  ThingRules<Part> rules;
  rules.locate = [this](const Design& design) -> const std::vector<Part>* {
    const Design::Table* table = design::FindNamed(design.tables, TableName());
    return table ? &table->numberParts : nullptr;
  };
  rules.fresh = [this](const Design& design) { return NextPart(*design::FindNamed(design.tables, TableName())); };
  rules.add = [this](Design& wanted, const Part& part) {
    AddPart(*design::FindNamed(wanted.tables, TableName()), part);
  };
  rules.remove = [this](Design& wanted, const Part& part) {
    RemovePart(*design::FindNamed(wanted.tables, TableName()), part);
  };
  rules.number = [](std::vector<Part>&) {};  // the order itself is what counts
  auto separator = ColumnOf(&Part::separator, 8);
  separator.look.tip = u"写在这一段前面"_s;
  auto code = ColumnOf(&Part::showsCode, 10);
  code.look.tip = u"用词条的代号，不用内容"_s;
  auto length = ColumnOf(&Part::length, 8);
  length.look.tip = u"这一段的宽度，一个汉字算两个，不足时前面补零"_s;
  length.write = [](Design&, Part& part, const QVariant& value) {
    bool isNumber = false;
    const int width = value.toInt(&isNumber);
    if (!isNumber || width < 1 || width > 255) throw DataError(DataErrorKind::Usage, u"宽度应是 1 到 255 的整数。"_s);
    part.length = width;
  };
  return new ThingModel<Part>(Session(), rules,
                              {FieldColumn(), ColumnOf(&Part::caption, 14), separator, code, length, ComplaintColumn()},
                              this);
}

ThingColumn<Part> NumberPage::FieldColumn() {
  auto field = ChoiceOf(&Part::field, 22, [this](int) { return Table() ? LabelsOf(Table()->fields) : QStringList(); });
  field.read = [this](const Part& part) { return Table() ? LabelFor(Table()->fields, part.field) : part.field; };
  field.write = [this](Design& wanted, Part& part, const QVariant& value) {
    const Design::Table& table = *design::FindNamed(wanted.tables, TableName());
    const Design::Field& chosen = LabelledBy(table.fields, value.toString());
    if (!design::IsSame(chosen.name, part.field) && IsPart(table, chosen.name))
      throw DataError(DataErrorKind::Usage, u"字段“%1”已是档号的一段。"_s.arg(LabelOf(chosen)));
    part.field = chosen.name;
    part.caption = chosen.caption;
  };
  return field;
}

ThingColumn<Part> NumberPage::ComplaintColumn() {
  ThingColumn<Part> column;
  column.look = {u"提示"_s, GridColumn::Kind::Text, 30, {}, u"这一段有什么不妥"_s};
  column.read = [this](const Part& part) {
    const Design::Table* table = Table();
    if (!table) return QString();
    transfer::BusinessTables tables = design::TablesOf(Session().Wanted(), Session().Database().get());
    const auto at = std::size_t(&part - table->numberParts.data());
    return transfer::TextOf(transfer::CheckPart(design::FormatOf(*table), at, tables));
  };
  return column;
}

}  // namespace folvane::designer
