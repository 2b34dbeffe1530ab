#include "designer/FormPage.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QScrollArea>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include <folvane/Icons.h>

#include "design/FormArrangement.h"
#include "design/Shape.h"
#include "designer/FormFoot.h"
#include "designer/Labels.h"
#include "shell/EventGuard.h"
#include "widgets/KeptSizes.h"
#include "widgets/ViewHint.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kDragMargin = 20;                  // pixels that are kept in sight around a drag
constexpr int kUsualGrid = 120, kFineGrid = 60;  // twips
const QString kSidesKept = u"FrmDesigner.Form"_s;

/// Fields, which can be dragged onto the form.
class FieldNames : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override {
    if (items.isEmpty()) return nullptr;
    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(kFieldMime), items.front()->data(Qt::UserRole).toString().toUtf8());
    return data;
  }
};

}  // namespace

FormPage::FormPage(DesignSession& session)
    : DesignPage(session, u"FormPage"_s), bar_(new QToolBar), scroll_(new QScrollArea), foot_(new FormFoot(this)) {
  const auto change = [this](const QString& words, const FormCanvas::Work& work, const QString& series) {
    ChangeTable(words, work, series);
  };
  canvas_ = new FormCanvas(change, nullptr);
  canvas_->setContextMenuPolicy(Qt::ActionsContextMenu);
  scroll_->setObjectName(u"FormScroll"_s);
  scroll_->setWidget(canvas_);
  scroll_->setWidgetResizable(true);
  scroll_->setFocusPolicy(Qt::NoFocus);
  bar_->setIconSize(QSize(16, 16));
  bar_->setObjectName(u"FormBar"_s);

  auto* sides = new QSplitter;
  sides->addWidget(NewSide());
  sides->addWidget(scroll_);
  sides->setStretchFactor(1, 1);
  sides->setObjectName(u"FormSides"_s);
  RestoreSizes(*sides, kSidesKept, {170, 830});
  auto* down = new QVBoxLayout(this);
  down->setContentsMargins(0, 0, 0, 0);
  down->setSpacing(4);
  down->addWidget(bar_);
  down->addWidget(sides, 1);
  down->addWidget(foot_);
  AddKeys();
  Connect();
  ShowSelection();
}

FormPage::~FormPage() { KeepSizes(*findChild<QSplitter*>(u"FormSides"_s), kSidesKept); }

QWidget* FormPage::NewSide() {
  fields_ = new FieldNames;
  fields_->setObjectName(u"FormFields"_s);
  fields_->setAccessibleName(u"不在录入界面中的字段"_s);
  fields_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  fields_->setDragEnabled(true);
  fields_->setToolTip(u"拖到界面上，或双击、按回车放到最后"_s);
  AddEmptyHint(*fields_, u"所有字段都在界面中"_s);
  auto* title = new QLabel(u"不在界面中的字段"_s);
  title->setBuddy(fields_);
  auto* side = new QWidget;
  auto* down = new QVBoxLayout(side);
  down->setContentsMargins(0, 0, 0, 0);
  down->setSpacing(2);
  down->addWidget(title);
  down->addWidget(fields_, 1);
  return side;
}

QAction* FormPage::NewKey(const QString& name, const QString& icon, const QString& text, const QString& shortcut,
                          std::size_t least, std::function<void()> run) {
  auto* key = new QAction(Icon(icon), text, this);
  key->setObjectName(u"Form"_s + name);
  key->setShortcut(QKeySequence(shortcut));
  key->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  key->setToolTip(text + u" ("_s + shortcut + u')');
  ConnectGuarded(key, &QAction::triggered, this, [run = std::move(run)] {
    if (run) run();
  });
  addAction(key);
  bar_->addAction(key);
  canvas_->addAction(key);
  keys_.push_back({key, least});
  return key;
}

void FormPage::AddAligningKeys() {
  const auto align = [this](Side side) {
    return [this, side] {
      ChangeSelected(u"对齐"_s, [side](Design::Table& table, const Controls& which, int current) {
        AlignControls(table, which, current, side);
      });
    };
  };
  NewKey(u"AlignLeft"_s, u"alignleft"_s, u"左对齐"_s, u"Ctrl+L"_s, 2, align(Side::Left));
  NewKey(u"AlignTop"_s, u"aligntop"_s, u"上对齐"_s, u"Ctrl+T"_s, 2, align(Side::Top));
  NewKey(u"AlignRight"_s, u"alignright"_s, u"右对齐"_s, u"Ctrl+R"_s, 2, align(Side::Right));
  NewKey(u"SameWidth"_s, u"samewidth"_s, u"同宽"_s, u"Ctrl+Shift+W"_s, 2,
         [this] { ChangeSelected(u"同宽："_s, GiveSameWidth); });
  NewKey(u"SameHeight"_s, u"sameheight"_s, u"同高"_s, u"Ctrl+Shift+H"_s, 2,
         [this] { ChangeSelected(u"同高："_s, GiveSameHeight); });
  NewKey(u"SpaceEvenly"_s, u"spaceevenly"_s, u"间距相等"_s, u"Ctrl+E"_s, 3, [this] {
    ChangeSelected(u"间距相等："_s,
                   [](Design::Table& table, const Controls& which, int) { SpaceEvenly(table, which); });
  });
}

void FormPage::AddKeys() {
  AddAligningKeys();
  bar_->addSeparator();
  NewKey(u"Arrange"_s, u"arrangeform"_s, u"自动排版"_s, u"Ctrl+Shift+A"_s, 0,
         [this] { ChangeTable(u"自动排版"_s, design::ArrangeForm); });
  order_ = NewKey(u"GiveOrder"_s, u"keyorder"_s, u"安排次序"_s, u"Ctrl+K"_s, 0, [this] {
    canvas_->SetOrdering(order_->isChecked());
    canvas_->setFocus();
  });
  order_->setCheckable(true);
  NewKey(u"OrderByPlace"_s, u"sort"_s, u"按位置排序"_s, u"Ctrl+Shift+K"_s, 0,
         [this] { ChangeTable(u"按位置排序"_s, OrderByPlace); });
  auto* grid = NewKey(u"FineGrid"_s, u"formgrid"_s, u"细网格"_s, u"Ctrl+G"_s, 0, {});
  grid->setCheckable(true);
  connect(grid, &QAction::toggled, this, [this](bool on) { canvas_->SetGrid(on ? kFineGrid : kUsualGrid); });
  bar_->addSeparator();
  putOn_ = NewKey(u"PutOn"_s, u"new"_s, u"放到界面上"_s, u"Ins"_s, 0, [this] { PutOnSelected(); });
  QAction* takeOff = NewKey(u"TakeOff"_s, u"del"_s, u"从界面上取下"_s, u"Del"_s, 1, [this] { TakeOffSelected(); });
  removeAction(takeOff);  // the key deletes digits elsewhere on the page
  takeOff->setShortcutContext(Qt::WidgetShortcut);
}

void FormPage::Connect() {
  ConnectGuarded(canvas_, &FormCanvas::SelectionChanged, this, &FormPage::ShowSelection);
  connect(canvas_, &FormCanvas::Dragged, this, [this](const QPoint& at) {
    ShowFoot();
    scroll_->ensureVisible(at.x(), at.y(), kDragMargin, kDragMargin);
  });
  ConnectGuarded(canvas_, &FormCanvas::FieldDropped, this, &FormPage::PutOnAt);
  ConnectGuarded(canvas_, &FormCanvas::OrderingChanged, this, [this] {
    order_->setChecked(canvas_->IsOrdering());
    ShowSelection();
  });
  ConnectGuarded(fields_, &QListWidget::itemActivated, this, [this] { PutOnSelected(); });
  connect(fields_, &QListWidget::itemSelectionChanged, this,
          [this] { putOn_->setEnabled(!fields_->selectedItems().isEmpty()); });
  ConnectGuarded(foot_, &FormFoot::KindSet, this, &FormPage::SetKind);
  ConnectGuarded(foot_, &FormFoot::MeasureSet, this, &FormPage::SetMeasureOf);
}

void FormPage::Refresh() {
  canvas_->Show(Table(), Session().Wanted().dictionaries);
  ListFields();
}

void FormPage::ListFields() {
  const int row = fields_->currentRow();
  fields_->clear();
  if (!Table()) return;
  for (const Design::Field& field : Table()->fields) {
    const auto isIts = [&](const Design::Control& control) {
      return design::MakesControl(control) && design::IsSame(control.field, field.name);
    };
    if (std::any_of(Table()->controls.begin(), Table()->controls.end(), isIts)) continue;
    auto* item = new QListWidgetItem(LabelOf(field), fields_);
    item->setData(Qt::UserRole, field.name);
  }
  if (fields_->count() > 0) fields_->setCurrentRow(std::clamp(row, 0, fields_->count() - 1));
  putOn_->setEnabled(fields_->count() > 0);
}

void FormPage::PutOnSelected() {
  QStringList names;
  for (const QListWidgetItem* item : fields_->selectedItems()) names << item->data(Qt::UserRole).toString();
  Controls added;
  const QString words = names.size() == 1 ? u"放上“%1”"_s.arg(names.front()) : u"放上 %1 个字段"_s.arg(names.size());
  ChangeTable(words, [&](Design::Table& table) {
    for (const QString& name : names)
      if (const Design::Field* field = design::FindNamed(table.fields, name))
        added.push_back(PutOn(table, Design::Field(*field), {}));
  });
  if (!added.empty()) canvas_->Select(added);
}

void FormPage::PutOnAt(const QString& name, const QPoint& place) {
  Controls added;
  ChangeTable(u"放上“%1”"_s.arg(name), [&](Design::Table& table) {
    if (const Design::Field* field = design::FindNamed(table.fields, name))
      added.push_back(PutOn(table, Design::Field(*field), place));
  });
  if (added.empty()) return;
  canvas_->Select(added);
  canvas_->setFocus();
}

void FormPage::ChangeSelected(const QString& verb,
                              const std::function<void(Design::Table&, const Controls&, int)>& work) {
  ChangeTable(canvas_->Words(verb),
              [&](Design::Table& table) { work(table, canvas_->Selected(), canvas_->Current()); });
}

void FormPage::TakeOffSelected() {
  ChangeSelected(u"取下"_s, [](Design::Table& table, const Controls& which, int) { TakeOff(table, which); });
}

void FormPage::SetMeasureOf(int Design::Control::*measure, int value) {
  ChangeSelected(u"改变位置和大小："_s,
                 [=](Design::Table& table, const Controls& which, int) { SetMeasure(table, which, measure, value); });
  ShowSelection();  // what was typed may be more than there is room for
}

void FormPage::SetKind(int type) {
  ChangeSelected(u"改变控件类型："_s, [type](Design::Table& table, const Controls& which, int) {
    Controls fitting;
    for (const int control : which) {
      const QString& field = table.controls[std::size_t(control)].field;
      if (KindsFor(design::FindNamed(table.fields, field)).contains(type)) fitting.push_back(control);
    }
    ChangeKind(table, fitting, type);
  });
  ShowSelection();
}

void FormPage::ShowFoot() {
  const FormItem* item = canvas_->CurrentItem();
  const QString words = SelectionInWords();
  foot_->Show(words, item, item && Table() ? design::FindNamed(Table()->fields, item->row.dataField) : nullptr);
  canvas_->setAccessibleDescription(words);
}

void FormPage::ShowSelection() {
  ShowFoot();
  for (const Key& key : keys_) key.action->setEnabled(canvas_->Selected().size() >= key.least);
  putOn_->setEnabled(fields_->count() > 0);
  const QRect box = canvas_->CurrentBox();
  if (!box.isNull())
    scroll_->ensureVisible(box.center().x(), box.center().y(), box.width() / 2 + 20, box.height() / 2 + 20);
}

QString FormPage::SelectionInWords() const {
  if (canvas_->IsOrdering())
    return u"依次点击控件，或用 Tab 走到它再按空格；下一个是第 %1 个，Esc 结束"_s.arg(canvas_->NextNumber());
  const FormItem* item = canvas_->CurrentItem();
  if (!item) return u"点击控件，或按 Tab 选择；按空格后再按 Tab 可多选"_s;
  QString words = u"%1 (%2)"_s.arg(item->row.caption, item->row.dataField);
  if (const std::size_t count = canvas_->Selected().size(); count > 1)
    words = u"选中 %1 个控件，以“%2”为准"_s.arg(count).arg(item->row.caption);
  return item->trouble.isEmpty() ? words : words + u"："_s + item->trouble;
}

}  // namespace folvane::designer
