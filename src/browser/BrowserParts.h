#pragma once

class QTreeView;

namespace folvane {

struct BrowserState;
class BrowserCommands;
class BrowserStatus;
class FilterBar;
class OriginalsView;
class RecordListView;
class SearchBar;
class ViewHint;

/// The record browser's state and controls, as its parts work on them.
struct BrowserParts {
  BrowserState& State;
  BrowserCommands& Commands;
  BrowserStatus& Status;
  SearchBar& Search;
  QTreeView& Tree;
  RecordListView& List;
  OriginalsView& Originals;
  FilterBar& Limits;
  ViewHint& ListHint;
};

}  // namespace folvane
