#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "components/originals/RecordOriginals.h"

namespace folvane::originals {

/// How far a file has come on its way to being an original.
enum class AddStep { Waiting, Adding, Added, Failed, Cancelled };

struct QueuedFile {
  FileToAdd file;
  qint64 size = 0;  ///< in bytes; 0 for what cannot be read
  AddStep step = AddStep::Waiting;
  int percent = 0;  ///< of Adding
  QString problem;  ///< of Failed

  QString StepText() const;
};

/// Files that become originals of a record, one after the other.
class AddQueue {
 public:
  explicit AddQueue(RecordOriginals& originals) : originals_(originals) {}

  const std::vector<QueuedFile>& Files() const { return files_; }
  /// The queued file of that path once only.
  void Append(const FileToAdd& file);
  void Remove(std::size_t index) { files_.erase(files_.begin() + std::ptrdiff_t(index)); }
  void Rename(std::size_t index, const QString& name);

  /// Adds every file that is not added yet; one that fails does not keep the others.
  /// @param show told when the file of that index has come further; answers false to end it: that file is cancelled,
  ///             those behind it wait
  void Run(const std::function<bool(std::size_t index)>& show);

  int Added() const { return Count(AddStep::Added); }
  int Failed() const { return Count(AddStep::Failed); }
  /// Those that are not added yet.
  int Pending() const { return int(files_.size()) - Added(); }

 private:
  int Count(AddStep step) const;
  void AddOne(QueuedFile& queued, const std::function<bool()>& show);

  RecordOriginals& originals_;
  std::vector<QueuedFile> files_;
};

}  // namespace folvane::originals
