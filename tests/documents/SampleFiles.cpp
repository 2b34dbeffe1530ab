#include "documents/SampleFiles.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QtEndian>
#include <numeric>

namespace folvane::test {
namespace {

template <typename Number>
QByteArray Bytes(Number number, bool big) {
  QByteArray bytes(sizeof(Number), 0);
  big ? qToBigEndian(number, bytes.data()) : qToLittleEndian(number, bytes.data());
  return bytes;
}

// An entry of a TIFF directory: type 3 is a short, 4 a long, 5 the place of a fraction.
QByteArray TiffEntry(quint16 tag, quint16 type, quint32 value) {
  return Bytes(tag, false) + Bytes(type, false) + Bytes(quint32(1), false) + Bytes(value, false);
}

quint32 Crc(const QByteArray& bytes) {
  quint32 crc = 0xffffffff;
  for (const char byte : bytes) {
    crc ^= uchar(byte);
    for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? 0xedb88320 ^ (crc >> 1) : crc >> 1;
  }
  return ~crc;
}

QByteArray Rc4(const QByteArray& key, QByteArray data) {
  std::array<uchar, 256> state;
  std::iota(state.begin(), state.end(), uchar(0));
  for (int i = 0, j = 0; i < 256; ++i) {
    j = (j + state[i] + uchar(key[i % key.size()])) & 255;
    std::swap(state[i], state[j]);
  }
  int i = 0, j = 0;
  for (char& byte : data) {
    i = (i + 1) & 255;
    j = (j + state[i]) & 255;
    std::swap(state[i], state[j]);
    byte = char(byte ^ state[(state[i] + state[j]) & 255]);
  }
  return data;
}

QByteArray Md5(const QByteArray& data) { return QCryptographicHash::hash(data, QCryptographicHash::Md5); }

const QByteArray kPadding = QByteArray::fromHex("28bf4e5e4e758a4164004e56fffa01082e2e00b6d0683e802f0ca9fe6453697a");
const QByteArray kFileId = "0123456789abcdef";

struct Encryption {
  QByteArray key, owner, user;

  explicit Encryption(const QByteArray& password) {
    const QByteArray padded = (password + kPadding).left(32);
    owner = Rc4(Md5(padded).left(5), padded);
    key = Md5(padded + owner + Bytes(qint32(-4), false) + kFileId).left(5);
    user = Rc4(key, kPadding);
  }
  QByteArray Stream(const QByteArray& content, int object) const {
    return Rc4(Md5(key + Bytes(quint32(object), false).left(3) + QByteArray(2, 0)).left(10), content);
  }
  QByteArray Object() const {
    return "<</Filter/Standard/V 1/R 2/P -4/O<" + owner.toHex() + ">/U<" + user.toHex() + ">>>";
  }
};

}  // namespace

QByteArray ImageFile(const QImage& image, const char* format) {
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format, 95);
  return file;
}

QImage FilledImage(int width, int height, const QColor& colour) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

QByteArray GreyTiff(const QList<uchar>& shades) {
  constexpr quint32 kWidth = 40, kHeight = 30, kEntries = 11, kDirectory = 2 + kEntries * 12 + 4, kFraction = 8;
  QByteArray file = QByteArray("II*\0", 4) + Bytes(quint32(8), false);
  for (qsizetype i = 0; i < shades.size(); ++i) {
    const quint32 start = quint32(file.size()), fraction = start + kDirectory, pixels = fraction + kFraction;
    const quint32 next = i + 1 < shades.size() ? pixels + kWidth * kHeight : 0;
    file += Bytes(quint16(kEntries), false) + TiffEntry(256, 4, kWidth) + TiffEntry(257, 4, kHeight) +
            TiffEntry(258, 3, 8) + TiffEntry(259, 3, 1) + TiffEntry(262, 3, 1) + TiffEntry(273, 4, pixels) +
            TiffEntry(278, 4, kHeight) + TiffEntry(279, 4, kWidth * kHeight) + TiffEntry(282, 5, fraction) +
            TiffEntry(283, 5, fraction) + TiffEntry(296, 3, 2) + Bytes(next, false) + Bytes(quint32(100), false) +
            Bytes(quint32(1), false) + QByteArray(kWidth * kHeight, char(shades[i]));
  }
  return file;
}

QByteArray PngHead(quint32 width, quint32 height) {
  const QByteArray head = "IHDR" + Bytes(width, true) + Bytes(height, true) + QByteArray::fromHex("0802000000");
  return QByteArray::fromHex("89504e470d0a1a0a0000000d") + head + Bytes(Crc(head), true) +
         QByteArray::fromHex("0000100049444154789c");
}

QByteArray PdfOfPages(int pages, const QByteArray& password) {
  const Encryption encryption(password);
  const bool isEncrypted = !password.isEmpty();
  QByteArray content = "247 371 100 100 re f";
  if (isEncrypted) content = encryption.Stream(content, 3);
  QByteArrayList objects{"<</Type/Catalog/Pages 2 0 R>>",
                         {},
                         "<</Length " + QByteArray::number(content.size()) + ">>stream\n" + content + "\nendstream"};
  QByteArray kids;
  for (int page = 0; page < pages; ++page) {
    kids += QByteArray::number(objects.size() + 1) + " 0 R ";
    objects << "<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 3 0 R/Resources<<>>>>";
  }
  objects[1] = "<</Type/Pages/Kids[" + kids + "]/Count " + QByteArray::number(pages) + ">>";
  QByteArray trailer = "/Root 1 0 R";
  if (isEncrypted) {
    objects << encryption.Object();
    trailer += "/Encrypt " + QByteArray::number(objects.size()) + " 0 R/ID[<" + kFileId.toHex() + "><" +
               kFileId.toHex() + ">]";
  }
  QByteArray file = "%PDF-1.4\n", table;
  for (qsizetype i = 0; i < objects.size(); ++i) {
    table += QByteArray::number(file.size()).rightJustified(10, '0') + " 00000 n \n";
    file += QByteArray::number(i + 1) + " 0 obj" + objects[i] + "endobj\n";
  }
  const QByteArray size = QByteArray::number(objects.size() + 1);
  return file + "xref\n0 " + size + "\n0000000000 65535 f \n" + table + "trailer<</Size " + size + trailer +
         ">>\nstartxref\n" + QByteArray::number(file.size()) + "\n%%EOF\n";
}

}  // namespace folvane::test
