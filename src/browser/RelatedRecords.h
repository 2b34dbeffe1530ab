#pragma once

#include <QString>

namespace folvane {

class RecordList;
class TableNavigation;
class TableParameters;

/// The ways between a table and the tables that hang under it: up to the parent of a record, down to its children.
class RelatedRecords {
 public:
  RelatedRecords(TableNavigation& tables, RecordList& list, TableParameters& parameters)
      : tables_(tables), list_(list), parameters_(parameters) {}

  void OpenParent();
  void OpenChildren();

 private:
  QString ConditionOnCurrent(const QString& field) const;
  void ShowFrom(const QString& condition);

  TableNavigation& tables_;
  RecordList& list_;
  TableParameters& parameters_;
};

}  // namespace folvane
