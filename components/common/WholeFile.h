#pragma once

#include <QSaveFile>

namespace folvane::components {

/// Puts the file in its place where the disk has all of it. A write that is buffered and then taken only in part counts
/// as done to the file, which would put what there is in the place of the old one.
inline bool CommitWhole(QSaveFile& file) { return file.flush() && file.size() >= file.pos() && file.commit(); }

}  // namespace folvane::components
