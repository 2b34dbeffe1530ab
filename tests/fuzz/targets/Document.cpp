// A target of libFuzzer: any bytes are opened as an original that is looked at. The first byte tells the ending of the
// file's name. The decoders are those of the system and not watched; what is watched is what becomes of their answers.
#include <QGuiApplication>
#include <cstdlib>

#include "components/documents/TextDecoding.h"
#include "components/documents/Thumbnail.h"

using namespace folvane::documents;

namespace {

const QSize kSize(96, 96);

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication application(*count, *arguments);
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const QStringList endings{".pdf", ".png", ".jpg", ".tif", ".bmp", ".gif", ".webp", ".txt", ".doc"};
  const QByteArray content(reinterpret_cast<const char*>(data) + 1, qsizetype(size) - 1);
  const QImage image = Thumbnail(endings[data[0] % endings.size()], content, kSize);
  if (image.width() > kSize.width() || image.height() > kSize.height()) std::abort();
  DecodedText(content);
  return 0;
}
