#pragma once

#include <QString>

#include "browser/BrowserParts.h"

namespace folvane {

class ClassTreePart;
class RecordListPart;

/// The ways between a table and the tables that hang under it: up to the parent of a record, down to its children.
class RelatedRecords {
 public:
  RelatedRecords(const BrowserParts& parts, ClassTreePart& tree, RecordListPart& list)
      : parts_(parts), tree_(tree), list_(list) {}

  void OpenParent();
  void OpenChildren();

 private:
  QString ConditionOnCurrent(const QString& field) const;
  void ShowFrom(const QString& condition);

  BrowserParts parts_;
  ClassTreePart& tree_;
  RecordListPart& list_;
};

}  // namespace folvane
