#include "persist/Tablegrams.h"

#include <QBuffer>
#include <QDir>
#include <QtEndian>

#include "data/persist/TablegramFile.h"
#include "data/persist/Utf16.h"

namespace folvane::test {
using namespace Qt::Literals::StringLiterals;

namespace {

template <typename Number>
QByteArray Little(Number number) {
  number = qToLittleEndian(number);
  return {reinterpret_cast<const char*>(&number), sizeof number};
}

}  // namespace

QByteArray Hex(const char* numbers) { return QByteArray::fromHex(numbers); }

QByteArray FlatHead(int columns, int rows) {
  return Hex("01 07 54 47 21 00 00 00 00"
             "02 19 00 B6 92 F2 3F 04 B2 CF 11 8D 23 00 AA 00 5F FE 58 01 00 00 00 00 00 00 00 00"
             "03 67 00 D2 AD 63 F6 02 EB CF 11 B0 E3 00 AA 00 3F 00 0F 00 00 00") +
         Little(quint16(columns)) + Little(quint16(columns)) + Hex("00 00 00 00 00 00") + Little(quint32(rows)) +
         Hex("01 00 C1 3C 8E B6 EB 6D D0 11 8D F6 00 AA 00 5F FE 58 07 00"
             "0B 00 00 00 04 00 01 00 00 00 13 00 00 00 04 00 01 00 00 00 0D 00 00 00 00 00 0E 00 00 00 00 00"
             "0F 00 00 00 00 00 10 00 00 00 00 00 12 00 00 00 00 00"
             "10 7C 00 02 00 BE 22 B5 C8 F3 5C CE 11 AD E5 00 AA 00 44 77 3D 04 00"
             "7F 00 00 00 02 00 FF FF 86 00 00 00 02 00 FF FF 22 00 00 00 04 00 00 00 00 00"
             "49 00 00 00 04 00 00 00 00 00"
             "C1 3C 8E B6 EB 6D D0 11 8D F6 00 AA 00 5F FE 58 05 00"
             "04 00 00 00 04 00 0F 00 00 00 05 00 00 00 04 00 02 00 00 00 03 00 00 00 04 00 0F 00 00 00"
             "07 00 00 00 04 00 32 00 00 00 08 00 00 00 04 00 03 00 00 00");
}

QByteArray ColumnBytes(const ColumnSpec& column) {
  QByteArray name;
  AppendUtf16(name, column.name);
  return Hex("06") + Little(quint16(29 + name.size())) + Hex("80 01 00") + Little(quint16(column.ordinal)) +
         Little(quint16(column.name.size())) + name + Little(quint16(column.type)) + Little(column.size) +
         Little(quint32(column.precision)) + Little(qint32(column.scale)) + Little(quint32(column.flags)) +
         Hex("00 00 FF FF");
}

QByteArray RowKindsFile() {
  return FlatHead(2, 3) + ColumnBytes({1, u"ID"_s, 3, 4, 0x14}) + ColumnBytes({2, u"VALUE_FIELD"_s, 3, 4, 0x34}) +
         Hex("07 FF 02 00 00 00 FF FF FF FF 0C"
             "07 FF 01 00 00 00 01 00 00 80 0A 40 00 01 00 00 00"
             "07 FF 03 00 00 00 00 00 00 00"
             "0D C0 00 04 00 00 00 FF FF FF 7F 0F");
}

QByteArray TextsFile() {
  return FlatHead(5, 2) + ColumnBytes({1, u"ID"_s, 3, 4, 0x14}) + ColumnBytes({2, u"TITLE"_s, 130, 40, 0x24}) +
         ColumnBytes({3, u"CODE"_s, 129, 4, 0x34}) + ColumnBytes({4, u"MEMO"_s, 130, 0xffffffff, 0xa4}) +
         ColumnBytes({5, u"D"_s, 135, 16, 0x34}) +
         Hex("07 FF 01 00 00 00 04 73 51 8E 4E 41 30 30 31 06 00 00 00 7F 95 87 65 2C 67"
             "D4 07 05 00 11 00 08 00 1E 00 00 00 00 00 00 00"
             "07 2F 02 00 00 00 00 00 00 00 0F");
}

QByteArray Copied(const QByteArray& file) {
  QBuffer copy;
  copy.open(QIODevice::WriteOnly);
  CopyTablegram(file, copy);
  return copy.data();
}

QStringList Samples() {
  const QDir folder(QStringLiteral(PERSISTED_SAMPLES));
  QStringList samples;
  for (const QString& name : folder.entryList({u"*.adtg"_s}, QDir::Files, QDir::Name))
    samples << folder.filePath(name.chopped(5));
  return samples;
}

}  // namespace folvane::test
