#pragma once

#include <QWidget>

#include "designer/DesignSession.h"

namespace folvane::designer {

/// A page of the designer: shows a part of what is wanted, and changes it through the session. It is brought up to date
/// when it is seen.
class DesignPage : public QWidget {
  Q_OBJECT

 public:
  ~DesignPage() override;

  /// Has a page show that table from now on, where it is one that shows tables.
  void SetTable(const QString& table);

 protected:
  DesignPage(DesignSession& session, const QString& name);

  /// Shows the design as it is now.
  virtual void Refresh() = 0;

  DesignSession& Session() const { return session_; }
  const QString& TableName() const { return table_; }
  /// The table that is shown, as it is wanted; null when there is none.
  const Design::Table* Table() const;
  /// Changes the table that is shown, as one step. @return whether it was done
  bool ChangeTable(const QString& words, const std::function<void(Design::Table&)>& work, const QString& series = {});

  void showEvent(QShowEvent* event) override;

 private:
  void ShowChange();

  DesignSession& session_;
  QString table_;
  bool isStale_ = true;
};

/// Has what is being typed in a window count before something else is done; the keyboard stays where it is.
void TakeTyped(QWidget& window);

}  // namespace folvane::designer
