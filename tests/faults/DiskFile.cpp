#include "faults/DiskFile.h"

#include <algorithm>
#include <cstring>

namespace folvane::test {

Disk::Handle::~Handle() {
  Unlock(SQLITE_LOCK_NONE);
  if (!isRemovedOnClose_) return;
  const auto named = disk_.files_.find(inode_->name);
  if (named != disk_.files_.end() && named->second == inode_) disk_.files_.erase(named);
}

int Disk::Handle::Read(void* target, int amount, qint64 offset) {
  if (disk_.Fails(DiskFault::Read)) return SQLITE_IOERR_READ;
  const qint64 there = std::clamp<qint64>(inode_->bytes.size() - offset, 0, amount);
  if (there > 0) std::memcpy(target, inode_->bytes.constData() + offset, size_t(there));
  std::memset(static_cast<char*>(target) + there, 0, size_t(amount - there));
  return there < amount ? SQLITE_IOERR_SHORT_READ : SQLITE_OK;
}

void Disk::Handle::Store(const char* bytes, int amount, qint64 offset) {
  if (inode_->bytes.size() < offset + amount) inode_->bytes.resize(offset + amount, '\0');
  std::memcpy(inode_->bytes.data() + offset, bytes, size_t(amount));
  disk_.Note({DiskStep::Kind::Write, inode_->name, offset, QByteArray(bytes, amount)});
}

// A write that fails has written half of what it should. A full disk takes what needs no new room.
int Disk::Handle::Write(const void* source, int amount, qint64 offset) {
  const auto* bytes = static_cast<const char*>(source);
  const bool grows = offset + amount > inode_->bytes.size();
  if (disk_.Fails(DiskFault::Write)) {
    Store(bytes, amount / 2, offset);
    return SQLITE_IOERR_WRITE;
  }
  if (grows && disk_.Fails(DiskFault::Full)) {
    Store(bytes, amount / 2, offset);
    return SQLITE_FULL;
  }
  Store(bytes, amount, offset);
  return SQLITE_OK;
}

int Disk::Handle::Truncate(qint64 size) {
  if (disk_.Fails(DiskFault::Write)) return SQLITE_IOERR_TRUNCATE;
  inode_->bytes.resize(size, '\0');
  disk_.Note({DiskStep::Kind::Truncate, inode_->name, size});
  return SQLITE_OK;
}

int Disk::Handle::Sync() {
  if (disk_.Fails(DiskFault::Sync)) return SQLITE_IOERR_FSYNC;
  disk_.Note({DiskStep::Kind::Sync, inode_->name});
  return SQLITE_OK;
}

int Disk::Handle::Size(sqlite3_int64* size) const {
  if (disk_.Fails(DiskFault::Gone)) return SQLITE_IOERR_FSTAT;
  *size = inode_->bytes.size();
  return SQLITE_OK;
}

// The levels and their rules: https://www.sqlite.org/lockingv3.html
int Disk::Handle::Lock(int level) {
  if (level_ >= level) return SQLITE_OK;
  if (disk_.Fails(DiskFault::Gone)) return SQLITE_IOERR_LOCK;
  if (inode_->pending && inode_->pending != this) return SQLITE_BUSY;
  if (level == SQLITE_LOCK_SHARED) {
    ++inode_->shared;
  } else if (level == SQLITE_LOCK_RESERVED) {
    if (inode_->reserved) return SQLITE_BUSY;
    inode_->reserved = this;
  } else {
    inode_->pending = this;
    if (inode_->shared > 1) {
      level_ = SQLITE_LOCK_PENDING;
      return SQLITE_BUSY;
    }
  }
  level_ = level;
  return SQLITE_OK;
}

int Disk::Handle::Unlock(int level) {
  if (level_ <= level) return SQLITE_OK;
  if (inode_->reserved == this) inode_->reserved = nullptr;
  if (inode_->pending == this) inode_->pending = nullptr;
  if (level == SQLITE_LOCK_NONE) --inode_->shared;
  level_ = level;
  return SQLITE_OK;
}

}  // namespace folvane::test
