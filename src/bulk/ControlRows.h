#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QString>
#include <QWidget>

namespace folvane {

/// Gives a control its name and its hint.
template <typename Control>
Control* Named(Control* control, const QString& name, const QString& tip) {
  control->setObjectName(name);
  control->setToolTip(tip);
  return control;
}

/// Adds a labelled control at the end of a grid, over all columns behind the first.
inline void AddRow(QGridLayout& grid, const QString& caption, QWidget* control) {
  auto* label = new QLabel(caption);
  label->setBuddy(control);
  const int row = grid.rowCount();
  grid.addWidget(label, row, 0);
  grid.addWidget(control, row, 1, 1, -1);
}

}  // namespace folvane
