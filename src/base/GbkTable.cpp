#include "base/GbkTable.h"

#include <QtEndian>

#include "base/IconvConverter.h"

namespace folvane {

const GbkTable& GbkTable::Get() {
  static const GbkTable table;
  return table;
}

GbkTable::GbkTable() : encoded_(new quint16[0x10000]()), decoded_(new char16_t[kLeads << 8]()) {
  const auto passOver = [](const char*, char*&, std::size_t&) { return std::size_t(2); };
  IconvConverter encoder("GBK", "UTF-16LE"), decoder("UTF-16LE", "GBK");
  for (int unit = 0x80; unit < 0x10000; ++unit) {
    const auto little = qToLittleEndian(quint16(unit));
    uchar bytes[4];
    const auto written = encoder.Convert(reinterpret_cast<const char*>(&little), sizeof little,
                                         reinterpret_cast<char*>(bytes), sizeof bytes, passOver);
    if (written == 2) encoded_[std::size_t(unit)] = quint16(bytes[0] << 8 | bytes[1]);
  }
  for (int lead = kFirstLead; lead < 0xff; ++lead) {
    for (int trail = 0x40; trail < 0xff; ++trail) {
      const char bytes[]{char(lead), char(trail)};
      char unit[4];
      if (decoder.Convert(bytes, sizeof bytes, unit, sizeof unit, passOver) == sizeof(char16_t))
        decoded_[std::size_t((lead - kFirstLead) << 8 | trail)] = qFromLittleEndian<char16_t>(unit);
    }
  }
}

}  // namespace folvane
