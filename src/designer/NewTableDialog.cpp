#include "designer/NewTableDialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <folvane/DataError.h>
#include <folvane/Icons.h>

#include "design/Names.h"
#include "design/Shape.h"
#include "design/TableEdits.h"
#include "designer/Labels.h"
#include "designer/PlacePage.h"
#include "designer/TroubleText.h"
#include "shell/EventGuard.h"
#include "widgets/DialogKeys.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

bool IsTableName(const Design& design, const QString& name) {
  return design::FindNamed(design.tables, name) != nullptr;
}

}  // namespace

NewTableDialog::NewTableDialog(DesignSession& session, int classId, QWidget* parent)
    : QDialog(parent),
      session_(session),
      txtCaption_(new QLineEdit),
      txtName_(new QLineEdit),
      cboClass_(new QComboBox),
      cboLike_(new QComboBox) {
  setObjectName(u"NewTableDialog"_s);
  setWindowTitle(u"新建表"_s);
  setWindowIcon(Icon(u"table"_s));
  txtCaption_->setObjectName(u"TxtCaption"_s);
  txtCaption_->setPlaceholderText(u"例如：合同登记"_s);
  txtName_->setObjectName(u"TxtName"_s);
  cboClass_->setObjectName(u"CboClass"_s);
  cboLike_->setObjectName(u"CboLike"_s);
  FillClasses(*cboClass_, session.Wanted(), u"(新类别，与表同名)"_s, 0);
  cboClass_->setCurrentIndex(std::max(0, cboClass_->findData(classId)));
  cboLike_->addItem(u"(只有登记号、登记日期和题名)"_s, QString());
  for (const Design::Table& table : session.Wanted().tables)
    if (!table.fields.empty()) cboLike_->addItem(LabelOf(table), table.name);

  auto* rows = new QFormLayout(this);
  rows->addRow(u"标题(&T)"_s, txtCaption_);
  rows->addRow(u"表名(&N)"_s, txtName_);
  rows->addRow(u"类别(&C)"_s, cboClass_);
  rows->addRow(u"照这个表的样子(&L)"_s, cboLike_);
  lblMessage_ = NewHint(u"表名由标题生成，也可以另取：字母、汉字、数字和下划线。"_s, this);
  lblMessage_->setObjectName(u"LblMessage"_s);
  lblMessage_->setWordWrap(true);
  lblMessage_->setMinimumHeight(fontMetrics().lineSpacing() * 2);
  rows->addRow(lblMessage_);
  const DialogKeys keys(*this);
  rows->addRow(keys.row);
  txtCaption_->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
  ConnectGuarded(keys.ok, &QPushButton::clicked, this, &NewTableDialog::accept);
  ConnectGuarded(txtCaption_, &QLineEdit::textEdited, this, &NewTableDialog::FollowCaption);
  ConnectGuarded(txtName_, &QLineEdit::textEdited, this, [this] { isNamed_ = !txtName_->text().isEmpty(); });
}

void NewTableDialog::FollowCaption() {
  if (isNamed_) return;
  const QString caption = txtCaption_->text().trimmed();
  const auto isTaken = [this](const QString& name) { return IsTableName(session_.Wanted(), name); };
  txtName_->setText(caption.isEmpty() ? QString() : design::NameFor(caption, isTaken));
}

void NewTableDialog::accept() {
  const QString caption = txtCaption_->text().trimmed(), name = txtName_->text().trimmed();
  const Design& wanted = session_.Wanted();
  if (caption.isEmpty()) {
    txtCaption_->setFocus();
    return ShowTrouble(*lblMessage_, u"请填写标题。"_s, true);
  }
  QString complaint = design::NameComplaint(name);
  if (complaint.isEmpty() && IsTableName(wanted, name)) complaint = u"已有表“%1”"_s.arg(name);
  if (!complaint.isEmpty()) {
    txtName_->setFocus();
    return ShowTrouble(*lblMessage_, complaint + u'。', true);
  }
  const int classId = cboClass_->currentData().toInt();
  const Design::Table* like = design::FindNamed(wanted.tables, cboLike_->currentData().toString());
  session_.Change(u"新建表“%1”"_s.arg(caption), [&](Design& design) {
    const int place = classId > 0 ? classId : design::AddClass(design, caption, 1);
    design.tables.push_back(design::NewTable(name, caption, place, like));
  });
  added_ = name;
  QDialog::accept();
}

}  // namespace folvane::designer
