#include "designer/FormCanvas.h"

#include <QKeyEvent>
#include <algorithm>

#include "design/FormArrangement.h"
#include "design/Shape.h"
#include "designer/FormSheet.h"
#include "shell/EventGuard.h"

namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kFineStep = 15;  // twips

// What the controls are known by while their kinds, numbers and places change.
QStringList IdsOf(const Design::Table& table) {
  QStringList ids;
  for (const Design::Control& control : table.controls) {
    const QString field = design::Folded(control.field);
    int before = 0;
    while (ids.contains(field + u'\n' + QString::number(before))) ++before;
    ids << field + u'\n' + QString::number(before);
  }
  return ids;
}

bool Has(const Controls& controls, int control) {
  return std::find(controls.begin(), controls.end(), control) != controls.end();
}

Controls Followed(const Controls& controls, const QStringList& before, const QStringList& after) {
  Controls followed;
  for (const int control : controls) {
    const int now = control >= 0 && control < before.size() ? int(after.indexOf(before[control])) : -1;
    if (now >= 0) followed.push_back(now);
  }
  return followed;
}

}  // namespace

FormCanvas::FormCanvas(Change change, QWidget* parent)
    : QWidget(parent), change_(std::move(change)), sheet_(new FormSheet(this)), marks_(new FormMarks(this)) {
  setObjectName(u"FormCanvas"_s);
  setAccessibleName(u"录入界面"_s);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAcceptDrops(true);
}

void FormCanvas::Show(const Design::Table* table, const std::vector<Design::Dictionary>& dictionaries) {
  const Design::Table next = table ? *table : Design::Table();
  const bool isSameTable = design::IsSame(next.name, table_.name);
  const QStringList before = isSameTable ? IdsOf(table_) : QStringList(), after = IdsOf(next);
  const Controls selected = Followed(selected_, before, after), kept = Followed(kept_, before, after);
  const Controls current = Followed({current_}, before, after);
  drag_ = {};
  guides_.clear();
  if (!isSameTable) given_.clear();
  table_ = next;
  dictionaries_ = dictionaries;
  selected_ = selected;
  kept_ = kept;
  current_ = !current.empty() ? current.front() : selected.empty() ? -1 : selected.back();
  ShowTable(table_);
  Q_EMIT SelectionChanged();
  if (isOrdering_) Q_EMIT OrderingChanged();
}

void FormCanvas::ShowTable(const Design::Table& table) {
  const auto frame = std::find_if(table.controls.begin(), table.controls.end(),
                                  [](const auto& control) { return control.type == design::kFrameControl; });
  sheet_->Show(FormItems(table, dictionaries_), frame == table.controls.end() ? nullptr : &*frame);
  setMinimumSize(sheet_->sizeHint());
  ShowMarks();
}

void FormCanvas::ShowMarks() {
  FormMarks::Shapes shapes;
  const std::vector<FormItem>& items = sheet_->Items();
  const std::size_t given = isOrdering_ ? GivenNumbers() : 0;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const QRect box = sheet_->BoxOf(i);
    const bool isOneLine = items[i].row.control.type == ControlKind::Cmb;
    if (!items[i].trouble.isEmpty()) shapes.troubles.push_back(box);
    if (isOrdering_) shapes.numbers.push_back({box, int(i) + 1, i < given});
    if (IsSelected(items[i].control)) shapes.chosen.push_back({box, isOneLine, items[i].control == current_});
  }
  shapes.guides = guides_;
  if (drag_.kind == Drag::Band && drag_.isOn) shapes.band = QRect(drag_.start, drag_.now).normalized();
  if (items.empty()) shapes.hint = u"录入界面还是空的。把左边的字段拖到这里，或双击它们。"_s;
  shapes.isActive = hasFocus();
  marks_->Show(std::move(shapes));
}

int FormCanvas::ItemIndex(int control) const {
  const std::vector<FormItem>& items = sheet_->Items();
  const auto found =
      std::find_if(items.begin(), items.end(), [&](const FormItem& item) { return item.control == control; });
  return found == items.end() ? -1 : int(found - items.begin());
}

const FormItem* FormCanvas::CurrentItem() const {
  const int at = ItemIndex(current_);
  return at < 0 ? nullptr : &sheet_->Items()[std::size_t(at)];
}

QRect FormCanvas::CurrentBox() const {
  const int at = ItemIndex(current_);
  return at < 0 ? QRect() : sheet_->BoxOf(std::size_t(at));
}

bool FormCanvas::IsSelected(int control) const { return Has(selected_, control); }

void FormCanvas::Select(const Controls& controls) {
  selected_ = kept_ = controls;
  current_ = controls.empty() ? -1 : controls.back();
  TellSelection();
}

void FormCanvas::Toggle(int control) {
  if (!IsSelected(control)) {
    selected_.push_back(control);
    current_ = control;
  } else {
    std::erase(selected_, control);
    if (current_ == control) current_ = selected_.empty() ? -1 : selected_.back();
  }
  kept_ = selected_;
  TellSelection();
}

void FormCanvas::TellSelection() {
  ++selections_;
  ShowMarks();
  Q_EMIT SelectionChanged();
}

QString FormCanvas::Words(const QString& verb) const {
  if (selected_.size() > 1) return u"%1 %2 个控件"_s.arg(verb).arg(selected_.size());
  const FormItem* item = CurrentItem();
  return item ? verb + u"“"_s + item->row.caption + u"”"_s : verb;
}

void FormCanvas::SelectNext(int by) {
  const std::vector<FormItem>& items = sheet_->Items();
  const int at = ItemIndex(current_);
  const int next = at < 0 ? (by > 0 ? 0 : int(items.size()) - 1) : at + by;
  selected_ = kept_;
  current_ = items[std::size_t(next)].control;
  std::erase(selected_, current_);
  selected_.push_back(current_);
  TellSelection();
}

bool FormCanvas::focusNextPrevChild(bool next) {
  const int by = next ? 1 : -1, at = ItemIndex(current_), count = int(sheet_->Items().size());
  const bool isThere = at < 0 ? count > 0 : at + by >= 0 && at + by < count;
  if (!isThere) return QWidget::focusNextPrevChild(next);
  SelectNext(by);
  return true;
}

void FormCanvas::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  const bool isByTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (isByTab && current_ < 0 && !sheet_->Items().empty())
    SelectNext(event->reason() == Qt::TabFocusReason ? 1 : -1);
  else
    ShowMarks();
}

void FormCanvas::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  ShowMarks();
}

void FormCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  sheet_->setGeometry(rect());
  marks_->setGeometry(rect());
}

void FormCanvas::keyPressEvent(QKeyEvent* event) {
  bool isTaken = true;
  RunGuarded([&] {
    if (event->key() == Qt::Key_Escape)
      isTaken = Cancel();
    else if (event->matches(QKeySequence::SelectAll))
      Select(KeyOrder(table_));
    else if (isOrdering_ && current_ >= 0 && QList{Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}.contains(event->key()))
      GiveNumber(current_);
    else if (event->key() == Qt::Key_Space && current_ >= 0)
      Has(kept_, current_) ? void(std::erase(kept_, current_)) : kept_.push_back(current_);
    else
      isTaken = Nudge(*event);
  });
  if (!isTaken) QWidget::keyPressEvent(event);
}

bool FormCanvas::Nudge(const QKeyEvent& event) {
  const int step = event.modifiers() & Qt::ControlModifier ? kFineStep : grid_;
  QPoint by;
  switch (event.key()) {
    case Qt::Key_Left:
      by = {-step, 0};
      break;
    case Qt::Key_Right:
      by = {step, 0};
      break;
    case Qt::Key_Up:
      by = {0, -step};
      break;
    case Qt::Key_Down:
      by = {0, step};
      break;
    default:
      return false;
  }
  if (selected_.empty() || drag_.isOn) return true;
  const bool sizes = event.modifiers() & Qt::ShiftModifier;
  const auto work = [which = selected_, by, sizes](Design::Table& table) {
    sizes ? SizeControls(table, which, {0, 0, by.x(), by.y()}) : MoveControls(table, which, by);
  };
  change_(Words(sizes ? u"改变大小："_s : u"移动"_s), work, (sizes ? u"size %1"_s : u"move %1"_s).arg(selections_));
  return true;
}

// Ends what is going on. @return whether there was anything
bool FormCanvas::Cancel() {
  if (drag_.kind != Drag::None) {
    drag_ = {};
    guides_.clear();
    ShowTable(table_);
    Q_EMIT SelectionChanged();
    return true;
  }
  if (isOrdering_) {
    SetOrdering(false);
    return true;
  }
  const bool isAny = !selected_.empty();
  if (isAny) Select({});
  return isAny;
}

void FormCanvas::SetOrdering(bool on) {
  if (on == isOrdering_) return;
  isOrdering_ = on;
  given_.clear();
  ShowMarks();
  Q_EMIT OrderingChanged();
}

// A step that was taken back takes its number back.
std::size_t FormCanvas::GivenNumbers() const {
  const QStringList ids = IdsOf(table_);
  const std::vector<FormItem>& items = sheet_->Items();
  std::size_t count = 0;
  while (count < std::size_t(given_.size()) && count < items.size() &&
         ids[items[count].control] == given_[qsizetype(count)])
    ++count;
  return count;
}

void FormCanvas::GiveNumber(int control) {
  const QStringList ids = IdsOf(table_);
  given_ = given_.first(qsizetype(GivenNumbers()));
  if (given_.contains(ids[control])) return;
  given_ << ids[control];
  Controls first;
  for (const QString& id : given_) first.push_back(int(ids.indexOf(id)));
  change_(u"安排次序"_s, [first](Design::Table& table) { PutFirst(table, first); }, {});
  const bool isDone = GivenNumbers() == sheet_->Items().size();
  ShowMarks();
  isDone ? SetOrdering(false) : Q_EMIT OrderingChanged();
}

}  // namespace folvane::designer
