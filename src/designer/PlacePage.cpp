#include "designer/PlacePage.h"

#include <QComboBox>
#include <QDir>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include <folvane/DataError.h>
#include <folvane/HostServices.h>

#include "design/Names.h"
#include "design/Shape.h"
#include "design/TableEdits.h"
#include "designer/Labels.h"
#include "entry/RegFormulaFile.h"
#include "entry/RegIdRule.h"
#include "shell/EventGuard.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kTop = 1;  ///< the invisible class above all

QLineEdit* AddText(QFormLayout& rows, const QString& name, const QString& caption) {
  auto* box = new QLineEdit;
  box->setObjectName(name);
  rows.addRow(caption, box);
  return box;
}

QComboBox* AddChoice(QFormLayout& rows, const QString& name, const QString& caption) {
  auto* box = new QComboBox;
  box->setObjectName(name);
  rows.addRow(caption, box);
  return box;
}

// Shows a text, but not over what is being typed.
void ShowText(QLineEdit& box, const QString& text) {
  if (box.text() != text) box.setText(text);
}

void ShowChoice(QComboBox& box, const QVariant& value, const QString& unknown) {
  int at = box.findData(value);
  if (at < 0) {
    box.addItem(unknown, value);
    at = box.count() - 1;
  }
  box.setCurrentIndex(at);
}

QString PathOf(const Design& design, const Design::Class& item) {
  QString path = item.name;
  int depth = 0;
  for (const Design::Class* above = &item; depth < 20 && above && above->parent != kTop; ++depth) {
    above = design::FindByKey(design.classes, QString::number(above->parent));
    if (above) path = above->name + u" / "_s + path;
  }
  return path;
}

/// A way of numbering records, with the field whose year it counts in.
struct Numbering {
  int formula;
  QString words, field;
};

const std::vector<Numbering>& Numberings() {
  static const std::vector<Numbering> all{
      {RegFormula::None, u"不自动编号"_s, {}},
      {RegFormula::CreatedDate, u"按登记日期的年度，每年从 1 编起"_s, u"CreatedDate"_s},
      {RegFormula::CreatedDateAndRights, u"按登记日期的年度，在各人权限范围内编"_s, u"CreatedDate"_s},
      {RegFormula::FileDate, u"按成文日期的年度，每年从 1 编起"_s, u"FileDate"_s},
      {RegFormula::FileDateAndRights, u"按成文日期的年度，在各人权限范围内编"_s, u"FileDate"_s},
      {RegFormula::DocNo, u"取文件编号中的顺序号"_s, {}},
      {RegFormula::BrowserCondition, u"在登记窗口列出的记录中编"_s, {}},
      {RegFormula::AutoNumber, u"由数据库编号，或沿用上一份加 1"_s, {}}};
  return all;
}

Numbering NumberingOf(int formula) {
  for (const Numbering& each : Numberings())
    if (each.formula == formula) return each;
  return {formula, {}, {}};
}

QFormLayout* NewRows(QWidget& page) {
  auto* rows = new QFormLayout(&page);
  rows->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  return rows;
}

}  // namespace

void FillClasses(QComboBox& box, const Design& design, const QString& none, int noneId) {
  box.clear();
  box.addItem(none, noneId);
  for (const Design::Class& each : design.classes) box.addItem(PathOf(design, each), each.id);
}

TablePage::TablePage(DesignSession& session) : DesignPage(session, u"TablePage"_s) {
  auto* rows = NewRows(*this);
  txtCaption_ = AddText(*rows, u"TxtTableCaption"_s, u"标题(&T)"_s);
  txtName_ = AddText(*rows, u"TxtTableName"_s, u"表名(&N)"_s);
  cboKind_ = AddChoice(*rows, u"CboTableKind"_s, u"用途(&U)"_s);
  cboClass_ = AddChoice(*rows, u"CboTableClass"_s, u"类别(&C)"_s);
  cboParent_ = AddChoice(*rows, u"CboTableParent"_s, u"上级表(&P)"_s);
  cboRelation_ = AddChoice(*rows, u"CboTableRelation"_s, u"关联字段(&R)"_s);
  cboParent_->setToolTip(u"例如案卷是卷内文件的上级表：在案卷中打开的是它自己的文件"_s);
  cboRelation_->setToolTip(u"两个表都有、值相同的字段"_s);
  cboNumbering_ = AddChoice(*rows, u"CboNumbering"_s, u"登记号(&G)"_s);
  cboNumbering_->setToolTip(u"登记号 RegID 怎样编。写在程序目录的 RegIDFormula.Ini 中，立即生效，不随应用写入数据库"_s);
  for (const Numbering& each : Numberings()) cboNumbering_->addItem(each.words, each.formula);
  lblNext_ = NewHint({}, this);
  lblNext_->setObjectName(u"LblNext"_s);
  rows->addRow(QString(), lblNext_);
  lblSums_ = NewHint({}, this);
  rows->addRow(lblSums_);
  const int width = fontMetrics().averageCharWidth() * 40;
  for (QWidget* box :
       {static_cast<QWidget*>(txtCaption_), static_cast<QWidget*>(txtName_), static_cast<QWidget*>(cboKind_),
        static_cast<QWidget*>(cboClass_), static_cast<QWidget*>(cboParent_), static_cast<QWidget*>(cboRelation_),
        static_cast<QWidget*>(cboNumbering_)})
    box->setMinimumWidth(width);
  setFocusProxy(txtCaption_);

  ConnectGuarded(txtCaption_, &QLineEdit::editingFinished, this, [this] {
    ChangeTable(u"修改表的标题"_s, [&](Design::Table& table) { table.caption = txtCaption_->text().trimmed(); });
  });
  ConnectGuarded(txtName_, &QLineEdit::editingFinished, this, &TablePage::Rename);
  ConnectGuarded(cboNumbering_, &QComboBox::activated, this, &TablePage::TakeNumbering);
  const auto take = [this](QComboBox* box, const QString& words,
                           std::function<void(Design::Table&, const QVariant&)> set) {
    ConnectGuarded(box, &QComboBox::activated, this, [this, box, words, set] {
      ChangeTable(words, [&](Design::Table& table) { set(table, box->currentData()); });
    });
  };
  take(cboKind_, u"修改表的用途"_s, [](Design::Table& table, const QVariant& value) { table.kind = value.toString(); });
  take(cboClass_, u"移动表"_s, [](Design::Table& table, const QVariant& value) { table.classId = value.toInt(); });
  take(cboParent_, u"修改上级表"_s, [this](Design::Table& table, const QVariant& value) {
    table.parent = value.toString();
    table.relationField.clear();
    const Design::Table* parent = design::FindNamed(Session().Wanted().tables, table.parent);
    if (!parent) return;
    for (const Design::Field& field : table.fields)
      if (table.relationField.isEmpty() && design::FindNamed(parent->fields, field.name))
        table.relationField = field.name;
  });
  take(cboRelation_, u"修改关联字段"_s,
       [](Design::Table& table, const QVariant& value) { table.relationField = value.toString(); });
}

// The next number is that of a record of today.
void TablePage::ShowNumbering(const Design::Table& table) {
  const bool hasNumber = design::FindNamed(table.fields, u"RegID"_s) != nullptr;
  const Numbering now = NumberingOf(StoredRegFormula(table.name).value_or(RegFormula::None));
  cboNumbering_->setEnabled(hasNumber);
  ShowChoice(*cboNumbering_, now.formula, u"第 %1 种"_s.arg(now.formula));
  lblNext_->clear();
  if (!hasNumber) return lblNext_->setText(u"表中没有字段 RegID，没有登记号。"_s);
  if (now.field.isEmpty()) return;
  if (!design::FindNamed(table.fields, now.field))
    return lblNext_->setText(u"这种编法要有字段 %1，表中没有，保存时会出错。"_s.arg(now.field));
  const Design::Table* stored = design::FindNamed(Session().Stored().tables, table.name);
  if (!stored || !design::FindNamed(stored->fields, now.field)) return;
  const int next = NextRegId({table.name, now.formula, {}, {}}, now.field, Services().now().toString(u"yyyy"_s));
  lblNext_->setText(u"今天登记的下一份编为 %1。"_s.arg(next));
}

void TablePage::TakeNumbering() {
  if (!Table()) return;
  StoreRegFormula(Table()->name, cboNumbering_->currentData().toInt());
  Q_EMIT Session().Told(u"登记号的编法已写入 %1。"_s.arg(QDir::toNativeSeparators(RegFormulaPath())));
  Refresh();
}

void TablePage::Rename() {
  const Design::Table* table = Table();
  const QString from = TableName(), to = txtName_->text().trimmed();
  if (!table || from == to) return;
  const bool isDone = Session().Change(u"修改表名"_s, [&](Design& wanted) { design::RenameTable(wanted, from, to); });
  if (isDone) SetTable(to);
  Refresh();
}

void TablePage::Refresh() {
  const Design::Table* table = Table();
  setEnabled(table != nullptr);
  if (!table) return;
  const Design& wanted = Session().Wanted();
  const bool isStored = design::FindNamed(Session().Stored().tables, table->name) != nullptr;
  ShowText(*txtCaption_, table->caption);
  ShowText(*txtName_, table->name);
  txtName_->setReadOnly(isStored);
  txtName_->setToolTip(isStored ? u"已经写入数据库的表不能改名"_s : u"数据库中的表名：字母、汉字、数字和下划线"_s);

  cboKind_->clear();
  cboKind_->addItem(u"登记：登记、流转，再归档"_s, u"F"_s);
  cboKind_->addItem(u"档案：归档的目的地"_s, u"A"_s);
  ShowChoice(*cboKind_, table->kind, table->kind.isEmpty() ? u"(未定，按档案)"_s : table->kind);
  FillClasses(*cboClass_, wanted, u"(不在类别树中)"_s, 0);
  ShowChoice(*cboClass_, table->classId, u"(不存在的类别 %1)"_s.arg(table->classId));
  cboParent_->clear();
  cboParent_->addItem(u"(无)"_s, QString());
  cboRelation_->clear();
  cboRelation_->addItem(u"(无)"_s, QString());
  for (const Design::Table& other : wanted.tables)
    if (&other != table) cboParent_->addItem(LabelOf(other), other.name);
  ShowChoice(*cboParent_, table->parent, table->parent);
  if (const Design::Table* parent = design::FindNamed(wanted.tables, table->parent))
    for (const Design::Field& field : table->fields)
      if (design::FindNamed(parent->fields, field.name)) cboRelation_->addItem(LabelOf(field), field.name);
  ShowChoice(*cboRelation_, table->relationField, table->relationField);
  cboRelation_->setEnabled(!table->parent.isEmpty());
  ShowNumbering(*table);
  lblSums_->setText(u"%1 个字段，其中 %2 个在录入界面中，%3 个在列表中，%4 个可以查询。%5"_s.arg(table->fields.size())
                        .arg(std::count_if(table->controls.begin(), table->controls.end(),
                                           [](const Design::Control& control) { return !control.field.isEmpty(); }))
                        .arg(table->columns.size())
                        .arg(table->searchFields.size())
                        .arg(isStored ? QString() : u"表还没有写入数据库。"_s));
}

ClassPage::ClassPage(DesignSession& session) : DesignPage(session, u"ClassPage"_s) {
  auto* rows = NewRows(*this);
  txtName_ = AddText(*rows, u"TxtClassName"_s, u"名称(&N)"_s);
  cboParent_ = AddChoice(*rows, u"CboClassParent"_s, u"上级类别(&P)"_s);
  const int width = fontMetrics().averageCharWidth() * 40;
  txtName_->setMinimumWidth(width);
  cboParent_->setMinimumWidth(width);
  rows->addRow(NewHint(u"类别是文件登记和文件归档窗口左边的目录。"_s, this));
  setFocusProxy(txtName_);
  ConnectGuarded(txtName_, &QLineEdit::editingFinished, this, [this] {
    ChangeClass(u"修改类别的名称"_s, [&](Design::Class& item) { item.name = txtName_->text().trimmed(); });
  });
  ConnectGuarded(cboParent_, &QComboBox::activated, this, [this] {
    ChangeClass(u"移动类别"_s, [&](Design::Class& item) { item.parent = cboParent_->currentData().toInt(); });
  });
}

void ClassPage::SetClass(int id) {
  id_ = id;
  SetTable({});
}

void ClassPage::ChangeClass(const QString& words, const std::function<void(Design::Class&)>& work) {
  Session().Change(words, [&](Design& wanted) {
    if (Design::Class* item = design::FindByKey(wanted.classes, QString::number(id_))) work(*item);
  });
}

void ClassPage::Refresh() {
  const Design::Class* item = design::FindByKey(Session().Wanted().classes, QString::number(id_));
  setEnabled(item != nullptr);
  if (!item) return ShowText(*txtName_, {});
  ShowText(*txtName_, item->name);
  FillClasses(*cboParent_, Session().Wanted(), u"(最上一级)"_s, kTop);
  cboParent_->removeItem(cboParent_->findData(id_));
  ShowChoice(*cboParent_, item->parent, u"(不存在的类别 %1)"_s.arg(item->parent));
}

}  // namespace folvane::designer
