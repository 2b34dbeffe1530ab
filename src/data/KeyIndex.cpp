#include "data/KeyIndex.h"

#include <bit>

namespace folvane {

namespace {

std::size_t HashOf(const Cell* key, int count) {
  std::uint64_t hash = 0xcbf29ce484222325u;  // FNV-1a, http://www.isthe.com/chongo/tech/comp/fnv/
  const auto add = [&](uchar byte) { hash = (hash ^ byte) * 0x100000001b3u; };
  for (int i = 0; i < count; ++i) {
    for (int shift = 0; key[i].kind == Cell::Integer && shift < 64; shift += 8) add(uchar(key[i].integer >> shift));
    for (const char c : key[i].bytes) add(uchar(c));
    add(0);
  }
  return std::size_t(hash ^ (hash >> 32));
}

}  // namespace

bool SameCell(const Cell& one, const Cell& other) {
  return one.kind == other.kind && one.integer == other.integer && one.bytes == other.bytes;
}

KeyIndex::KeyIndex(const RowStore& keys) : keys_(keys), isOfAll_(true) { Fill(keys.RowCount()); }

KeyIndex::KeyIndex(const RowStore& keys, std::vector<RowId> rows)
    : keys_(keys), isOfAll_(false), rows_(std::move(rows)) {
  Fill(rows_.size());
}

void KeyIndex::Fill(std::size_t count) {
  mask_ = std::bit_ceil(count + 1) - 1;
  heads_.assign(mask_ + 1, 0);
  links_.assign(count, 0);
  std::vector<Cell> key(std::size_t(keys_.ColumnCount()));
  for (std::size_t entry = 0; entry < count; ++entry) {
    keys_.Read(RowAt(entry), key.data());
    std::uint32_t& head = heads_[HashOf(key.data(), keys_.ColumnCount()) & mask_];
    links_[entry] = head;
    head = std::uint32_t(entry + 1);
  }
}

std::optional<RowId> KeyIndex::Find(const Cell* key) const {
  const int count = keys_.ColumnCount();
  for (std::uint32_t next = heads_[HashOf(key, count) & mask_]; next != 0; next = links_[next - 1]) {
    const RowId row = RowAt(next - 1);
    bool isSame = true;
    for (int i = 0; isSame && i < count; ++i) isSame = SameCell(keys_.At(row, i), key[i]);
    if (isSame) return row;
  }
  return std::nullopt;
}

}  // namespace folvane
