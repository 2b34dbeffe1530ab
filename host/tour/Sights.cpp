#include "host/tour/Sights.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>

#include "host/tour/Hands.h"

namespace folvane::host {

Tour::Condition Shown(const QString& window) {
  return [window] { return VisibleWindow(window) && VisibleWindow(window)->isActiveWindow(); };
}

QAbstractItemView& Tree() { return In<QAbstractItemView>(kBrowser, QStringLiteral("TV_File")); }
QAbstractItemView& List() { return In<QAbstractItemView>(kBrowser, QStringLiteral("LVData")); }
int Rows() { return List().model()->rowCount(); }
QString Position() { return In<QLabel>(kBrowser, QStringLiteral("RecordCount")).text(); }

QString Cell(const QString& field) {
  const QAbstractItemModel& model = *List().model();
  for (int column = 0; column < model.columnCount(); ++column) {
    const QString key = model.headerData(column, Qt::Horizontal, Qt::UserRole).toString();
    if (key == field) return List().currentIndex().siblingAtColumn(column).data().toString();
  }
  throw TourError(QStringLiteral("the list shows no ") + field);
}

std::pair<int, int> PositionAndCount() {
  static const QRegularExpression numbers(QStringLiteral("第(\\d+)条/共(\\d+)条"));
  const auto match = numbers.match(Position());
  Expect(match.hasMatch(), QStringLiteral("the status panel says “%1”").arg(Position()));
  return {match.captured(1).toInt(), match.captured(2).toInt()};
}

void Refresh() { hands::ClickKey(Window(kBrowser), QStringLiteral("tlb"), QStringLiteral("Refresh")); }

void ChooseEntry(const QString& window, const QString& entry) {
  for (QAction* action : Window(window).findChildren<QAction*>(entry)) {
    if (!qobject_cast<QMenu*>(action->parent())) continue;
    Expect(action->isEnabled(), entry + QStringLiteral(" is off"));
    return action->trigger();
  }
  throw TourError(QStringLiteral("no entry %1 in %2").arg(entry, window));
}

}  // namespace folvane::host
