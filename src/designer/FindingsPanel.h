#pragma once

#include <QTimer>
#include <QWidget>

#include "designer/DesignSession.h"

class QAction;
class QLabel;
class QStandardItemModel;
class QTreeView;

namespace folvane::designer {

/// What is wrong with the design, and the keys that mend it. It follows every change; against the database it is
/// checked when that is asked for.
class FindingsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit FindingsPanel(DesignSession& session);

  /// Looks at the database and at the templates of reports as well. @throws DataError
  void CheckAll();
  /// The findings that are worse than a note.
  int Troubles() const;

 Q_SIGNALS:
  /// The user wants to see what a finding is about.
  void Asked(const DesignFinding& finding);

 private:
  void CheckDesignAlone();
  void Show(std::vector<DesignFinding> findings, const QString& scope);
  void ShowCurrent();
  const DesignFinding* Current() const;
  void Mend(const std::vector<const DesignFinding*>& findings);
  void MendCurrent();
  void MendAll();

  DesignSession& session_;
  std::vector<DesignFinding> findings_;
  QTimer soon_;
  QLabel *title_, *detail_;
  QTreeView* view_;
  QStandardItemModel* rows_;
  QAction *mend_, *mendAll_;
};

}  // namespace folvane::designer
