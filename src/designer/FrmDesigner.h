#pragma once

#include <QMainWindow>
#include <memory>

#include "designer/DesignSession.h"

class QLabel;
class QSplitter;
class QStackedWidget;
class QTabWidget;

namespace folvane {
class WindowCommands;
class WindowStatus;
}  // namespace folvane

namespace folvane::designer {

class ClassPage;
class DesignPage;
class DesignTree;
class FindingsPanel;

/// The designer: what there is on the left, the chosen table or part on the right, what is wrong beneath.
class FrmDesigner : public QMainWindow {
 public:
  explicit FrmDesigner(DesignSession& session);
  ~FrmDesigner() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void LayOut();
  QWidget* NewPages();
  void KeepSplitters() const;
  void Connect();
  void ShowChosen();
  void ShowState();
  void GoToFinding(const DesignFinding& finding);

  void AddClass();
  void AddTable();
  void Remove();
  void Import();
  void Export();
  bool Apply();
  void ReadAgain();
  void GiveUp();
  void Check();

  DesignSession& session_;
  std::unique_ptr<WindowCommands> commands_;
  WindowStatus* status_;
  DesignTree* tree_;
  QStackedWidget* pages_;
  QTabWidget* tablePages_;
  ClassPage* classPage_;
  QLabel* intro_;
  FindingsPanel* findings_;
  QSplitter *columns_, *rows_;
};

}  // namespace folvane::designer
