#pragma once

#include <QString>

#include "browser/BrowserParts.h"

namespace folvane {

class RecordListPart;
struct AskedQuery;

/// The commands that say which records the list shows and in what order, and those that go to one of them by number.
class QueryCommands {
 public:
  QueryCommands(const BrowserParts& parts, RecordListPart& list) : parts_(parts), list_(list) {}

  /// Searches by the condition of the search bar.
  void QuickSearch();
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
  /// @param words the same for reading where it cannot be told from its text; "" for none
  void Show(const QString& filter, const QString& words = {});

  BrowserParts parts_;
  RecordListPart& list_;
};

}  // namespace folvane
