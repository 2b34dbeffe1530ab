#pragma once

#include <QtGlobal>
#include <memory>

namespace folvane {

/// The national code page (GBK) as tables, made once from what the system knows of it.
class GbkTable {
 public:
  /// The tables; the first call makes them.
  static const GbkTable& Get();

  /// The bytes of a character beyond ASCII, the first one high; 0 for one that the code page does not have.
  quint16 Encode(char16_t unit) const { return encoded_[unit]; }
  /// The character of two bytes, 0 where they are none.
  char16_t Decode(uchar lead, uchar trail) const {
    return lead < kFirstLead ? char16_t(0) : decoded_[(lead - kFirstLead) << 8 | trail];
  }

 private:
  static constexpr uchar kFirstLead = 0x81;
  static constexpr int kLeads = 0x100 - kFirstLead;

  GbkTable();

  std::unique_ptr<quint16[]> encoded_;
  std::unique_ptr<char16_t[]> decoded_;
};

}  // namespace folvane
