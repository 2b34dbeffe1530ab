#include "designer/DesignPage.h"

#include <QAbstractItemView>

#include "design/Shape.h"
#include "shell/EventGuard.h"

namespace folvane::designer {

DesignPage::DesignPage(DesignSession& session, const QString& name) : session_(session) {
  setObjectName(name);
  connect(&session, &DesignSession::Changed, this, &DesignPage::ShowChange);
}

// The focus leaves a box only while the widgets go, and what was typed there would be taken by a page that is no more.
DesignPage::~DesignPage() {
  for (QObject* box : findChildren<QObject*>()) box->disconnect(this);
}

void DesignPage::SetTable(const QString& table) {
  table_ = table;
  ShowChange();
}

const Design::Table* DesignPage::Table() const { return design::FindNamed(session_.Wanted().tables, table_); }

bool DesignPage::ChangeTable(const QString& words, const std::function<void(Design::Table&)>& work,
                             const QString& series) {
  return session_.Change(
      words,
      [&](Design& wanted) {
        if (Design::Table* table = design::FindNamed(wanted.tables, table_)) work(*table);
      },
      series);
}

void DesignPage::ShowChange() {
  isStale_ = !isVisible();
  if (!isStale_) RunGuarded([this] { Refresh(); });
}

void DesignPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (isStale_) ShowChange();
}

void TakeTyped(QWidget& window) {
  QWidget* typing = window.focusWidget();
  if (!typing) return;
  QWidget* stays = typing;  // of an editor in a cell the grid
  for (QWidget* above = typing->parentWidget(); above; above = above->parentWidget())
    if (qobject_cast<QAbstractItemView*>(above)) stays = above;
  typing->clearFocus();
  stays->setFocus();
}

}  // namespace folvane::designer
