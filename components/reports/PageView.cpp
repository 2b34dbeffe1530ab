#include "components/reports/PageView.h"

#include <QGraphicsView>
#include <QPrintPreviewWidget>

namespace folvane::reports {

QPrintPreviewWidget* NewPageView(QPrinter& printer, QWidget* parent) {
  auto* pages = new QPrintPreviewWidget(&printer, parent);
  for (QGraphicsView* view : pages->findChildren<QGraphicsView*>())
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  return pages;
}

}  // namespace folvane::reports
