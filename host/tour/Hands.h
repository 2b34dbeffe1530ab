#pragma once

#include <QPoint>
#include <QString>

class QAbstractItemView;
class QComboBox;
class QModelIndex;
class QWidget;

/// Mouse and keyboard of the one who goes on the tour. Mouse events go to the window system's window, so that a window
/// behind a modal one cannot be touched.
namespace folvane::host::hands {

void Click(QWidget& widget, const QPoint& at);
void Click(QWidget& widget);
void ClickItem(QAbstractItemView& view, const QModelIndex& index);
/// Clicks the header over a column.
void ClickColumn(QAbstractItemView& view, int column);
/// Clicks the key of a tool bar.
void ClickKey(QWidget& window, const QString& toolBar, const QString& key);
void Press(QWidget& widget, int key);
/// Types into a control or its focus proxy, Chinese included.
void Type(QWidget& widget, const QString& text);
/// Marks all that stands in the control and types over it.
void Retype(QWidget& widget, const QString& text);
void Choose(QComboBox& box, int index);

}  // namespace folvane::host::hands
