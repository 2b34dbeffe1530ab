#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>

#include "design/FormArrangement.h"
#include "designer/FormCanvas.h"
#include "designer/FormSheet.h"
#include "forms/EntryParts.h"
#include "forms/TwipScale.h"
#include "shell/EventGuard.h"
#include "widgets/PlainTip.h"

// What the mouse does on a form that is being arranged.
namespace folvane::designer {
namespace {
using namespace Qt::Literals::StringLiterals;

int BottomOf(const LayoutRow& row) {
  return row.top + (row.control.type == ControlKind::Cmb ? design::kLine : std::max(row.height, design::kLine));
}

// The edges of a control in one direction, the first one first.
std::vector<int> EdgesOf(const LayoutRow& row, Qt::Orientation orientation) {
  if (orientation == Qt::Horizontal) return {row.left, row.left + row.width};
  return {row.top, BottomOf(row)};
}

Qt::CursorShape PointerFor(const SizeHandle& handle) {
  if (handle.down == 0) return Qt::SizeHorCursor;
  if (handle.across == 0) return Qt::SizeVerCursor;
  return handle.across == handle.down ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
}

}  // namespace

// What lies above is hit first: captions never hide a control.
int FormCanvas::ControlAt(const QPoint& at) const {
  const std::vector<FormItem>& items = sheet_->Items();
  for (int i = int(items.size()) - 1; i >= 0; --i)
    if (sheet_->BoxOf(std::size_t(i)).contains(at)) return items[std::size_t(i)].control;
  for (int i = int(items.size()) - 1; i >= 0; --i)
    if (sheet_->ReachOf(std::size_t(i)).contains(at)) return items[std::size_t(i)].control;
  return -1;
}

const SizeHandle* FormCanvas::HandleAt(const QPoint& at, std::vector<SizeHandle>& handles, int& control) const {
  for (const int each : selected_) {
    const int index = ItemIndex(each);
    if (index < 0) continue;
    const LayoutRow& row = sheet_->Items()[std::size_t(index)].row;
    handles = SizeHandles(sheet_->BoxOf(std::size_t(index)), row.control.type == ControlKind::Cmb);
    control = each;
    for (const SizeHandle& handle : handles)
      if (handle.rect.adjusted(-1, -1, 1, 1).contains(at)) return &handle;
  }
  return nullptr;
}

QPoint FormCanvas::ToTwips(const QPoint& pixels) const {
  const TwipScale scale(*sheet_);
  return {scale.ToTwips(pixels.x()), scale.ToTwips(pixels.y())};
}

bool FormCanvas::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = static_cast<QHelpEvent&>(*event);
  const int at = ItemIndex(ControlAt(help.pos()));
  const QString trouble = at < 0 ? QString() : sheet_->Items()[std::size_t(at)].trouble;
  QToolTip::showText(help.globalPos(), PlainTip(trouble), this);
  return true;
}

void FormCanvas::mousePressEvent(QMouseEvent* event) {
  setFocus(Qt::MouseFocusReason);
  const QPoint at = event->position().toPoint();
  const int control = ControlAt(at);
  if (event->button() == Qt::RightButton && control >= 0 && !IsSelected(control)) Select({control});
  if (event->button() != Qt::LeftButton) return;
  if (isOrdering_) {
    if (control >= 0) RunGuarded([&] { GiveNumber(control); });
    return;
  }
  const bool adds = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
  std::vector<SizeHandle> handles;
  int sized = -1;
  const SizeHandle* handle = adds ? nullptr : HandleAt(at, handles, sized);
  drag_ = {};
  drag_.start = drag_.now = at;
  if (handle) {
    drag_.kind = Drag::Size;
    drag_.grabbed = sized;
    drag_.across = handle->across;
    drag_.down = handle->down;
  } else if (control < 0) {
    drag_.kind = Drag::Band;
    if (!adds && !selected_.empty()) Select({});
  } else if (adds) {
    Toggle(control);
  } else {
    drag_.kind = Drag::Move;
    drag_.grabbed = control;
    if (!IsSelected(control)) return Select({control});
    current_ = control;
    TellSelection();
  }
}

void FormCanvas::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (drag_.kind == Drag::None) return ShowPointer(at);
  drag_.now = at;
  drag_.isFree = event->modifiers() & Qt::AltModifier;
  if ((at - drag_.start).manhattanLength() >= QApplication::startDragDistance()) drag_.isOn = true;
  if (!drag_.isOn) return;
  RunGuarded([&] {
    if (drag_.kind == Drag::Band) {
      ShowMarks();
    } else {
      Design::Table table = table_;
      DragWork()(table);
      ShowTable(table);
    }
    Q_EMIT Dragged(at);
  });
}

void FormCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || drag_.kind == Drag::None) return;
  drag_.now = event->position().toPoint();
  drag_.isFree = event->modifiers() & Qt::AltModifier;
  if (!drag_.isOn) {
    // One of several that is clicked without being dragged is meant alone.
    if (drag_.kind == Drag::Move && selected_.size() > 1) Select({drag_.grabbed});
    drag_ = {};
    return;
  }
  if (drag_.kind == Drag::Band)
    SelectInBand(event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
  else
    RunGuarded([this] { EndDrag(); });
}

std::vector<int> FormCanvas::OtherEdges(Qt::Orientation orientation) const {
  std::vector<int> edges;
  for (const FormItem& item : FormItems(table_, {})) {
    if (IsSelected(item.control)) continue;
    for (const int edge : EdgesOf(item.row, orientation)) edges.push_back(edge);
  }
  return edges;
}

// What the drag makes of the table as it stands now; draws the guides to which it fits.
FormCanvas::Work FormCanvas::DragWork() {
  const TwipScale scale(*sheet_);
  const QPoint pulled = ToTwips(drag_.now - drag_.start);
  guides_.clear();
  LayoutRow row;
  for (const FormItem& item : FormItems(table_, {}))
    if (item.control == drag_.grabbed) row = item.row;
  const auto snapped = [&](int by, Qt::Orientation orientation, int edge) {
    if (drag_.isFree) return by;
    std::vector<int> edges = EdgesOf(row, orientation);
    if (edge) edges = {edge < 0 ? edges.front() : edges.back()};
    const Snapped fit = Snap(by, edges, OtherEdges(orientation), grid_);
    if (!fit.guide) return fit.by;
    const int x = scale.ToPixels(*fit.guide), y = scale.ToPixels(*fit.guide + kRoomAboveForm);
    guides_.push_back(orientation == Qt::Horizontal ? QLine(x, 0, x, height()) : QLine(0, y, width(), y));
    return fit.by;
  };
  const Controls which = selected_;
  if (drag_.kind == Drag::Move) {
    const QPoint by(snapped(pulled.x(), Qt::Horizontal, 0), snapped(pulled.y(), Qt::Vertical, 0));
    return [which, by](Design::Table& table) { MoveControls(table, which, by); };
  }
  const int x = drag_.across ? snapped(pulled.x(), Qt::Horizontal, drag_.across) : 0;
  const int y = drag_.down ? snapped(pulled.y(), Qt::Vertical, drag_.down) : 0;
  const EdgeShift by{drag_.across < 0 ? x : 0, drag_.down < 0 ? y : 0, drag_.across > 0 ? x : 0,
                     drag_.down > 0 ? y : 0};
  return [which, by](Design::Table& table) { SizeControls(table, which, by); };
}

void FormCanvas::EndDrag() {
  const Work work = DragWork();
  const QString words = Words(drag_.kind == Drag::Move ? u"移动"_s : u"改变大小："_s);
  drag_ = {};
  guides_.clear();
  ShowTable(table_);  // the step shows it anew, where there is one
  change_(words, work, {});
}

void FormCanvas::SelectInBand(bool adds) {
  const QRect band = QRect(drag_.start, drag_.now).normalized();
  drag_ = {};
  Controls chosen = adds ? selected_ : Controls();
  const std::vector<FormItem>& items = sheet_->Items();
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (!band.intersects(sheet_->BoxOf(i))) continue;
    std::erase(chosen, items[i].control);
    chosen.push_back(items[i].control);
  }
  Select(chosen);
}

void FormCanvas::ShowPointer(const QPoint& at) {
  std::vector<SizeHandle> handles;
  int control = -1;
  const SizeHandle* handle = isOrdering_ ? nullptr : HandleAt(at, handles, control);
  if (handle)
    setCursor(PointerFor(*handle));
  else if (ControlAt(at) >= 0)
    setCursor(isOrdering_ ? Qt::PointingHandCursor : Qt::SizeAllCursor);
  else
    unsetCursor();
}

void FormCanvas::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasFormat(QString::fromLatin1(kFieldMime))) event->acceptProposedAction();
}

void FormCanvas::dropEvent(QDropEvent* event) {
  const QByteArray field = event->mimeData()->data(QString::fromLatin1(kFieldMime));
  QPoint place = ToTwips(event->position().toPoint()) - QPoint(0, kRoomAboveForm);
  place = {(place.x() + grid_ / 2) / grid_ * grid_, (place.y() + grid_ / 2) / grid_ * grid_};
  event->acceptProposedAction();
  Q_EMIT FieldDropped(QString::fromUtf8(field), place);
}

}  // namespace folvane::designer
