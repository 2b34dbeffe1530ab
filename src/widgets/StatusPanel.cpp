#include "widgets/StatusPanel.h"

#include <QLabel>
#include <QStatusBar>

namespace folvane {

namespace {
constexpr int kIndent = 6;
}

QLabel* NewStatusPanel(const QString& name, QStatusBar* bar) {
  auto* panel = new QLabel(bar);
  panel->setObjectName(name);
  panel->setTextFormat(Qt::PlainText);
  panel->setIndent(kIndent);
  return panel;
}

}  // namespace folvane
