#include "data/dialect/ShapeCache.h"

#include <QHashFunctions>

namespace folvane::sql {

namespace {

bool IsFor(const Translated& translated, const std::vector<Literal>& literals, const QString& statement) {
  for (std::size_t i = 0; i < translated.pinned.size(); ++i) {
    const Literal& literal = literals[size_t(translated.pinned[i])];
    if (literal.ValueIn(statement) != translated.pinnedValues[qsizetype(i)]) return false;
  }
  return true;
}

}  // namespace

std::size_t ShapeCache::Hash::operator()(std::u16string_view text) const {
  return qHashBits(text.data(), text.size() * sizeof(char16_t));
}

const Translated* ShapeCache::Find(std::u16string_view shape, const std::vector<Literal>& literals,
                                   const QString& statement) {
  const auto found = kept_.find(shape);
  if (found == kept_.end()) return nullptr;
  for (const Translated& translated : found->second)
    if (IsFor(translated, literals, statement)) return &translated;
  return nullptr;
}

const Translated& ShapeCache::Keep(std::u16string_view shape, Translated translated) {
  if (count_ >= kMost) Clear();
  std::vector<Translated>& variants = kept_[std::u16string(shape)];
  if (variants.size() >= kMostOfOneShape) {
    count_ -= variants.size();
    variants.clear();
  }
  ++count_;
  variants.push_back(std::move(translated));
  return variants.back();
}

void ShapeCache::Clear() {
  kept_.clear();
  count_ = 0;
}

}  // namespace folvane::sql
