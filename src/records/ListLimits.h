#pragma once

#include <QHash>
#include <QString>
#include <exception>
#include <functional>

namespace folvane {

class ClassTree;
class RecordList;
class TableParameters;

/// Says in words what limits the record list, and why it is empty.
class ListLimits {
 public:
  ListLimits(const RecordList& list, const TableParameters& parameters, const ClassTree& tree)
      : list_(list), parameters_(parameters), tree_(tree) {}

  /// Gives captions to fields that are no columns of the list; "" leaves a field its own name.
  void SetCaptions(std::function<QString(const QString& field)> captionOf) { captionOf_ = std::move(captionOf); }
  /// Has an empty list name the commands of its window: for adding a record, to those who may, and for the order.
  void OfferCommands() { offersCommands_ = true; }

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
  const ClassTree& tree_;
  std::function<QString(const QString&)> captionOf_;
  bool offersCommands_ = false;
  QHash<QString, QString> words_;  ///< by condition
};

/// Tells that the records of the table in view could not be opened, and how to lift the condition that was refused.
void ShowOpeningFailure(const RecordList& list, const std::exception& error);

}  // namespace folvane
