#pragma once

#include "faults/Disk.h"

namespace folvane::test {

/// A file on the disk, and who has locked it how far.
struct Disk::Inode {
  QString name;
  QByteArray bytes;
  int shared = 0;                          ///< handles that read or more
  const Disk::Handle* reserved = nullptr;  ///< the one that will write
  const Disk::Handle* pending = nullptr;   ///< the one that waits for the readers to go, or writes
};

/// An open file as SQLite works on it.
class Disk::Handle {
 public:
  Handle(Disk& disk, std::shared_ptr<Inode> inode, bool isRemovedOnClose)
      : disk_(disk), inode_(std::move(inode)), isRemovedOnClose_(isRemovedOnClose) {}
  ~Handle();

  int Read(void* target, int amount, qint64 offset);
  int Write(const void* source, int amount, qint64 offset);
  int Truncate(qint64 size);
  int Sync();
  int Size(sqlite3_int64* size) const;
  int Lock(int level);
  int Unlock(int level);
  bool IsReserved() const { return inode_->reserved || inode_->pending; }

 private:
  void Store(const char* bytes, int amount, qint64 offset);

  Disk& disk_;
  std::shared_ptr<Inode> inode_;
  bool isRemovedOnClose_;
  int level_ = SQLITE_LOCK_NONE;
};

}  // namespace folvane::test
