#include "faults/Disk.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "faults/DiskFile.h"

namespace folvane::test {

/// The calls through which SQLite reaches the disk.
struct DiskCalls {
  struct File {
    sqlite3_file base;
    Disk::Handle* handle;
  };

  static Disk& Of(sqlite3_vfs* vfs) { return *static_cast<Disk*>(vfs->pAppData); }
  static Disk::Handle& Of(sqlite3_file* file) { return *reinterpret_cast<File*>(file)->handle; }

  static int Close(sqlite3_file* file) {
    delete std::exchange(reinterpret_cast<File*>(file)->handle, nullptr);
    return SQLITE_OK;
  }
  static int CheckReserved(sqlite3_file* file, int* result) {
    *result = Of(file).IsReserved();
    return SQLITE_OK;
  }

  static int Open(sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags, int* outFlags) {
    static const sqlite3_io_methods methods{
        .iVersion = 1,
        .xClose = Close,
        .xRead = [](sqlite3_file* f, void* to, int amount, sqlite3_int64 at) { return Of(f).Read(to, amount, at); },
        .xWrite = [](sqlite3_file* f, const void* from, int amount,
                     sqlite3_int64 at) { return Of(f).Write(from, amount, at); },
        .xTruncate = [](sqlite3_file* f, sqlite3_int64 size) { return Of(f).Truncate(size); },
        .xSync = [](sqlite3_file* f, int) { return Of(f).Sync(); },
        .xFileSize = [](sqlite3_file* f, sqlite3_int64* size) { return Of(f).Size(size); },
        .xLock = [](sqlite3_file* f, int level) { return Of(f).Lock(level); },
        .xUnlock = [](sqlite3_file* f, int level) { return Of(f).Unlock(level); },
        .xCheckReservedLock = CheckReserved,
        .xFileControl = [](sqlite3_file*, int, void*) { return SQLITE_NOTFOUND; },
        .xSectorSize = [](sqlite3_file*) { return 512; },
        .xDeviceCharacteristics = [](sqlite3_file*) { return 0; },
        .xShmMap = nullptr,
        .xShmLock = nullptr,
        .xShmBarrier = nullptr,
        .xShmUnmap = nullptr,
        .xFetch = nullptr,
        .xUnfetch = nullptr};
    Disk& disk = Of(vfs);
    file->pMethods = nullptr;
    if (disk.Fails(DiskFault::Gone)) return SQLITE_CANTOPEN;
    const QString name = QString::fromUtf8(path ? path : "");
    std::shared_ptr<Disk::Inode>& inode = disk.files_[name];
    if (!inode || name.isEmpty()) {
      if (!(flags & SQLITE_OPEN_CREATE)) return disk.files_.erase(name), SQLITE_CANTOPEN;
      inode = std::make_shared<Disk::Inode>();
      inode->name = name;
    }
    new (file) File{{&methods}, new Disk::Handle(disk, inode, flags & SQLITE_OPEN_DELETEONCLOSE)};
    if (outFlags) *outFlags = flags;
    return SQLITE_OK;
  }

  static int Delete(sqlite3_vfs* vfs, const char* path, int) {
    Disk& disk = Of(vfs);
    if (disk.Fails(DiskFault::Write)) return SQLITE_IOERR_DELETE;
    const QString name = QString::fromUtf8(path);
    if (disk.files_.erase(name) == 0) return SQLITE_IOERR_DELETE_NOENT;
    disk.Note({DiskStep::Kind::Remove, name});
    return SQLITE_OK;
  }

  static int Access(sqlite3_vfs* vfs, const char* path, int, int* result) {
    Disk& disk = Of(vfs);
    if (disk.Fails(DiskFault::Gone)) return SQLITE_IOERR_ACCESS;
    *result = disk.files_.contains(QString::fromUtf8(path));
    return SQLITE_OK;
  }

  static int FullPath(sqlite3_vfs*, const char* path, int size, char* target) {
    sqlite3_snprintf(size, target, "%s", path);
    return SQLITE_OK;
  }
};

Disk::Disk() : below_(sqlite3_vfs_find(nullptr)) {
  vfs_ = *below_;
  vfs_.iVersion = 1;
  vfs_.szOsFile = sizeof(DiskCalls::File);
  vfs_.pNext = nullptr;
  vfs_.zName = "folvane-test-disk";
  vfs_.pAppData = this;
  vfs_.xOpen = DiskCalls::Open;
  vfs_.xDelete = DiskCalls::Delete;
  vfs_.xAccess = DiskCalls::Access;
  vfs_.xFullPathname = DiskCalls::FullPath;
}

Disk& Disk::Get() {
  static Disk disk;
  return disk;
}

void Disk::Use(bool on) { sqlite3_vfs_register(on ? &vfs_ : below_, 1); }

// A disk that is gone fails at everything.
bool Disk::Fails(DiskFault kind) { return fault_ != DiskFault::None && (fault_ == kind || fault_ == DiskFault::Gone); }

void Disk::Note(DiskStep step) {
  if (recording_ && !step.file.isEmpty()) steps_.push_back(std::move(step));
}

void Disk::BeginRecording() {
  start_.clear();
  for (const auto& [name, inode] : files_) start_[name] = inode->bytes;
  steps_.clear();
  recording_ = true;
}

void Disk::Put(const DiskImage& image) {
  for (const auto& [name, bytes] : image) {
    auto inode = std::make_shared<Inode>();
    inode->name = name;
    inode->bytes = bytes;
    files_[name] = inode;
  }
}

namespace {

constexpr qsizetype kSector = 512;

void Apply(const DiskStep& step, QByteArray& bytes) {
  if (step.kind == DiskStep::Kind::Truncate) {
    bytes.resize(step.offset, '\0');
  } else {
    if (bytes.size() < step.offset + step.bytes.size()) bytes.resize(step.offset + step.bytes.size(), '\0');
    std::copy(step.bytes.begin(), step.bytes.end(), bytes.begin() + step.offset);
  }
}

// Each unsynced write has reached the disk whole, up to some sector, or not at all, whatever became of others.
void ApplySome(const std::vector<DiskStep>& steps, QByteArray& bytes, std::minstd_rand& random) {
  for (DiskStep step : steps) {
    switch (random() % 3) {
      case 0:
        continue;
      case 1:
        step.bytes.truncate(qsizetype(random() % (unsigned(step.bytes.size()) / kSector + 1)) * kSector);
        if (step.kind == DiskStep::Kind::Write && step.bytes.isEmpty()) continue;
        break;
      default:
        break;
    }
    Apply(step, bytes);
  }
}

}  // namespace

DiskImage Disk::AfterPowerLoss(std::size_t count, std::minstd_rand& random, bool syncs) const {
  DiskImage image = start_;
  std::map<QString, std::vector<DiskStep>> unsynced;
  std::map<QString, QByteArray> removed;  // whose removal may not have reached the disk
  for (std::size_t at = 0; at < count; ++at) {
    const DiskStep& step = steps_[at];
    if (step.kind == DiskStep::Kind::Sync) {
      if (!syncs) continue;
      for (const DiskStep& before : unsynced[step.file]) Apply(before, image[step.file]);
      unsynced[step.file].clear();
      removed.clear();
    } else if (step.kind == DiskStep::Kind::Remove) {
      ApplySome(unsynced[step.file], image[step.file], random);
      unsynced[step.file].clear();
      removed[step.file] = image[step.file];
      image.erase(step.file);
    } else {
      removed.erase(step.file);
      unsynced[step.file].push_back(step);
    }
  }
  for (const auto& [name, bytes] : removed)
    if (random() % 2) image[name] = bytes;
  for (const auto& [name, steps] : unsynced)
    if (!steps.empty()) ApplySome(steps, image[name], random);
  return image;
}

}  // namespace folvane::test
