#include "designer/FrmDesigner.h"

#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QSaveFile>
#include <QStackedWidget>
#include <QTabWidget>

#include <folvane/DataError.h>
#include <folvane/Designer.h>
#include <folvane/Icons.h>

#include "design/Shape.h"
#include "design/TableEdits.h"
#include "designer/DesignTree.h"
#include "designer/FindingsPanel.h"
#include "designer/NewTableDialog.h"
#include "designer/PlacePage.h"
#include "designer/PlanDialog.h"
#include "entry/RegFormulaFile.h"
#include "entry/RegIdRule.h"
#include "shell/EventGuard.h"
#include "shell/Messages.h"
#include "shell/ModalWindow.h"
#include "shell/SharedState.h"
#include "widgets/BusyPointer.h"
#include "widgets/WindowCommands.h"
#include "widgets/WindowStatus.h"

namespace folvane {

void ShowDesigner() {
  RequireApplication();
  designer::DesignSession session(SharedConnection());
  designer::FrmDesigner window(session);
  ShowModal(window);
}

}  // namespace folvane

namespace folvane::designer {
using namespace Qt::Literals::StringLiterals;

namespace {

// A table that is new counts its records by the year unless somebody has said otherwise.
void NumberNewTables(const DesignPlan& plan) {
  for (const Design::Table& table : plan.wanted.tables) {
    const auto has = [&](const QString& field) { return design::FindNamed(table.fields, field) != nullptr; };
    if (design::FindNamed(plan.base.tables, table.name) || !has(u"RegID"_s) || !has(u"CreatedDate"_s)) continue;
    if (!StoredRegFormula(table.name)) StoreRegFormula(table.name, RegFormula::CreatedDate);
  }
}

const QString kFilter = u"设计文件(*.yaml)|*.yaml"_s;

}  // namespace

FrmDesigner::FrmDesigner(DesignSession& session) : session_(session) {
  setObjectName(u"FrmDesigner"_s);
  setWindowTitle(u"设计[*]"_s);
  setWindowIcon(Icon(u"folvane"_s));
  LayOut();
  Connect();
  ShowChosen();
  ShowState();
}

// What still stands in a box is taken now, not while the window goes.
FrmDesigner::~FrmDesigner() { hide(); }

void FrmDesigner::Connect() {
  const auto on = [this](const QString& entry, const std::function<void()>& command) {
    commands_->OnEntry(entry, [this, command] {
      TakeTyped(*this);
      command();
    });
  };
  on(u"mnuNewClass"_s, [this] { AddClass(); });
  on(u"mnuNewTable"_s, [this] { AddTable(); });
  on(u"mnuRemove"_s, [this] { Remove(); });
  on(u"mnuImport"_s, [this] { Import(); });
  on(u"mnuExport"_s, [this] { Export(); });
  on(u"mnuApply"_s, [this] { Apply(); });
  on(u"mnuReadAgain"_s, [this] { ReadAgain(); });
  on(u"mnuGiveUp"_s, [this] { GiveUp(); });
  on(u"mnuClose"_s, [this] { close(); });
  on(u"mnuUndo"_s, [this] { session_.History().undo(); });
  on(u"mnuRedo"_s, [this] { session_.History().redo(); });
  on(u"mnuCheckAll"_s, [this] { Check(); });
  ConnectGuarded(tree_, &DesignTree::CurrentChanged, this, &FrmDesigner::ShowChosen);
  ConnectGuarded(&session_, &DesignSession::Changed, this, &FrmDesigner::ShowState);
  ConnectGuarded(&session_.History(), &QUndoStack::indexChanged, this, [this](int) { ShowState(); });
  connect(&session_, &DesignSession::Told, this, [this](const QString& text) { status_->ShowNotice(text); });
  ConnectGuarded(findings_, &FindingsPanel::Asked, this, &FrmDesigner::GoToFinding);
}

void FrmDesigner::ShowChosen() {
  const DesignNode node = tree_->Current();
  QWidget* page = intro_;
  if (node.kind == DesignNode::Kind::Class) {
    classPage_->SetClass(node.key.toInt());
    page = classPage_;
  } else if (node.kind == DesignNode::Kind::Table) {
    for (int at = 0; at < tablePages_->count(); ++at)
      static_cast<DesignPage*>(tablePages_->widget(at))->SetTable(node.key);
    page = tablePages_;
  } else if (node.kind == DesignNode::Kind::Page) {
    page = pages_->findChild<QWidget*>(node.key, Qt::FindDirectChildrenOnly);
  }
  pages_->setCurrentWidget(page);
  ShowState();
}

void FrmDesigner::ShowState() {
  const Design& wanted = session_.Wanted();
  intro_->setText(
      u"这里设计登记和归档用的表：%1 个类别，%2 个表，%3 个字典。\n\n"
      "在左边选一个表，或按 Ctrl+N 新建一个。改动在应用 (Ctrl+S) 之前都不写入数据库，随时可以撤消。"_s
          .arg(wanted.classes.size())
          .arg(wanted.tables.size())
          .arg(wanted.dictionaries.size()));
  const bool isChanged = session_.IsChanged();
  setWindowModified(isChanged);
  const auto enable = [this](const QString& entry, const QString& key, bool on) {
    commands_->EnableEntry(entry, on);
    if (!key.isEmpty()) commands_->EnableKey(key, on);
  };
  const DesignNode node = tree_->Current();
  const bool isLoose = node.kind == DesignNode::Kind::Class && node.key == u"0";
  enable(u"mnuRemove"_s, u"Remove"_s,
         (node.kind == DesignNode::Kind::Class && !isLoose) || node.kind == DesignNode::Kind::Table);
  enable(u"mnuGiveUp"_s, {}, isChanged);
  enable(u"mnuUndo"_s, u"Undo"_s, session_.History().canUndo());
  enable(u"mnuRedo"_s, u"Redo"_s, session_.History().canRedo());
  QMenu& edit = commands_->Menu(u"mnuEdit"_s);
  const auto name = [&](const QString& entry, const QString& word, const QString& step) {
    edit.findChild<QAction*>(entry)->setText(
        word + (step.isEmpty() ? QString() : u' ' + QString(step).replace(u'&', u"&&"_s)));
  };
  name(u"mnuUndo"_s, u"撤消(&U)"_s, session_.History().undoText());
  name(u"mnuRedo"_s, u"重做(&R)"_s, session_.History().redoText());
  status_->ShowRecords(isChanged ? u"有未应用的改动"_s : u"与数据库一致"_s);
}

// A finding names the table first.
void FrmDesigner::GoToFinding(const DesignFinding& finding) {
  for (const Design::Table& table : session_.Wanted().tables)
    if (finding.where.startsWith(design::Shape<Design::Table>::TitleOf(table)))
      return tree_->GoTo({DesignNode::Kind::Table, table.name});
  for (const Design::Class& item : session_.Wanted().classes)
    if (finding.where.startsWith(design::Shape<Design::Class>::TitleOf(item)))
      return tree_->GoTo({DesignNode::Kind::Class, QString::number(item.id)});
}

void FrmDesigner::AddClass() {
  const DesignNode node = tree_->Current();
  const int parent = node.kind == DesignNode::Kind::Class && node.key != u"0" ? node.key.toInt() : 1;
  int id = 0;
  session_.Change(u"新建类别"_s, [&](Design& wanted) { id = design::AddClass(wanted, u"新类别"_s, parent); });
  tree_->GoTo({DesignNode::Kind::Class, QString::number(id)});
  classPage_->setFocus();
}

void FrmDesigner::AddTable() {
  const DesignNode node = tree_->Current();
  int classId = 0;
  if (node.kind == DesignNode::Kind::Class) classId = node.key.toInt();
  if (const Design::Table* table = design::FindNamed(session_.Wanted().tables, node.key);
      table && node.kind == DesignNode::Kind::Table)
    classId = table->classId;
  NewTableDialog dialog(session_, classId, this);
  ShowModal(dialog);
  if (dialog.Added().isEmpty()) return;
  tree_->GoTo({DesignNode::Kind::Table, dialog.Added()});
  tablePages_->setCurrentIndex(1);
  tablePages_->currentWidget()->setFocus();
}

void FrmDesigner::Remove() {
  const DesignNode node = tree_->Current();
  if (node.kind == DesignNode::Kind::Class)
    session_.Change(u"删去类别"_s, [&](Design& wanted) { design::RemoveClass(wanted, node.key.toInt()); });
  if (node.kind != DesignNode::Kind::Table) return;
  const Design::Table table = *design::FindNamed(session_.Wanted().tables, node.key);
  const bool isDone = session_.Change(u"删去"_s + design::Shape<Design::Table>::TitleOf(table),
                                      [&](Design& wanted) { design::RemoveTable(wanted, table.name); });
  if (isDone) status_->ShowNotice(u"表已从设计中删去，数据还在；应用时再问是否删除，现在可以撤消。"_s);
}

void FrmDesigner::Import() {
  const QString path = AskForFile({false, u"从文件导入设计"_s, {}, kFilter});
  if (path.isEmpty()) return;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw DataError(DataErrorKind::File, u"不能读取“%1”：%2"_s.arg(path, file.errorString()));
  const Design other = ParseDesign(file.readAll());
  QStringList told;
  const bool isDone =
      session_.Change(u"导入设计文件"_s, [&](Design& wanted) { wanted = Joined(wanted, other, &told); });
  const QString done =
      isDone ? u"已加入文件中的 %1 个表、%2 个字典"_s.arg(other.tables.size()).arg(other.dictionaries.size())
             : u"文件中的内容这里都已有"_s;
  status_->ShowNotice((QStringList{done} + told).join(u"；"_s) + u'。');
}

void FrmDesigner::Export() {
  const DesignNode node = tree_->Current();
  const bool isTable = node.kind == DesignNode::Kind::Table;
  const QString path =
      AskForFile({true, isTable ? u"导出表“%1”的设计"_s.arg(node.key) : u"导出全部设计"_s, {}, kFilter});
  if (path.isEmpty()) return;
  const QByteArray text = DesignText(isTable ? ExcerptOf(session_.Wanted(), {node.key}) : session_.Wanted());
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
    throw DataError(DataErrorKind::File, u"不能写入“%1”：%2"_s.arg(path, file.errorString()));
  status_->ShowNotice(u"已导出到“%1”。"_s.arg(path));
}

bool FrmDesigner::Apply() {
  DesignPlan plan;
  {
    const BusyPointer busy;
    plan = session_.Plan();
  }
  if (plan.IsEmpty()) {
    status_->ShowNotice(u"没有要写入的改动。"_s);
    return true;
  }
  PlanDialog dialog(plan, this);
  ShowModal(dialog);
  if (dialog.result() != QDialog::Accepted) return false;
  const BusyPointer busy;
  session_.Apply(plan, dialog.Answers());
  ShowState();
  status_->ShowNotice(u"已写入 %1 项改动。打开的窗口下次打开时生效。"_s.arg(plan.changes.size()));
  NumberNewTables(plan);
  return true;
}

void FrmDesigner::ReadAgain() {
  const BusyPointer busy;
  const QStringList lost = session_.ReadAgain();
  if (lost.isEmpty()) return status_->ShowNotice(u"已重新读取。"_s);
  status_->ShowNotice(
      u"已重新读取；他人改过相同的内容，您的 %1 项改动以他人的为准：%2"_s.arg(lost.size()).arg(lost.join(u'；')));
}

void FrmDesigner::GiveUp() { session_.GiveUp(); }

void FrmDesigner::Check() {
  findings_->CheckAll();
  status_->ShowNotice(findings_->Troubles() == 0 ? u"检查完毕，没有问题。"_s
                                                 : u"检查完毕，有 %1 个问题。"_s.arg(findings_->Troubles()));
}

void FrmDesigner::closeEvent(QCloseEvent* event) {
  event->accept();
  RunGuarded([&] {
    TakeTyped(*this);
    if (session_.IsChanged()) {
      event->ignore();  // also where the question cannot be asked
      const int answer =
          ShowMessage(u"有未应用的改动，是否应用？"_s, MessageFlag::YesNoCancel | MessageFlag::Question, kSystemTitle);
      const bool mayClose = answer == Answer::No || (answer == Answer::Yes && Apply());
      event->setAccepted(mayClose);
    }
    if (!event->isAccepted()) return;
    KeepSplitters();
  });
}

}  // namespace folvane::designer
