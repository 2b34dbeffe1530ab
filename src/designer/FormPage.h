#pragma once

#include "designer/DesignPage.h"
#include "designer/FormCanvas.h"

class QAction;
class QListWidget;
class QScrollArea;
class QToolBar;

namespace folvane::designer {

class FormFoot;

/// The entry form of a table: its controls are put on it, arranged and taken off. What does not stand on it is listed
/// beside it.
class FormPage : public DesignPage {
  Q_OBJECT

 public:
  explicit FormPage(DesignSession& session);
  ~FormPage() override;

 private:
  struct Key {
    QAction* action;
    std::size_t least;  ///< controls that have to be selected
  };

  void Refresh() override;
  void AddKeys();
  QAction* NewKey(const QString& name, const QString& icon, const QString& text, const QString& shortcut,
                  std::size_t least, std::function<void()> run);
  void AddAligningKeys();
  QWidget* NewSide();
  void Connect();

  void ListFields();
  void PutOnSelected();
  void PutOnAt(const QString& field, const QPoint& place);
  void TakeOffSelected();
  void ShowSelection();
  void ShowFoot();
  QString SelectionInWords() const;
  void SetMeasureOf(int Design::Control::*measure, int value);
  void SetKind(int type);
  /// Changes what is selected as one step.
  void ChangeSelected(const QString& verb, const std::function<void(Design::Table&, const Controls&, int)>& work);

  QToolBar* bar_;
  QListWidget* fields_;
  QScrollArea* scroll_;
  FormCanvas* canvas_;
  FormFoot* foot_;
  QAction *order_ = nullptr, *putOn_ = nullptr;
  std::vector<Key> keys_;
};

}  // namespace folvane::designer
