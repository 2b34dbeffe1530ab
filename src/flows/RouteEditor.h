#pragma once

#include <QDialog>
#include <QStandardItemModel>
#include <QString>
#include <vector>

#include "flows/RouteNodes.h"

class QLabel;
class QListWidget;
class QPushButton;
class QTableView;

namespace folvane {

struct Flow;

/// Edits the route of a head: its nodes with members, mode and next node. What is wrong with the route is told while it
/// is edited, and a wrong one cannot be saved.
class RouteEditor : public QDialog {
 public:
  /// @throws DataError
  RouteEditor(const Flow& flow, const QString& headKey);
  ~RouteEditor() override;

 private:
  enum Column { Number, Members, Mode, Next };

  void LayOut();
  void FillPeople(const Flow& flow);
  void Connect();
  std::vector<RouteNode> Nodes() const;
  void AppendRow(const RouteNode& node);
  void AddNode();
  void RemoveNode();
  void AddMember();
  void ShowFaults();
  void FinishTyping();
  void Save();
  int CurrentRow() const;

  const Flow& flow_;
  QString headKey_;
  StoredRoute read_;
  QStandardItemModel nodes_;
  QTableView* grid_;
  QListWidget* people_;
  QPushButton *add_, *remove_, *join_, *ok_;
  QLabel* faults_;
};

}  // namespace folvane
