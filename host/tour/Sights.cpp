#include "host/tour/Sights.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>

#include "host/tour/Hands.h"

namespace folvane::host {
using namespace Qt::Literals::StringLiterals;

Tour::Condition Shown(const QString& window) {
  return [window] { return VisibleWindow(window) && VisibleWindow(window)->isActiveWindow(); };
}

Tour::Condition OnTop(const QString& window) {
  return [window] { return VisibleWindow(window) && QApplication::activeModalWidget() == VisibleWindow(window); };
}

QAbstractItemView& Tree() { return In<QAbstractItemView>(kBrowser, u"TV_File"_s); }
QAbstractItemView& List() { return In<QAbstractItemView>(kBrowser, u"LVData"_s); }
int Rows() { return List().model()->rowCount(); }
QString Position() { return In<QLabel>(kBrowser, u"RecordCount"_s).text(); }

QString Cell(const QString& field) {
  const QAbstractItemModel& model = *List().model();
  for (int column = 0; column < model.columnCount(); ++column) {
    const QString key = model.headerData(column, Qt::Horizontal, Qt::UserRole).toString();
    if (key == field) return List().currentIndex().siblingAtColumn(column).data().toString();
  }
  throw TourError(u"the list shows no "_s + field);
}

std::pair<int, int> PositionAndCount() {
  static const QRegularExpression numbers(u"第(\\d+)条/共(\\d+)条"_s);
  const auto match = numbers.match(Position());
  Expect(match.hasMatch(), u"the status panel says “%1”"_s.arg(Position()));
  return {match.captured(1).toInt(), match.captured(2).toInt()};
}

void Refresh() { hands::ClickKey(Window(kBrowser), u"tlb"_s, u"Refresh"_s); }

void ChooseEntry(const QString& window, const QString& entry) {
  for (QAction* action : Window(window).findChildren<QAction*>(entry)) {
    if (!qobject_cast<QMenu*>(action->parent())) continue;
    Expect(action->isEnabled(), entry + u" is off"_s);
    return action->trigger();
  }
  throw TourError(u"no entry %1 in %2"_s.arg(entry, window));
}

QWidget* AnswerKey(int answer) {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!box || !box->isVisible()) return nullptr;
  for (QAbstractButton* button : box->buttons()) {
    if (button->property("Answer").toInt() == answer) return button;
  }
  return nullptr;
}

}  // namespace folvane::host
