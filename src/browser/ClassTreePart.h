#pragma once

#include <QModelIndex>
#include <QString>
#include <exception>

#include "browser/BrowserParts.h"

namespace folvane {

class ChoiceRelay;
class RecordListPart;

/// The class tree of the browser: what the window restores at its start, what choosing a node does, and what is kept at
/// the end.
class ClassTreePart {
 public:
  ClassTreePart(const BrowserParts& parts, RecordListPart& list);

  /// The work of the first activation. @throws DataError
  void Start();
  /// Stores the place for the next start and closes the record set that Start has opened.
  void End();

  /// Shows a node's table, or for a class its tables in the tree. An error is shown and ends it.
  void OpenNode(int node);
  /// Selects the tree node of a table and opens it, as a command does that goes to another table.
  void OpenTable(int parameterRow);

 private:
  void RestoreLastPlace();
  void ChooseNode(int node);
  void LimitToCurrentYear(int node);
  void OpenClass(int node);
  void ShowTable(int node);
  void ShowFailure(const std::exception& error) const;
  void TellUnchanged() const;
  void ForgetUnopened();
  void FollowFilter();
  int BuildTablesFor(const QString& table);
  bool HasCreatedDate(const QString& table) const;

  BrowserParts parts_;
  RecordListPart& list_;
  ChoiceRelay* choice_;
  ViewHint* hint_;
  QString chosenFilter_;  ///< the condition of the second-level node that was chosen last
};

}  // namespace folvane
