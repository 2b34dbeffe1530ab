#include "components/common/ImageLimit.h"

#include <QImageReader>
#include <mutex>

namespace folvane {

void AllowImagesOf(qint64 bytes) {
  static std::mutex mutex;
  const std::scoped_lock lock(mutex);
  const int megabytes = int(bytes >> 20), limit = QImageReader::allocationLimit();
  if (limit > 0 && limit < megabytes) QImageReader::setAllocationLimit(megabytes);
}

}  // namespace folvane
