#include "components/reports/ReportDesigner.h"

#include <QAction>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPrintPreviewWidget>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <folvane/Icons.h>

#include "components/common/Notice.h"
#include "components/common/PlainTip.h"
#include "components/reports/DefaultTemplate.h"
#include "components/reports/MarkerChoices.h"
#include "components/reports/PageView.h"
#include "components/reports/TemplateFile.h"

namespace folvane::reports {
namespace {
using namespace Qt::Literals::StringLiterals;
using namespace notices;

constexpr int kPause = 400;  // milliseconds without a key

// As it was typed: the text that the box gives by itself has blanks for spaces that must not break.
QString TextIn(const QPlainTextEdit& box) {
  return box.document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

}  // namespace

ReportDesigner::ReportDesigner(const ReportRequest& request)
    : QDialog(QApplication::activeWindow()),
      request_(request),
      printer_(QPrinter::HighResolution),
      choices_(new QTreeWidget(this)),
      text_(new QPlainTextEdit(this)),
      view_(NewPageView(printer_, this)),
      state_(new QLabel(this)),
      pause_(new QTimer(this)) {
  const auto text = ReadTemplate(request.reportId);
  order_ = text ? MetaOf(*text, u"order"_s) : QString();
  data_ = std::make_unique<ReportData>(request, order_);
  setObjectName(u"ReportDesigner"_s);
  setWindowTitle(u"报表设计 - "_s + data_->Title());
  setWindowIcon(Icon(u"mod"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  LayOut();
  FillChoices();
  text_->setPlainText(text ? *text : DefaultTemplate(*data_));
  saved_ = TextIn(*text_);
  connect(view_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
    Guarded([&] {
      if (report_) report_->pages.Print(*printer);
    });
  });
  pause_->setSingleShot(true);
  pause_->setInterval(kPause);
  connect(pause_, &QTimer::timeout, this, &ReportDesigner::ShowPages);
  connect(text_, &QPlainTextEdit::textChanged, pause_, QOverload<>::of(&QTimer::start));
  ShowPages();
  view_->fitToWidth();
}

void ReportDesigner::LayOut() {
  text_->setObjectName(u"TxtTemplate"_s);
  text_->setAccessibleName(u"报表模板"_s);
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  view_->setObjectName(u"View"_s);
  state_->setObjectName(u"LblState"_s);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  state_->setMargin(4);
  choices_->setObjectName(u"TvFields"_s);
  choices_->setAccessibleName(u"可插入的内容"_s);
  choices_->setHeaderHidden(true);
  choices_->setToolTip(u"双击可插入到模板中"_s);
  connect(choices_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* choice) { Insert(choice); });

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(NewToolBar());
  column->addWidget(NewParts(), 1);
  column->addWidget(state_);
  const QFontMetrics metrics(font());
  resize(QSize(metrics.averageCharWidth() * 220, metrics.lineSpacing() * 55)
             .boundedTo(screen()->availableSize() - QSize(40, 60)));
}

QToolBar* ReportDesigner::NewToolBar() {
  auto* bar = new QToolBar(this);
  bar->setObjectName(u"TlbDesigner"_s);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto add = [&](const QString& name, const QString& icon, const QString& caption, const QString& tip) {
    QAction* action = bar->addAction(Icon(icon), caption);
    action->setObjectName(name);
    action->setToolTip(tip);
    return action;
  };
  QAction* save = add(u"CmdSave"_s, u"save"_s, u"保存"_s, u"保存模板 (Ctrl+S)"_s);
  save->setShortcut(QKeySequence::Save);
  QAction* insert = add(u"CmdInsert"_s, u"new"_s, u"插入"_s, u"将选中的内容插入到模板中 (Ctrl+I)"_s);
  insert->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
  QAction* standard = add(u"CmdDefault"_s, u"table"_s, u"默认模板"_s, u"按表的设计重新生成模板"_s);
  QAction* leave = add(u"CmdClose"_s, u"exit"_s, u"关闭"_s, u"关闭窗口"_s);
  connect(save, &QAction::triggered, this, [this] { Guarded([this] { Save(); }); });
  connect(insert, &QAction::triggered, this, [this] { Insert(choices_->currentItem()); });
  connect(standard, &QAction::triggered, this, &ReportDesigner::TakeDefault);
  connect(leave, &QAction::triggered, this, &QDialog::reject);
  return bar;
}

QSplitter* ReportDesigner::NewParts() {
  auto* parts = new QSplitter(this);
  for (QWidget* part : std::initializer_list<QWidget*>{choices_, text_, view_}) parts->addWidget(part);
  const int unit = QFontMetrics(font()).averageCharWidth();
  parts->setSizes({30 * unit, 90 * unit, 90 * unit});
  return parts;
}

void ReportDesigner::FillChoices() {
  for (const MarkerGroup& group : MarkerChoices(*data_)) {
    if (group.choices.empty()) continue;
    auto* heading = new QTreeWidgetItem(choices_, {group.caption});
    for (const MarkerChoice& choice : group.choices) {
      auto* item = new QTreeWidgetItem(heading, {choice.caption});
      item->setData(0, Qt::UserRole, choice.text);
      item->setToolTip(0, components::PlainTip(choice.text.trimmed()));
    }
  }
  choices_->expandToDepth(0);
}

void ReportDesigner::ShowPages() {
  const QString text = TextIn(*text_);
  try {
    if (const QString order = MetaOf(text, u"order"_s); order != order_) {
      data_ = std::make_unique<ReportData>(request_, order);
      order_ = order;
    }
    report_ = LayOutReport(request_, *data_, text);
    error_.clear();
    printer_.setPageLayout(report_->pages.Layout());
    view_->updatePreview();
  } catch (const std::exception& error) {
    error_ = QString::fromUtf8(error.what());
  }
  state_->setText(error_.isEmpty() ? u"模板没有错误。"_s : error_);
}

void ReportDesigner::Insert(QTreeWidgetItem* choice) {
  const QString text = choice ? choice->data(0, Qt::UserRole).toString() : QString();
  if (text.isEmpty()) return;
  text_->insertPlainText(text);
  text_->setFocus();
}

void ReportDesigner::TakeDefault() {
  if (!Ask(u"确定要按表的设计重新生成模板吗？现有的内容将被替换。"_s)) return;
  text_->selectAll();
  text_->insertPlainText(DefaultTemplate(*data_));
}

bool ReportDesigner::Save() {
  ShowPages();
  if (!error_.isEmpty() && !Ask(error_ + u"\n仍要保存吗？"_s)) return false;
  const QString text = TextIn(*text_);
  WriteTemplate(request_.reportId, text);
  saved_ = text;
  state_->setText(error_.isEmpty() ? u"模板已保存。"_s : u"模板已保存。"_s + error_);
  return true;
}

bool ReportDesigner::MayClose() {
  if (TextIn(*text_) == saved_) return true;
  const Choice choice = AskThreeWays(u"模板已修改，是否保存？"_s);
  bool saved = false;
  if (choice == Choice::Yes) Guarded([&] { saved = Save(); });
  return saved || choice == Choice::No;
}

void ReportDesigner::reject() {
  if (MayClose()) QDialog::reject();
}

void DesignReport(const ReportRequest& request) {
  ReportDesigner designer(request);
  designer.exec();
}

}  // namespace folvane::reports
