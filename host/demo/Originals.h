#pragma once

#include <vector>

#include "catalogue/RowWriter.h"
#include "host/demo/Letter.h"
#include "host/demo/Random.h"
#include "host/demo/RecordKeys.h"

namespace folvane::demo {

/// A file in the store, which several records may hold.
struct StoredFile {
  QString id, name, type, path;
  qint64 size = 0;
};

/// The originals of the records, Original_Text, and their files. About a third of the documents have any. Only the
/// newest have files of their own; all others hold some sample pages in common, so that a million records cost no more
/// files than a thousand.
class Originals {
 public:
  static constexpr int kMostFiles = 300;

  /// @param directory the store, "" when only the rows are wanted
  Originals(Connection& connection, const QString& directory, QDate samplesOf, Random& random);

  /// Gives a document its originals, or none. @throws std::runtime_error when a file cannot be written
  std::vector<StoredFile> Attach(const Letter& letter, bool ownFiles);
  /// Gives a record the same originals as another has.
  void Share(const QString& recordId, const std::vector<StoredFile>& files);
  void Finish() { rows_.Finish(); }

 private:
  void MakeSamples(QDate day);
  StoredFile Store(const Letter& letter, const QString& id, int order);

  QString directory_;
  Random& random_;
  RecordKeys ofIncoming_, ofOutgoing_;
  RowWriter rows_;
  std::vector<StoredFile> samples_;
  int files_ = 0;
};

}  // namespace folvane::demo
