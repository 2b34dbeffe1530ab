#pragma once

#include <QTemporaryFile>
#include <deque>
#include <utility>

namespace folvane {

/// Pieces of memory that lie in a temporary file without a name: the system brings them in where they are looked at.
/// They never move and go with this object; nobody else can open the file.
class ChunkFile {
 public:
  /// @param recent how many of the last pieces stay in memory
  explicit ChunkFile(std::size_t recent) : recent_(recent) {}

  /// A piece of at least that size in bytes; nullptr where the disk has no room for it.
  char* Add(std::size_t size);

 private:
  QTemporaryFile file_;
  qint64 end_ = 0;
  std::size_t recent_;
  std::deque<std::pair<char*, std::size_t>> inMemory_;
};

}  // namespace folvane
