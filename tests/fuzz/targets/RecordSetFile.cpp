// A target of libFuzzer: any bytes are read as a persisted record set, in every way that the library reads one.
#include <QBuffer>
#include <cstdlib>

#include "base/FileUpdate.h"
#include "data/persist/RowLoader.h"
#include "data/persist/TablegramFile.h"

namespace {

using namespace folvane;

/// Takes bytes and forgets them.
class Nowhere : public QIODevice {
 public:
  Nowhere() { open(WriteOnly | Unbuffered); }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char*, qint64 size) override { return size; }
};

/// Read and written again, a file is itself.
void Copy(const QByteArray& file) {
  QBuffer copy;
  copy.open(QIODevice::WriteOnly);
  CopyTablegram(file, copy);
  if (copy.data() != file) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static CodePageReader codePage(kNationalCodePage);
  const QByteArray file(reinterpret_cast<const char*>(data), qsizetype(size));
  try {
    Copy(file);
    Nowhere out;
    PrintTablegram(file, codePage, out);
    LoadTablegram(file, codePage);
  } catch (const FileError&) {
    // what is to happen to nearly all of them
  }
  return 0;
}
