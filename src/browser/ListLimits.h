#pragma once

#include <QHash>
#include <QString>

namespace folvane {

class RecordList;
class SearchBar;
class TableNavigation;
class TableParameters;

/// Says in words what limits the record list, and why it is empty.
class ListLimits {
 public:
  ListLimits(const RecordList& list, const TableParameters& parameters, const TableNavigation& tables,
             const SearchBar& search)
      : list_(list), parameters_(parameters), tables_(tables), search_(search) {}

  /// Keeps the words of a condition that cannot be told from its text.
  void KeepWords(const QString& filter, const QString& words) { words_.insert(filter, words); }

  /// The condition of the list by its kind and in words, such as "年度：2026"; "" for none.
  QString FilterText() const;
  /// The user's rights in words where they limit the list, "" where they do not.
  QString RightsText() const;
  /// What the user of a table without anything to see can do next, "" for a list that has rows to show.
  QString EmptyListHint() const;

 private:
  QString CaptionOf(const QString& field) const;
  QString TableCaption() const;
  QString KeyHint() const;
  QString RefusedHint() const;
  QString UnshownHint() const;
  QString NoRecordsHint() const;

  const RecordList& list_;
  const TableParameters& parameters_;
  const TableNavigation& tables_;
  const SearchBar& search_;
  QHash<QString, QString> words_;  ///< by condition
};

}  // namespace folvane
