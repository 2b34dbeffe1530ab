#pragma once

#include <QKeySequence>
#include <QString>
#include <functional>

class QAction;
class QPushButton;
class QToolBar;
class QWidget;

namespace folvane {

/// A key of a tool bar.
struct ToolKey {
  QString name;  ///< the object name
  QString icon;  ///< as Icon knows it, "" for none
  QString caption;
  QString tip;  ///< also what a screen reader says
  QKeySequence keys;
};

/// Adds a key to a bar; one without a caption shows its icon alone. An error of the handler is told to the user.
QAction* AddKey(QToolBar& bar, const ToolKey& key, std::function<void()> handler);

/// A push button that presses only where it has the focus or is the window's default. An error of the handler is told.
QPushButton* NewPushButton(QWidget* parent, const ToolKey& key, std::function<void()> handler);

}  // namespace folvane
