#include "records/ParameterView.h"

#include <QTreeView>

#include "records/TableParameters.h"

namespace folvane {
using namespace Qt::Literals::StringLiterals;

void AddParameterView(TableParameters& parameters, QWidget& window) {
  auto* view = new QTreeView(&window);
  view->setObjectName(u"LV_Para"_s);
  view->hide();
  view->setModel(&parameters);
  QObject::connect(&parameters, &TableParameters::TagChanged, view,
                   [view](const QString& tag) { view->setProperty("Tag", tag); });
  QObject::connect(&parameters, &TableParameters::SelectedRowChanged, view, [&parameters, view](int row) {
    view->setCurrentIndex(row == 0 ? QModelIndex() : parameters.index(row - 1, 0));
  });
}

}  // namespace folvane
