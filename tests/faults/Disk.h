#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <memory>
#include <random>
#include <sqlite3.h>
#include <vector>

namespace folvane::test {

/// What a disk does that fails.
enum class DiskFault { None, Full, Write, Sync, Read, Gone };

/// A write of a file that the power may take before it has reached the disk.
struct DiskStep {
  enum class Kind { Write, Truncate, Sync, Remove } kind;
  QString file;
  qint64 offset = 0;  ///< of a truncation the new size
  QByteArray bytes = {};
};

/// The files of a disk: name and content.
using DiskImage = std::map<QString, QByteArray>;

/// A disk in memory. It can fail, and it remembers what was written when, so that it can tell what would be found after
/// the power has gone.
class Disk {
 public:
  /// The one of this process, which stays: SQLite may keep what it has once opened.
  static Disk& Get();
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

  /// Whether the databases that are opened from now on lie here.
  void Use(bool on);
  /// Forgets the files. Those that are open stay until they are closed.
  void Empty() { files_.clear(); }

  void Fail(DiskFault fault) { fault_ = fault; }

  /// Everything that lies on the disk is kept from now on, and what follows remembered.
  void BeginRecording();
  void EndRecording() { recording_ = false; }
  std::size_t Steps() const { return steps_.size(); }
  /// What may be found when the power goes after so many steps: what was not synced is there, is not, or only in part.
  /// @param syncs whether the disk does what it is told then
  DiskImage AfterPowerLoss(std::size_t steps, std::minstd_rand& random, bool syncs = true) const;
  /// Puts files on the disk.
  void Put(const DiskImage& image);

  struct Inode;
  class Handle;

 private:
  Disk();
  friend class Handle;
  friend struct DiskCalls;
  bool Fails(DiskFault kind);
  void Note(DiskStep step);

  sqlite3_vfs vfs_{};
  sqlite3_vfs* below_;
  std::map<QString, std::shared_ptr<Inode>> files_;
  DiskFault fault_ = DiskFault::None;
  bool recording_ = false;
  DiskImage start_;
  std::vector<DiskStep> steps_;
};

}  // namespace folvane::test
