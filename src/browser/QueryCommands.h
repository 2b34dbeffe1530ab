#pragma once

namespace folvane {

class BrowserStatus;
class ListLimits;
class RecordList;
class TableParameters;
struct AskedQuery;

/// The commands that say which records the list shows and in what order, and those that go to one of them by number.
class QueryCommands {
 public:
  QueryCommands(RecordList& list, TableParameters& parameters, ListLimits& limits, BrowserStatus& status)
      : list_(list), parameters_(parameters), limits_(limits), status_(status) {}

  void SimpleQuery();
  void CompoundQuery();
  /// Takes query and year away: all records that the user may see.
  void Refresh();
  void Sort();
  /// Chooses the fields by which the class tree groups the tables.
  void SetBrowseOrder();
  /// Asks for the number of a record, or of a page, and goes there.
  void GoToNumber(bool byPage);

 private:
  void Show(const AskedQuery& query);

  RecordList& list_;
  TableParameters& parameters_;
  ListLimits& limits_;
  BrowserStatus& status_;
};

}  // namespace folvane
