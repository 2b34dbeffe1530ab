#pragma once

namespace folvane {

class ListStatus;
class ListLimits;
class RecordList;
class TableParameters;
struct AskedQuery;

/// The commands that say which records a list shows and in what order.
class QueryCommands {
 public:
  QueryCommands(RecordList& list, TableParameters& parameters, ListLimits& limits, ListStatus& status)
      : list_(list), parameters_(parameters), limits_(limits), status_(status) {}

  void SimpleQuery();
  void CompoundQuery();
  /// Takes query and year away: all records that the user may see.
  void Refresh();
  void Sort();
  /// Chooses the fields by which the class tree groups the tables.
  void SetBrowseOrder();

 private:
  void Show(const AskedQuery& query);

  RecordList& list_;
  TableParameters& parameters_;
  ListLimits& limits_;
  ListStatus& status_;
};

}  // namespace folvane
