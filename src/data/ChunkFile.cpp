#include "data/ChunkFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace folvane {

char* ChunkFile::Add(std::size_t size) {
  if (!file_.isOpen() && !file_.open()) return nullptr;
  const auto page = std::size_t(sysconf(_SC_PAGESIZE));
  size = (size + page - 1) / page * page;
  // Room is taken now: a mapped file without it would end the program at the write.
  if (posix_fallocate(file_.handle(), end_, qint64(size)) != 0) return nullptr;
  auto* chunk = reinterpret_cast<char*>(file_.map(end_, qint64(size)));
  if (!chunk) return nullptr;
  end_ += qint64(size);
  inMemory_.emplace_back(chunk, size);
  if (inMemory_.size() > recent_) {
    // What is in the file comes back from there.
    madvise(inMemory_.front().first, inMemory_.front().second, MADV_DONTNEED);
    inMemory_.pop_front();
  }
  return chunk;
}

}  // namespace folvane
