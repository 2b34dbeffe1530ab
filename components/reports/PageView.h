#pragma once

#include <QGraphicsView>
#include <QPrintPreviewWidget>

namespace folvane::reports {

/// Shows the pages of a report. Its scroll bar is always there: pages as wide as the view, beside a bar that comes and
/// goes with their height, would make each other larger and smaller without end.
class PageView : public QPrintPreviewWidget {
 public:
  PageView(QPrinter* printer, QWidget* parent) : QPrintPreviewWidget(printer, parent) {
    for (QGraphicsView* view : findChildren<QGraphicsView*>()) view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  }
};

}  // namespace folvane::reports
