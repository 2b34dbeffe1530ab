#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>
#include <limits>

#include "components/common/Notice.h"
#include "components/common/ToolKeys.h"
#include "components/transfer/FormatPage.h"
#include "components/transfer/SettingsList.h"

// How the page of the archive numbers looks, and which key does what.
namespace folvane::transfer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr double kExampleSize = 1.6;  // times the window's font

void Name(QWidget& input, const QString& name, const QString& caption, const QString& tip) {
  input.setObjectName(name);
  input.setAccessibleName(caption);
  input.setToolTip(tip);
}

QLabel* NewLabel(const QString& text, QWidget* buddy, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setBuddy(buddy);
  return label;
}

}  // namespace

void FormatPage::LayOut() {
  NameInputs();
  auto* top = new QHBoxLayout;
  top->addWidget(NewLabel(u"档案表(&T)："_s, table_, this));
  top->addWidget(table_);
  top->addStretch();
  auto* column = new QVBoxLayout(this);
  column->addLayout(top);
  column->addWidget(NewPartsBox(), 1);
  column->addWidget(NewNumberBox());
  const std::initializer_list<QWidget*> inputs{table_,     parts_,  field_, separator_, length_,
                                               showsCode_, sample_, store_, folder_};
  for (auto input = inputs.begin(); input + 1 != inputs.end(); ++input) setTabOrder(*input, *(input + 1));
  ConnectInputs();
}

void FormatPage::NameInputs() {
  const int unit = QFontMetrics(font()).averageCharWidth();
  Name(*table_, u"CmbTable"_s, u"档案表"_s, u"编写哪个表的档号格式"_s);
  table_->setMinimumWidth(unit * 50);
  table_->setMaxVisibleItems(20);
  Name(*field_, u"CmbPartField"_s, u"字段"_s, u"此段取哪个字段的值"_s);
  field_->setMinimumWidth(unit * 34);
  field_->setMaxVisibleItems(20);
  Name(*separator_, u"TxtSeparator"_s, u"分隔符"_s, u"写在此段前面；首段的分隔符不出现在档号中，应为一个字符"_s);
  separator_->setMaximumWidth(unit * 10);
  Name(*length_, u"SpnLength"_s, u"宽度"_s, u"此段的字节数，一个汉字两个字节；不足时在前面补 0，超出时截去"_s);
  length_->setRange(0, std::numeric_limits<qint16>::max());
  Name(*showsCode_, u"ChkShowCode"_s, u"显示代号"_s, u"写字典条目或全宗的代号，不写名称"_s);
  Name(*sample_, u"TxtSample"_s, u"示例值"_s, u"只用于下面的档号示例，不保存"_s);
  sample_->setMaximumWidth(unit * 24);
  Name(*store_, u"CmbStoreField"_s, u"档号字段"_s, u"档号存入哪个字段"_s);
  Name(*folder_, u"CmbFolderField"_s, u"案卷号字段"_s, u"没有末段的档号存入哪个字段"_s);
  for (QComboBox* choice : {store_, folder_}) {
    choice->setMinimumWidth(unit * 34);
    choice->setMaxVisibleItems(20);
  }
  example_->setObjectName(u"LblExample"_s);
  exampleFolder_->setObjectName(u"LblExampleFolder"_s);
  findings_->setObjectName(u"LblFindings"_s);
  for (QLabel* label : {example_, exampleFolder_, findings_}) label->setTextFormat(Qt::PlainText);
  for (QLabel* label : {example_, exampleFolder_}) label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  findings_->setWordWrap(true);
  QFont big = example_->font();
  big.setPointSizeF(big.pointSizeF() * kExampleSize);
  big.setBold(true);
  example_->setFont(big);
}

QWidget* FormatPage::NewPartsBox() {
  auto* box = new QWidget(this);
  parts_ = new SettingsList(box, u"LvParts"_s, u"档号的各段"_s,
                            {u"段"_s, u"字段"_s, u"分隔符"_s, u"宽度"_s, u"显示"_s, u"示例值"_s, u"检查"_s});
  parts_->SetHint(u"此表还没有档号格式。按“添加”（Ins）逐段添加，末段为顺序号。"_s);
  parts_->SetWidths({6, 34, 10, 8, 10, 20});
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(NewPartKeys());
  column->addWidget(parts_, 1);
  column->addWidget(NewPartEditor());
  return box;
}

QWidget* FormatPage::NewPartEditor() {
  auto* box = new QGroupBox(u"选中的段"_s, this);
  auto* row = new QHBoxLayout(box);
  const auto add = [&](const QString& caption, QWidget* input) {
    row->addWidget(NewLabel(caption, input, box));
    row->addWidget(input);
    row->addSpacing(8);
  };
  add(u"字段(&F)："_s, field_);
  add(u"分隔符(&P)："_s, separator_);
  add(u"宽度(&W)："_s, length_);
  row->addWidget(showsCode_);
  row->addSpacing(8);
  add(u"示例值(&X)："_s, sample_);
  row->addStretch();
  return box;
}

QWidget* FormatPage::NewNumberBox() {
  auto* box = new QGroupBox(u"档号"_s, this);
  auto* fields = new QFormLayout;
  fields->addRow(u"档号字段(&A)："_s, store_);
  fields->addRow(u"案卷号字段(&J)："_s, folder_);
  auto* shown = new QVBoxLayout;
  shown->addWidget(new QLabel(u"示例："_s, box));
  shown->addWidget(example_);
  shown->addWidget(exampleFolder_);
  auto* both = new QHBoxLayout;
  both->addLayout(fields);
  both->addSpacing(32);
  both->addLayout(shown, 1);
  auto* found = new QHBoxLayout;
  found->addWidget(findingsIcon_, 0, Qt::AlignTop);
  found->addWidget(findings_, 1);
  auto* column = new QVBoxLayout(box);
  column->addLayout(both);
  column->addLayout(found);
  return box;
}

QToolBar* FormatPage::NewPartKeys() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbParts"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  NewKey(*bar, {u"CmdAddPart"_s, u"new"_s, u"添加"_s, u"在选中的段后面添加一段"_s, Qt::Key_Insert},
         &FormatPage::AddPart);
  delete_ = NewKey(*bar, {u"CmdDeletePart"_s, u"del"_s, u"删除"_s, u"删除选中的段"_s, QKeySequence::Delete},
                   &FormatPage::DeletePart);
  bar->addSeparator();
  up_ = NewKey(*bar, {u"CmdPartUp"_s, u"moveup"_s, u"上移"_s, u"将选中的段上移"_s, QKeySequence(Qt::ALT | Qt::Key_Up)},
               &FormatPage::MoveUp);
  down_ = NewKey(
      *bar, {u"CmdPartDown"_s, u"movedown"_s, u"下移"_s, u"将选中的段下移"_s, QKeySequence(Qt::ALT | Qt::Key_Down)},
      &FormatPage::MoveDown);
  return bar;
}

QAction* FormatPage::NewKey(QToolBar& bar, const ToolKey& key, Handler handler) {
  QAction* action = AddKey(bar, key, [this, handler] { (this->*handler)(); });
  action->setShortcutContext(Qt::WidgetShortcut);
  parts_->addAction(action);
  parts_->setContextMenuPolicy(Qt::ActionsContextMenu);
  return action;
}

void FormatPage::ConnectInputs() {
  const auto guarded = [this](Handler handler) {
    return [this, handler] { notices::Guarded([&] { (this->*handler)(); }); };
  };
  connect(table_, &QComboBox::activated, this, [this] {
    notices::Guarded([this] {
      format_ = settings_.FormatOf(Table());
      FillFields();
      FillParts();
    });
  });
  connect(parts_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, guarded(&FormatPage::ShowPart));
  // Enter and F2 lead to the inputs of the part.
  auto* edit = new QAction(u"修改"_s, parts_);
  edit->setObjectName(u"CmdEditPart"_s);
  edit->setShortcut(Qt::Key_F2);
  edit->setShortcutContext(Qt::WidgetShortcut);
  parts_->addAction(edit);
  connect(edit, &QAction::triggered, this, [this] { field_->setFocus(); });
  connect(parts_, &QTreeView::activated, this, [this] { field_->setFocus(); });
  connect(field_, &QComboBox::activated, this, guarded(&FormatPage::ChangePart));
  connect(separator_, &QLineEdit::textEdited, this, guarded(&FormatPage::ChangePart));
  connect(length_, &QSpinBox::valueChanged, this, guarded(&FormatPage::ChangePart));
  connect(showsCode_, &QCheckBox::clicked, this, guarded(&FormatPage::ChangePart));
  connect(sample_, &QLineEdit::textEdited, this, guarded(&FormatPage::ChangeSample));
  connect(store_, &QComboBox::activated, this, guarded(&FormatPage::ChangeNumber));
  connect(folder_, &QComboBox::activated, this, guarded(&FormatPage::ChangeNumber));
}

}  // namespace folvane::transfer
