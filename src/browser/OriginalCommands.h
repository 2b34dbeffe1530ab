#pragma once

#include <QString>
#include <QStringList>

namespace folvane {

class ListStatus;
class OriginalsView;
class RecordList;

/// The commands on the originals of the selected record. Without one they do nothing.
class OriginalCommands {
 public:
  OriginalCommands(RecordList& list, OriginalsView& originals, ListStatus& status)
      : list_(list), originals_(originals), status_(status) {}

  /// @param files what the user has dropped or pasted; none lets the component ask
  void Add(const QStringList& files = {});
  /// Shows the current original.
  void Browse();
  /// The same, and the first one where none is current.
  void Look();
  void Scan();
  /// Deletes the current original after a question.
  void Delete();

 private:
  QString RecordKey() const;
  void Act(const QString& record, const QString& action, const QString& fileId = {}, const QStringList& files = {});

  RecordList& list_;
  OriginalsView& originals_;
  ListStatus& status_;
};

}  // namespace folvane
